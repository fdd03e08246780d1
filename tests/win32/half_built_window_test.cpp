// Windows whose parts the system refuses to create: at once, or while a window is completed behind
// another one.
#include <gtest/gtest.h>
#include <windows.h>

#include <bit>
#include <string>
#include <vector>

#include "harness/eventually.h"
#include "harness/windows_of_process.h"
#include "platform/application.h"
#include "platform/controls/window.h"
#include "platform/run_time_error.h"

namespace {

class Frame : public controls::Window {
 public:
  Frame() : Window(L"frmHalfBuilt", controls::WindowKind::frame), label(L"lblPart", 900) {
    setDesignSize({200, 100}, {});
    add(label);
  }
  [[nodiscard]] HWND handle() const { return static_cast<HWND>(peer()->handle()); }
  controls::Label label;
  bool asked = false;

 protected:
  void Form_QueryUnload(bool& /*cancel*/, controls::UnloadMode /*mode*/) override { asked = true; }
};

class Before : public controls::Window {
 public:
  Before() : Window(L"frmBefore", controls::WindowKind::bare) { setDesignSize({50, 50}, {}); }
};

/// While an object of this class exists, the system creates no parts of windows. Message boxes of
/// this thread are recorded and answered with OK.
class Refusal {
 public:
  explicit Refusal(HWND window) {
    state() = {.refused = window, .texts = {}};
    hook_ = SetWindowsHookExW(WH_CBT, watch, nullptr, GetCurrentThreadId());
  }
  Refusal(const Refusal&) = delete;
  Refusal& operator=(const Refusal&) = delete;
  ~Refusal() { UnhookWindowsHookEx(hook_); }
  /// Texts of the message boxes.
  [[nodiscard]] static const std::vector<std::wstring>& texts() { return state().texts; }

 private:
  struct State {
    HWND refused = nullptr;
    std::vector<std::wstring> texts;
  };
  static State& state() {
    static State theState;
    return theState;
  }
  static LRESULT CALLBACK watch(int code, WPARAM first, LPARAM second) {
    HWND const window = std::bit_cast<HWND>(first);
    if (code == HCBT_CREATEWND &&
        std::bit_cast<const CBT_CREATEWNDW*>(second)->lpcs->hwndParent == state().refused) {
      return 1;
    }
    if (code == HCBT_ACTIVATE && harness::className(window) == L"#32770") {
      constexpr int textOfMessage = 0xFFFF;
      state().texts.push_back(harness::text(GetDlgItem(window, textOfMessage)));
      PostMessageW(window, WM_COMMAND, IDOK, 0);
    }
    return CallNextHookEx(nullptr, code, first, second);
  }
  HHOOK hook_;
};

TEST(HalfBuiltWindow, IsGoneWhenItCannotBeShown) {
  Frame frame;
  frame.load();
  HWND const handle = frame.handle();
  {
    const Refusal refusal(handle);
    try {
      frame.show();
      ADD_FAILURE() << "it was shown";
    } catch (const platform::RunTimeError& failure) {
      EXPECT_EQ(failure.number(), 7);
    }
  }
  EXPECT_FALSE(frame.loaded());
  EXPECT_FALSE(frame.asked);
  EXPECT_EQ(frame.peer(), nullptr);
  EXPECT_EQ(IsWindow(handle), FALSE);

  frame.show();
  EXPECT_TRUE(frame.laidOut());
  EXPECT_NE(IsWindowVisible(frame.handle()), FALSE);
  frame.unload();
}

TEST(HalfBuiltWindow, IsGoneWhenItCannotBeFinishedBehindAnotherOne) {
  Frame frame;
  frame.load();
  HWND const handle = frame.handle();
  Before before;
  before.show();
  const Refusal refusal(handle);
  EXPECT_TRUE(harness::happens("the half-built window is given up", [&] {
    platform::application::processPendingMessages();
    return !frame.loaded();
  }));
  EXPECT_EQ(Refusal::texts(),
            std::vector<std::wstring>{L"Run-time error '7':\r\n\r\nOut of memory"});
  EXPECT_FALSE(frame.asked);
  EXPECT_EQ(frame.peer(), nullptr);
  EXPECT_EQ(IsWindow(handle), FALSE);
  EXPECT_TRUE(before.loaded());
  before.unload();
}

}  // namespace
