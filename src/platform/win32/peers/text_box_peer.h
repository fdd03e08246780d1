// Native edit boxes.
#pragma once

#include "platform/controls/simple_controls.h"
#include "platform/win32/peers/native_control.h"

namespace platform::win32 {

class TextBoxPeer final : public controls::Peer, public NativeControl {
 public:
  TextBoxPeer(WindowPeer& host, controls::TextBox& box);
  void changed(controls::Change change) override;
  void orphaned() override { loseControl(); }
  void command(int id, WORD code) override;
  void refresh() override;

 protected:
  [[nodiscard]] std::wstring nativeText() const override { return box_.text(); }
  std::optional<LRESULT> message(UINT message, WPARAM first, LPARAM second) override;

 private:
  /// Shows the cue and the margin.
  void dress() const;
  [[nodiscard]] DWORD border() const;
  [[nodiscard]] DWORD edge() const;
  controls::TextBox& box_;
  bool showing_ = false;  // the program is setting the text
};

}  // namespace platform::win32
