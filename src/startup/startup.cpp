#include "startup/startup.h"

#include <array>
#include <functional>
#include <memory>
#include <string>

#include "catalogue/catalogue_file.h"
#include "catalogue/catalogue_view.h"
#include "platform/application.h"
#include "platform/dispatcher.h"
#include "platform/text.h"
#include "platform/windows.h"
#include "settings/store.h"
#include "shortcuts/shortcut_list.h"
#include "startup/paths.h"
#include "web/web_list.h"

namespace modSystem {

using platform::dispatch;
using platform::application::processPendingMessages;

namespace {

/// Adds the example canopy file to the catalogue, once per user.
void registerExample(settings::Store& kept) {
  const std::wstring registered = kept.value(settings::key::example, L"False");
  if (platform::text::upper(registered) == L"TRUE") {
    return;
  }
  modQMKGeneral::AddOrUpdateCatalogueEntry(modQMKGeneral::AppFolder() + L"\\data\\CWIexample.cw3",
                                           L"CW3");
  // A file that cannot be written is told of when the window is up.
  static_cast<void>(kept.keep({{settings::key::example, L"True"}}));
}

}  // namespace

bool Gateway::prepare() {
  return dispatch([this] {
    modQMKGeneral::InitUserFolders();
    // Off, because a tick must not reload the list during start-up.
    main.tmrFileUpdate.setEnabled(false);
    main.load();
    processPendingMessages();
    main.SetupMainWindow();
  });
}

void Gateway::showSplash() {
  // If a tool shortcut cannot be written, the splash ends but start-up continues.
  dispatch([this] { splash.showModal(); });
}

void Gateway::fillLists() {
  const std::array<std::function<void()>, 11> steps{
      [this] { registerExample(main.kept); },
      [this] { modQMKGeneral::LoadCatalogueView(main.catalogue); },
      [this] { modQMKGeneral::AddNewFileItems(main.catalogue); },
      [this] { modSC::LoadShortcutList(main.shortcuts); },
      processPendingMessages,
      [this] { modQMKGeneral::LoadWebList(main.webList); },
      [this] { main.TabMain.setCurrent(frmQMK::tools); },
      processPendingMessages,
      [this] { modQMKGeneral::RefreshDataFolderEntries(main.catalogue); },
      [this] { main.tmrFileUpdate.setEnabled(true); },
      [this] { main.afterStart(); },
  };
  for (const auto& step : steps) {
    // The user may close the window while messages are processed.
    if (main.loaded()) {
      dispatch(step);
    }
  }
}

bool Gateway::start() {
  if (!prepare()) {
    return false;
  }
  showSplash();
  // The main window creates its parts while the splash is visible; if that failed, the window is
  // not loaded any more.
  if (!splash.foldersReady() || !main.loaded() || !dispatch([this] { main.show(); })) {
    return false;
  }
  dispatch(processPendingMessages);
  fillLists();
  return true;
}

int Main() {
  const auto gateway = std::make_unique<Gateway>();
  if (!gateway->start()) {
    return 1;
  }
  platform::windows::run(gateway->main);
  return 0;
}

}  // namespace modSystem
