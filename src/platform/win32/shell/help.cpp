#include "platform/help.h"

#include <windows.h>

#include <memory>
#include <utility>

#include "platform/background.h"
#include "platform/win32/files/paths.h"
#include "platform/win32/modality.h"
#include "platform/win32/system_library.h"

namespace platform::help {
namespace {

using HtmlHelp = HWND WINAPI(HWND, LPCWSTR, UINT, DWORD_PTR);

/// Whether compiled help was shown: closing it would load the viewer only to have nothing to close.
bool compiledShown = false;

HtmlHelp* htmlHelp() {
  // The viewer's windows belong to this process and may stay open until it ends.
  static HtmlHelp* const call = win32::systemFunction<HtmlHelp>(L"hhctrl.ocx", "HtmlHelpW");
  return call;
}

}  // namespace

void showClassic(const std::wstring& file, int command, std::function<void()> refused) {
  if (win32::hasEmbeddedNul(file)) return;
  // The call returns only when the viewer is done with the file. If the viewer cannot read the file
  // it first waits for the user, and the program must not wait with it.
  static bool asking = false;
  if (asking) return;
  HWND const owner = win32::dialogOwner();
  const auto shown = std::make_shared<bool>(true);
  asking = background::run(
      [owner, file, command, shown] {
        *shown = WinHelpW(owner, file.c_str(), static_cast<UINT>(command), 0) != 0;
      },
      [shown, refused = std::move(refused)] {
        asking = false;
        if (!*shown) refused();
      });
}

bool showCompiled(const std::wstring& file) {
  if (win32::hasEmbeddedNul(file) || htmlHelp() == nullptr) return false;
  constexpr UINT displayTopic = 0;
  const bool shown = htmlHelp()(nullptr, file.c_str(), displayTopic, 0) != nullptr;
  compiledShown = compiledShown || shown;
  return shown;
}

void close() {
  constexpr UINT closeAll = 0x12;
  if (compiledShown) htmlHelp()(nullptr, nullptr, closeAll, 0);
}

}  // namespace platform::help
