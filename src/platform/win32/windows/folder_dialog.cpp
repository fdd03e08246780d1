// The system's dialog for choosing a folder.
#include <windows.h>
// Needs <windows.h> first.
#include <shobjidl.h>

#include "platform/dialogs.h"
#include "platform/run_time_error.h"
#include "platform/win32/errors.h"
#include "platform/win32/handles.h"
#include "platform/win32/modality.h"

namespace platform::dialogs {
namespace {

/// Raises the error for a result of the dialog that is none.
void check(HRESULT result) {
  if (result == HRESULT_FROM_WIN32(ERROR_CANCELLED)) throw RunTimeError(error::cancelled);
  if (FAILED(result)) win32::raise(win32::systemErrorOf(result));
}

win32::ComPointer<IFileOpenDialog> makeDialog(const std::wstring& title) {
  win32::ComPointer<IFileOpenDialog> dialog;
  if (FAILED(CoCreateInstance(CLSID_FileOpenDialog, nullptr, CLSCTX_INPROC_SERVER,
                              IID_IFileOpenDialog, dialog.outAny()))) {
    throw RunTimeError(error::cannotCreateObject);
  }
  DWORD options = 0;
  check(dialog->GetOptions(&options));
  check(dialog->SetOptions(options | FOS_PICKFOLDERS | FOS_FORCEFILESYSTEM | FOS_PATHMUSTEXIST |
                           FOS_NOCHANGEDIR));
  check(dialog->SetTitle(title.c_str()));
  return dialog;
}

}  // namespace

std::wstring chooseFolder(const std::wstring& title) {
  const win32::ComPointer<IFileOpenDialog> dialog = makeDialog(title);
  HWND owner = win32::dialogOwner();
  {
    const win32::ModalScope modal(owner);
    check(dialog->Show(owner));
  }
  win32::ComPointer<IShellItem> folder;
  check(dialog->GetResult(folder.out()));
  win32::TaskMemory<wchar_t> path;
  check(folder->GetDisplayName(SIGDN_FILESYSPATH, path.out()));
  return path.get();
}

}  // namespace platform::dialogs
