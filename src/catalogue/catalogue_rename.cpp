#include <optional>
#include <utility>

#include "catalogue/catalogue_file.h"
#include "catalogue/entry.h"
#include "catalogue/stored_path.h"
#include "listfile/list_file.h"
#include "listfile/suite_lists.h"
#include "platform/dialogs.h"
#include "platform/files.h"
#include "platform/run_time_error.h"
#include "platform/text.h"
#include "platform/trap.h"

namespace modQMKGeneral {

using controls::ListView;
using platform::RunTimeError;
using platform::text::toCodePage;
using platform::text::upper;

namespace files = platform::files;

namespace {

/// The new name with the type's extension, unless its last three characters are the type code
/// already. A name of up to three characters always gets the extension.
std::wstring withExtension(const std::wstring& newName, const std::wstring& typeCode) {
  const std::wstring type = upper(typeCode);
  constexpr std::size_t codeLength = 3;
  if (newName.size() > codeLength && upper(newName.substr(newName.size() - codeLength)) == type) {
    return newName;
  }
  return newName + L"." + type;
}

/// Raises `error::badFileName` for a name that the list could not show: one that the code page
/// cannot hold, in a folder whose volume would give it no short name.
void refuseUnlistable(const std::wstring& folder, const std::wstring& name) {
  if (platform::text::fitsCodePage(name)) {
    return;
  }
  // The file itself may already have that name, in another letter case.
  const std::optional<files::Entry> there = files::entryAt(folder + name);
  const std::wstring shortName = there ? there->shortName : files::shortNameOfNew(folder + name);
  if (shortName.empty() || !platform::text::fitsCodePage(shortName)) {
    platform::raiseAbout(folder + name, platform::error::badFileName);
  }
}

/// The name under which a file of `folder` is listed.
std::wstring listedName(const std::wstring& folder, const std::wstring& name) {
  if (platform::text::fitsCodePage(name)) {
    return name;
  }
  const std::optional<files::Entry> entry = files::entryAt(folder + name);
  return entry ? stored_path::nameForList(*entry) : name;
}

/// The list as a catalogue, in its displayed order.
std::string recordsOf(const ListView& list) {
  std::string bytes;
  for (std::size_t index = 0; index < list.count(); ++index) {
    const DataEntry entry = dataEntry(list, index);
    bytes +=
        list_file::line({toCodePage(entry.type), toCodePage(entry.path()), toCodePage(entry.date)});
  }
  return bytes;
}

/// Gives the entry its new name and writes the list to the catalogue. If another program has just
/// written the file, the list is outdated. Then it is reloaded and the change is made again, so
/// that the other program's records stay. The list is reloaded at the end.
void saveRenamed(CatalogueView& view, std::size_t selected, const std::wstring& newName,
                 undo::Changes* forUndo) {
  const controls::ItemKey entry = view.dataList.keyOf(selected, data_column::entry);
  constexpr int mostTries = 50;
  std::optional<std::size_t> item = selected;
  for (int tries = 0; tries < mostTries; ++tries) {
    if (item) {
      view.dataList.setText(*item, newName);
    }
    if (undo::replaceList(cataloguePath(), recordsOf(view.dataList), view.shown, entryOf,
                          forUndo) == files::Replaced::yes) {
      LoadCatalogueView(view);
      return;
    }
    LoadCatalogueView(view);
    if (!view.shown.present) {
      // The load has already shown why. A list that lost its records must not be written to the
      // file.
      return;
    }
    item = view.dataList.find(entry);
    if (item) {
      view.dataList.select(*item);
    }
  }
  throw RunTimeError(platform::error::permissionDenied);
}

void rename(CatalogueView& view, const std::wstring& newName, undo::Changes* forUndo) {
  list_file::discardStale(temporaryPath());
  const std::size_t selected = view.dataList.selectedItem();
  const DataEntry entry = dataEntry(view.dataList, selected);
  const std::wstring name = withExtension(newName, entry.type);
  const std::wstring oldPath = entry.folder + L"\\" + entry.name;
  const std::optional<std::wstring> file = stored_path::realFile(oldPath);
  if (!file) {
    platform::dialogs::showMessage(L"File does not exists, removing entry",
                                   platform::dialogs::MessageStyle::critical);
    dropCatalogueEntry(oldPath, forUndo);
    return;
  }
  const std::wstring realFolder = file->substr(0, file->rfind(L'\\') + 1);
  refuseUnlistable(realFolder, name);
  files::rename(*file, realFolder + name);
  if (forUndo != nullptr) {
    forUndo->add(undo::RenamePart{*file, realFolder + name});
  }
  saveRenamed(view, selected, listedName(realFolder, name), forUndo);
}

}  // namespace

void RenameCatalogueFile(CatalogueView& view, const std::wstring& newName, undo::Changes* forUndo) {
  const auto failure = platform::trapped([&] { rename(view, newName, forUndo); });
  if (failure) {
    showListFileProblem(L"Problem saving to QMK list", *failure);
  }
}

}  // namespace modQMKGeneral
