#include "startup/tool_provisioning.h"

#include <array>

#include "platform/files.h"
#include "platform/text.h"
#include "shortcuts/shortcut_file.h"
#include "startup/paths.h"

namespace modSC {

using modQMKGeneral::AppFolder;
using modQMKGeneral::ShortCutsFolder;
using SmodMisc::CanonicalPath;

namespace files = platform::files;

namespace {

struct Tool {
  const wchar_t* shortcut;
  const wchar_t* executable;
  /// Compared case-sensitively with the upper-cased name of the shortcut's target. A value with
  /// lower-case letters never matches: such a shortcut is written again at every start, and deleted
  /// when its tool is not installed.
  const wchar_t* expectedTarget;
};

constexpr std::array tools{
    Tool{L"Plotview Browser.lnk", L"plv3.exe", L"PLV3.EXE"},
    Tool{L"BrushtallyPC.lnk", L"brtpc3.exe", L"brtpc3.exe"},
    Tool{L"Imagekeep.lnk", L"imgkeep3.exe", L"imgkeep3.exe"},
    Tool{L"Modelhouse.lnk", L"MDLHS3.EXE", L"MDLHS3.EXE"},
    Tool{L"CanopyWeigh.lnk", L"CW3.EXE", L"CW3.EXE"},
    Tool{L"Unitshift.lnk", L"unishift3.exe", L"unishift4.exe"},
};

/// The two folders as they are spelled on the disk. That needs a look-up for every component of a
/// path, so it is done once for all tools. Row `start.splash` of ./bench includes it
/// (docs/performance.md, "Start").
struct Folders {
  std::wstring shortcuts;
  std::wstring application;
};

void removeObsoleteShortcuts(const Folders& folders) {
  // An obsolete shortcut that is missing, protected or in use does no harm, and must not prevent
  // the tools from getting theirs.
  const std::wstring oldest = folders.shortcuts + L"\\PlotviewX.lnk";
  if (files::fileExists(oldest)) {
    removeIgnoringErrors(oldest);
  }
  removeIgnoringErrors(ShortCutsFolder + L"\\Plotview.lnk");
  removeIgnoringErrors(ShortCutsFolder + L"\\Canopy Weigh.lnk");
}

void provision(const Tool& tool, const Folders& folders) {
  const std::wstring link = folders.shortcuts + L"\\" + tool.shortcut;
  if (files::fileExists(link)) {
    std::wstring target;
    GetShortcutTarget(link, target);
    if (platform::text::upper(files::findFirst(target)) != tool.expectedTarget) {
      files::remove(ShortCutsFolder + L"\\" + tool.shortcut);
    }
  }
  if (files::fileExists(AppFolder() + L"\\" + tool.executable)) {
    CreateToolShortcut(folders.application + L"\\" + tool.executable, link, AppFolder(), L"XXX");
  }
}

}  // namespace

void ProvisionToolShortcuts() {
  const Folders folders{CanonicalPath(ShortCutsFolder), CanonicalPath(AppFolder())};
  removeObsoleteShortcuts(folders);
  for (const Tool& tool : tools) {
    provision(tool, folders);
  }
}

}  // namespace modSC
