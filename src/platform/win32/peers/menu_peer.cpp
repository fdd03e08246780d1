#include "platform/win32/peers/menu_peer.h"

#include <algorithm>

#include "platform/run_time_error.h"
#include "platform/win32/parameters.h"

namespace platform::win32 {

using controls::Change;
using controls::MenuItem;

void MenuPeer::changed(Change change) {
  if (change == Change::structure) {
    // The entry's peer is replaced by this; it must not touch itself afterwards.
    bar_.build();
  } else {
    bar_.update(item_);
  }
}

MenuBar::MenuBar(HWND window, const std::vector<MenuItem*>& menus)
    : window_(window), menus_(&menus) {
  build();
}

void MenuBar::build() {
  // Entries keep their old peers until the new ones are in their place: one of them may be calling.
  auto former = std::move(peers_);
  peers_.clear();
  Menu bar(CreateMenu());
  if (!bar) {
    throw RunTimeError(error::outOfMemory);
  }
  for (MenuItem* const item : *menus_) {
    append(bar.get(), *item);
  }
  HMENU old = GetMenu(window_);
  if (SetMenu(window_, bar.get()) == 0) {
    throw RunTimeError(error::outOfMemory);
  }
  static_cast<void>(bar.release());
  // Not before: while it is the window's it is the window that destroys it.
  const Menu replaced(old);
}

Menu MenuBar::popup(const std::vector<MenuItem*>& entries) {
  Menu menu(CreatePopupMenu());
  if (!menu) {
    throw RunTimeError(error::outOfMemory);
  }
  for (MenuItem* const entry : entries) {
    append(menu.get(), *entry);
  }
  return menu;
}

void MenuBar::append(HMENU menu, MenuItem& item) {
  MENUITEMINFOW facts{};
  facts.cbSize = sizeof facts;
  facts.fMask = MIIM_FTYPE | MIIM_ID | MIIM_STATE;
  facts.wID = static_cast<UINT>(item.id());
  std::wstring caption = item.caption();
  if (caption == L"-") {
    facts.fType = MFT_SEPARATOR;
  } else {
    facts.fMask |= MIIM_STRING;
    facts.dwTypeData = caption.data();
  }
  facts.fState = (item.enabled() ? MFS_ENABLED : MFS_DISABLED) |
                 (item.checked() ? MFS_CHECKED : MFS_UNCHECKED);
  Menu children;
  if (!item.children().empty()) {
    children = popup(item.children());
    facts.fMask |= MIIM_SUBMENU;
    facts.hSubMenu = children.get();
  }
  const auto position = static_cast<UINT>(GetMenuItemCount(menu));
  if (InsertMenuItemW(menu, position, TRUE, &facts) == 0) {
    throw RunTimeError(error::outOfMemory);
  }
  static_cast<void>(children.release());
  peers_.push_back(std::make_unique<MenuPeer>(*this, item));
}

void MenuBar::update(const MenuItem& item) const {
  MENUITEMINFOW facts{};
  facts.cbSize = sizeof facts;
  facts.fMask = MIIM_STATE;
  std::wstring caption = item.caption();
  if (caption != L"-") {
    facts.fMask |= MIIM_STRING;
    facts.dwTypeData = caption.data();
  }
  facts.fState = (item.enabled() ? MFS_ENABLED : MFS_DISABLED) |
                 (item.checked() ? MFS_CHECKED : MFS_UNCHECKED);
  HMENU bar = GetMenu(window_);
  SetMenuItemInfoW(bar, static_cast<UINT>(item.id()), FALSE, &facts);
  if (std::find(menus_->begin(), menus_->end(), &item) != menus_->end()) {
    DrawMenuBar(window_);
  }
}

void MenuBar::detach() { peers_.clear(); }

MenuItem* MenuBar::find(int id) const {
  const auto found = std::find_if(peers_.begin(), peers_.end(),
                                  [id](const auto& peer) { return peer->item().id() == id; });
  return found == peers_.end() ? nullptr : &(*found)->item();
}

}  // namespace platform::win32
