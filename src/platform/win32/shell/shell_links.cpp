// Selects one of the system's two ways to read or write a shortcut file.
#include "platform/shell_links.h"

#include <windows.h>

#include <algorithm>
#include <array>

#include "platform/run_time_error.h"
#include "platform/text.h"
#include "platform/win32/errors.h"
#include "platform/win32/files/paths.h"
#include "platform/win32/shell/link_object.h"
#include "platform/win32/shell/script_link.h"

namespace platform::shell_links {
namespace {

/// Whether the scripting object keeps this text. It uses the system's code page and writes question
/// marks for characters that are missing there.
bool scriptingKeeps(const std::wstring& text) {
  return text::fromCodePage(text::toCodePage(text)) == text;
}

bool scriptingKeeps(const std::wstring& linkPath, const Link& link) {
  const std::array texts{&linkPath,          &link.arguments,  &link.description,     &link.hotKey,
                         &link.iconLocation, &link.targetPath, &link.workingDirectory};
  return std::all_of(texts.begin(), texts.end(),
                     [](const std::wstring* text) { return scriptingKeeps(*text); });
}

/// No path contains a question mark; it stands for a character that the scripting object cannot
/// express.
bool isGarbled(const std::wstring& target) { return target.find(L'?') != std::wstring::npos; }

void writeFile(const std::wstring& linkPath, const Link& link) {
  win32::refuseProtected(GetFileAttributesW(win32::requiredPath(linkPath).c_str()));
  if (scriptingKeeps(linkPath, link) && win32::script_link::write(linkPath, link)) return;
  // The scripting object does not tell why it failed, so only this way is tried again.
  const DWORD result = win32::whileBusy([&] {
    bool created = false;
    const HRESULT saved = win32::link_object::write(linkPath, link, created);
    if (!created) throw RunTimeError(error::cannotCreateObject);
    return SUCCEEDED(saved) ? ERROR_SUCCESS : win32::systemErrorOf(saved);
  });
  if (result != ERROR_SUCCESS) {
    win32::raise(result, {{ERROR_FILE_NOT_FOUND, error::pathNotFound}});
  }
}

}  // namespace

void write(const std::wstring& linkPath, const Link& link) {
  concerning(linkPath, [&] { writeFile(linkPath, link); });
}

std::wstring targetOf(const std::wstring& linkPath) {
  if (win32::hasEmbeddedNul(linkPath)) return {};
  if (scriptingKeeps(linkPath)) {
    std::wstring target = win32::script_link::targetOf(linkPath);
    if (!target.empty() && !isGarbled(target)) return target;
  }
  return win32::link_object::targetOf(linkPath);
}

}  // namespace platform::shell_links
