// What a tab can make of files and texts that are pasted or dropped.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/clipboard.h"
#include "web/web_addresses.h"

namespace mainwindow {

/// The files; without files the lines of the text as paths, without quotes around them.
[[nodiscard]] std::vector<std::wstring> pathsOf(const platform::clipboard::Content& content);

/// Whether a path, which may be anything, is that of a folder or of a root.
[[nodiscard]] bool isFolder(const std::wstring& path);

/// The web shortcuts in files and text.
struct IncomingAddresses {
  std::vector<modQMKGeneral::WebEntry> entries;
  std::size_t wrongType = 0;   ///< Other files, and lines that are no addresses.
  std::size_t unreadable = 0;  ///< Files that cannot be read.
  std::wstring failure;        ///< Why the first of these cannot.
};

/// Reads the .url files; without files takes the address, or each line of the text.
[[nodiscard]] IncomingAddresses addressesOf(const platform::clipboard::Content& content);

/// Whether the list of a tab (from 0) takes some of what is dragged over it. Fast: reads no file,
/// and asks no slow drive.
[[nodiscard]] bool canBeTaken(int tab, const platform::clipboard::Content& content);

}  // namespace mainwindow
