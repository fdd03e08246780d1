// Reads and writes shortcut files: by itself, where a link is plain, else in one of the system's
// two ways.
#include "platform/shell_links.h"

#include <windows.h>

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

#include "platform/link_bytes.h"
#include "platform/run_time_error.h"
#include "platform/text.h"
#include "platform/win32/errors.h"
#include "platform/win32/files/open_files.h"
#include "platform/win32/files/paths.h"
#include "platform/win32/shell/link_object.h"
#include "platform/win32/shell/script_link.h"

namespace platform::shell_links {
namespace {

/// Whether the scripting object keeps all texts. It uses the system's code page and writes question
/// marks for characters that are missing there.
bool scriptingKeeps(const std::wstring& linkPath, const Link& link) {
  const std::array texts{&linkPath,          &link.arguments,  &link.description,     &link.hotKey,
                         &link.iconLocation, &link.targetPath, &link.workingDirectory};
  return std::all_of(texts.begin(), texts.end(),
                     [](const std::wstring* one) { return text::fitsCodePage(*one); });
}

/// No path contains a question mark; it stands for a character that the scripting object cannot
/// express.
bool isGarbled(const std::wstring& target) { return target.find(L'?') != std::wstring::npos; }

/// The target, where the file's bytes alone tell it. The shell's objects give the same, but take
/// much longer (row `shortcuts.400` of ./bench). Nothing where they must be asked.
std::optional<std::wstring> plainTarget(const std::wstring& linkPath) {
  // To the scripting object no other file is a link.
  constexpr std::wstring_view ending = L".LNK";
  if (linkPath.size() < ending.size() ||
      !text::upperEquals(std::wstring_view(linkPath).substr(linkPath.size() - ending.size()),
                         ending)) {
    return std::nullopt;
  }
  const std::optional<std::wstring> native = win32::nativePath(linkPath);
  const win32::FileHandle file =
      native ? win32::openShared(*native, GENERIC_READ) : win32::FileHandle();
  std::string bytes(link_bytes::longestLink + 1, '\0');
  DWORD size = 0;
  if (!file ||
      ReadFile(file.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &size, nullptr) == 0) {
    return std::nullopt;
  }
  return link_bytes::storedTarget(std::string_view(bytes).substr(0, size));
}

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
  if (std::optional<std::wstring> target = plainTarget(linkPath)) return *target;
  if (text::fitsCodePage(linkPath)) {
    std::wstring target = win32::script_link::targetOf(linkPath);
    if (!target.empty() && !isGarbled(target)) return target;
  }
  return win32::link_object::targetOf(linkPath);
}

}  // namespace platform::shell_links
