// The flat look of a whole window of the program's own class.
#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <string>

#include "desktop_facts.h"
#include "flatlook/form_style.h"
#include "platform/subclass.h"
#include "platform/win32/dpi.h"
#include "platform/win32/native_handle.h"

namespace flat_tests {
namespace {

using Colours = DistinctColours;
using platform::scaled;

/// A dialog that looks like the program's.
class Styled : public controls::Window {
 public:
  Styled() : Window(L"frmFlatTest", controls::WindowKind::dialog) {
    setCaption(L"Flat look");
    setDesignSize({300, 120}, {});
    label.setCaption(L"Name");
    name.setText(L"North Ridge");
    name.setAccessibleName(L"Name");
    locked.setText(L"cannot be changed");
    locked.setLocked(true);
    ok.setCaption(L"OK");
    browse.setCaption(L"Browse");
    browse.onPointerEnter = [this] { OC_COLOR::SetButtonHot(browse); };
    browse.onPointerLeave = [this] { OC_COLOR::SetButtonIdle(browse); };
    add(ok);
    add(label);
    add(name);
    add(locked);
    add(browse);
  }

  controls::Label label{L"Label1", 101};
  controls::TextBox name{L"txtName", 102};
  controls::TextBox locked{L"txtLocked", 103};
  controls::CommandButton ok{L"cmdOK", 104};
  controls::CoolButton browse{L"cmdBrowse", 105};

 protected:
  void Form_Load() override { OC_COLOR::ApplyFlatStyle(*this); }
  void layout(platform::Size /*client*/, int dpi) override {
    const auto at = [dpi](int length) { return scaled(length, dpi); };
    label.setBounds({at(10), at(14), at(50), at(18)});
    name.setBounds({at(70), at(10), at(200), at(24)});
    locked.setBounds({at(70), at(44), at(200), at(24)});
    ok.setBounds({at(70), at(80), at(80), at(26)});
    browse.setBounds({at(170), at(80), at(80), at(26)});
  }
};

class FormTest : public ::testing::Test {
 protected:
  FormTest() { attachedBefore = platform::subclass::attachedMessages(); }
  HWND handle() const { return platform::win32::windowFrom(platform::native::windowOf(window)); }
  static HWND handle(const controls::Control& control) {
    return platform::win32::windowFrom(platform::native::windowOf(control));
  }
  void show() {
    window.show();
    ASSERT_TRUE(pumpUntil("the form is in front", [this] {
      SetForegroundWindow(handle());
      return GetForegroundWindow() == handle();
    }));
    SetFocus(handle(window.ok));
  }
  /// Moves the pointer over the text box and waits until its timer runs.
  [[nodiscard]] ::testing::AssertionResult pointerTracked() {
    pointer.moveTo(handle(window.name));
    return pumpUntil("the text box has its timer", [this] {
      pointer.hold();
      return hasTimer(handle(window.name));
    });
  }
  /// The ring of the text box, which lies just inside the place that the layout gives it.
  [[nodiscard]] ::testing::AssertionResult nameHasRing(COLORREF topLeft, COLORREF bottomRight) {
    const int dpi = platform::win32::dpiOf(handle());
    const auto at = [dpi](int length) { return scaled(length, dpi); };
    const Edges place{at(70), at(10), at(70) + at(200), at(10) + at(24)};
    Pixels expected;
    flatlook::test::ring(expected,
                         {place.left - 1, place.top - 1, place.right + 1, place.bottom + 1},
                         topLeft, bottomRight);
    flatlook::test::ring(expected, place, Colours::face, Colours::face);
    Pixels found;
    return pumpUntil("the text box has its ring",
                     [&] {
                       pointer.hold();
                       found = pixelsAt(handle(), expected);
                       return found == expected;
                     })
           << ", " << difference(found, expected);
  }

  Styled window;
  Pointer pointer;
  std::size_t attachedBefore = 0;
};

TEST_F(FormTest, IsShownAtTheDensityThatTheTestsAreRunFor) {
  std::array<wchar_t, 16> wanted{};
  if (GetEnvironmentVariableW(L"QMK_EXPECTED_DPI", wanted.data(),
                              static_cast<DWORD>(wanted.size())) == 0) {
    GTEST_SKIP() << "run by hand";
  }
  show();
  EXPECT_EQ(std::to_wstring(platform::win32::dpiOf(handle())), wanted.data());
}

TEST_F(FormTest, ItsTextBoxRisesAndFalls) {
  const std::size_t objects = OC_COLOR::FlatControls().size();
  show();
  EXPECT_EQ(OC_COLOR::FlatControls().size(), objects + 2) << "One text box and one label";
  EXPECT_EQ(platform::subclass::attachedMessages(), attachedBefore + 6) << "The label's is inert";
  EXPECT_TRUE(nameHasRing(Colours::face, Colours::face));
  SetFocus(handle(window.name));
  EXPECT_TRUE(nameHasRing(Colours::shadow, Colours::highlight));
  SetFocus(handle(window.ok));
  EXPECT_TRUE(nameHasRing(Colours::face, Colours::face));
  EXPECT_TRUE(pointerTracked());
  EXPECT_TRUE(nameHasRing(Colours::shadow, Colours::highlight));
  pointer.park();
  EXPECT_TRUE(pumpUntil("the text box has no timer", [this] {
    pointer.hold();
    return !hasTimer(handle(window.name));
  }));
  EXPECT_TRUE(nameHasRing(Colours::face, Colours::face));
}

TEST_F(FormTest, TheRingSurvivesANewLayout) {
  show();
  SetFocus(handle(window.name));
  RECT client{};
  GetClientRect(handle(), &client);
  window.fireLayout({client.right, client.bottom}, platform::win32::dpiOf(handle()));
  RedrawWindow(handle(), nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_ALLCHILDREN);
  EXPECT_TRUE(nameHasRing(Colours::shadow, Colours::highlight));
}

TEST_F(FormTest, TextBoxesHaveNoBorderOfTheirOwn) {
  show();
  for (const controls::TextBox* const box : {&window.name, &window.locked}) {
    EXPECT_EQ(GetWindowLongPtrW(handle(*box), GWL_EXSTYLE) & WS_EX_CLIENTEDGE, 0);
    EXPECT_EQ(GetWindowLongPtrW(handle(*box), GWL_STYLE) & WS_BORDER, 0);
  }
}

TEST_F(FormTest, AnImageButtonFollowsThePointer) {
  show();
  EXPECT_EQ(window.browse.backColor(), 0xFFC0C0U);
  const auto becomes = [this](std::uint32_t colour) {
    return pumpUntil("the button has colour " + std::to_string(colour),
                     [&] {
                       pointer.hold();
                       return window.browse.backColor() == colour;
                     })
           << ", it has " << window.browse.backColor();
  };
  pointer.moveTo(handle(window.browse));
  EXPECT_TRUE(becomes(0xC0FFFF));
  pointer.park();
  EXPECT_TRUE(becomes(0xFFC0C0));
}

TEST_F(FormTest, ClosedWindowsCostNothing) {
  const auto once = [this] {
    show();
    EXPECT_TRUE(pointerTracked());
    window.unload();
    pointer.park();
    pump();
  };
  once();
  once();
  const int objects = gdiObjects();
  const int windows = windowCount();
  const std::size_t flatControls = OC_COLOR::FlatControls().size();
  constexpr std::size_t showings = 25;
  for (std::size_t i = 0; i < showings; ++i) {
    once();
  }
  EXPECT_EQ(OC_COLOR::FlatControls().size(), flatControls + 2 * showings);
  EXPECT_EQ(platform::subclass::attachedMessages(), attachedBefore);
  EXPECT_EQ(gdiObjects(), objects);
  EXPECT_EQ(windowCount(), windows);
  EXPECT_EQ(timerCount(), 0);
}

}  // namespace
}  // namespace flat_tests
