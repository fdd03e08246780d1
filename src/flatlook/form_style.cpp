#include "flatlook/form_style.h"

#include "platform/native_windows.h"

namespace OC_COLOR {

namespace {

std::vector<std::unique_ptr<cFlatControl>>& objects() {
  static std::vector<std::unique_ptr<cFlatControl>> flatControls;
  return flatControls;
}

void attach(controls::Control& control, const controls::Window& form) {
  objects().push_back(std::make_unique<cFlatControl>());
  objects().back()->Attach(flatTargetOf(control, form));
}

}  // namespace

void colour(controls::CoolButton& button, const ButtonColours& colours) {
  button.setBackColor(colours.background);
  button.setColorDarkShadow(colours.lines);
  button.setColorHighlight(colours.lines);
  button.setColorLightShadow(colours.lines);
}

const std::vector<std::unique_ptr<cFlatControl>>& FlatControls() { return objects(); }

void attachLate(controls::Control& control, const controls::Window& form) {
  // A control that has its frame has the margin for it.
  if (control.margin() == 0 &&
      platform::native::windowOf(control) != platform::native::WindowHandle::none) {
    attach(control, form);
  }
}

void ApplyFlatStyle(controls::Window& form) {
  using controls::Kind;
  for (controls::Control* const control : form.controls()) {
    switch (control->kind()) {
      case Kind::comboBox:
        static_cast<controls::ComboBox&>(*control).setAppearance(controls::flat);
        attach(*control, form);
        break;
      case Kind::imageButton:
        colour(static_cast<controls::CoolButton&>(*control), idleColours);
        break;
      case Kind::textBox: {
        auto& box = static_cast<controls::TextBox&>(*control);
        box.setAppearance(controls::flat);
        box.setBorderStyle(controls::noBorder);
        if (!box.locked()) {
          attach(box, form);
        }
        break;
      }
      case Kind::label:
        attach(*control, form);
        break;
      default:
        break;
    }
  }
}

void SetButtonHot(controls::CoolButton& button) { colour(button, hotColours); }

void SetButtonIdle(controls::CoolButton& button) { colour(button, idleColours); }

void setButtonIdleAfterClick(controls::CoolButton& button) { colour(button, idleColours); }

}  // namespace OC_COLOR
