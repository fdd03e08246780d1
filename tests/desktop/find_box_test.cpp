// The find box, the status line and the marks on missing entries, with mouse and keys.
#include "gateway_test.h"
#include "harness/accessible.h"
#include "harness/forms.h"
#include "harness/link_file.h"
#include "harness/looks.h"
#include "harness/profile.h"
#include "harness/status_bar.h"

namespace desktop_tests {
namespace {

using harness::pressKey;

/// The parameter is the dpi of the screen.
class FindAndSee : public GatewayTest, public ::testing::WithParamInterface<DWORD> {
 protected:
  void SetUp() override {
    if (const auto why = harness::whyNoDensity(GetParam())) {
      GTEST_SKIP() << *why;
    }
    density_ = std::make_unique<harness::ScreenDensity>(GetParam());
    GatewayApp::skipExample();
  }
  [[nodiscard]] static int scaled(int length) {
    return MulDiv(length, static_cast<int>(GetParam()), USER_DEFAULT_SCREEN_DPI);
  }

  /// Three files elsewhere, of which the last one is not there.
  void startWithFiles() {
    north_ = app->addFileElsewhere(L"field\\North 1.fp3");
    south_ = app->addFileElsewhere(L"field\\South 2.fp3");
    gone_ = app->testFolder() + L"\\office\\Gone 3.bi3";
    app->writeCatalogue(record(L"FP3", north_) + record(L"FP3", south_) +
                        record(L"BI3", gone_, L"12/24/2026 9:15:00 AM"));
    app->startToMain();
    app->selectTab(Tab::open);
    ASSERT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, 3));
    ASSERT_TRUE(eventually([&] { return status().part(0); }, L"3 files, 1 missing"));
  }

  [[nodiscard]] HWND box() const { return GetDlgItem(app->main(), ids::txtFind); }
  [[nodiscard]] HWND clear() const { return GetDlgItem(app->main(), ids::cmdClearFind); }
  [[nodiscard]] harness::StatusBarReader status() const {
    return harness::StatusBarReader(GetDlgItem(app->main(), ids::barStatus));
  }
  [[nodiscard]] std::vector<std::wstring> shown(int tab = Tab::open) const {
    return app->list(tab).texts();
  }
  [[nodiscard]] HWND focus() const { return harness::focusIn(app->main()); }
  void goToBox() const {
    pressKey('F', VK_CONTROL);
    harness::waitUntil("the find box has the focus", [&] { return focus() == box(); });
  }

  std::unique_ptr<harness::ScreenDensity> density_;
  std::wstring north_;
  std::wstring south_;
  std::wstring gone_;
};

TEST_P(FindAndSee, TypingNarrowsTheListAndEscShowsEverything) {
  startWithFiles();
  goToBox();
  harness::typeText(L"field sou");
  EXPECT_TRUE(eventually([&] { return shown(); }, ElementsAre(L"South 2.fp3")));
  EXPECT_TRUE(eventually([&] { return status().part(0); }, L"3 files, 1 shown, 1 missing"));
  EXPECT_TRUE(happens("it comes", [&] { return status().part(1).ends_with(L"South 2.fp3"); }));
  EXPECT_EQ(app->list(Tab::open).selected(), 0);
  harness::typeText(L"x");
  EXPECT_TRUE(eventually([&] { return shown().size(); }, 0U));
  pressKey(VK_BACK);
  EXPECT_TRUE(eventually([&] { return shown(); }, ElementsAre(L"South 2.fp3")));
  pressKey(VK_ESCAPE);
  EXPECT_TRUE(eventually([&] { return shown().size(); }, 3U));
  EXPECT_EQ(focus(), box());
  EXPECT_EQ(app->list(Tab::open).selected(), 2) << "The selection stays where it was";
  pressKey(VK_ESCAPE);
  EXPECT_TRUE(happens("it comes", [&] { return focus() == app->list(Tab::open).window(); }));
}

TEST_P(FindAndSee, EachTabKeepsItsTextAndAReloadDoesToo) {
  startWithFiles();
  goToBox();
  harness::typeText(L"north");
  EXPECT_TRUE(eventually([&] { return shown().size(); }, 1U));
  app->selectTab(Tab::web);
  EXPECT_EQ(harness::text(box()), L"");
  app->selectTab(Tab::open);
  EXPECT_EQ(harness::text(box()), L"north");
  app->writeCatalogue(record(L"FP3", north_) + record(L"FP3", south_) +
                      record(L"FP3", app->testFolder() + L"\\field\\North 9.fp3"));
  EXPECT_TRUE(eventually([&] { return shown(); }, ElementsAre(L"North 1.fp3", L"North 9.fp3")));
}

TEST_P(FindAndSee, TheXClearsTheBox) {
  startWithFiles();
  EXPECT_EQ(IsWindowVisible(clear()), FALSE);
  goToBox();
  harness::typeText(L"north");
  EXPECT_TRUE(happens("it comes", [&] { return IsWindowVisible(clear()) != FALSE; }));
  harness::clickAt(harness::centreOf(harness::screenRect(clear())), clear());
  EXPECT_TRUE(eventually([&] { return shown().size(); }, 3U));
  EXPECT_EQ(harness::text(box()), L"");
  EXPECT_TRUE(happens("it comes", [&] { return focus() == box(); }));
  EXPECT_TRUE(happens("it comes", [&] { return IsWindowVisible(clear()) == FALSE; }));
}

TEST_P(FindAndSee, DownGoesToTheListAndEnterOpens) {
  app->addAllTools();
  startWithFiles();
  goToBox();
  harness::typeText(L"south");
  EXPECT_TRUE(eventually([&] { return shown().size(); }, 1U));
  pressKey(VK_RETURN);
  EXPECT_TRUE(app->waitForToolStart().commandLine.ends_with(L"South?2.fp3"));
  harness::bringToFront(app->main());
  goToBox();
  pressKey(VK_DOWN);
  EXPECT_TRUE(happens("it comes", [&] { return focus() == app->list(Tab::open).window(); }));
}

TEST_P(FindAndSee, TheBoxEndsWithTheListAboveIt) {
  startWithFiles();
  const RECT place = harness::screenRect(box());
  const RECT list = harness::screenRect(app->list(Tab::open).window());
  constexpr int ring = 2;
  EXPECT_LE(std::abs(place.right - list.right), ring);
  EXPECT_LT(place.bottom, list.top);
  EXPECT_LE(std::abs(place.right - place.left - scaled(200)), 2 * ring);
  EXPECT_GT(place.left, app->tabs().tabOnScreen(3).right);
  SetWindowPos(app->main(), nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
  EXPECT_TRUE(happens("it comes", [&] {
    const RECT small = harness::screenRect(box());
    return small.right - small.left >= scaled(120) - 2 * ring &&
           small.left > app->tabs().tabOnScreen(3).right;
  }));
}

TEST_P(FindAndSee, TheBoxHasTheFrameOfAFlatFieldWhileItHasTheFocus) {
  startWithFiles();
  const RECT place = harness::screenRect(box());
  constexpr int ring = 2;
  const RECT above{place.left, place.top - ring, place.right, place.top - ring + 1};
  const auto plain = static_cast<std::size_t>(place.right - place.left);
  const auto ofTheWindow = [&] { return harness::pixelsOf(GetSysColor(COLOR_BTNFACE), above); };
  EXPECT_TRUE(eventually(ofTheWindow, plain));
  goToBox();
  EXPECT_TRUE(eventually(ofTheWindow, 0U)) << "Nothing covers the frame";
  pressKey(VK_ESCAPE);
  EXPECT_TRUE(eventually(ofTheWindow, plain));
}

TEST_P(FindAndSee, ScreenReadersHearWhatTheBoxAndTheLineAre) {
  startWithFiles();
  EXPECT_EQ(harness::spokenOf(box()).name, L"Find");
  EXPECT_NE(harness::spokenOf(status().window()).name, L"");
  goToBox();
  harness::typeText(L"n");
  EXPECT_TRUE(happens("it comes", [&] { return IsWindowVisible(clear()) != FALSE; }));
  EXPECT_EQ(harness::spokenOf(clear()).name, L"Clear");
}

// --- the status line ---

TEST_P(FindAndSee, TheStatusLineFollowsSelectionAndTab) {
  startWithFiles();
  EXPECT_TRUE(eventually([&] { return status().part(0); }, L"3 files, 1 missing"));
  app->selectTab(Tab::newFile);
  EXPECT_TRUE(eventually([&] { return status().part(0); }, L"4 new files"));
  EXPECT_TRUE(eventually([&] { return status().part(1); }, L""));
  app->selectTab(Tab::web);
  EXPECT_TRUE(eventually([&] { return status().part(0); }, L"0 web shortcuts"));
}

TEST_P(FindAndSee, ALongPathIsShortenedInItsMiddle) {
  const std::wstring folder = std::wstring(60, L'f');
  const std::wstring file = app->addFileElsewhere(folder + L"\\" + folder + L"\\plot.fp3");
  app->writeCatalogue(record(L"FP3", file));
  app->startToMain();
  app->selectTab(Tab::open);
  SetWindowPos(app->main(), nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
  EXPECT_TRUE(happens("it comes", [&] {
    const std::wstring text = status().part(1);
    return text.starts_with(file.substr(0, 3)) && text.ends_with(L"\\plot.fp3") &&
           text.find(L'\u2026') != std::wstring::npos;
  }));
}

TEST_P(FindAndSee, AnOpenMenuExplainsItsEntries) {
  startWithFiles();
  harness::bringToFront(app->main());
  for (const int key : {VK_F10, VK_RIGHT, VK_RIGHT, VK_DOWN}) {
    pressKey(static_cast<WORD>(key));
  }
  EXPECT_THAT(harness::openMenuEntries(), ::testing::SizeIs(5));
  // On some systems the first entry is marked as soon as the menu opens.
  const std::wstring wanted = L"Sorts the files by date, the newest ones first.";
  constexpr int patience = 500;
  for (int press = 0; press < 4; ++press) {
    if (eventually([&] { return status().note(); }, wanted, patience)) {
      break;
    }
    pressKey(VK_DOWN);
  }
  EXPECT_EQ(status().note(), wanted);
  pressKey(VK_ESCAPE);
  pressKey(VK_ESCAPE);
  EXPECT_TRUE(eventually([&] { return status().note(); }, L""));
}

TEST_P(FindAndSee, TheGripSizesTheWindow) {
  startWithFiles();
  const RECT bar = harness::screenRect(status().window());
  EXPECT_EQ(
      SendMessageW(status().window(), WM_NCHITTEST, 0, MAKELPARAM(bar.right - 4, bar.bottom - 4)),
      HTBOTTOMRIGHT);
  const RECT before = harness::screenRect(app->main());
  harness::drag({bar.right - 4, bar.bottom - 4}, {bar.right - 64, bar.bottom - 44}, app->main());
  EXPECT_TRUE(happens("it comes", [&] {
    const RECT after = harness::screenRect(app->main());
    return after.right < before.right - 40 && after.bottom < before.bottom - 20;
  }));
}

// --- missing entries ---

TEST_P(FindAndSee, AMissingFileIsGreyAndHasATip) {
  startWithFiles();
  EXPECT_TRUE(eventually([&] { return status().part(0); }, L"3 files, 1 missing"));
  const harness::ListViewReader list = app->list(Tab::open);
  const int gone = list.find(L"Gone 3.bi3").value();
  const int there = list.find(L"North 1.fp3").value();
  const auto strength = [&](int row) {
    return harness::writingAt(list.textOnScreen(row)).contrast();
  };
  EXPECT_TRUE(happens("it comes", [&] { return strength(gone) < strength(there); }));
  harness::moveTo(harness::centreOf(list.textOnScreen(gone)));
  EXPECT_EQ(harness::waitForToolTip(app->list(Tab::open).window()), L"Not there: " + gone_);
}

TEST_P(FindAndSee, AFileThatComesBackIsNoLongerMissing) {
  startWithFiles();
  EXPECT_TRUE(eventually([&] { return status().part(0); }, L"3 files, 1 missing"));
  app->addFileElsewhere(L"office\\Gone 3.bi3");
  SendMessageW(app->main(), WM_DEVICECHANGE, 0x8000 /* a drive has come */, 0);
  EXPECT_TRUE(eventually([&] { return status().part(0); }, L"3 files"));
}

TEST_P(FindAndSee, ADriveThatIsNotThereIsTheReason) {
  app->writeCatalogue(record(L"FP3", L"Q:\\field\\plot.fp3"));
  app->startToMain();
  app->selectTab(Tab::open);
  EXPECT_TRUE(eventually([&] { return status().part(0); }, L"1 file, 1 missing"));
  harness::moveTo(harness::centreOf(app->list(Tab::open).textOnScreen(0)));
  EXPECT_EQ(harness::waitForToolTip(app->list(Tab::open).window()), L"Drive Q: is not connected");
}

// --- order and columns ---

TEST_P(FindAndSee, NewestFirstIsRememberedForTheNextStart) {
  startWithFiles();
  app->command(ids::mnuNewestFirst);
  EXPECT_TRUE(eventually([&] { return shown().front(); }, L"Gone 3.bi3"));
  const auto marked = [&] { return harness::menuEntry(app->main(), ids::mnuNewestFirst).checked; };
  EXPECT_TRUE(eventually(marked, true));
  EXPECT_EQ(app->close(), 0U);
  app->startToMain();
  app->selectTab(Tab::open);
  EXPECT_TRUE(eventually([&] { return shown().front(); }, L"Gone 3.bi3"));
  const RECT header = app->list(Tab::open).headerOnScreen(0);
  harness::clickAt(harness::centreOf(header), app->list(Tab::open).header());
  EXPECT_TRUE(eventually([&] { return shown().front(); }, L"South 2.fp3"));
  EXPECT_TRUE(eventually(marked, false));
}

TEST_P(FindAndSee, FitColumnsShowsEveryNameWhole) {
  const std::wstring file = app->addFileElsewhere(L"field\\" + std::wstring(40, L'n') + L".fp3");
  app->writeCatalogue(record(L"FP3", file));
  app->startToMain();
  app->selectTab(Tab::open);
  ASSERT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, 1));
  const auto width = [&](int column) {
    return app->list(Tab::open).columns().at(static_cast<std::size_t>(column)).width;
  };
  const int before = width(0);
  pressKey(VK_ADD, VK_CONTROL);
  EXPECT_TRUE(happens("it comes", [&] { return width(0) > before + 100; }));
  EXPECT_EQ(width(4), 0);
  const RECT header = app->list(Tab::open).headerOnScreen(1);
  harness::drag({header.right, (header.top + header.bottom) / 2},
                {header.right - 60, (header.top + header.bottom) / 2},
                app->list(Tab::open).header());
  const int narrow = width(1);
  const RECT now = app->list(Tab::open).headerOnScreen(1);
  harness::doubleClickAt({now.right - 1, (now.top + now.bottom) / 2},
                         app->list(Tab::open).header());
  EXPECT_TRUE(happens("it comes", [&] { return width(1) > narrow + 20; }));
}

// --- names ---

TEST_P(FindAndSee, F2EditsTheNameInTheList) {
  startWithFiles();
  harness::ListViewReader list = app->list(Tab::open);
  harness::clickAt(harness::centreOf(list.textOnScreen(list.find(L"North 1.fp3").value())),
                   list.window());
  pressKey(VK_F2);
  const auto editor = [&] { return FindWindowExW(list.window(), nullptr, L"Edit", nullptr); };
  ASSERT_TRUE(happens("it comes", [&] { return focus() == editor() && editor() != nullptr; }));
  DWORD first = 0;
  DWORD last = 0;
  SendMessageW(editor(), EM_GETSEL, reinterpret_cast<WPARAM>(&first),
               reinterpret_cast<LPARAM>(&last));
  EXPECT_EQ(harness::text(editor()), L"North 1.fp3");
  harness::typeText(L"East");
  pressKey(VK_RETURN);
  EXPECT_TRUE(
      eventually([&] { return shown(); }, ElementsAre(L"East.fp3", L"Gone 3.bi3", L"South 2.fp3")));
  EXPECT_EQ(editor(), nullptr);
  EXPECT_TRUE(happens("it comes", [&] { return focus() == list.window(); }));
}

TEST_P(FindAndSee, EscLeavesTheNameAndAReloadLeavesTheEditor) {
  startWithFiles();
  harness::ListViewReader list = app->list(Tab::open);
  harness::clickAt(harness::centreOf(list.textOnScreen(list.find(L"South 2.fp3").value())),
                   list.window());
  pressKey(VK_F2);
  const auto editor = [&] { return FindWindowExW(list.window(), nullptr, L"Edit", nullptr); };
  ASSERT_TRUE(happens("it comes", [&] { return editor() != nullptr && focus() == editor(); }));
  harness::typeText(L"West");
  const std::wstring another = app->addFileElsewhere(L"field\\Another.fp3");
  app->writeCatalogue(record(L"FP3", another) + record(L"FP3", north_) + record(L"FP3", south_));
  EXPECT_TRUE(eventually([&] { return shown().front(); }, L"Another.fp3"));
  ASSERT_NE(editor(), nullptr);
  EXPECT_EQ(harness::text(editor()), L"West.fp3");
  EXPECT_EQ(focus(), editor());
  pressKey(VK_ESCAPE);
  EXPECT_TRUE(happens("it comes", [&] { return editor() == nullptr; }));
  EXPECT_THAT(shown(), ElementsAre(L"Another.fp3", L"North 1.fp3", L"South 2.fp3"));
}

TEST_P(FindAndSee, ASlowSecondClickEditsTheNameAndAFastOneOpens) {
  startWithFiles();
  harness::ListViewReader list = app->list(Tab::open);
  const POINT name = harness::centreOf(list.textOnScreen(list.find(L"North 1.fp3").value()));
  const auto editor = [&] { return FindWindowExW(list.window(), nullptr, L"Edit", nullptr); };
  harness::clickAt(name, list.window());
  harness::waitUntil("the row is selected",
                     [&] { return list.selected() == list.find(L"North 1.fp3"); });
  EXPECT_TRUE(stays([&] { return editor() == nullptr; }, true, 700));
  harness::clickAt(name, list.window());
  EXPECT_TRUE(happens("it comes", [&] { return editor() != nullptr; }));
  pressKey(VK_ESCAPE);
  EXPECT_TRUE(happens("it comes", [&] { return editor() == nullptr; }));
  harness::doubleClickAt(name, list.window());
  expectMessage(L"Can't start application\r53-File not found\rPath: " + app->folder() +
                    L"\\plv3.exe " + app->testFolder() + L"\\field\\North?1.fp3",
                criticalIcon, okOnly, IDOK);
  EXPECT_EQ(editor(), nullptr);
}

TEST_P(FindAndSee, AnEmptyListSaysWhatToDo) {
  app->writeCatalogue("");
  app->startToMain();
  app->selectTab(Tab::open);
  const RECT list = harness::clientOnScreen(app->list(Tab::open).window());
  const POINT middle = harness::centreOf(list);
  const RECT line{middle.x - 120, middle.y - 4, middle.x + 120, middle.y + 24};
  EXPECT_TRUE(happens("it comes", [&] { return harness::writingAt(line).pixels > 100; }));
  EXPECT_TRUE(eventually([&] { return status().part(0); }, L"0 files"));
}

INSTANTIATE_TEST_SUITE_P(At, FindAndSee, ::testing::Values(96, 144),
                         [](const auto& dpi) { return std::to_string(dpi.param) + "Dpi"; });

}  // namespace
}  // namespace desktop_tests
