// Shortcuts that are dropped or pasted.
#include "platform/drives.h"
#include "platform/files.h"
#include "platform/shell_links.h"
#include "platform/text.h"
#include "platform/trap.h"
#include "shortcuts/shortcut_file.h"
#include "shortcuts/shortcut_list.h"
#include "startup/paths.h"

namespace modSC {

namespace files = platform::files;

namespace {

bool isLink(std::wstring_view name) { return platform::text::upper(name).ends_with(L".LNK"); }

bool isProgram(std::wstring_view name) {
  const std::wstring upper = platform::text::upper(name);
  return upper.ends_with(L".EXE") || upper.ends_with(L".HLP");
}

std::wstring ownFolder() { return SmodMisc::CanonicalPath(modQMKGeneral::ShortCutsFolder) + L"\\"; }

}  // namespace

void writeProgramShortcut(const std::wstring& program, undo::Changes* forUndo) {
  std::wstring name;
  std::wstring folder;
  SmodMisc::SplitPath(program, name, folder);
  const std::wstring link = ownFolder() + L"Shortcut to " + name + L".lnk";
  undo::writeFile(link, forUndo, [&] {
    platform::shell_links::write(link, {.arguments = L"",
                                        .description = name,
                                        .hotKey = L"",
                                        .iconLocation = program,
                                        .targetPath = program,
                                        .windowStyle = startMaximised,
                                        .workingDirectory = folder});
  });
}

bool canBeShortcut(std::wstring_view name) { return isLink(name) || isProgram(name); }

AddedShortcuts addShortcuts(ShortcutList& shortcuts, const std::vector<std::wstring>& paths,
                            undo::Changes* forUndo) {
  AddedShortcuts result;
  for (const std::wstring& path : paths) {
    if (!canBeShortcut(path)) {
      ++result.wrongType;
      continue;
    }
    if (!platform::drives::namesOneFile(path) || !files::fileExists(path)) {
      ++result.missing;
      continue;
    }
    const std::wstring copy = ownFolder() + path.substr(path.rfind(L'\\') + 1);
    if (isLink(path) && files::entryAt(copy)) {
      ++result.present;
      continue;
    }
    const auto failure = platform::trapped([&] {
      if (isLink(path)) {
        undo::writeFile(copy, forUndo, [&] { files::copy(path, copy); });
      } else {
        writeProgramShortcut(path, forUndo);
      }
    });
    if (failure) {
      result.failure = result.failed == 0 ? failure->description() : result.failure;
      ++result.failed;
    } else {
      ++result.added;
    }
  }
  LoadShortcutList(shortcuts);
  return result;
}

}  // namespace modSC
