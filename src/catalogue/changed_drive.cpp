#include "catalogue/changed_drive.h"

#include <unordered_set>
#include <utility>

#include "catalogue/stored_path.h"
#include "platform/drives.h"
#include "platform/text.h"

namespace modQMKGeneral {

namespace drives = platform::drives;
using stored_path::comparable;

namespace {

constexpr std::size_t letterSize = 2;  // "E:"

bool isOn(const ListedFolder& folder, const std::wstring& drive) {
  return platform::text::upper(drives::rootOf(folder.path)) == drive;
}

}  // namespace

std::wstring ownLetter(const std::wstring& path) {
  const std::wstring root = platform::text::upper(drives::rootOf(path));
  const bool hasLetter = root.size() == letterSize && root.front() >= L'A' && root.front() <= L'Z';
  return hasLetter && !drives::isNetwork(path) ? root : std::wstring();
}

std::vector<PathChange> entriesThatFollow(std::vector<ListedFolder> entries,
                                          const std::wstring& before, const std::wstring& now) {
  std::unordered_set<std::wstring> listed;
  for (const ListedFolder& folder : entries) {
    if (isOn(folder, now)) {
      for (const std::wstring& name : folder.names) {
        listed.insert(comparable(folder.path + name));
      }
    }
  }
  keepMissing(entries);
  const std::size_t missing = countOf(entries);
  std::erase_if(entries, [&before](const ListedFolder& folder) { return !isOn(folder, before); });
  std::vector<PathChange> changes;
  if (2 * countOf(entries) <= missing) {
    return changes;
  }
  for (const ListedFolder& folder : entries) {
    const std::wstring there = now + folder.path.substr(letterSize);
    if (!mayHaveFiles(there)) {
      continue;
    }
    for (const std::wstring& name : folder.names) {
      const auto file = stored_path::meaningOf(there + name).file;
      if (file && listed.insert(comparable(*file)).second) {
        changes.push_back({folder.path + name, *file});
      }
    }
  }
  return changes;
}

bool hasPair(std::wstring_view pairs, const std::wstring& before, const std::wstring& now) {
  return pairs.find(before + now) != std::wstring_view::npos;
}

std::wstring withPair(const std::wstring& pairs, const std::wstring& before,
                      const std::wstring& now) {
  if (hasPair(pairs, before, now)) {
    return pairs;
  }
  return pairs + (pairs.empty() ? L"" : L" ") + before + now;
}

std::wstring driveQuestion(const std::wstring& before, const std::wstring& now,
                           std::size_t entries) {
  return L"This stick was " + before + L", now it is " + now + L". Change " +
         std::to_wstring(entries) + (entries == 1 ? L" entry?" : L" entries?");
}

}  // namespace modQMKGeneral
