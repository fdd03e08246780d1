// Shortcut files of any name and any target: provisioning, listing, creating, renaming and
// deleting. The input is a letter, a line with a file name, a line with its target, and what the
// user types.
#include <algorithm>
#include <array>
#include <set>
#include <string>

#include "fuzz/support/fuzz.h"
#include "platform/desktop.h"
#include "platform/dispatcher.h"
#include "platform/file_node.h"
#include "platform/text.h"
#include "shortcuts/shortcut_file.h"
#include "shortcuts/shortcut_list.h"
#include "startup/tool_provisioning.h"

using fuzz::require;
using fuzz::theDesktop;
using platform::text::upper;

namespace {

constexpr const wchar_t* toolLink = L"\\Plotview Browser.lnk";

/// Everything in the folder that the program may remove or write by itself, in upper case.
const std::set<std::wstring> ownNames{
    L"PLOTVIEWX.LNK",    L"PLOTVIEW.LNK",  L"CANOPY WEIGH.LNK",
    L"BRUSHTALLYPC.LNK", L"IMAGEKEEP.LNK", L"MODELHOUSE.LNK",
    L"CANOPYWEIGH.LNK",  L"UNITSHIFT.LNK", L"PLOTVIEW BROWSER.LNK"};

struct Lists {
  controls::ListView tools{L"lstQMK", 1};
  std::array<controls::ImageList, 2> imgShortCut;
  controls::PictureBox picShortCuts;
  controls::CommonDialog diaCommon;
  modSC::ShortcutList shortcuts{tools, imgShortCut, picShortCuts, diaCommon};
};

std::wstring inFolder(const std::wstring& name) {
  return std::wstring(fuzz::shortcutsFolder) + L"\\" + name;
}

std::vector<std::wstring> linkFiles() {
  std::vector<std::wstring> names;
  for (const std::wstring& name : theDesktop().namesIn(fuzz::shortcutsFolder)) {
    if (upper(name).ends_with(L".LNK")) {
      names.push_back(name);
    }
  }
  return names;
}

void checkList(Lists& lists) {
  modSC::LoadShortcutList(lists.shortcuts);
  const std::vector<std::wstring> names = linkFiles();
  require(lists.tools.count() == names.size(), "each shortcut is listed once");
  for (std::size_t i = 0; i < names.size(); ++i) {
    const auto link = theDesktop().linkAt(inFolder(names[i]));
    require(lists.tools.text(i) == names[i].substr(0, names[i].find(L'.')),
            "the text ends at the first dot");
    require(lists.tools.subItem(i, 2) == inFolder(names[i]), "sub-item 2 is the file");
    require(lists.tools.subItem(i, 3) == (link ? link->targetPath : L""),
            "sub-item 3 is the stored target");
    require(lists.imgShortCut[0].indexOf(names[i]) && lists.imgShortCut[1].indexOf(names[i]),
            "each shortcut has its pictures");
  }
}

void checkProvisioning(const std::wstring& name, const std::string& old) {
  platform::dispatch(modSC::ProvisionToolShortcuts);
  require(theDesktop().errorReports.empty(), "no target stops the provisioning");
  const auto made = theDesktop().linkAt(std::wstring(fuzz::shortcutsFolder) + toolLink);
  require(made && made->targetPath == L"C:\\App\\plv3.exe" &&
              made->workingDirectory == L"C:\\App" && made->windowStyle == 3,
          "an installed tool has its shortcut afterwards");
  if (!ownNames.contains(upper(name))) {
    require(theDesktop().bytesOf(inFolder(name)) == old, "a shortcut of the user's is left alone");
  }
}

void selectFile(Lists& lists, const std::wstring& name) {
  for (std::size_t i = 0; i < lists.tools.count(); ++i) {
    if (lists.tools.subItem(i, 2) == inFolder(name)) {
      lists.tools.select(i);
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  fuzz::Input input(bytes, size);
  const char operation = input.character();
  const std::wstring name = fuzz::wide(input.line()) + L".lnk";
  const std::wstring target = fuzz::wide(input.line());
  const std::wstring typed = fuzz::wide(input.rest());
  if (!::memory::isName(name)) {
    return 0;  // no file can have that name
  }
  fuzz::freshDesktop();
  theDesktop().putProgram(L"C:\\App\\plv3.exe");
  theDesktop().putFolder(L"C:\\App\\shortcuts");
  theDesktop().putFile(inFolder(L"Notes.lnk"), "no shortcut");
  platform::shell_links::Link link;
  link.targetPath = target;
  theDesktop().putLink(inFolder(name), link);
  const std::string old = fuzz::bytesOf(inFolder(name));
  const std::size_t count = linkFiles().size();
  Lists lists;
  checkList(lists);
  switch (operation) {
    case 'P':
      checkProvisioning(name, old);
      break;
    case 'C':
      theDesktop().fileDialogResults = {target};
      platform::dispatch([&lists] { modSC::createShortcut(lists.shortcuts); });
      require(linkFiles().size() <= count + 1, "creating makes at most one shortcut");
      require(theDesktop().errorReports.size() + theDesktop().linkWrites.size() == 1,
              "creating writes a shortcut or tells why not");
      break;
    case 'R':
      selectFile(lists, name);
      theDesktop().inputAnswers = {typed};
      platform::dispatch([&lists] { modSC::renameShortcut(lists.shortcuts); });
      require(theDesktop().has(inFolder(name)) ||
                  theDesktop().bytesOf(L"C:\\App\\shortcuts\\" + typed + L".lnk") == old,
              "a shortcut that is renamed is in the one place or in the other");
      break;
    case 'D':
      selectFile(lists, name);
      theDesktop().answers = {platform::dialogs::Answer::yes};
      platform::dispatch([&lists] { modSC::deleteShortcut(lists.shortcuts); });
      require(linkFiles().size() + 1 >= count, "deleting takes at most one shortcut away");
      require(theDesktop().errorReports.empty(), "deleting raises nothing");
      break;
    default:
      selectFile(lists, name);
      bool started = false;
      platform::dispatch([&] { started = modSC::startSelectedShortcut(lists.shortcuts); });
      require(started != theDesktop().starts.empty(), "it knows whether one was started");
      require(theDesktop().starts.size() <= 1, "a double-click starts one program");
      for (const auto& start : theDesktop().starts) {
        require(start.executable == start.commandLine && start.executable == target,
                "and it is the target, unchanged and without arguments");
      }
  }
  require(
      theDesktop().bytesOf(inFolder(L"Notes.lnk")) == "no shortcut" || upper(name) == L"NOTES.LNK",
      "other shortcuts are left alone");
  checkList(lists);
  return 0;
}
