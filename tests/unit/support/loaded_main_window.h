// Helpers of the tests of the list files for the main window.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "unit/support/main_window_fixture.h"

namespace unit {

using Texts = std::vector<std::wstring>;

class LoadedMainWindow : public MainWindowTest {
 protected:
  /// Until the window has nothing left to do when it is idle.
  static void settle() { memory::desktop().advance(200); }

  /// Texts of the messages that were shown, in order.
  [[nodiscard]] static Texts messages() {
    Texts texts;
    for (const memory::Message& message : memory::desktop().messages) {
      texts.push_back(message.text);
    }
    return texts;
  }

  /// Texts of a list's items in the displayed order.
  [[nodiscard]] static Texts textsOf(const controls::ListView& list) {
    Texts texts;
    for (std::size_t index = 0; index < list.count(); ++index) {
      texts.push_back(list.text(index));
    }
    return texts;
  }

  /// Selects the first item of that text.
  static void select(controls::ListView& list, const std::wstring& text) {
    for (std::size_t index = 0; index < list.count(); ++index) {
      if (list.text(index) == text) {
        list.select(index);
        return;
      }
    }
    ADD_FAILURE() << "no such item";
  }

  /// Calls `action`, like another program, just before the next replacement of a list file.
  static void atNextReplacement(const std::function<void()>& action) {
    memory::desktop().onReplace = [action] {
      // A copy, because resetting the callback destroys the function that is running.
      const auto once = action;
      memory::desktop().onReplace = nullptr;
      once();
    };
  }

  frmQMK& main = window;
};

}  // namespace unit
