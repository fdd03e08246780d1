#include "mainwindow/incoming.h"

#include <algorithm>
#include <string_view>

#include "catalogue/catalogue_file.h"
#include "mainwindow/main_window.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/plain_text.h"
#include "platform/text.h"
#include "platform/trap.h"
#include "shortcuts/shortcut_list.h"

namespace mainwindow {

namespace drives = platform::drives;
namespace files = platform::files;
using platform::clipboard::Content;

namespace {

std::vector<std::wstring> linesOf(std::wstring_view text) {
  std::vector<std::wstring> lines;
  while (!text.empty()) {
    const std::wstring_view whole = text.substr(0, text.find_first_of(L"\r\n"));
    text.remove_prefix(std::min(text.size(), whole.size() + 1));
    const std::wstring_view line = platform::text::plain::trimmed(whole, L" \t");
    if (!line.empty()) {
      lines.emplace_back(line);
    }
  }
  return lines;
}

bool isUrlFile(std::wstring_view path) { return platform::text::upper(path).ends_with(L".URL"); }

}  // namespace

bool isFolder(const std::wstring& path) {
  // The search for folders finds files, too.
  return drives::isRoot(path) ||
         (drives::namesOneFile(path) && files::folderExists(path) && !files::fileExists(path));
}

std::vector<std::wstring> pathsOf(const Content& content) {
  if (!content.files.empty()) {
    return content.files;
  }
  std::vector<std::wstring> paths = linesOf(content.text);
  for (std::wstring& path : paths) {
    if (path.size() > 1 && path.front() == L'"' && path.back() == L'"') {
      path = path.substr(1, path.size() - 2);
    }
  }
  return paths;
}

IncomingAddresses addressesOf(const Content& content) {
  IncomingAddresses incoming;
  const auto take = [&incoming](const std::optional<modQMKGeneral::WebEntry>& entry) {
    if (entry) {
      incoming.entries.push_back(*entry);
    } else {
      ++incoming.wrongType;
    }
  };
  for (const std::wstring& path : content.files) {
    if (!isUrlFile(path)) {
      ++incoming.wrongType;
      continue;
    }
    std::string bytes;
    if (const auto failure = platform::trapped([&] { bytes = files::readWhole(path).bytes; })) {
      incoming.failure = incoming.unreadable == 0 ? failure->description() : incoming.failure;
      ++incoming.unreadable;
      continue;
    }
    constexpr std::size_t extension = 4;
    const std::wstring name = path.substr(path.find_last_of(L"\\/") + 1);
    const auto address = modQMKGeneral::addressOfUrlFile(bytes);
    take(address ? std::optional(
                       modQMKGeneral::WebEntry{name.substr(0, name.size() - extension), *address})
                 : std::nullopt);
  }
  if (content.files.empty()) {
    for (const std::wstring& line :
         linesOf(content.address.empty() ? content.text : content.address)) {
      take(modQMKGeneral::entryOfLine(line));
    }
  }
  return incoming;
}

bool canBeTaken(int tab, const Content& content) {
  const auto any = [](const std::vector<std::wstring>& texts, auto matches) {
    return std::any_of(texts.begin(), texts.end(), matches);
  };
  switch (tab) {
    case frmQMK::tools:
      return any(pathsOf(content), modSC::canBeShortcut);
    case frmQMK::open:
      return any(pathsOf(content), [](const std::wstring& path) {
        // Whether something on a slow drive is a folder is found out when it is dropped.
        return modQMKGeneral::isDataFileName(path) ||
               (drives::namesOneFile(path) && drives::mayBeSlow(path)) || isFolder(path);
      });
    case frmQMK::web:
      return content.files.empty() ? !addressesOf(content).entries.empty()
                                   : any(content.files, isUrlFile);
    default:
      return false;
  }
}

}  // namespace mainwindow
