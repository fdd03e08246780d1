// The fixture of the tests in hostile surroundings.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <string>
#include <vector>

#include "harness/eventually.h"
#include "harness/files.h"
#include "harness/gateway_app.h"
#include "harness/input.h"
#include "harness/paths.h"
#include "harness/text.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"
#include "machine.h"
#include "proof.h"

namespace proofs {

using harness::GatewayApp;
using harness::Tab;

/// Starts the program and answers its messages; the texts are kept.
class Surroundings : public ::testing::Test {
 protected:
  static constexpr DWORD longestAnswerMs = 2000;

  Surroundings() { GatewayApp::skipExample(); }
  ~Surroundings() override { app_.kill(); }

  static std::string record(const std::wstring& path, const std::wstring& code = L"FP3") {
    return harness::codePageBytes(L"\"" + code + L"\",\"" + path + L"\",\"1/2/2003\"\r\n");
  }

  /// Starts the program and answers the messages until the main window takes input. Returns their
  /// texts.
  std::vector<std::string> startThroughMessages(bool expectMessages = true) {
    app_.start();
    HWND const splash = app_.waitForSplash();
    harness::clickAt(harness::centreOf(harness::screenRect(splash)), splash);
    std::vector<std::string> messages;
    app_.waitForMain();
    harness::waitUntil(expectMessages ? "start-up says what is wrong" : "start-up is over", [&] {
      if (app_.dialogShown()) {
        messages.push_back(answerMessage());
      }
      return !app_.dialogShown() && app_.list(Tab::newFile).count() == 4 && takesInput() &&
             (!messages.empty() || !expectMessages);
    });
    return messages;
  }

  [[nodiscard]] bool takesInput() const {
    DWORD_PTR ignored = 0;
    return IsWindowEnabled(app_.main()) != FALSE &&
           SendMessageTimeoutW(app_.main(), WM_NULL, 0, 0, SMTO_NORMAL, longestAnswerMs,
                               &ignored) != 0;
  }

  std::string answerMessage() {
    const harness::MessageBoxReader box = app_.waitForMessage();
    std::string text = harness::utf8(box.text());
    box.answer(IDOK);
    return text;
  }

  /// Closes the program and answers the messages that appear meanwhile.
  std::vector<std::string> closeThroughMessages() {
    std::vector<std::string> messages;
    ULONGLONG asked = 0;
    const bool ended = harness::waitFor([&] {
      // A message that has just appeared takes the request to close for itself.
      constexpr ULONGLONG again = 2000;
      if (!app_.dialogShown() && GetTickCount64() - asked > again) {
        PostMessageW(app_.main(), WM_CLOSE, 0, 0);
        asked = GetTickCount64();
      }
      for (HWND const window : harness::visibleWindows(app_.processId())) {
        if (harness::className(window) == L"#32770" && IsWindowEnabled(window) != FALSE) {
          const harness::MessageBoxReader box(window);
          if (box.text() == L"Exit Gateway?") {
            box.answer(IDYES);
          } else {
            messages.push_back(harness::utf8(box.text()));
            box.answer(IDOK);
          }
          break;
        }
      }
      return !app_.running();
    });
    if (!ended) {
      ADD_FAILURE() << "the program does not end; on the screen:" << windowsShown();
      app_.kill();
    }
    return messages;
  }

  /// For the text of a failure.
  [[nodiscard]] std::string windowsShown() const {
    std::string shown;
    for (HWND const window : harness::visibleWindows(app_.processId())) {
      std::array<wchar_t, 100> title{};
      InternalGetWindowText(window, title.data(), static_cast<int>(title.size()));
      shown += "\n  " + harness::utf8(harness::className(window)) + " '" +
               harness::utf8(title.data()) + "'" +
               (IsWindowEnabled(window) != FALSE ? "" : ", disabled");
    }
    return shown;
  }

  void expectAnswers() const {
    DWORD_PTR ignored = 0;
    EXPECT_NE(
        SendMessageTimeoutW(app_.main(), WM_NULL, 0, 0, SMTO_NORMAL, longestAnswerMs, &ignored), 0);
  }

  static void report(const std::string& what, const std::vector<std::string>& messages) {
    std::string shown;
    for (std::string text : messages) {
      for (char& c : text) {
        c = c == '\r' || c == '\n' ? ' ' : c;
      }
      shown += (shown.empty() ? "" : " | ") + text;
    }
    figure("surroundings, " + what, shown.empty() ? "no message" : shown);
  }

  GatewayApp app_;
};

}  // namespace proofs
