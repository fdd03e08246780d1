// Buttons that are drawn from a picture and four colours.
#pragma once

#include "platform/controls/simple_controls.h"
#include "platform/win32/handles.h"
#include "platform/win32/peers/button_peer.h"

namespace platform::win32 {

/// A native push button for mouse, keyboard, focus and screen readers; only its look is drawn by
/// the program.
class CoolButtonPeer final : public ButtonPeer {
 public:
  CoolButtonPeer(WindowPeer& host, controls::CoolButton& button);
  void changed(controls::Change change) override;
  void draw(const DRAWITEMSTRUCT& request) override;
  void refresh() override;

 protected:
  /// The name, where the caption is only a sign.
  [[nodiscard]] std::wstring nativeText() const override;
  std::optional<LRESULT> message(UINT message, WPARAM first, LPARAM second) override;

 private:
  void loadPicture();
  void trackPointer();
  void drawFrame(HDC dc, RECT& area, bool pressed) const;
  void drawContent(HDC dc, RECT area, bool disabled) const;

  controls::CoolButton& button_;
  Icon picture_;
  bool pointerInside_ = false;
};

}  // namespace platform::win32
