// Targets of the flat look for controls of the program's own windows.
#include "flatlook/flat_control.h"
#include "platform/controls/window.h"

namespace native = platform::native;

namespace {

std::wstring typeNameOf(const controls::Control& control) {
  using controls::Kind;
  switch (control.kind()) {
    case Kind::textBox:
      return L"TextBox";
    case Kind::comboBox:
      return L"ComboBox";
    case Kind::label:
      return L"Label";
    case Kind::commandButton:
      return L"CommandButton";
    case Kind::optionButton:
      return L"OptionButton";
    case Kind::imageButton:
      return L"CoolButton";
    case Kind::listView:
      return L"ListView";
    case Kind::tab:
      return L"TabStrip";
    case Kind::toolbar:
      return L"Toolbar";
    case Kind::statusBar:
      return L"StatusBar";
    case Kind::image:
      return L"Image";
    case Kind::other:
      break;
  }
  return {};
}

}  // namespace

FlatTarget flatTargetOf(controls::Control& control, const controls::Window& form) {
  FlatTarget target;
  target.typeName = typeNameOf(control);
  if (const auto window = native::windowOf(control); window != native::WindowHandle::none) {
    target.hWnd = window;
  }
  target.parentWindow = native::windowOf(form);
  // A margin rather than smaller bounds, so that the ring stays free when the window is laid out
  // again. It is one pixel however often the window is loaded.
  target.shrink = [&control] { control.setMargin(1); };
  return target;
}
