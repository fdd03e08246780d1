#include "shortcuts/shortcut_file.h"

#include "platform/files.h"
#include "platform/shell_links.h"
#include "platform/trap.h"

namespace modSC {

void removeIgnoringErrors(const std::wstring& path) {
  static_cast<void>(platform::trapped([&path] { platform::files::remove(path); }));
}

void CreateToolShortcut(const std::wstring& targetPath, const std::wstring& linkPath,
                        const std::wstring& workingFolder, const std::wstring& /*reserved*/) {
  platform::shell_links::write(linkPath, {.arguments = L"",
                                          .description = linkPath,
                                          .hotKey = L"",
                                          .iconLocation = targetPath,
                                          .targetPath = targetPath,
                                          .windowStyle = startMaximised,
                                          .workingDirectory = workingFolder});
}

void GetShortcutTarget(const std::wstring& linkPath, std::wstring& target) {
  target = platform::shell_links::targetOf(linkPath);
}

}  // namespace modSC
