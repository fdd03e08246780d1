#include "platform/explorer.h"

#include "platform/folders.h"
#include "platform/processes.h"

namespace platform::explorer {

namespace {

void start(const std::wstring& arguments) {
  processes::start(folders::windowsFolder() + L"\\explorer.exe", L"explorer.exe " + arguments);
}

/// A path may hold commas, which separate what this program is told. A drive's root needs its
/// backslash, which would hide the quote behind it.
std::wstring quoted(const std::wstring& path) {
  return path.ends_with(L"\\") ? path : L"\"" + path + L"\"";
}

}  // namespace

void showMarked(const std::wstring& path) { start(L"/select," + quoted(path)); }

void showFolder(const std::wstring& folder) {
  constexpr std::size_t root = 3;  // "C:\"
  std::wstring path = folder;
  while (path.size() > root && path.ends_with(L"\\")) {
    path.pop_back();
  }
  start(quoted(path));
}

}  // namespace platform::explorer
