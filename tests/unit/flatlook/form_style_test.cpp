#include "flatlook/form_style.h"

#include <gtest/gtest.h>

#include "flatlook/flat_test.h"
#include "platform/controls/list_view.h"

namespace OC_COLOR {
namespace {

using flatlook::test::FlatTest;
using memory::screen;
using memory::WindowHandle;
namespace subclass = platform::subclass;

class StyledWindow : public controls::Window {
 public:
  StyledWindow() : Window(L"frmStyled", controls::WindowKind::dialog) {
    add(label);
    add(box);
    add(locked);
    add(combo);
    add(picture);
    add(button);
    add(list);
  }
  controls::Label label{L"Label1", 1};
  controls::TextBox box{L"txtName", 2};
  controls::TextBox locked{L"txtLocked", 3};
  controls::ComboBox combo{L"cboType", 4};
  controls::CoolButton picture{L"cmdPicture", 5};
  controls::CommandButton button{L"cmdOK", 6};
  controls::ListView list{L"lstAll", 7};

 protected:
  void layout(platform::Size /*client*/, int dpi) override {
    box.setBounds({platform::scaled(10, dpi), platform::scaled(10, dpi), platform::scaled(50, dpi),
                   platform::scaled(20, dpi)});
  }
};

class EmptyWindow : public controls::Window {
 public:
  EmptyWindow() : Window(L"frmEmpty", controls::WindowKind::dialog) {}
};

class FormStyleTest : public FlatTest {
 protected:
  FormStyleTest() {
    window.locked.setLocked(true);
    screen().windowsOf[&window] = form;
    for (controls::Control* const control : window.controls()) {
      // Labels have no window.
      if (control != &window.label) {
        const bool combo = control == &window.combo;
        screen().windowsOf[control] =
            addControl(combo ? L"ComboBox" : L"Other", {10, 10, 60, 30}, combo ? 3U : 0U);
      }
    }
    before = FlatControls().size();
  }
  ~FormStyleTest() override {
    // The objects stay; their windows are destroyed.
    screen().destroy(form);
    EXPECT_EQ(subclass::attachedMessages(), 0U);
  }
  [[nodiscard]] std::size_t grown() const { return FlatControls().size() - before; }
  [[nodiscard]] bool watched(const controls::Control& control) const {
    return screen().at(screen().windowsOf.at(&control)).watched;
  }

  StyledWindow window;
  std::size_t before = 0;
};

TEST_F(FormStyleTest, ATextBoxIsMadeFlatAndAttached) {
  ApplyFlatStyle(window);
  EXPECT_EQ(window.box.appearance(), 0);
  EXPECT_EQ(window.box.borderStyle(), 0);
  EXPECT_TRUE(watched(window.box));
}

TEST_F(FormStyleTest, ALockedTextBoxIsMadeFlatAndNotAttached) {
  ApplyFlatStyle(window);
  EXPECT_EQ(window.locked.appearance(), 0);
  EXPECT_EQ(window.locked.borderStyle(), 0);
  EXPECT_FALSE(watched(window.locked));
  EXPECT_EQ(window.locked.margin(), 0);
}

TEST_F(FormStyleTest, AComboBoxIsMadeFlatAndAttached) {
  ApplyFlatStyle(window);
  EXPECT_EQ(window.combo.appearance(), 0);
  EXPECT_TRUE(watched(window.combo));
  EXPECT_EQ(window.combo.margin(), 0);
  EXPECT_TRUE(screen().at(form).watched) << "It is told of the list's closing";
}

TEST_F(FormStyleTest, AnImageButtonIsColouredAndNotAttached) {
  ApplyFlatStyle(window);
  EXPECT_EQ(window.picture.backColor(), 0xFFC0C0U);
  EXPECT_EQ(window.picture.colorDarkShadow(), 0U);
  EXPECT_EQ(window.picture.colorHighlight(), 0U);
  EXPECT_EQ(window.picture.colorLightShadow(), 0U);
  EXPECT_FALSE(watched(window.picture));
}

TEST_F(FormStyleTest, OtherControlsAreLeftAlone) {
  ApplyFlatStyle(window);
  EXPECT_FALSE(watched(window.button));
  EXPECT_FALSE(watched(window.list));
}

TEST_F(FormStyleTest, OneObjectForEachTextBoxComboBoxAndLabel) {
  ApplyFlatStyle(window);
  EXPECT_EQ(grown(), 3U);
  EXPECT_EQ(subclass::attachedMessages(), 6U + 7U) << "The label's object is inert";
}

TEST_F(FormStyleTest, EveryShowingAddsTheSameNumber) {
  const cFlatControl* const oldest = before == 0 ? nullptr : FlatControls().front().get();
  for (std::size_t showing = 1; showing <= 5; ++showing) {
    ApplyFlatStyle(window);
    EXPECT_EQ(grown(), 3 * showing);
  }
  if (oldest != nullptr) {
    EXPECT_EQ(FlatControls().front().get(), oldest) << "The former objects stay where they are";
  }
}

TEST_F(FormStyleTest, AWindowWithoutControlsAddsNothing) {
  EmptyWindow empty;
  ApplyFlatStyle(empty);
  EXPECT_EQ(grown(), 0U);
}

TEST_F(FormStyleTest, AWindowWithoutNativeControlsGetsInertObjects) {
  screen().windowsOf.clear();
  ApplyFlatStyle(window);
  EXPECT_EQ(grown(), 3U);
  EXPECT_EQ(subclass::attachedMessages(), 0U);
  EXPECT_EQ(window.box.margin(), 0);
}

TEST_F(FormStyleTest, TheRingStaysFreeWhenTheWindowIsLaidOutAgain) {
  window.fireLayout({200, 100}, 96);
  ApplyFlatStyle(window);
  EXPECT_EQ(window.box.bounds(), (platform::Rect{11, 11, 48, 18}));
  window.fireLayout({300, 100}, 96);
  EXPECT_EQ(window.box.bounds(), (platform::Rect{11, 11, 48, 18}));
  window.fireLayout({300, 100}, 144);
  EXPECT_EQ(window.box.bounds(), (platform::Rect{16, 16, 73, 28}))
      << "The ring is one pixel wide at every density";
}

TEST_F(FormStyleTest, AWindowThatIsLoadedAgainDoesNotShrinkItsControlsFurther) {
  window.fireLayout({200, 100}, 96);
  ApplyFlatStyle(window);
  ApplyFlatStyle(window);
  EXPECT_EQ(window.box.bounds(), (platform::Rect{11, 11, 48, 18}));
}

TEST(ButtonColoursTest, TheFourColoursFollowThePointer) {
  controls::CoolButton button{L"cmdBrowse", 1};
  const auto colours = [&button] {
    return std::vector<std::uint32_t>{button.backColor(), button.colorDarkShadow(),
                                      button.colorHighlight(), button.colorLightShadow()};
  };
  const std::vector<std::uint32_t> hot{0xC0FFFF, 0x0080FF, 0x0080FF, 0x0080FF};
  const std::vector<std::uint32_t> idle{0xFFC0C0, 0, 0, 0};
  SetButtonHot(button);
  EXPECT_EQ(colours(), hot);
  SetButtonIdle(button);
  EXPECT_EQ(colours(), idle);
  SetButtonHot(button);
  setButtonIdleAfterClick(button);
  EXPECT_EQ(colours(), idle);
}

}  // namespace
}  // namespace OC_COLOR
