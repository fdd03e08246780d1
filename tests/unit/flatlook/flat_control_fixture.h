// The fixture of the tests of cFlatControl.
#pragma once

#include <memory>
#include <string>

#include "flatlook/flat_test.h"

namespace flatlook::test {

namespace subclass = platform::subclass;

/// Style of a combo box with an edit line.
inline constexpr std::uint32_t dropDown = 2;

/// Messages attached to a plain control, and to a combo box with an edit line.
inline constexpr std::size_t plainMessages = 6;
inline constexpr std::size_t comboMessages = 6 + 4 + 1;

class FlatControlTest : public FlatTest {
 protected:
  ~FlatControlTest() override {
    flat.reset();
    EXPECT_EQ(subclass::attachedMessages(), 0U);
    EXPECT_EQ(screen().watched(), 0U);
    EXPECT_EQ(screen().timers(), 0U);
  }

  WindowHandle textBox() {
    const WindowHandle box = addControl(L"Edit", {10, 10, 60, 30});
    flat->Attach(target(L"TextBox", box));
    return box;
  }
  /// A combo box of the type "ComboBox" with its edit line.
  WindowHandle comboBox() {
    combo = addControl(L"ComboBox", {10, 50, 110, 71}, dropDown);
    line = screen().add(L"Edit", {112, 152, 190, 169}, combo);
    flat->Attach(target(L"ComboBox", combo));
    return combo;
  }
  static void move(WindowHandle window) { screen().send(window, messages::mouseMove); }
  static void tick(WindowHandle window) { screen().send(window, messages::timer, 1); }
  static void paint(WindowHandle window) { screen().send(window, messages::paint); }
  /// A notification of the combo box to the form.
  void notify(unsigned code, WindowHandle from) {
    screen().send(form, messages::command, (code << 16U) | 7U, static_cast<std::intptr_t>(from));
  }

  /// How the text box at (10, 10) was drawn since the last call: "idle", "hot" or "".
  std::string boxLook() {
    const Pixels pixels = takePixels(form);
    if (pixels.empty()) {
      return "";
    }
    return pixels.at({8, 8}) == shadow ? "hot" : "idle";
  }
  /// The same for the combo box: "idle", "hot", "down" or "".
  std::string comboLook() {
    const Pixels pixels = takePixels(combo);
    if (pixels.empty()) {
      return "";
    }
    if (pixels.at({0, 0}) != shadow) {
      return "idle";
    }
    return pixels.at({97, 10}) == shadow ? "hot" : "down";
  }

  std::unique_ptr<cFlatControl> flat = std::make_unique<cFlatControl>();
  WindowHandle combo = WindowHandle::none;
  WindowHandle line = WindowHandle::none;
};

}  // namespace flatlook::test
