// The fixture of the tests of tool shortcuts.
#pragma once

#include <string>

#include "gateway_test.h"
#include "harness/link_file.h"

namespace desktop_tests {

/// A start with an empty shortcuts folder and without the example file.
class ShortcutTest : public GatewayTest {
 protected:
  void SetUp() override { GatewayApp::skipExample(); }

  /// Full path of a shortcut file of that name, extension included.
  [[nodiscard]] std::wstring link(const std::wstring& name) const {
    return app->shortCutsFolder() + L"\\" + name;
  }
  /// Writes a shortcut to a program that need not exist.
  void addLink(const std::wstring& name, const std::wstring& target) const {
    harness::LinkFile file;
    file.target = target;
    harness::writeLink(link(name), file);
  }
  /// A copy of the stand-in in the application folder; its full path.
  [[nodiscard]] std::wstring addProgram(const std::wstring& name) const {
    app->addTool(name);
    return app->folder() + L"\\" + name;
  }

  [[nodiscard]] harness::ListViewReader list() const { return app->list(Tab::tools); }

  /// Sets the keyboard focus to list `tab`, which must be the visible one; the selection stays.
  void focusList(int tab = Tab::tools) {
    harness::bringToFront(app->main());
    HWND const window = app->list(tab).window();
    const RECT place = harness::screenRect(window);
    // Two clicks at one point would be a double-click.
    elsewhere_ = !elsewhere_;
    harness::clickAt({place.right - (elsewhere_ ? 50 : 30), place.bottom - 30}, app->main());
    harness::waitUntil("the list gets the focus",
                       [&] { return harness::focusIn(app->main()) == window; });
  }
  /// Reloads the list of tools until it shows `count` items.
  void reload(int count) {
    focusList();
    harness::pressKey(VK_F5);
    harness::waitUntil("the list is reloaded", [&] { return list().count() == count; });
  }
  /// Clicks the item with that text.
  void select(const std::wstring& text) const {
    harness::bringToFront(app->main());
    const int row = *harness::waitUntilFound("the shortcut " + harness::utf8(text),
                                             [&] { return list().find(text); });
    list().scrollIntoView(row);
    harness::clickAt(harness::centreOf(list().textOnScreen(row)), app->main());
    harness::waitUntil("the shortcut is selected", [&] { return list().selected() == row; });
  }

  static std::wstring missingObject() {
    return runTimeError(91, L"Object variable or With block variable not set");
  }

 private:
  bool elsewhere_ = false;
};

/// A file that nobody else can open while this object exists.
class LockedFile {
 public:
  explicit LockedFile(const std::wstring& path)
      : file_(CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr)) {
    EXPECT_NE(file_, INVALID_HANDLE_VALUE);
  }
  LockedFile(const LockedFile&) = delete;
  LockedFile& operator=(const LockedFile&) = delete;
  ~LockedFile() { CloseHandle(file_); }

 private:
  HANDLE file_;
};

}  // namespace desktop_tests
