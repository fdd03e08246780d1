// Native tab controls.
#pragma once

#include "platform/controls/bars.h"
#include "platform/win32/peers/native_control.h"

namespace platform::win32 {

class TabPeer final : public controls::Peer, public NativeControl {
 public:
  TabPeer(WindowPeer& host, controls::TabControl& tab);
  void changed(controls::Change change) override;
  void orphaned() override { loseControl(); }
  void detach() override;
  void refresh() override;
  std::optional<LRESULT> notification(NMHDR& header) override;
  [[nodiscard]] bool beneathOthers() const override { return true; }

 private:
  void fill();
  /// Leaves the hole to whatever is beside the tab control.
  void cutHole();
  [[nodiscard]] Rect displayArea(const Rect& bounds) const;
  controls::TabControl& tab_;
};

}  // namespace platform::win32
