#include "startup/paths.h"

#include <optional>
#include <utility>

#include "platform/application.h"
#include "platform/controls/window.h"
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/folders.h"

namespace files = platform::files;

namespace modQMKGeneral {

std::wstring UserFolder;
std::wstring ShortCutsFolder;

std::wstring AppFolder() { return platform::application::folder(); }

std::wstring SettingsFile() { return AppFolder() + L"\\gateway3.ini"; }

std::wstring BackupFolder() {
  if (files::fileExists(SettingsFile())) {
    return AppFolder() + L"\\Backup";
  }
  return UserFolder.empty() ? std::wstring() : UserFolder + L"\\Backup";
}

void ensureFolder(const std::wstring& path) {
  if (!files::folderExists(path)) {
    files::makeFolder(path);
  }
}

void InitUserFolders() {
  std::wstring documents = smodFolders::GetSpecialFolder(platform::folders::personal);
  // If the documents folder is a drive's root, the shell's path ends in a backslash.
  if (documents.ends_with(L'\\')) {
    documents.pop_back();
  }
  UserFolder = documents + L"\\My QMKExtra3";
  ensureFolder(UserFolder);
  ShortCutsFolder = UserFolder + L"\\ShortCuts";
  ensureFolder(ShortCutsFolder);
}

}  // namespace modQMKGeneral

namespace smodFolders {
namespace {

/// Never shown; provides an owner window for the shell.
class frmSpecialFolders : public controls::Window {
 public:
  frmSpecialFolders() : Window(L"frmSpecialFolders", controls::WindowKind::hidden) {}
};

}  // namespace

std::wstring GetSpecialFolder(int folderId) {
  frmSpecialFolders owner;
  owner.load();
  const auto path = platform::folders::specialFolder(owner, folderId);
  owner.unload();
  return path.value_or(L"");
}

}  // namespace smodFolders

namespace SmodMisc {
namespace {

/// Length of the part of a path that no folder lists: the drive, or the server and its share.
/// Nothing for a network path without one of them. The path ends in a backslash.
std::optional<std::size_t> rootLength(const std::wstring& path) {
  if (!path.starts_with(L"\\\\")) {
    constexpr std::size_t drive = 2;  // "C:"
    return drive;
  }
  const std::size_t share = platform::drives::rootOf(path).size();
  return share > 0 ? std::optional(share) : std::nullopt;
}

}  // namespace

std::wstring CanonicalPath(const std::wstring& path) {
  if (path.empty()) {
    return L"";
  }
  std::wstring scanned = path;
  if (scanned.back() == L'\\') {
    scanned.pop_back();
  }
  scanned += L'\\';
  const std::optional<std::size_t> root = rootLength(scanned);
  if (!root) {
    return L"";
  }
  constexpr unsigned everything = files::hidden | files::system | files::directory;
  std::wstring found;
  for (std::size_t separator = scanned.find(L'\\', *root + 1); separator != std::wstring::npos;
       separator = scanned.find(L'\\', separator + 1)) {
    const std::wstring name = files::findFirst(scanned.substr(0, separator), everything);
    if (name.empty()) {
      return L"";
    }
    found += L'\\' + name;
  }
  return scanned.substr(0, *root) + found;
}

void SplitPath(const std::wstring& path, std::wstring& name, std::wstring& folder) {
  const std::size_t last = path.rfind(L'\\');
  const std::size_t behind = last == std::wstring::npos ? 0 : last + 1;
  // Copies, because the outputs may be the same string as the input.
  std::wstring lastPart = path.substr(behind);
  std::wstring before = path.substr(0, behind);
  name = std::move(lastPart);
  folder = std::move(before);
}

}  // namespace SmodMisc
