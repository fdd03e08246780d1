// Shared code of the tests of the flat look.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <utility>

#include "flatlook/flat_control.h"
#include "flatlook/messages.h"
#include "flatlook/rings.h"
#include "platform/desktop_test.h"
#include "platform/native_screen.h"

namespace flatlook::test {

using memory::Edges;
using memory::screen;
using memory::WindowHandle;

/// System colours that are all different, so that rings can be distinguished.
inline constexpr std::uint32_t face = 0xD0D1D2;
inline constexpr std::uint32_t shadow = 0x808182;
inline constexpr std::uint32_t highlight = 0xF0F1F2;
inline constexpr std::uint32_t background = 0xFFFEFD;

/// A screen with one window, on which the tests put controls.
class FlatTest : public ::memory::DesktopTest {
 protected:
  FlatTest() {
    screen().reset();
    screen().systemColours = {{5, background}, {15, face}, {16, shadow}, {20, highlight}};
    form = screen().add(L"frmTest", {100, 100, 400, 300});
  }
  ~FlatTest() override {
    EXPECT_EQ(screen().pensOpen, 0);
    EXPECT_EQ(screen().canvasesOpen, 0);
  }

  /// A control on the form, with its place in the form's client area.
  WindowHandle addControl(const std::wstring& className, const Edges& place,
                          std::uint32_t style = 0) {
    return screen().add(className,
                        {place.left + 100, place.top + 100, place.right + 100, place.bottom + 100},
                        form, style);
  }

  /// The target for a control; it counts how often it was shrunk.
  FlatTarget target(const std::wstring& type, WindowHandle window) {
    return {type, window, form, [this] { ++shrunk; }};
  }

  static void pointAt(int x, int y) { screen().cursor = {x + 100, y + 100}; }
  static bool timerRuns(WindowHandle window) { return screen().at(window).timers.contains(1); }
  /// Returns and removes what was drawn on a window since the last call.
  static Pixels takePixels(WindowHandle window) {
    return std::exchange(screen().at(window).pixels, {});
  }

  WindowHandle form = WindowHandle::none;
  int shrunk = 0;
};

}  // namespace flatlook::test
