// Delete, F2, Insert and F5 on the list in front.
#include "shortcut_test.h"

namespace desktop_tests {
namespace {

class ListKeys : public ShortcutTest {
 protected:
  /// Waits for the web dialog with that button text.
  [[nodiscard]] HWND webDialog(const std::wstring& button) const {
    return harness::waitUntilFound("the web dialog", [&]() -> HWND {
      for (HWND const window : harness::visibleWindows(app->processId())) {
        HWND const ok = harness::child(window, ids::webOK, L"Button");
        if (harness::child(window, ids::txtUrl) != nullptr && ok != nullptr &&
            harness::text(ok) == button) {
          return window;
        }
      }
      return nullptr;
    });
  }
  void cancelWebDialog(const std::wstring& button) const {
    HWND const dialog = webDialog(button);
    harness::pushButton(dialog, ids::webCancel);
    harness::waitUntil("the web dialog closes", [&] { return IsWindowVisible(dialog) == FALSE; });
  }

  /// Waits for the editor of a name, and leaves it with Esc.
  void expectEditor(int tab, const std::wstring& name) const {
    const auto editor = [&] {
      return FindWindowExW(app->list(tab).window(), nullptr, L"Edit", nullptr);
    };
    ASSERT_TRUE(happens("the editor opens", [&] { return editor() != nullptr; }));
    EXPECT_EQ(harness::text(editor()), name);
    harness::pressKey(VK_ESCAPE);
    EXPECT_TRUE(happens("the editor closes", [&] { return editor() == nullptr; }));
  }

  [[nodiscard]] std::wstring webFile() const { return app->folder() + L"\\QMKWebList.txt"; }
};

TEST_F(ListKeys, OnToolsDoWhatTheCommandsDo) {
  addLink(L"Notes.lnk", L"C:\\tools\\notes.exe");
  app->startToMain();
  select(L"Notes");
  harness::pressKey(VK_DELETE);
  expectMessage(L"Are your sure you want to delete the shortcut: NOTES.LNK", exclamationIcon,
                yesAndNo, IDNO);
  // Declining is the only end that does not reload the list itself.
  addLink(L"More.lnk", L"C:\\tools\\more.exe");
  EXPECT_EQ(list().count(), 1);
  reload(2);
  focusList();
  harness::pressKey(VK_F2);
  expectEditor(Tab::tools, L"Notes");
  harness::pressKey(VK_INSERT);
  app->waitForFileDialog().cancel();
}

TEST_F(ListKeys, OnOpenRenameDeleteAndReloadButCreateNothing) {
  app->writeCatalogue(record(L"fp3", L"D:\\a.fp3") + record(L"fp3", L"D:\\b.fp3"));
  app->startToMain();
  app->selectTab(Tab::open);
  ASSERT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, 2));
  harness::clickAt(harness::centreOf(app->list(Tab::open).textOnScreen(1)), app->main());
  ASSERT_TRUE(eventually([&] { return app->list(Tab::open).selected(); }, 1));
  // A dialog after Insert would take the next key.
  harness::pressKey(VK_INSERT);
  harness::pressKey(VK_F2);
  expectEditor(Tab::open, L"b.fp3");
  harness::pressKey(VK_DELETE);
  expectMessage(L"Are your sure you want to delete B.FP3", exclamationIcon, yesAndNo, IDNO);
  EXPECT_EQ(app->list(Tab::open).count(), 2);
}

TEST_F(ListKeys, OnNewDoNothing) {
  app->writeCatalogue(record(L"fp3", L"D:\\a.fp3"));
  addLink(L"Notes.lnk", L"C:\\tools\\notes.exe");
  app->startToMain();
  app->selectTab(Tab::newFile);
  const std::vector<std::wstring> before = app->list(Tab::newFile).texts();
  focusList(Tab::newFile);
  for (const int key : {VK_INSERT, VK_F2, VK_DELETE, VK_F5}) {
    harness::pressKey(static_cast<WORD>(key));
  }
  // The list still has the keyboard: with an open dialog the tab could not be changed.
  app->selectTab(Tab::tools);
  EXPECT_FALSE(app->dialogShown());
  EXPECT_EQ(app->list(Tab::newFile).texts(), before);
}

TEST_F(ListKeys, OnWebDoWhatTheCommandsDo) {
  harness::writeFile(webFile(), "\"Maps\",\"http://maps.example/\"\r\n");
  app->startToMain();
  app->selectTab(Tab::web);
  ASSERT_TRUE(eventually([&] { return app->list(Tab::web).count(); }, 1));
  harness::clickAt(harness::centreOf(app->list(Tab::web).textOnScreen(0)), app->main());
  ASSERT_TRUE(eventually([&] { return app->list(Tab::web).selected(); }, 0));
  harness::pressKey(VK_DELETE);
  expectMessage(L"Are your sure you want to delete MAPS", exclamationIcon, yesAndNo, IDNO);
  focusList(Tab::web);
  harness::pressKey(VK_F2);
  cancelWebDialog(L"Rename");
  focusList(Tab::web);
  harness::pressKey(VK_INSERT);
  cancelWebDialog(L"Create");
  harness::writeFile(webFile(),
                     "\"Maps\",\"http://maps.example/\"\r\n\"Soil\",\"http://s.example/\"");
  EXPECT_EQ(app->list(Tab::web).count(), 1);
  focusList(Tab::web);
  harness::pressKey(VK_F5);
  EXPECT_TRUE(
      eventually([&] { return app->list(Tab::web).texts(); }, ElementsAre(L"Maps", L"Soil")));
}

TEST_F(ListKeys, OtherKeysDoNothing) {
  addLink(L"Notes.lnk", L"C:\\tools\\notes.exe");
  app->startToMain();
  select(L"Notes");
  harness::pressKey(VK_HOME);
  harness::pressKey(VK_F3);
  harness::pressKey(VK_BACK);
  harness::pressKey(VK_F2);
  expectEditor(Tab::tools, L"Notes");
  EXPECT_FALSE(app->dialogShown());
}

}  // namespace
}  // namespace desktop_tests
