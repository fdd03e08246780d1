#include "platform/help.h"

#include <windows.h>

#include <memory>

#include "platform/win32/files/paths.h"
#include "platform/win32/handles.h"
#include "platform/win32/modality.h"
#include "platform/win32/system_library.h"

namespace platform::help {
namespace {

struct ClassicRequest {
  HWND owner;
  std::wstring file;
  UINT command;
};

DWORD WINAPI askClassicViewer(void* parameter) {
  const std::unique_ptr<ClassicRequest> request(static_cast<ClassicRequest*>(parameter));
  WinHelpW(request->owner, request->file.c_str(), request->command, 0);
  return 0;
}

}  // namespace

void showClassic(const std::wstring& file, int command) {
  if (win32::hasEmbeddedNul(file)) return;
  // The call returns only when the viewer is done with the file. If the viewer cannot read the file
  // it first waits for the user, and the program must not wait with it.
  static win32::KernelHandle asking;
  if (asking && WaitForSingleObject(asking.get(), 0) == WAIT_TIMEOUT) return;
  auto request = std::make_unique<ClassicRequest>(
      ClassicRequest{win32::dialogOwner(), file, static_cast<UINT>(command)});
  asking.reset(CreateThread(nullptr, 0, askClassicViewer, request.get(), 0, nullptr));
  if (asking) static_cast<void>(request.release());  // the thread owns it from here on
}

void showCompiled(const std::wstring& file) {
  if (win32::hasEmbeddedNul(file)) return;
  using HtmlHelp = HWND WINAPI(HWND, LPCWSTR, UINT, DWORD_PTR);
  // The viewer's windows belong to this process and may stay open until it ends.
  static HtmlHelp* const show = win32::systemFunction<HtmlHelp>(L"hhctrl.ocx", "HtmlHelpW");
  constexpr UINT displayTopic = 0;
  if (show != nullptr) show(nullptr, file.c_str(), displayTopic, 0);
}

}  // namespace platform::help
