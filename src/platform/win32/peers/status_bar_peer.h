// Native status bars.
#pragma once

#include <string>

#include "platform/controls/bars.h"
#include "platform/win32/peers/native_control.h"

namespace platform::win32 {

class StatusBarPeer final : public controls::Peer, public NativeControl {
 public:
  StatusBarPeer(WindowPeer& host, controls::StatusBar& bar);
  void changed(controls::Change change) override;
  void orphaned() override { loseControl(); }
  void refresh() override;

 protected:
  std::optional<LRESULT> message(UINT message, WPARAM first, LPARAM second) override;

 private:
  void showTexts();
  [[nodiscard]] int widthOf(const std::wstring& text) const;

  /// Shows the bar that stands for the right text up to `end`, or takes it away.
  void showProgress(int end);

  controls::StatusBar& bar_;
  NativeWindow progress_;
};

}  // namespace platform::win32
