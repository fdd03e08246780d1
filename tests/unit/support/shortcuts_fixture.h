// The Tools tab with shortcuts on the disk.
#pragma once

#include <string>
#include <vector>

#include "shortcuts/shortcut_list.h"
#include "unit/support/links.h"
#include "unit/support/main_window_fixture.h"

class ShortcutsTest : public MainWindowTest {
 protected:
  static constexpr const wchar_t* folder = L"C:\\Users\\Ann\\Documents\\My QMKExtra3\\ShortCuts";

  static std::wstring pathOf(const std::wstring& fileName) {
    return std::wstring(folder) + L"\\" + fileName;
  }

  /// Puts a shortcut into the shortcuts folder, to a program that need not exist.
  static void putShortcut(const std::wstring& fileName,
                          const std::wstring& target = L"C:\\Tools\\tool.exe") {
    memory::desktop().putLink(pathOf(fileName), linkTo(target));
  }

  /// Fills the list from the folder; the journal begins after that.
  void load() {
    modSC::LoadShortcutList(window.shortcuts);
    memory::desktop().clearJournal();
  }

  /// Selects the item of that text.
  void select(const std::wstring& text) {
    for (std::size_t i = 0; i < list.count(); ++i) {
      if (list.text(i) == text) {
        list.select(i);
        return;
      }
    }
    ADD_FAILURE() << "not listed: " << ::testing::PrintToString(text);
  }

  [[nodiscard]] std::vector<std::wstring> listed() const {
    std::vector<std::wstring> texts;
    for (std::size_t i = 0; i < list.count(); ++i) {
      texts.push_back(list.text(i));
    }
    return texts;
  }

  /// Makes the next reload detectable: creates a shortcut that is on the disk but not yet in the
  /// list.
  static void putUnlisted() { putShortcut(L"Unlisted.lnk"); }
  [[nodiscard]] bool reloaded() const {
    for (std::size_t i = 0; i < list.count(); ++i) {
      if (list.text(i) == L"Unlisted") {
        return true;
      }
    }
    return false;
  }

  controls::ListView& list = window.lstQMK[frmQMK::tools];
};
