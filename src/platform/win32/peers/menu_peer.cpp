#include "platform/win32/peers/menu_peer.h"

#include <algorithm>

#include "platform/run_time_error.h"
#include "platform/win32/parameters.h"

namespace platform::win32 {

using controls::Change;
using controls::MenuItem;

namespace {

/// The present state of an entry. The result points into `caption`.
MENUITEMINFOW factsOf(const MenuItem& item, std::wstring& caption) {
  MENUITEMINFOW facts{};
  facts.cbSize = sizeof facts;
  facts.fMask = MIIM_STATE;
  if (caption != L"-") {
    facts.fMask |= MIIM_STRING;
    facts.dwTypeData = caption.data();
  }
  facts.fState = (item.enabled() ? MFS_ENABLED : MFS_DISABLED) |
                 (item.checked() ? MFS_CHECKED : MFS_UNCHECKED);
  return facts;
}

void insert(HMENU menu, const MenuItem& item) {
  std::wstring caption = item.caption();
  MENUITEMINFOW facts = factsOf(item, caption);
  facts.fMask |= MIIM_FTYPE | MIIM_ID;
  facts.fType = caption == L"-" ? MFT_SEPARATOR : MFT_STRING;
  facts.wID = static_cast<UINT>(item.id());
  Menu children;
  if (!item.children().empty()) {
    children = nativeMenu(item.children());
    facts.fMask |= MIIM_SUBMENU;
    facts.hSubMenu = children.get();
  }
  const auto position = static_cast<UINT>(GetMenuItemCount(menu));
  if (InsertMenuItemW(menu, position, TRUE, &facts) == 0) {
    throw RunTimeError(error::outOfMemory);
  }
  static_cast<void>(children.release());
}

}  // namespace

Menu nativeMenu(const std::vector<MenuItem*>& entries) {
  Menu menu(CreatePopupMenu());
  if (!menu) {
    throw RunTimeError(error::outOfMemory);
  }
  for (const MenuItem* const entry : entries) {
    insert(menu.get(), *entry);
  }
  return menu;
}

MenuItem* entryOf(const MenuItem& menu, int id) {
  for (MenuItem* const entry : menu.children()) {
    MenuItem* const found = entry->id() == id ? entry : entryOf(*entry, id);
    if (found != nullptr) {
      return found;
    }
  }
  return nullptr;
}

void MenuPeer::changed(Change change) {
  if (change == Change::structure) {
    // This destroys the entry's own peer, which must not use its members afterwards.
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
  // The old peers live until the new ones are attached, because one of them may be the caller.
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
  // Not earlier: as long as the window has the menu, the window would destroy it too.
  const Menu replaced(old);
}

void MenuBar::append(HMENU menu, MenuItem& item) {
  insert(menu, item);
  attach(item);
}

void MenuBar::attach(MenuItem& item) {
  peers_.push_back(std::make_unique<MenuPeer>(*this, item));
  for (MenuItem* const child : item.children()) {
    attach(*child);
  }
}

void MenuBar::update(const MenuItem& item) const {
  std::wstring caption = item.caption();
  const MENUITEMINFOW facts = factsOf(item, caption);
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
