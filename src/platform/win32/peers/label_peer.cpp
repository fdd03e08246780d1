#include "platform/win32/peers/label_peer.h"

#include "platform/win32/peers/window_peer.h"

namespace platform::win32 {

using controls::Change;

LabelPeer::LabelPeer(WindowPeer& host, controls::Label& label)
    : NativeControl(host, label), label_(label) {
  create(WC_STATICW, style());
  label_.attach(this);
}

DWORD LabelPeer::style() const {
  // A static control without SS_NOTIFY lets mouse messages through, so its tool tip would never
  // appear.
  return SS_LEFT | SS_NOPREFIX | (label_.pathEllipsis() ? SS_PATHELLIPSIS : 0U) |
         (label_.toolTip().empty() ? 0U : SS_NOTIFY);
}

void LabelPeer::changed(Change change) {
  if (change == Change::appearance || change == Change::toolTip) {
    changeStyle(SS_ELLIPSISMASK | SS_NOTIFY, style());
  }
  if (change == Change::appearance || change == Change::colours) {
    InvalidateRect(window(), nullptr, TRUE);
  }
  mirror(change);
}

bool LabelPeer::colours(HDC dc) {
  const int colour = label_.textColour();
  if (colour < 0) {
    return false;
  }
  const auto rgb = static_cast<unsigned>(colour);
  SetTextColor(dc, RGB(rgb >> 16 & 0xFFU, rgb >> 8 & 0xFFU, rgb & 0xFFU));
  return true;
}

HFONT LabelPeer::font() const { return host().fonts().get(label_.font(), host().dpi()); }

}  // namespace platform::win32
