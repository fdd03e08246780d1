// The web list file "QMKWebList.txt" in the application folder, and the Web tab's list.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "platform/controls/bars.h"
#include "platform/controls/image_list.h"
#include "platform/controls/list_view.h"

namespace modQMKGeneral {

/// Sub-item of the Web list that holds the address.
inline constexpr std::size_t urlColumn = 1;
/// The columns that tell one entry from another.
inline const std::vector<std::size_t> webEntry{0, urlColumn};

/// What the web list works with on the main window.
struct WebList {
  std::array<controls::ListView, 4>& lists;
  const controls::TabControl& tabs;
  const controls::ImageList& largeImages;
  const controls::ImageList& smallImages;
  /// The Web tab's list.
  [[nodiscard]] controls::ListView& list() const { return lists[3]; }
};

[[nodiscard]] std::wstring WebListFile();

/// Refills the Web tab's list from the file; a missing file is an empty list. Errors are trapped
/// and shown as "Problem reading Web file list"; the items read so far stay.
void LoadWebList(WebList& web);

/// Adds a record at the end of the file, which is created when it is missing, and reloads the
/// list. The texts are stored as they are. Errors go to the caller.
void AppendWebEntry(WebList& web, const std::wstring& name, const std::wstring& url);

/// Puts name and address into the selected item of the list of the tab in front, writes all items
/// of that list to the file, and reloads the Web list. Errors of the file are trapped and shown
/// as "Problem saving to QMK list"; without a selected item 91 goes to the caller. False, and
/// nothing is done but told, when a reload has taken the item away that was to be changed.
bool SaveWebList(WebList& web, const std::wstring& name, const std::wstring& url);

/// Drops every record of exactly that name and reloads the list. Errors go to the caller (53: no
/// file).
void DeleteWebEntry(WebList& web, const std::wstring& name);

}  // namespace modQMKGeneral
