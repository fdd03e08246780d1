// The end of the session, as the system announces it to windows.
#pragma once

#include <windows.h>

#include <bit>
#include <optional>

#include "harness/wait.h"

namespace harness {

/// Asks a window whether the session may end, without waiting for the answer.
class EndOfSession {
 public:
  /// `reason`: ENDSESSION_... flags, 0 for an ordinary shutdown.
  explicit EndOfSession(HWND window, LPARAM reason = 0) {
    SendMessageCallbackW(window, WM_QUERYENDSESSION, 0, reason, answered,
                         reinterpret_cast<ULONG_PTR>(&answer_));
  }
  EndOfSession(const EndOfSession&) = delete;
  EndOfSession& operator=(const EndOfSession&) = delete;
  /// Waits for the window's answer and returns it.
  [[nodiscard]] bool mayEnd() const {
    waitUntil("the answer to the end of the session", [this] {
      MSG message{};
      while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
        DispatchMessageW(&message);
      }
      return answer_.has_value();
    });
    return *answer_;
  }

 private:
  static void CALLBACK answered(HWND /*window*/, UINT /*message*/, ULONG_PTR target,
                                LRESULT result) {
    *std::bit_cast<std::optional<bool>*>(target) = result != 0;
  }
  std::optional<bool> answer_;
};

}  // namespace harness
