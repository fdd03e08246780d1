#include "platform/help.h"

#include <windows.h>

#include <memory>

#include "platform/win32/handles.h"
#include "platform/win32/modality.h"
#include "platform/win32/paths.h"

namespace platform::help {
namespace {

using HtmlHelpFunction = HWND(WINAPI*)(HWND, LPCWSTR, UINT, DWORD_PTR);

/// The viewer's entry point; null on a system without the viewer. The viewer's windows belong to
/// this process and may be open until it ends, so the library is never unloaded.
HtmlHelpFunction htmlHelp() {
  HMODULE viewer = LoadLibraryExW(L"hhctrl.ocx", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
  if (viewer == nullptr) return nullptr;
  // Function pointers of the system's libraries all come as one type.
  return reinterpret_cast<HtmlHelpFunction>(
      reinterpret_cast<void*>(GetProcAddress(viewer, "HtmlHelpW")));
}

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
  // The call returns only when the viewer has dealt with the file. With one that it cannot read it
  // first waits for the user's answer, and the program must not wait with it.
  static win32::KernelHandle asking;
  if (asking && WaitForSingleObject(asking.get(), 0) == WAIT_TIMEOUT) return;
  auto request = std::make_unique<ClassicRequest>(
      ClassicRequest{win32::dialogOwner(), file, static_cast<UINT>(command)});
  asking.reset(CreateThread(nullptr, 0, askClassicViewer, request.get(), 0, nullptr));
  if (asking) static_cast<void>(request.release());  // the thread's own from here on
}

void showCompiled(const std::wstring& file) {
  if (win32::hasEmbeddedNul(file)) return;
  static const HtmlHelpFunction show = htmlHelp();
  constexpr UINT displayTopic = 0;
  if (show != nullptr) show(nullptr, file.c_str(), displayTopic, 0);
}

}  // namespace platform::help
