// The splash window: its look, and the three ways in which it closes.
#include <utility>

#include "gateway_test.h"

namespace desktop_tests {
namespace {

constexpr int opaque = 255;
constexpr int fadeMs = 600;
constexpr int displayMs = 3000;
// Two clocks and a timer of the system may differ by this.
constexpr int clockSlackMs = 60;
// How late things may happen on a busy machine.
constexpr int lateMs = 3000;

class Splash : public GatewayTest {
 protected:
  void SetUp() override {
    GatewayApp::skipExample();
    app->start();
    splash_ = app->waitForSplash();
    shownAt_ = GetTickCount64();
  }

  /// Opacity of the splash, -1 when it is gone.
  [[nodiscard]] int opacity() const {
    BYTE level = 0;
    DWORD flags = 0;
    if (GetLayeredWindowAttributes(splash_, nullptr, &level, &flags) == FALSE) {
      return -1;
    }
    EXPECT_EQ(flags, DWORD{LWA_ALPHA});
    return level;
  }

  /// Watches the splash until it is gone. Returns the opacity levels that it had, each once, in
  /// order.
  [[nodiscard]] std::vector<int> watchFade() const {
    std::vector<int> levels;
    harness::waitUntil("the splash goes", [&] {
      const int level = opacity();
      if (level >= 0 && (levels.empty() || levels.back() != level)) {
        levels.push_back(level);
      }
      return level < 0 || IsWindowVisible(splash_) == FALSE;
    });
    return levels;
  }

  /// Checks that the levels are steps of one fade.
  static void expectOneFade(std::vector<int> levels, int highest = 240) {
    ASSERT_FALSE(levels.empty());
    if (levels.front() == opaque) {
      levels.erase(levels.begin());
    }
    EXPECT_GE(levels.size(), 5U) << "a fade, not a jump";
    EXPECT_TRUE(std::is_sorted(levels.rbegin(), levels.rend())) << "only ever fainter";
    for (const int level : levels) {
      EXPECT_LE(level, highest);
      EXPECT_GE(level, 10);
      EXPECT_EQ(level % 10, 0);
    }
  }

  void click() const { harness::clickAt(harness::centreOf(harness::screenRect(splash_)), splash_); }

  /// Milliseconds from `since` to the main window.
  [[nodiscard]] int untilMain(ULONGLONG since) {
    app->waitForMain();
    return static_cast<int>(GetTickCount64() - since);
  }

  HWND splash_ = nullptr;
  ULONGLONG shownAt_ = 0;
};

TEST_F(Splash, IsALayeredWindowWithNothingElseInItsExtendedStyle) {
  EXPECT_EQ(GetWindowLongPtrW(splash_, GWL_EXSTYLE), WS_EX_LAYERED);
  EXPECT_EQ(opacity(), opaque);
  EXPECT_EQ(GetWindowLongPtrW(splash_, GWL_STYLE) & WS_CAPTION, 0) << "no title bar";
  app->waitForMain();
}

TEST_F(Splash, ShowsReleaseCopyrightAndName) {
  const auto label = [&](int id) { return harness::text(harness::child(splash_, id)); };
  EXPECT_EQ(label(ids::splashTitle), L"Gateway");
  EXPECT_EQ(label(ids::splashTM), L"\u00AE");
  EXPECT_EQ(label(ids::splashApp), L"Release 3.0.0");
  EXPECT_NE(label(ids::splashCopyRight).find(L"Quillmark"), std::wstring::npos)
      << harness::utf8(label(ids::splashCopyRight));
  app->waitForMain();
}

TEST_F(Splash, IsInTheMiddleOfTheScreen) {
  const POINT middle = harness::centreOf(harness::screenRect(splash_));
  EXPECT_NEAR(middle.x, GetSystemMetrics(SM_CXSCREEN) / 2.0, 2);
  EXPECT_NEAR(middle.y, GetSystemMetrics(SM_CYSCREEN) / 2.0, 40) << "a task bar may move it";
  app->waitForMain();
}

TEST_F(Splash, NoMainWindowWhileItIsUp) {
  EXPECT_EQ(harness::visibleWindow(app->processId(), L"frmQMK"), nullptr);
  app->waitForMain();
  EXPECT_EQ(app->splash(), nullptr);
}

TEST_F(Splash, TheMainWindowIsBuiltBehindIt) {
  HWND main = nullptr;
  EXPECT_TRUE(happens("the main window has its controls", [&] {
    for (HWND const window : harness::topWindows(app->processId())) {
      if (harness::className(window) == L"frmQMK") {
        main = window;
      }
    }
    return main != nullptr && harness::child(main, ids::lstQMK0 + 3) != nullptr &&
           harness::child(main, ids::cmdBrowse) != nullptr;
  }));
  EXPECT_EQ(opacity(), opaque) << "Not only when the splash goes";
  EXPECT_EQ(IsWindowVisible(main), FALSE);
}

TEST_F(Splash, FadesAtAClick) {
  const ULONGLONG clicked = GetTickCount64();
  click();
  expectOneFade(watchFade());
  const int taken = untilMain(clicked);
  EXPECT_GE(taken, fadeMs - clockSlackMs);
  EXPECT_LT(taken, fadeMs + lateMs);
}

TEST_F(Splash, FadesAtAKey) {
  harness::bringToFront(splash_);
  const ULONGLONG pressed = GetTickCount64();
  harness::pressKey(VK_SPACE);
  expectOneFade(watchFade());
  EXPECT_GE(untilMain(pressed), fadeMs - clockSlackMs);
  EXPECT_LT(GetTickCount64() - shownAt_, static_cast<ULONGLONG>(displayMs + fadeMs))
      << "the key, not the clock";
}

TEST_F(Splash, FadesAtEsc) {
  harness::bringToFront(splash_);
  harness::pressKey(VK_ESCAPE);
  expectOneFade(watchFade());
  app->waitForMain();
  EXPECT_LT(GetTickCount64() - shownAt_, static_cast<ULONGLONG>(displayMs + fadeMs));
}

TEST_F(Splash, FadesByItselfAfterThreeSeconds) {
  harness::waitUntil("the fade begins", [&] { return opacity() != opaque; });
  const auto waited = static_cast<int>(GetTickCount64() - shownAt_);
  // It was visible for a moment before it was found.
  EXPECT_GE(waited, displayMs - 1000);
  EXPECT_LT(waited, displayMs + lateMs);
  expectOneFade(watchFade());
  EXPECT_GE(untilMain(shownAt_), displayMs - 1000 + fadeMs);
}

TEST_F(Splash, ASecondClickNeitherSpeedsNorRestartsTheFade) {
  const ULONGLONG clicked = GetTickCount64();
  click();
  click();
  harness::waitUntil("half of the fade", [&] { return opacity() <= 120; });
  click();
  expectOneFade(watchFade(), 120);
  EXPECT_GE(untilMain(clicked), fadeMs - clockSlackMs);
}

class SplashAmongOthers : public GatewayTest {};

/// A window of another program that notes whether it was ever the active one.
class OtherProgram {
 public:
  OtherProgram() {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = note;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"OtherProgram";
    RegisterClassW(&windowClass);
    activated() = false;
    window_ = CreateWindowExW(0, L"OtherProgram", L"Other program", WS_OVERLAPPEDWINDOW, 0, 0, 300,
                              200, nullptr, nullptr, windowClass.hInstance, nullptr);
    ShowWindow(window_, SW_SHOW);
    harness::waitUntil("the other program is in front", [this] {
      static_cast<void>(hasBeenActivated());
      return GetForegroundWindow() == window_;
    });
  }
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;
  ~OtherProgram() { DestroyWindow(window_); }

  /// Whether it has been active since the last question.
  [[nodiscard]] static bool hasBeenActivated() {
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
      DispatchMessageW(&message);
    }
    return std::exchange(activated(), false);
  }

 private:
  static bool& activated() {
    static bool value = false;
    return value;
  }
  static LRESULT CALLBACK note(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_ACTIVATE && LOWORD(first) != WA_INACTIVE) {
      activated() = true;
    }
    return DefWindowProcW(window, message, first, second);
  }
  HWND window_;
};

TEST_F(SplashAmongOthers, LeavesItsPlaceInFrontOfThemToTheMainWindow) {
  GatewayApp::skipExample();
  const OtherProgram other;
  app->start();
  HWND const splash = app->waitForSplash();
  ASSERT_TRUE(eventually([] { return GetForegroundWindow(); }, splash));
  static_cast<void>(OtherProgram::hasBeenActivated());
  bool wentToOther = false;
  HWND main = nullptr;
  harness::waitUntil("the main window is shown", [&] {
    main = harness::visibleWindow(app->processId(), L"frmQMK");
    wentToOther = OtherProgram::hasBeenActivated() || wentToOther;
    return main != nullptr;
  });
  EXPECT_TRUE(eventually([] { return GetForegroundWindow(); }, main));
  EXPECT_FALSE(OtherProgram::hasBeenActivated() || wentToOther);
  app->waitForMain();
}

}  // namespace
}  // namespace desktop_tests
