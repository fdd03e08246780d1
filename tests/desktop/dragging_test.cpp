// Real drags from and to another program, and what another program has put on the clipboard.
#include <windows.h>
// Needs <windows.h> first.
#include <ole2.h>

#include "gateway_test.h"
#include "harness/clipboard.h"
#include "harness/dragging.h"
#include "harness/files.h"
#include "harness/link_file.h"
#include "harness/paths.h"
#include "harness/status_bar.h"

namespace desktop_tests {
namespace {

using harness::DragSource;
using harness::DropReceiver;

/// Where the other program's window is: the corner of the screen.
constexpr POINT corner{0, 0};

class Dragging : public GatewayTest {
 protected:
  void SetUp() override {
    GatewayApp::skipExample();
    plot_ = app->addFileElsewhere(L"Field Work\\plot \u00E4, 1.fp3");
    folder_ = plot_.substr(0, plot_.rfind(L'\\'));
    app->writeCatalogue(record(L"CW3", L"C:\\Gone\\far.cw3", L"1/3/2026"));
    harness::writeFile(webList(), "\"Home\",\"http://home.example/\"\r\n");
    app->startToMain();
    app->selectTab(Tab::open);
    ASSERT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, 1));
    harness::bringToFront(app->main());
  }

  [[nodiscard]] std::wstring webList() const { return app->folder() + L"\\QMKWebList.txt"; }
  [[nodiscard]] std::wstring status() const {
    return harness::StatusBarReader(GetDlgItem(app->main(), ids::barStatus)).part(0);
  }
  [[nodiscard]] POINT centreOfList(int tab) const {
    return harness::centreOf(harness::screenRect(app->list(tab).window()));
  }
  /// Drags what is on the clipboard over a list. Returns the effect that the pointer shows.
  DWORD hover(const DragSource& source, int tab) const {
    harness::beginDrag(source.centre(), centreOfList(tab), source.window());
    POINT place = centreOfList(tab);
    // The answer comes after one of the next moves.
    for (int n = 0; n < 4; ++n) {
      harness::moveTo({place.x + n, place.y});
      harness::send(app->main(), WM_NULL);
      Sleep(harness::pollMs);
    }
    return source.feedback();
  }
  /// Drops what is on the clipboard on a list. Returns the effect that the source is told.
  DWORD drop(int tab) const {
    const DragSource source(corner, DROPEFFECT_COPY | DROPEFFECT_MOVE | DROPEFFECT_LINK);
    hover(source, tab);
    harness::endDrag();
    EXPECT_TRUE(eventually([&] { return source.ended(); }, 1));
    return source.effect();
  }
  /// Gives a list the focus.
  void toList(int tab) const {
    harness::clickAt(harness::centreOf(app->list(tab).textOnScreen(0)), app->main());
    ASSERT_TRUE(eventually([&] { return app->list(tab).selected(); }, std::optional<int>(0)));
  }
  /// Drags the first row of a list to a receiver.
  void dragRow(int tab, const DropReceiver& receiver) const {
    const auto list = app->list(tab);
    harness::beginDrag(harness::centreOf(list.textOnScreen(0)), receiver.centre(), app->main());
    harness::moveTo({receiver.centre().x + 3, receiver.centre().y});
    harness::endDrag();
  }

  std::wstring plot_;
  std::wstring folder_;
};

TEST_F(Dragging, FilesDroppedOnOpenAreListedAndStay) {
  harness::copyFiles({plot_});
  EXPECT_EQ(drop(Tab::open), static_cast<DWORD>(DROPEFFECT_COPY));
  EXPECT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, 2));
  EXPECT_TRUE(eventually([&] { return status(); }, L"1 added"));
  EXPECT_TRUE(harness::readFile(plot_).has_value());
}

TEST_F(Dragging, AFolderDroppedOnOpenIsLookedThrough) {
  harness::writeFile(folder_ + L"\\second.bi3", "x");
  harness::writeFile(folder_ + L"\\notes.txt", "x");
  harness::copyFiles({folder_});
  EXPECT_EQ(drop(Tab::open), static_cast<DWORD>(DROPEFFECT_COPY));
  EXPECT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, 3));
  EXPECT_TRUE(eventually([&] { return status(); }, L"2 added"));
}

TEST_F(Dragging, ThePointerShowsWhatTheListDoesNotTake) {
  harness::writeFile(folder_ + L"\\notes.txt", "x");
  harness::copyFiles({folder_ + L"\\notes.txt"});
  const DragSource source(corner, DROPEFFECT_COPY);
  EXPECT_EQ(hover(source, Tab::open), static_cast<DWORD>(DROPEFFECT_NONE));
  harness::endDrag();
  EXPECT_TRUE(eventually([&] { return source.ended(); }, 1));
  EXPECT_EQ(source.effect(), static_cast<DWORD>(DROPEFFECT_NONE));
  EXPECT_EQ(app->list(Tab::open).count(), 1);
}

TEST_F(Dragging, NothingIsMoved) {
  harness::copyFiles({plot_});
  const DragSource source(corner, DROPEFFECT_MOVE);
  EXPECT_EQ(hover(source, Tab::open), static_cast<DWORD>(DROPEFFECT_NONE));
  harness::endDrag();
  EXPECT_TRUE(eventually([&] { return source.ended(); }, 1));
  EXPECT_EQ(app->list(Tab::open).count(), 1);
  EXPECT_TRUE(harness::readFile(plot_).has_value());
}

TEST_F(Dragging, NothingIsTakenWhileADialogIsOpen) {
  harness::pressKey('O', VK_CONTROL);
  const auto dialog = app->waitForFileDialog();
  harness::copyFiles({plot_});
  const DragSource source(corner, DROPEFFECT_COPY);
  EXPECT_EQ(hover(source, Tab::open), static_cast<DWORD>(DROPEFFECT_NONE));
  harness::endDrag();
  EXPECT_TRUE(eventually([&] { return source.ended(); }, 1));
  dialog.cancel();
  EXPECT_EQ(app->list(Tab::open).count(), 1);
}

TEST_F(Dragging, AnAddressDroppedOnWebIsListed) {
  app->selectTab(Tab::web);
  harness::copyText(L"https://fuel.example/a");
  EXPECT_EQ(drop(Tab::web), static_cast<DWORD>(DROPEFFECT_COPY));
  EXPECT_TRUE(eventually([&] { return harness::readFile(webList()); },
                         "\"Home\",\"http://home.example/\"\r\n"
                         "\"fuel.example\",\"https://fuel.example/a\"\r\n"));
}

TEST_F(Dragging, AProgramDroppedOnToolsBecomesAShortcut) {
  app->selectTab(Tab::tools);
  const int before = app->list(Tab::tools).count();
  const std::wstring program = folder_ + L"\\Own tool.exe";
  harness::writeFile(program, "MZ");
  harness::copyFiles({program});
  EXPECT_EQ(drop(Tab::tools), static_cast<DWORD>(DROPEFFECT_COPY));
  EXPECT_TRUE(eventually([&] { return app->list(Tab::tools).count(); }, before + 1));
  EXPECT_THAT(app->list(Tab::tools).texts(), ::testing::Contains(L"Shortcut to Own tool"));
}

TEST_F(Dragging, PastedFilesAreListed) {
  harness::copyFiles({plot_, folder_ + L"\\gone.fp3"});
  toList(Tab::open);
  harness::pressKey('V', VK_CONTROL);
  EXPECT_TRUE(eventually([&] { return status(); }, L"1 added, 1 not added: not there"));
  EXPECT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, 2));
}

TEST_F(Dragging, PastedTextIsAPath) {
  harness::copyText(L"\"" + plot_ + L"\"\r\n");
  toList(Tab::open);
  harness::pressKey('V', VK_CONTROL);
  EXPECT_TRUE(eventually([&] { return status(); }, L"1 added"));
}

TEST_F(Dragging, CtrlVInTheFindBoxIsTheBoxs) {
  harness::copyText(L"gone");
  harness::pressKey('F', VK_CONTROL);
  harness::pressKey('V', VK_CONTROL);
  EXPECT_TRUE(
      eventually([&] { return harness::text(GetDlgItem(app->main(), ids::txtFind)); }, L"gone"));
  EXPECT_TRUE(eventually([&] { return status(); }, L"1 file, 1 shown, 1 missing"));
}

TEST_F(Dragging, ARowIsDraggedOutAsAFile) {
  harness::writeFile(app->cataloguePath(), record(L"fp3", plot_, L"1/2/2026"));
  ASSERT_TRUE(eventually([&] { return app->list(Tab::open).find(L"plot \u00E4, 1.fp3"); },
                         std::optional<int>(0)));
  const DropReceiver receiver(corner);
  dragRow(Tab::open, receiver);
  EXPECT_TRUE(eventually([&] { return receiver.drops(); }, 1));
  EXPECT_EQ(receiver.files(), std::vector<std::wstring>{plot_});
  EXPECT_EQ(receiver.allowed(), static_cast<DWORD>(DROPEFFECT_COPY));
}

TEST_F(Dragging, AWebRowIsDraggedOutAsAnAddress) {
  app->selectTab(Tab::web);
  const DropReceiver receiver(corner);
  dragRow(Tab::web, receiver);
  EXPECT_TRUE(eventually([&] { return receiver.drops(); }, 1));
  EXPECT_EQ(receiver.text(), L"http://home.example/");
  EXPECT_EQ(receiver.address(), L"http://home.example/");
  EXPECT_TRUE(receiver.files().empty());
}

TEST_F(Dragging, AMissingFileIsNotDraggedOut) {
  const DropReceiver receiver(corner);
  dragRow(Tab::open, receiver);
  harness::send(app->main(), WM_NULL);
  EXPECT_EQ(receiver.drops(), 0);
  EXPECT_EQ(app->list(Tab::open).count(), 1);
}

TEST_F(Dragging, OwnRowsAreNotDroppedOnOwnLists) {
  harness::writeFile(app->cataloguePath(), record(L"fp3", plot_, L"1/2/2026"));
  ASSERT_TRUE(eventually([&] { return app->list(Tab::open).find(L"plot \u00E4, 1.fp3"); },
                         std::optional<int>(0)));
  const auto list = app->list(Tab::open);
  harness::drag(harness::centreOf(list.textOnScreen(0)), centreOfList(Tab::open), app->main());
  harness::send(app->main(), WM_NULL);
  EXPECT_EQ(status(), L"1 file");
  EXPECT_EQ(harness::readFile(app->cataloguePath()), record(L"fp3", plot_, L"1/2/2026"));
}

}  // namespace
}  // namespace desktop_tests
