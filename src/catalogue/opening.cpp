#include "catalogue/opening.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "catalogue/catalogue_file.h"
#include "catalogue/data_types.h"
#include "catalogue/entry.h"
#include "catalogue/moved_records.h"
#include "catalogue/stored_path.h"
#include "platform/controls/item_key.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/text.h"
#include "platform/trap.h"
#include "startup/paths.h"

namespace ModQMKgeneral2 {

using modQMKGeneral::AppFolder;
using modQMKGeneral::DataEntry;
using modQMKGeneral::DataType;

namespace dialogs = platform::dialogs;
namespace files = platform::files;

namespace {

/// Path of the tool that owns a type.
std::wstring toolOf(const DataType& type) { return AppFolder() + L"\\" + std::wstring(type.tool); }

/// The path of a file in a form that the tools can read on their command line. If there is none,
/// shows the reason and returns nothing.
std::optional<std::wstring> pathForTools(const std::wstring& file) {
  std::wstring path = stored_path::forList(file);
  if (platform::text::fitsCodePage(path)) {
    return path;
  }
  dialogs::showMessage(L"The tools can not be given this name: " + file +
                       L"\rThe system's code page lacks these characters: " +
                       stored_path::lackingCharacters(path));
  return std::nullopt;
}

/// After the user has found a missing file: asks whether its entry is to show it there.
void offerToList(Opening& opening, const controls::ItemKey& key, const DataEntry& entry) {
  // A copy, because another file may be opened while the question is up.
  const std::wstring found = opening.browsed;
  const DataType* const type = modQMKGeneral::typeOfCode(entry.type);
  // The entry keeps its type, so a file of another type would be opened in the wrong tool.
  const bool fits = type == nullptr || modQMKGeneral::typeOfNumber(
                                           modQMKGeneral::TypeNumberFromExtension(found)) == type;
  if (found.empty() || !fits ||
      platform::text::upper(found) == platform::text::upper(entry.path()) ||
      !files::fileExists(found) ||
      dialogs::showMessage(found + L"\rLet the list show it there from now on?",
                           dialogs::MessageStyle::yesNoQuestion) != dialogs::Answer::yes ||
      !controls::findAgain(opening.view.dataList, key)) {
    return;
  }
  std::vector<modQMKGeneral::PathChange> changes{{entry.path(), found}};
  if (modQMKGeneral::dropThoseGone(changes) > 0) {
    opening.tell(L"Nothing was changed: " + found + L" is no longer there");
    return;
  }
  undo::Recording recording(opening.history, modQMKGeneral::findMovedStep, modQMKGeneral::openTab,
                            key);
  if (const auto changed = modQMKGeneral::changePaths(changes, recording.changes())) {
    modQMKGeneral::loadChanged(opening.view, changes);
    opening.tell(modQMKGeneral::changedText(*changed));
  }
}

void recoverMissingFile(Opening& opening, const controls::ItemKey& key, const DataEntry& entry) {
  const std::wstring question =
      L"File does not exist: " + encodePath(entry.folder) + encodePath(entry.name) +
      L"\rIt may have been moved or deleted. Do you wish to locate the file yourself? ";
  if (dialogs::showMessage(question, dialogs::MessageStyle::yesNoWarning) == dialogs::Answer::yes) {
    // The dialog takes the question marks as wildcards and lists every name that matches.
    opening.cmdBrowse.setTag(encodePath(entry.name));
    opening.browsed.clear();
    opening.clickBrowse();
    offerToList(opening, key, entry);
  } else if (controls::findAgain(opening.view.dataList, key)) {
    // The user was asked about a missing file. If the file exists again by now, it is not deleted.
    undo::Recording recording(opening.history, modQMKGeneral::removeStep, modQMKGeneral::openTab,
                              key);
    modQMKGeneral::dropCatalogueEntry(entry.path(), recording.changes());
    modQMKGeneral::LoadCatalogueView(opening.view);
  }
}

}  // namespace

std::wstring encodePath(std::wstring path) {
  std::replace(path.begin(), path.end(), L' ', L'?');
  return path;
}

bool RunToolCommand(modQMKGeneral::CatalogueView& view, const ToolCommand& command) {
  if (!startTool(command)) {
    return false;
  }
  modQMKGeneral::LoadCatalogueView(view);
  return true;
}

void openSelectedDataFile(Opening& opening) {
  const controls::ListView& list = opening.view.dataList;
  if (list.count() == 0) {
    return;
  }
  // A copy, because the list may be reloaded while a message box is open.
  const DataEntry entry = modQMKGeneral::selectedEntry(list);
  const DataType* const type = modQMKGeneral::typeOfCode(entry.type);
  const std::optional<std::wstring> file = stored_path::realFile(entry.path());
  if (!file) {
    recoverMissingFile(opening, modQMKGeneral::selectedKey(list), entry);
  } else if (type != nullptr) {
    if (const auto path = pathForTools(*file)) {
      RunToolCommand(opening.view, {toolOf(*type), L" " + encodePath(*path)});
    }
  }
}

void startNewFile(Opening& opening) {
  const controls::ListView& list = opening.view.newFiles;
  if (list.count() == 0) {
    return;
  }
  const std::wstring listed = list.subItem(list.selectedItem(), 1);
  if (const DataType* const type = modQMKGeneral::typeOfCode(listed)) {
    // The inventory tool takes the type code itself, as listed, as the request for a new file.
    const std::wstring request(type->newFileRequest);
    RunToolCommand(opening.view, {toolOf(*type), L" " + (request.empty() ? listed : request)});
  }
}

void browseForDataFile(Opening& opening) {
  std::wstring path;
  const int failure = ChooseDataFile(opening.diaCommon, opening.cmdBrowse.tag(), path);
  opening.cmdBrowse.setTag(L"");
  if (failure != 0) {
    return;
  }
  const DataType* const type =
      modQMKGeneral::typeOfNumber(modQMKGeneral::TypeNumberFromExtension(path));
  if (type == nullptr) {
    dialogs::showMessage(L"The file can not be opened");
  } else if (const auto handed = pathForTools(path)) {
    if (RunToolCommand(opening.view,
                       {toolOf(*type), std::wstring(type->browseSwitch) + encodePath(*handed)})) {
      opening.browsed = path;
    }
  }
}

int ChooseDataFile(controls::CommonDialog& dialog, const std::wstring& preset, std::wstring& path) {
  const auto failure = platform::trapped([&dialog, &preset] {
    dialog.initDir =
        AppFolder() + L"\\" + files::findFirst(AppFolder() + L"\\data", files::directory);
    dialog.fileName = preset;
    dialog.cancelError = true;
    dialog.dialogTitle = L"Open File";
    dialog.filter = modQMKGeneral::dataFileFilter();
    dialog.filterIndex = 1;
    dialog.showOpen();
  });
  const int number = failure ? failure->number() : 0;
  if (number != platform::error::cancelled) {
    path = dialog.fileName;
  }
  return number;
}

}  // namespace ModQMKgeneral2
