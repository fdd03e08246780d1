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
std::wstring folderOf(const FileRequest& request) {
  const std::size_t separator = request.fileName.find_last_of(L"\\/");
  if (separator == std::wstring::npos) return request.initialFolder;
  // A drive's root needs its backslash.
  return request.fileName.substr(0, separator + (separator <= 2 ? 1 : 0));
}

const wchar_t* orDefault(const std::wstring& text) { return text.empty() ? nullptr : text.c_str(); }

/// What the user chose: a path or, in a dialog for several files, a folder and names, with a NUL
/// behind each of them and another one at the end.
struct Choice {
  std::wstring texts;
  int filterIndex = 1;
};

/// Shows one of the system's two file dialogs, the function `name` of its library.
Choice choose(const char* name, const FileRequest& request, DWORD flags = 0) {
  using Show = BOOL WINAPI(OPENFILENAMEW*);
  using LastFailure = DWORD WINAPI();
  Show* const show = win32::systemFunction<Show>(L"comdlg32.dll", name);
  static LastFailure* const lastFailure =
      win32::systemFunction<LastFailure>(L"comdlg32.dll", "CommDlgExtendedError");
  if (show == nullptr || lastFailure == nullptr) {
    throw RunTimeError(error::cannotCreateObject);
  }
  constexpr std::size_t roomForMany = 1U << 20U;
  std::wstring path(flags == 0 ? longestFileName : roomForMany, L'\0');
  std::copy_n(request.fileName.begin(), std::min(request.fileName.size(), longestFileName - 1),
              path.begin());
  const std::wstring filter = filterList(request.filter);
  const std::wstring folder = folderOf(request);

  OPENFILENAMEW dialog{};
  dialog.lStructSize = sizeof dialog;
  dialog.hwndOwner = win32::dialogOwner();
  dialog.lpstrFilter = request.filter.empty() ? nullptr : filter.c_str();
  dialog.nFilterIndex = static_cast<DWORD>(request.filterIndex);
  dialog.lpstrFile = path.data();
  dialog.nMaxFile = static_cast<DWORD>(path.size());
  dialog.lpstrInitialDir = orDefault(folder);
  dialog.lpstrTitle = orDefault(request.title);
  dialog.Flags = OFN_EXPLORER | OFN_NOCHANGEDIR | OFN_HIDEREADONLY | flags;

  const KeptCurrentFolder kept;
  const win32::ModalScope modal(dialog.hwndOwner);
  if (show(&dialog) == 0) {
    const DWORD extendedError = lastFailure();
    throw RunTimeError(extendedError == 0 ? error::cancelled
                                          : dialogErrors - static_cast<int>(extendedError));
  }
  return {path, static_cast<int>(dialog.nFilterIndex)};
}

/// The first of the texts that a dialog gives.
std::wstring firstOf(const Choice& choice) { return choice.texts.c_str(); }

}  // namespace

std::wstring openFile(const FileRequest& request) {
  return firstOf(choose("GetOpenFileNameW", request));
}

std::vector<std::wstring> openFiles(const FileRequest& request) {
  const Choice choice = choose("GetOpenFileNameW", request, OFN_ALLOWMULTISELECT);
  std::wstring folder = firstOf(choice);
  std::vector<std::wstring> paths;
  std::size_t next = folder.size() + 1;
  for (std::wstring name = choice.texts.c_str() + next; !name.empty();
       name = choice.texts.c_str() + next) {
    paths.push_back(folder.ends_with(L"\\") ? folder + name : folder + L"\\" + name);
    next += name.size() + 1;
  }
  return paths.empty() ? std::vector{folder} : paths;
}

SaveFileChoice saveFile(const FileRequest& request) {
  const Choice choice = choose("GetSaveFileNameW", request);
  return {firstOf(choice), choice.filterIndex};
}

}  // namespace platform::dialogs
