// Changing a name in the list itself.
#include "catalogue/catalogue_file.h"
#include "catalogue/entry.h"
#include "mainwindow/main_window.h"
#include "platform/controls/item_key.h"
#include "platform/text.h"
#include "startup/paths.h"

using controls::ListView;

void frmQMK::editName(int index) {
  ListView& list = lstQMK.at(static_cast<std::size_t>(index));
  if (index == web) {
    renameWebShortcut();
    return;
  }
  if (list.count() == 0 || nothingFound(list)) {
    return;
  }
  if (index == tools) {
    if (const auto name = modSC::nameToChange(shortcuts)) {
      list.editName(
          {list.keyOf(list.selectedItem(), modSC::shortcut_column::entry), *name, name->size()});
    }
  } else if (index == open) {
    const std::wstring name = modQMKGeneral::selectedEntry(list).name;
    const std::size_t dot = name.rfind(L'.');
    list.editName({modQMKGeneral::selectedKey(list), name,
                   dot == std::wstring::npos || dot == 0 ? name.size() : dot});
  }
}

void frmQMK::renameTo(int index, const controls::ItemKey& item, const std::wstring& name) {
  ListView& list = lstQMK.at(static_cast<std::size_t>(index));
  const auto found = controls::findAgain(list, item);
  if (!found) {
    return;
  }
  if (list.selected() != found) {
    list.select(*found);
  }
  undo::Recording renaming(&history, L"Rename", index, item);
  if (index == tools) {
    tellWhereItWent(modSC::renameShortcutTo(shortcuts, name, renaming.changes()));
  } else if (index == open) {
    modQMKGeneral::RenameCatalogueFile(catalogue, name, renaming.changes());
  }
  // After a failure the entry may still be selected although it is not shown.
  list.update([] {});
}

void frmQMK::tellWhereItWent(const std::optional<std::wstring>& link) {
  if (!link) {
    return;
  }
  std::wstring name;
  std::wstring folder;
  SmodMisc::SplitPath(*link, name, folder);
  folder.pop_back();  // the backslash
  using platform::text::upper;
  if (upper(folder) != upper(modQMKGeneral::ShortCutsFolder)) {
    tell(name + L" is in " + folder + L" now");
  }
}
