#include <windows.h>

#include "platform/files.h"
#include "platform/win32/files/paths.h"
#include "platform/win32/handles.h"

namespace platform::files {

namespace {

/// Opens the folder itself, because only that tells which one it is.
std::optional<FolderId> idOf(const std::wstring& native) {
  constexpr DWORD shared = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
  const win32::FileHandle opened(CreateFileW(native.c_str(), 0, shared, nullptr, OPEN_EXISTING,
                                             FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  BY_HANDLE_FILE_INFORMATION facts{};
  if (!opened || GetFileInformationByHandle(opened.get(), &facts) == 0) return std::nullopt;
  constexpr unsigned half = 32;
  const FolderId id{facts.dwVolumeSerialNumber,
                    (std::uint64_t{facts.nFileIndexHigh} << half) | facts.nFileIndexLow};
  return id.number == 0 ? std::nullopt : std::optional(id);
}

}  // namespace

FolderContents contentsOf(const std::wstring& folder) {
  FolderContents contents;
  const std::optional<std::wstring> native = win32::nativePath(folder + L"\\*");
  const std::optional<std::wstring> itself = win32::nativePath(folder);
  // A wildcard in the folder's own name would search in other folders.
  constexpr std::wstring_view longForm = LR"(\\?\)";
  if (folder.empty() || !native || !itself ||
      itself->find_first_of(L"*?<>\"", itself->starts_with(longForm) ? longForm.size() : 0) !=
          std::wstring::npos) {
    return contents;
  }
  WIN32_FIND_DATAW found{};
  const win32::FindHandle search(FindFirstFileExW(native->c_str(), FindExInfoBasic, &found,
                                                  FindExSearchNameMatch, nullptr,
                                                  FIND_FIRST_EX_LARGE_FETCH));
  if (!search) return contents;
  contents.id = idOf(*itself);
  do {
    const std::wstring_view name = found.cFileName;
    const DWORD kind = found.dwFileAttributes;
    if (name == L"." || name == L".." ||
        (kind & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)) != 0) {
      continue;
    }
    if ((kind & FILE_ATTRIBUTE_DIRECTORY) == 0) {
      contents.files.emplace_back(name);
    } else if ((kind & FILE_ATTRIBUTE_REPARSE_POINT) == 0) {
      contents.folders.emplace_back(name);
    }
  } while (FindNextFileW(search.get(), &found) != 0);
  return contents;
}

}  // namespace platform::files
