#include "catalogue/opening.h"

#include <algorithm>
#include <optional>

#include "catalogue/catalogue_file.h"
#include "catalogue/stored_path.h"
#include "platform/controls/item_key.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/text.h"
#include "platform/trap.h"
#include "startup/paths.h"

namespace ModQMKgeneral2 {

using modQMKGeneral::AppFolder;
using platform::text::upper;

namespace data_column = modQMKGeneral::data_column;
namespace dialogs = platform::dialogs;
namespace files = platform::files;

namespace {

std::wstring profileTool() { return AppFolder() + L"\\plv3.exe"; }
std::wstring canopyTool() { return AppFolder() + L"\\cw3.exe"; }
std::wstring inventoryTool() { return AppFolder() + L"\\brtpc3.exe"; }

/// Tool that owns a type code in upper case, "" for a code that no tool owns.
std::wstring toolOf(const std::wstring& type) {
  if (type == L"FP3") {
    return profileTool();
  }
  if (type == L"CW3") {
    return canopyTool();
  }
  return type == L"BI3" || type == L"BS3" ? inventoryTool() : L"";
}

/// What starts the tool on a file that was chosen by browsing, up to the file's path; nothing for a
/// type number that no tool owns.
std::optional<ToolCommand> browseCommand(int type) {
  switch (type) {
    case modQMKGeneral::typeFP3:
      return ToolCommand{profileTool(), L" "};
    case modQMKGeneral::typeBS3:
      return ToolCommand{inventoryTool(), L" bps "};
    case modQMKGeneral::typeBI3:
      return ToolCommand{inventoryTool(), L" bpi "};
    case modQMKGeneral::typeCW3:
      return ToolCommand{canopyTool(), L" "};
    default:
      return std::nullopt;
  }
}

/// The path of a file as the tools can read it on their command line. When they cannot, tells the
/// user why and gives nothing.
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

void recoverMissingFile(Opening& opening, const controls::ItemKey& entry,
                        const std::wstring& folder, const std::wstring& name) {
  const std::wstring question =
      L"File does not exist: " + EncodePath(folder) + EncodePath(name) +
      L"\rIt may have been moved or deleted. Do you wish to locate the file yourself? ";
  if (dialogs::showMessage(question, dialogs::MessageStyle::yesNoWarning) == dialogs::Answer::yes) {
    // The question marks are wildcards to the dialog: it lists every name of that shape.
    opening.cmdBrowse.setTag(EncodePath(name));
    opening.clickBrowse();
  } else if (controls::findAgain(opening.view.dataList, entry)) {
    // The question was about a missing file: one that is back by now stays.
    modQMKGeneral::DropCatalogueEntry(folder + name);
    modQMKGeneral::LoadCatalogueView(opening.view);
  }
}

}  // namespace

std::wstring EncodePath(std::wstring path) {
  std::replace(path.begin(), path.end(), L' ', L'?');
  return path;
}

void RunToolCommand(modQMKGeneral::CatalogueView& view, const ToolCommand& command) {
  const auto failure = platform::trapped(
      [&command] { platform::processes::start(command.executable, command.text()); });
  if (failure) {
    dialogs::showMessage(L"Can't start application\r" + failure->numberAndDescription() +
                             L"\rPath: " + command.text(),
                         dialogs::MessageStyle::critical);
    return;
  }
  modQMKGeneral::LoadCatalogueView(view);
}

void OpenSelectedDataFile(Opening& opening) {
  const controls::ListView& list = opening.view.dataList;
  if (list.count() == 0) {
    return;
  }
  const std::size_t selected = list.selectedItem();
  // Copies: the list may be reloaded while a message waits for its answer.
  const std::wstring folder = list.subItem(selected, data_column::folder);
  const std::wstring name = list.text(selected);
  const std::wstring tool = toolOf(upper(list.subItem(selected, data_column::type)));
  const std::optional<std::wstring> file = stored_path::realFile(folder + name);
  if (!file) {
    recoverMissingFile(opening, list.keyOf(selected, data_column::entry), folder, name);
  } else if (!tool.empty()) {
    if (const auto path = pathForTools(*file)) {
      RunToolCommand(opening.view, {tool, L" " + EncodePath(*path)});
    }
  }
}

void StartNewFile(Opening& opening) {
  const controls::ListView& list = opening.view.newList;
  if (list.count() == 0) {
    return;
  }
  const std::wstring listed = list.subItem(list.selectedItem(), 1);
  const std::wstring type = upper(listed);
  if (type == L"FP3" || type == L"CW3") {
    RunToolCommand(opening.view, {toolOf(type), L" #NEW#"});
  } else if (type == L"BI3" || type == L"BS3") {
    // The inventory tool takes the type code itself as the wish for a new file.
    RunToolCommand(opening.view, {toolOf(type), L" " + listed});
  }
}

void BrowseForDataFile(Opening& opening) {
  std::wstring path;
  const int failure = ChooseDataFile(opening.diaCommon, opening.cmdBrowse.tag(), path);
  opening.cmdBrowse.setTag(L"");
  if (failure != 0) {
    return;
  }
  const std::optional<ToolCommand> command =
      browseCommand(modQMKGeneral::TypeNumberFromExtension(path));
  if (!command) {
    dialogs::showMessage(L"The file can not be opened");
  } else if (const auto handed = pathForTools(path)) {
    RunToolCommand(opening.view, {command->executable, command->arguments + EncodePath(*handed)});
  }
}

int ChooseDataFile(controls::CommonDialog& dialog, const std::wstring& preset, std::wstring& path) {
  const auto failure = platform::trapped([&dialog, &preset] {
    dialog.initDir =
        AppFolder() + L"\\" + files::findFirst(AppFolder() + L"\\data", files::directory);
    dialog.fileName = preset;
    dialog.cancelError = true;
    dialog.dialogTitle = L"Open File";
    dialog.filter =
        L"Plotscan Fuel Profile(*.fp3)|*.fp3|Brushtally Planar Intercept(*.bi3)|*.bi3|"
        L"Brushtally Plotview(*.bs3)|*.bs3|Canopy Weigh(*.cw3)|*.cw3";
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
