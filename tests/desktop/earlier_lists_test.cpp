// The window with the earlier lists, and what comes back from it.
#include "earlier/control_ids.h"
#include "gateway_test.h"
#include "harness/files.h"
#include "harness/forms.h"
#include "harness/list_view.h"
#include "harness/paths.h"
#include "harness/status_bar.h"

namespace desktop_tests {
namespace {

using harness::FormReader;
using harness::ListViewReader;
using Rows = std::vector<std::vector<std::wstring>>;

class EarlierLists : public GatewayTest {
 protected:
  void SetUp() override {
    GatewayApp::skipExample();
    today_ = record(L"fp3", L"C:\\Field\\One.fp3", L"1/2/2026") +
             record(L"CW3", L"C:\\Field\\New.cw3", L"1/3/2026");
    earlier_ = "odd, line\n" + record(L"fp3", L"C:\\Field\\One.fp3", L"1/2/2026") +
               record(L"BI3", L"C:\\Field\\Lost.bi3", L"12/1/2025");
    app->writeCatalogue(today_);
    harness::writeFile(app->folder() + L"\\QMKWebList.txt",
                       "\"Home\",\"http://home.example/\"\r\n");
    harness::makeFolder(app->userFolder());
    harness::makeFolder(backup());
    harness::writeFile(backup() + L"\\QMKFileList3 2025-12-24.txt", earlier_);
    harness::writeFile(backup() + L"\\QMKFileList3 2025-12-31 235959.txt", today_);
    harness::writeFile(backup() + L"\\QMKWebList 2025-12-24.txt",
                       "\"Maps\",\"http://maps.example/\"\r\n");
  }
  [[nodiscard]] std::wstring backup() const { return app->userFolder() + L"\\Backup"; }

  void showLists(int tab) {
    app->startToMain();
    app->selectTab(tab);
    ASSERT_TRUE(eventually([&] { return app->list(tab).count(); }, Ge(1)));
    harness::bringToFront(app->main());
    PostMessageW(app->main(), WM_COMMAND, static_cast<WPARAM>(ids::mnuEarlierLists), 0);
    window_ = harness::waitForEarlierLists(*app).window();
    ASSERT_TRUE(eventually([&] { return IsWindowEnabled(app->main()) == FALSE; }, true));
  }
  [[nodiscard]] FormReader form() const { return FormReader(window_); }
  [[nodiscard]] ListViewReader copies() const {
    return ListViewReader(form().control(ids::lstCopies));
  }
  [[nodiscard]] ListViewReader entries() const {
    return ListViewReader(form().control(ids::lstEntries));
  }
  void selectCopy(int row) const {
    harness::clickAt(harness::centreOf(copies().textOnScreen(row)), window_);
    ASSERT_TRUE(eventually([&] { return copies().selected(); }, row));
  }
  [[nodiscard]] int rowOf(const std::wstring& date) const { return copies().find(date).value(); }
  [[nodiscard]] std::wstring status() const {
    return harness::StatusBarReader(GetDlgItem(app->main(), ids::barStatus)).part(0);
  }
  void push(int button) const {
    PostMessageW(window_, WM_COMMAND, static_cast<WPARAM>(button),
                 reinterpret_cast<LPARAM>(form().control(button)));
  }
  [[nodiscard]] std::optional<std::string> catalogue() const {
    return harness::readFile(app->cataloguePath());
  }
  /// Copies with that beginning in their names.
  [[nodiscard]] int copiesOf(const std::wstring& beginning) const {
    WIN32_FIND_DATAW found{};
    HANDLE const search = FindFirstFileW((backup() + L"\\" + beginning + L"*").c_str(), &found);
    int count = 0;
    for (BOOL more = search != INVALID_HANDLE_VALUE; more != FALSE;
         more = FindNextFileW(search, &found)) {
      ++count;
    }
    if (search != INVALID_HANDLE_VALUE) {
      FindClose(search);
    }
    return count;
  }

  std::string today_;
  std::string earlier_;
  HWND window_ = nullptr;
};

TEST_F(EarlierLists, AStartKeepsTheListsOfTheDay) {
  app->startToMain();
  SYSTEMTIME now{};
  GetLocalTime(&now);
  // The window is up before the start has ended.
  EXPECT_TRUE(
      eventually([&] { return copiesOf(L"QMKFileList3 " + std::to_wstring(now.wYear)); }, 1));
  EXPECT_TRUE(eventually([&] { return copiesOf(L"QMKWebList " + std::to_wstring(now.wYear)); }, 1));
  EXPECT_TRUE(eventually([&] { return copiesOf(L"qmklist.tmp"); }, 0));
}

TEST_F(EarlierLists, ShowsThemWithTheNewestFirst) {
  showLists(Tab::open);
  EXPECT_TRUE(eventually([&] { return copies().count(); }, 3));
  EXPECT_EQ(copies().cell(1, 0), L"2025-12-31 23:59:59");
  EXPECT_EQ(copies().cell(2, 0), L"2025-12-24");
  EXPECT_TRUE(eventually([&] { return copies().cell(2, 1); }, L"2"));
  EXPECT_EQ(copies().cell(2, 2), std::to_wstring(earlier_.size()) + L" bytes");
  form().pressAndWait(VK_ESCAPE);
  EXPECT_TRUE(eventually([&] { return IsWindowEnabled(app->main()) != FALSE; }, true));
}

TEST_F(EarlierLists, EnterAndADoubleClickShowTheEntries) {
  showLists(Tab::open);
  selectCopy(rowOf(L"2025-12-24"));
  harness::pressKey(VK_RETURN);
  const Rows expected{{L"", L"One.fp3", L"C:\\Field\\", L"1/2/2026"},
                      {L"removed since", L"Lost.bi3", L"C:\\Field\\", L"12/1/2025"},
                      {L"added since", L"New.cw3", L"C:\\Field\\", L"1/3/2026"}};
  EXPECT_TRUE(eventually([&] { return entries().rows(); }, expected));
  EXPECT_EQ(form().textOf(ids::lblEntries), L"Entries of 2025-12-24");
  const int other = rowOf(L"2025-12-31 23:59:59");
  selectCopy(other);
  harness::doubleClickAt(harness::centreOf(copies().textOnScreen(other)), window_);
  EXPECT_TRUE(eventually([&] { return entries().count(); }, 2));
  form().pushAndWait(ids::earlierClose);
}

TEST_F(EarlierLists, RestoreReplacesTheListByteForByteAndKeepsTheOldOne) {
  showLists(Tab::open);
  selectCopy(rowOf(L"2025-12-24"));
  const std::string before = catalogue().value_or("");
  push(ids::earlierRestore);
  expectMessage(L"Replace the current list by the one of 2025-12-24?", exclamationIcon, yesAndNo,
                IDYES);
  form().waitUntilGone();
  EXPECT_EQ(catalogue(), earlier_);
  EXPECT_TRUE(eventually([&] { return app->list(Tab::open).texts(); },
                         UnorderedElementsAre(L"One.fp3", L"Lost.bi3")));
  EXPECT_TRUE(eventually([&] { return status(); }, L"Restored: the list of 2025-12-24"));
  // The copy of the day, the two that were there, and what was replaced.
  EXPECT_EQ(copiesOf(L"QMKFileList3 "), 4);
  EXPECT_EQ(before, today_);
}

TEST_F(EarlierLists, NoLeavesTheListAsItIs) {
  showLists(Tab::open);
  selectCopy(rowOf(L"2025-12-24"));
  push(ids::earlierRestore);
  expectMessage(L"Replace the current list by the one of 2025-12-24?", exclamationIcon, yesAndNo,
                IDNO);
  EXPECT_TRUE(form().shown());
  EXPECT_EQ(catalogue(), today_);
  form().pushAndWait(ids::earlierClose);
}

TEST_F(EarlierLists, AddMissingEntriesAddsWhatTheListLacks) {
  showLists(Tab::open);
  selectCopy(rowOf(L"2025-12-24"));
  form().pushAndWait(ids::earlierAdd);
  EXPECT_EQ(catalogue(), today_ + record(L"BI3", L"C:\\Field\\Lost.bi3", L"12/1/2025"));
  EXPECT_TRUE(
      eventually([&] { return status(); }, L"1 added, 1 already there, 1 not added: no path"));
}

TEST_F(EarlierLists, AListThatAnotherProgramHoldsChangesNothing) {
  HANDLE const held =
      CreateFileW((backup() + L"\\QMKFileList3 2025-12-24.txt").c_str(), GENERIC_READ, 0, nullptr,
                  OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  showLists(Tab::open);
  selectCopy(rowOf(L"2025-12-24"));
  EXPECT_TRUE(
      eventually([&] { return copies().cell(rowOf(L"2025-12-24"), 1); }, L"cannot be read"));
  push(ids::earlierShow);
  EXPECT_TRUE(eventually([&] { return form().textOf(ids::lblEarlierNews); },
                         L"Nothing was changed: Permission denied"));
  CloseHandle(held);
  EXPECT_EQ(catalogue(), today_);
  form().pushAndWait(ids::earlierClose);
}

TEST_F(EarlierLists, TheWebTabHasItsOwn) {
  showLists(Tab::web);
  selectCopy(rowOf(L"2025-12-24"));
  harness::pressKey(VK_RETURN);
  EXPECT_TRUE(eventually([&] { return entries().rows(); },
                         Rows{{L"removed since", L"Maps", L"http://maps.example/"},
                              {L"added since", L"Home", L"http://home.example/"}}));
  push(ids::earlierRestore);
  expectMessage(L"Replace the current list by the one of 2025-12-24?", exclamationIcon, yesAndNo,
                IDYES);
  form().waitUntilGone();
  EXPECT_TRUE(eventually([&] { return app->list(Tab::web).texts(); }, ElementsAre(L"Maps")));
}

TEST_F(EarlierLists, TheTabKeyGoesThroughTheWindowInItsOrder) {
  showLists(Tab::open);
  const auto focus = [this] { return GetDlgCtrlID(harness::focusIn(window_)); };
  EXPECT_TRUE(eventually(focus, ids::lstCopies));
  for (const int next : {ids::lstEntries, ids::earlierShow, ids::earlierRestore, ids::earlierAdd,
                         ids::earlierClose, ids::lstCopies}) {
    harness::pressKey(VK_TAB);
    EXPECT_TRUE(eventually(focus, next));
  }
  form().closeBox();
}

}  // namespace
}  // namespace desktop_tests
