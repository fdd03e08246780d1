#include <windows.h>
// Needs <windows.h> first.
#include <commdlg.h>

#include <algorithm>
#include <cwchar>

#include "platform/dialogs.h"
#include "platform/run_time_error.h"
#include "platform/win32/modality.h"
#include "platform/win32/system_library.h"

namespace platform::dialogs {
namespace {

constexpr std::size_t longestFileName = 32768;
/// The number of a dialog's own failure is this minus its code.
constexpr int dialogErrors = 32767;

std::wstring currentFolder() {
  std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
  folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
  return folder;
}

/// Restores the program's current folder. The dialog promises not to change it, but some versions
/// do so while the user browses.
class KeptCurrentFolder {
 public:
  KeptCurrentFolder() : folder_(currentFolder()) {}
  KeptCurrentFolder(const KeptCurrentFolder&) = delete;
  KeptCurrentFolder& operator=(const KeptCurrentFolder&) = delete;
  ~KeptCurrentFolder() {
    if (!folder_.empty()) SetCurrentDirectoryW(folder_.c_str());
  }

 private:
  std::wstring folder_;
};

/// The dialog separates labels and patterns by NULs; an empty one ends the list.
std::wstring filterList(std::wstring filter) {
  std::replace(filter.begin(), filter.end(), L'|', L'\0');
  filter.append(2, L'\0');
  return filter;
}

/// Initial folder of the dialog: that of the preset name, if it has one.
std::wstring folderOf(const OpenFileRequest& request) {
  const std::size_t separator = request.fileName.find_last_of(L"\\/");
  if (separator == std::wstring::npos) return request.initialFolder;
  // A drive's root needs its backslash.
  return request.fileName.substr(0, separator + (separator <= 2 ? 1 : 0));
}

const wchar_t* orDefault(const std::wstring& text) { return text.empty() ? nullptr : text.c_str(); }

}  // namespace

std::wstring openFile(const OpenFileRequest& request) {
  using Open = BOOL WINAPI(OPENFILENAMEW*);
  using LastFailure = DWORD WINAPI();
  static Open* const open = win32::systemFunction<Open>(L"comdlg32.dll", "GetOpenFileNameW");
  static LastFailure* const lastFailure =
      win32::systemFunction<LastFailure>(L"comdlg32.dll", "CommDlgExtendedError");
  if (open == nullptr || lastFailure == nullptr) {
    throw RunTimeError(error::cannotCreateObject);
  }
  std::wstring name(longestFileName, L'\0');
  std::copy_n(request.fileName.begin(), std::min(request.fileName.size(), longestFileName - 1),
              name.begin());
  const std::wstring filter = filterList(request.filter);
  const std::wstring folder = folderOf(request);

  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = win32::dialogOwner();
  dialog.lpstrFilter = request.filter.empty() ? nullptr : filter.c_str();
  dialog.nFilterIndex = static_cast<DWORD>(request.filterIndex);
  dialog.lpstrFile = name.data();
  dialog.nMaxFile = static_cast<DWORD>(name.size());
  dialog.lpstrInitialDir = orDefault(folder);
  dialog.lpstrTitle = orDefault(request.title);
  dialog.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY;

  const KeptCurrentFolder kept;
  const win32::ModalScope modal(dialog.hwndOwner);
  if (open(&dialog) == 0) {
    const DWORD extendedError = lastFailure();
    throw RunTimeError(extendedError == 0 ? error::cancelled
                                          : dialogErrors - static_cast<int>(extendedError));
  }
  name.resize(std::wcslen(name.data()));
  return name;
}

}  // namespace platform::dialogs
