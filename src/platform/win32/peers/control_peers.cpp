#include "platform/win32/peers/control_peers.h"

#include "platform/win32/peers/button_peer.h"
#include "platform/win32/peers/cool_button_peer.h"
#include "platform/win32/peers/image_peer.h"
#include "platform/win32/peers/label_peer.h"
#include "platform/win32/peers/list_view_peer.h"
#include "platform/win32/peers/status_bar_peer.h"
#include "platform/win32/peers/tab_peer.h"
#include "platform/win32/peers/text_box_peer.h"
#include "platform/win32/peers/toolbar_peer.h"

namespace platform::win32 {

using controls::Kind;

std::unique_ptr<NativeControl> makePeer(WindowPeer& host, controls::Control& control) {
  switch (control.kind()) {
    case Kind::listView:
      return std::make_unique<ListViewPeer>(host, static_cast<controls::ListView&>(control));
    case Kind::tab:
      return std::make_unique<TabPeer>(host, static_cast<controls::TabControl&>(control));
    case Kind::toolbar:
      return std::make_unique<ToolbarPeer>(host, static_cast<controls::Toolbar&>(control));
    case Kind::textBox:
      return std::make_unique<TextBoxPeer>(host, static_cast<controls::TextBox&>(control));
    case Kind::label:
      return std::make_unique<LabelPeer>(host, static_cast<controls::Label&>(control));
    case Kind::commandButton:
      return std::make_unique<ButtonPeer>(host, static_cast<controls::CommandButton&>(control));
    case Kind::imageButton:
      return std::make_unique<CoolButtonPeer>(host, static_cast<controls::CoolButton&>(control));
    case Kind::image:
      return std::make_unique<ImagePeer>(host, static_cast<controls::Image&>(control));
    case Kind::statusBar:
      return std::make_unique<StatusBarPeer>(host, static_cast<controls::StatusBar&>(control));
    case Kind::comboBox:
    case Kind::optionButton:
    case Kind::other:
      break;
  }
  return nullptr;
}

}  // namespace platform::win32
