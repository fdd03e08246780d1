// Native menus.
#pragma once

#include <memory>
#include <vector>

#include "platform/controls/bars.h"
#include "platform/win32/handles.h"

namespace platform::win32 {

class MenuBar;

/// A native menu with the given entries in their present state. Raises `error::outOfMemory`.
[[nodiscard]] Menu nativeMenu(const std::vector<controls::MenuItem*>& entries);

/// The entry with that command id in `menu` or its submenus; nullptr when there is none.
[[nodiscard]] controls::MenuItem* entryOf(const controls::MenuItem& menu, int id);

/// Mirrors one entry into the native menu.
class MenuPeer final : public controls::Peer {
 public:
  MenuPeer(MenuBar& bar, controls::MenuItem& item) : bar_(bar), item_(item) { item_.attach(this); }
  MenuPeer(const MenuPeer&) = delete;
  MenuPeer& operator=(const MenuPeer&) = delete;
  ~MenuPeer() override {
    if (!orphaned_ && item_.peer() == this) {
      item_.attach(nullptr);
    }
  }
  void changed(controls::Change change) override;
  void orphaned() override { orphaned_ = true; }
  [[nodiscard]] controls::MenuItem& item() const { return item_; }

 private:
  MenuBar& bar_;
  controls::MenuItem& item_;
  bool orphaned_ = false;
};

/// The menu bar of a window. The native window owns the native menu.
class MenuBar {
 public:
  /// Builds the native menu and gives it to `window`. Raises `error::outOfMemory`.
  MenuBar(HWND window, const std::vector<controls::MenuItem*>& menus);
  /// Detaches the peers from the entries.
  void detach();
  /// The entry with a command id; nullptr when there is none.
  [[nodiscard]] controls::MenuItem* find(int id) const;

 private:
  friend class MenuPeer;
  void build();
  void append(HMENU menu, controls::MenuItem& item);
  void attach(controls::MenuItem& item);
  void update(const controls::MenuItem& item) const;

  HWND window_;
  const std::vector<controls::MenuItem*>* menus_;
  std::vector<std::unique_ptr<MenuPeer>> peers_;
};

}  // namespace platform::win32
