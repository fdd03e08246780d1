// The web list file "QMKWebList.txt" in the application folder, and the Web tab's list.
#pragma once

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "listfile/list_exchange.h"
#include "platform/controls/bars.h"
#include "platform/controls/image_list.h"
#include "platform/controls/list_view.h"
#include "undo/history.h"

namespace modQMKGeneral {

/// Sub-item of the Web list that holds the address.
inline constexpr std::size_t urlColumn = 1;
/// The columns that identify an entry.
inline const std::vector<std::size_t> webEntry{0, urlColumn};
/// The Web tab (from 0).
inline constexpr int webTab = 3;

/// The parts of the main window that the web list uses.
struct WebList {
  std::array<controls::ListView, 4>& lists;
  const controls::TabControl& tabs;
  const controls::ImageList& largeImages;
  const controls::ImageList& smallImages;
  /// Remembers what the dialog changes; nullptr: nobody does.
  undo::History* history = nullptr;
  /// The Web tab's list.
  [[nodiscard]] controls::ListView& list() const { return lists[webTab]; }
};

[[nodiscard]] std::wstring webListPath();

/// What identifies the entry of a record: its name and its address. Nothing for a record without an
/// address.
[[nodiscard]] std::optional<std::wstring> webEntryOf(const list_file::Record& record);

/// Refills the Web tab's list from the file; a missing file gives an empty list. Errors are trapped
/// and shown as "Problem reading Web file list"; the items read so far stay.
void LoadWebList(WebList& web);

// `forUndo`, where it is not nullptr, gets what the operation has changed.

/// Appends a record to the file, which is created when it is missing, and reloads the list. The
/// texts are stored unchanged. Errors go to the caller.
void AppendWebEntry(WebList& web, const std::wstring& name, const std::wstring& url,
                    undo::Changes* forUndo = nullptr);

/// Puts name and address into the selected item of the current tab's list, writes all items of that
/// list to the file, and reloads the Web list. Errors of the file are trapped and shown as "Problem
/// saving to QMK list"; without a selected item `error::objectNotSet` goes to the caller. Returns
/// false and changes nothing, after a message, when a reload has removed the item that was to be
/// changed.
bool SaveWebList(WebList& web, const std::wstring& name, const std::wstring& url,
                 undo::Changes* forUndo = nullptr);

/// A record of the web list, in the code page.
[[nodiscard]] std::string webRecord(const std::wstring& name, const std::wstring& url);

/// Appends those records of another web list, `bytes`, whose name and address the file does not
/// have yet, byte for byte, and reloads the list. Errors of the file are trapped and shown as
/// "Problem saving to QMK list"; nothing is returned then.
std::optional<list_file::Merged> addWebRecords(WebList& web, const std::string& bytes,
                                               undo::Changes* forUndo = nullptr);

/// The rows that the Web list shows, as the contents of a list file.
[[nodiscard]] std::string shownWebRecords(const controls::ListView& list);

/// Drops every record with exactly that name and reloads the list. Errors go to the caller
/// (`error::fileNotFound`: no file).
void DeleteWebEntry(WebList& web, const std::wstring& name, undo::Changes* forUndo = nullptr);

}  // namespace modQMKGeneral
