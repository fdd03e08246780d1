#include "platform/win32/shell/bin_folder.h"

#include <shellapi.h>
#include <shlwapi.h>

#include <cstring>
#include <optional>

namespace platform::win32 {
namespace {

constexpr UINT nameColumn = 0;
constexpr UINT folderColumn = 1;

/// Numbers of the menu's commands. The shell counts from 0, a menu must not.
constexpr UINT firstCommand = 1;
constexpr UINT lastCommand = 0x7FFF;

/// Whether the drive has a bin. Where it has none, the shell's folder is not to be opened either:
/// not every shell survives that.
bool hasBin(const std::wstring& root) {
  SHQUERYRBINFO facts{};
  facts.cbSize = sizeof(facts);
  return !root.empty() && SUCCEEDED(SHQueryRecycleBinW((root + L"\\").c_str(), &facts));
}

/// The text of a result of the shell, which it frees.
std::wstring_view textOf(STRRET& text, const ITEMIDLIST& item, BinText& room) {
  if (FAILED(StrRetToBufW(&text, &item, room.data(), static_cast<UINT>(room.size())))) return {};
  return room.data();
}

/// The text at the end of an item's bytes; "" if they end in none.
std::string_view textAtEnd(const ITEMIDLIST& item) {
  const std::string_view bytes(reinterpret_cast<const char*>(&item), item.mkid.cb);
  constexpr std::size_t unit = sizeof(wchar_t);
  const auto isNul = [&bytes](std::size_t end) {
    return bytes[end - unit] == '\0' && bytes[end - 1] == '\0';
  };
  // The first two bytes are the size.
  std::size_t end = bytes.size();
  while (end >= 2 * unit && isNul(end)) end -= unit;
  std::size_t begin = end;
  while (begin >= 2 * unit && !isNul(begin)) begin -= unit;
  return bytes.substr(begin, end - begin);
}

std::string_view bytesOf(std::wstring_view text) {
  return {reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t)};
}

/// Number of the command that puts an item back; nothing when the menu has none.
std::optional<UINT> restoringCommand(IContextMenu& menu, HMENU entries) {
  bool named = false;
  std::optional<UINT> first;
  for (int n = 0; n < GetMenuItemCount(entries); ++n) {
    const UINT id = GetMenuItemID(entries, n);
    if (id < firstCommand || id > lastCommand) continue;  // a separator or a submenu
    const UINT command = id - firstCommand;
    if (!first) first = command;
    std::array<wchar_t, MAX_PATH> verb{};
    // The same function returns both kinds of text through one type of pointer.
    if (FAILED(menu.GetCommandString(command, GCS_VERBW, nullptr,
                                     reinterpret_cast<char*>(verb.data()),
                                     static_cast<UINT>(verb.size())))) {
      continue;
    }
    if (std::wstring_view(verb.data()) == L"undelete") return command;
    named = named || verb.front() != L'\0';
  }
  // Some shells name no command. Theirs for putting back is the first one.
  return named ? std::nullopt : first;
}

}  // namespace

BinFolder::BinFolder(const std::wstring& root) {
  if (!hasBin(root)) return;
  TaskMemory<ITEMIDLIST> place;
  ComPointer<IShellFolder> desktop;
  if (FAILED(SHGetFolderLocation(nullptr, CSIDL_BITBUCKET, nullptr, 0, place.out())) || !place ||
      FAILED(SHGetDesktopFolder(desktop.out())) ||
      FAILED(desktop->BindToObject(place.get(), nullptr, IID_IShellFolder2, folder_.outAny()))) {
    folder_.reset();
  }
}

std::string_view BinFolder::idOf(const ITEMIDLIST& item, BinText& room) const {
  BinText place{};
  const std::wstring_view folder = folderOf(item, place);
  STRRET result{};
  if (SUCCEEDED(folder_->GetDisplayNameOf(&item, SHGDN_FORPARSING, &result))) {
    // Windows tells the path under which the bin keeps the file. An item's bytes may change.
    const std::wstring_view kept = textOf(result, item, room);
    const std::size_t end = kept.find_last_of(L'\\');
    if (end != std::wstring_view::npos && kept.substr(0, end) != folder) return bytesOf(kept);
  }
  // A shell that tells only the old path has the name under which it keeps the file behind the
  // rest, which is partly memory that nobody has filled.
  const std::string_view name = textAtEnd(item);
  const std::size_t length = folder.copy(room.data(), room.size() / 2);
  if (name.size() > (room.size() - length - 1) * sizeof(wchar_t)) return {};
  room[length] = L'|';
  std::memcpy(&room[length + 1], name.data(), name.size());
  return bytesOf({room.data(), length + 1 + name.size() / sizeof(wchar_t)});
}

std::wstring_view BinFolder::nameOf(const ITEMIDLIST& item, BinText& room) const {
  return column(item, nameColumn, room);
}

std::wstring_view BinFolder::folderOf(const ITEMIDLIST& item, BinText& room) const {
  std::wstring_view folder = column(item, folderColumn, room);
  // The root of a drive ends in a backslash, any other folder may.
  if (folder.ends_with(L'\\')) folder.remove_suffix(1);
  return folder;
}

std::wstring_view BinFolder::column(const ITEMIDLIST& item, UINT number, BinText& room) const {
  SHELLDETAILS details{};
  if (FAILED(folder_->GetDetailsOf(&item, number, &details))) return {};
  return textOf(details.str, item, room);
}

bool BinFolder::putBack(const ITEMIDLIST& item) const {
  ComPointer<IContextMenu> menu;
  PCUITEMID_CHILD one = &item;
  if (FAILED(folder_->GetUIObjectOf(nullptr, 1, &one, IID_IContextMenu, nullptr, menu.outAny()))) {
    return false;
  }
  const Menu entries(CreatePopupMenu());
  if (!entries ||
      FAILED(menu->QueryContextMenu(entries.get(), 0, firstCommand, lastCommand, CMF_NORMAL))) {
    return false;
  }
  const std::optional<UINT> command = restoringCommand(*menu.get(), entries.get());
  if (!command) return false;
  CMINVOKECOMMANDINFO order{};
  order.cbSize = sizeof(order);
  order.fMask = CMIC_MASK_FLAG_NO_UI | CMIC_MASK_NOASYNC;
  order.lpVerb = MAKEINTRESOURCEA(*command);
  order.nShow = SW_SHOWNORMAL;
  return SUCCEEDED(menu->InvokeCommand(&order));
}

}  // namespace platform::win32
