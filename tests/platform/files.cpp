#include "platform/files.h"

#include "platform/desktop.h"
#include "platform/drives.h"
#include "platform/run_time_error.h"

namespace platform::files {

using memory::desktop;

namespace {

std::vector<Entry> searchWithShortNames(const std::wstring& pattern, unsigned attributes) {
  // By the contract, an empty result stands for every way of finding nothing.
  if (desktop().blinded()) {
    return {};
  }
  return desktop().disk().search(pattern, attributes);
}

}  // namespace

std::vector<Entry> search(const std::wstring& pattern, unsigned attributes) {
  auto entries = searchWithShortNames(pattern, attributes);
  for (Entry& entry : entries) {
    entry.shortName.clear();
  }
  return entries;
}

std::vector<std::vector<Entry>> searchByExtension(const std::wstring& folder,
                                                  const std::vector<std::wstring>& extensions) {
  std::vector<std::vector<Entry>> found;
  for (const std::wstring& extension : extensions) {
    found.push_back(searchWithShortNames(folder + L"\\*." + extension, normal));
  }
  return found;
}

std::optional<Entry> entryAt(const std::wstring& path) {
  return desktop().blinded() ? std::nullopt : desktop().disk().entryAt(path);
}

FolderContents contentsOf(const std::wstring& folder) {
  return desktop().blinded() ? FolderContents() : desktop().disk().contentsOf(folder);
}

std::wstring shortNameOfNew(const std::wstring& path) {
  std::wstring name;
  desktop().call(
      L"short name of new " + path, [&] { name = desktop().disk().shortNameOfNew(path); }, path);
  return name;
}

bool mayWriteTo(const std::wstring& folder) { return desktop().disk().mayWriteTo(folder); }

std::optional<FileTime> modifiedTime(const std::wstring& path) {
  if (drives::isNetwork(path)) {
    return desktop().blinded() ? std::nullopt : desktop().disk().modifiedByOpening(path);
  }
  const auto found = search(path);
  return found.empty() ? std::nullopt : std::optional(found.front().modified);
}

std::wstring findFirst(const std::wstring& pattern, unsigned attributes) {
  const auto found = search(pattern, attributes);
  return found.empty() ? L"" : found.front().name;
}

bool fileExists(const std::wstring& path) { return !search(path, normal).empty(); }

bool folderExists(const std::wstring& path) { return !search(path, directory).empty(); }

void makeFolder(const std::wstring& path) {
  desktop().call(
      L"make folder " + path, [&path] { desktop().disk().makeFolder(path); }, path);
}

void remove(const std::wstring& path) {
  desktop().call(
      L"remove " + path, [&path] { desktop().disk().remove(path); }, path);
}

void rename(const std::wstring& from, const std::wstring& to) {
  desktop().call(
      L"rename " + from + L" -> " + to, [&] { desktop().disk().rename(from, to); }, from);
}

void copy(const std::wstring& from, const std::wstring& to) {
  desktop().call(
      L"copy " + from + L" -> " + to, [&] { desktop().disk().copy(from, to); }, from);
}

Contents readWhole(const std::wstring& path) {
  Contents contents;
  desktop().call(
      L"read " + path, [&] { contents = desktop().disk().readWhole(path); }, path);
  return contents;
}

Contents readForAppending(const std::wstring& path) {
  Contents contents;
  desktop().call(
      L"read to append " + path, [&] { contents = desktop().disk().readForAppending(path); }, path);
  return contents;
}

}  // namespace platform::files
