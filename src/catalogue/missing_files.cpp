#include "catalogue/missing_files.h"

#include <algorithm>
#include <map>
#include <unordered_map>
#include <unordered_set>

#include "catalogue/catalogue_view.h"
#include "catalogue/stored_path.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/text.h"

namespace modQMKGeneral {

namespace drives = platform::drives;
namespace files = platform::files;
using platform::text::upper;

namespace {

/// Erases the names of files that one reading of the folder finds.
void eraseThoseRead(ListedFolder& folder) {
  std::unordered_set<std::wstring> there;
  for (const files::Entry& entry : files::search(folder.path + L"*")) {
    there.insert(upper(entry.name));
  }
  std::erase_if(folder.names,
                [&there](const std::wstring& name) { return there.contains(upper(name)); });
}

void keepMissingOf(ListedFolder& folder) {
  // From this number on, reading the whole folder costs less than looking at each file.
  constexpr std::size_t many = 16;
  if (!mayHaveFiles(folder.path)) {
    return;
  }
  if (folder.names.size() >= many && stored_path::isExact(folder.path)) {
    eraseThoseRead(folder);
  }
  // What is left may still be there by its short name or with substitutes.
  std::erase_if(folder.names, [&folder](const std::wstring& name) {
    const stored_path::Meaning meaning = stored_path::meaningOf(folder.path + name);
    return meaning.file || meaning.several;
  });
}

}  // namespace

std::vector<ListedFolder> entriesByFolder(const controls::ListView& dataList) {
  std::vector<ListedFolder> folders;
  std::unordered_map<std::wstring_view, std::size_t> places;  // views into the list
  for (std::size_t item = 0; item < dataList.count(); ++item) {
    const std::wstring_view path = dataList.cell(item, data_column::folder);
    const auto [place, added] = places.try_emplace(path, folders.size());
    if (added) {
      folders.push_back({std::wstring(path), {}});
    }
    folders[place->second].names.emplace_back(dataList.cell(item, 0));
  }
  return folders;
}

void keepMissing(std::vector<ListedFolder>& folders) {
  std::map<std::wstring, bool> answering;  // by root
  for (ListedFolder& folder : folders) {
    const std::wstring root = drives::rootOf(folder.path);
    if (root.empty()) {
      folder.names.clear();
      continue;
    }
    const auto [known, added] = answering.try_emplace(root);
    if (added) {
      known->second = drives::isConnected(folder.path) && drives::answers(folder.path);
    }
    if (known->second) {
      keepMissingOf(folder);
    }
  }
  std::erase_if(folders, [](const ListedFolder& folder) { return folder.names.empty(); });
}

std::size_t countOf(const std::vector<ListedFolder>& folders) {
  std::size_t count = 0;
  for (const ListedFolder& folder : folders) {
    count += folder.names.size();
  }
  return count;
}

bool mayHaveFiles(const std::wstring& folder) {
  // A search does not find the root of a drive.
  return drives::isRoot(folder) || !stored_path::isExact(folder) ||
         files::entryAt(folder.substr(0, folder.size() - 1)).has_value();
}

}  // namespace modQMKGeneral
