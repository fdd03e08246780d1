#include "platform/help.h"

#include <windows.h>

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

}  // namespace

void showClassic(const std::wstring& file, int command) {
  if (win32::hasEmbeddedNul(file)) return;
  WinHelpW(win32::dialogOwner(), file.c_str(), static_cast<UINT>(command), 0);
}

void showCompiled(const std::wstring& file) {
  if (win32::hasEmbeddedNul(file)) return;
  static const HtmlHelpFunction show = htmlHelp();
  constexpr UINT displayTopic = 0;
  if (show != nullptr) show(nullptr, file.c_str(), displayTopic, 0);
}

}  // namespace platform::help
