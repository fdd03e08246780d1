#include "platform/files.h"

#include "platform/desktop.h"
#include "platform/run_time_error.h"
#include "platform/unfailing.h"

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

struct Draft::State {
  std::wstring path;
};

Draft::Draft(const std::wstring& path) : state_(std::make_unique<State>(State{path})) {
  if (!findFirst(path, hidden | system).empty()) {
    remove(path);
  }
  desktop().call(
      L"create " + path, [&path] { desktop().disk().writeWhole(path, ""); }, path);
}

Draft::~Draft() = default;

void Draft::write(std::string_view bytes) {
  const std::wstring& path = state_->path;
  bool reached = false;
  try {
    desktop().call(
        L"write " + path,
        [&] {
          reached = true;
          desktop().disk().writeWhole(path, std::string(bytes));
        },
        path);
  } catch (const RunTimeError& failure) {
    // A full or broken disk fails in the middle of the write.
    if (!reached &&
        (failure.number() == error::diskFull || failure.number() == error::deviceError)) {
      const ::memory::Unfailing own;
      desktop().disk().writeWhole(path, std::string(bytes.substr(0, bytes.size() / 2)));
    }
    throw;
  }
}

Replaced Draft::replace(const std::wstring& to, const Stamp& expected) {
  if (desktop().onReplace) {
    desktop().onReplace();
  }
  const std::wstring what = L"replace " + state_->path + L" -> " + to;
  Replaced result = Replaced::changedSince;
  desktop().call(
      what,
      [&] {
        result = desktop().disk().replace(state_->path, to, expected);
        if (result == Replaced::changedSince) {
          desktop().amend(L" (changed)");
        }
      },
      to);
  return result;
}

}  // namespace platform::files
