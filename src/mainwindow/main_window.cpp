// Construction of the main window, its load and its end.
#include "mainwindow/main_window.h"

#include <utility>

#include "flatlook/form_style.h"
#include "mainwindow/control_ids.h"
#include "mainwindow/main_layout.h"
#include "platform/application.h"
#include "platform/dialogs.h"
#include "platform/dispatcher.h"
#include "platform/help.h"
#include "platform/session.h"
#include "startup/paths.h"

using controls::ListView;
using mainwindow::Menu;

namespace {

constexpr int watchInterval = 1000;
constexpr platform::Size initialSize{780, 500};
constexpr platform::Size smallestSize{420, 300};
constexpr platform::Size largeIcon{32, 32};
constexpr platform::Size smallIcon{16, 16};
constexpr platform::Size toolbarIcon{24, 24};

}  // namespace

frmQMK::frmQMK()
    : Window(L"frmQMK", controls::WindowKind::frame),
      barMain(L"barMain", ids::barMain),
      TabMain(L"TabMain", ids::TabMain),
      lstQMK{{{L"lstQMK", ids::lstQMK0},
              {L"lstQMK", ids::lstQMK0 + 1},
              {L"lstQMK", ids::lstQMK0 + 2},
              {L"lstQMK", ids::lstQMK0 + 3}}},
      cmdBrowse(L"cmdBrowse", ids::cmdBrowse),
      tmrFileUpdate(L"tmrFileUpdate", ids::tmrFileUpdate, watchInterval, true),
      commands(*this, barMain, mainwindow::commandTable()),
      mnuFile(commands.menu(Menu::file)),
      mnuExit(commands.item(ids::mnuExit)),
      mnuEdit(commands.menu(Menu::edit)),
      mnuCreate(commands.item(ids::mnuCreate)),
      mnuRename(commands.item(ids::mnuRename)),
      mnuDelete(commands.item(ids::mnuDelete)),
      mnuView(commands.menu(Menu::view)),
      mnuList(commands.item(ids::mnuList)),
      mnuIcon(commands.item(ids::mnuIcon)),
      mnuHelp(commands.menu(Menu::help)),
      mnuHelpContents(commands.item(ids::mnuHelpContents)),
      mnuWeb(commands.item(ids::mnuWeb)),
      mnuAbout(commands.item(ids::mnuAbout)),
      catalogue{lstQMK[open], lstQMK[newFiles], imgIcons[0], imgIcons[1]},
      shortcuts{lstQMK[tools], imgShortCut, picShortCuts, diaCommon},
      webList{lstQMK, TabMain, imgIcons[0], imgIcons[1]},
      opening{catalogue, diaCommon, cmdBrowse, [this] { cmdBrowse_Click(); }} {
  setCaption(platform::application::title);
  setDesignSize(initialSize, smallestSize);
  imgIcons[2].setImageSize(toolbarIcon);
  commands.addPictures(imgIcons[2]);
  barMain.setAccessibleName(L"Commands");
  commands.addButtons();
  add(barMain);
  for (const wchar_t* const caption : {L"Tools", L"Open", L"New", L"Web"}) {
    TabMain.addTab(caption);
  }
  TabMain.setAccessibleName(L"Lists");
  buildLists();
  for (controls::MenuItem* const menu : {&mnuFile, &mnuEdit, &mnuView, &mnuHelp}) {
    addMenu(*menu);
  }
  connect();
}

void frmQMK::buildLists() {
  const std::array sizes{largeIcon, smallIcon};
  for (std::size_t i = 0; i < sizes.size(); ++i) {
    imgIcons.at(i).setImageSize(sizes.at(i));
    for (const wchar_t* const key : {L"PV3", L"BW3", L"CW3"}) {
      imgIcons.at(i).addResource(key, key);
    }
    imgIcons.at(i).addResource(L"Web", L"WEB");
  }
  add(TabMain);
  for (std::size_t i = 0; i < lstQMK.size(); ++i) {
    lstQMK.at(i).setAccessibleName(TabMain.tabCaption(static_cast<int>(i)));
    lstQMK.at(i).setVisible(i == tools);
    add(lstQMK.at(i));
  }
  lstQMK[open].setView(controls::reportView);
  lstQMK[web].setView(controls::reportView);
  cmdBrowse.setCaption(L"Browse");
  cmdBrowse.setToolTip(L"Browse for a data file");
  cmdBrowse.setVisible(false);
  add(cmdBrowse);
  add(tmrFileUpdate);
}

void frmQMK::connect() {
  TabMain.onSwitch = [this](int /*oldTab*/, int newTab) { TabMain_Click(newTab); };
  barMain.onButtonClick = [this](const std::wstring& key) { barMain_ButtonClick(key); };
  for (std::size_t i = 0; i < lstQMK.size(); ++i) {
    const int index = static_cast<int>(i);
    ListView& list = lstQMK.at(i);
    list.onDoubleClick = [this, index] { lstQMK_DblClick(index); };
    list.onColumnClick = [this, index](int column) { lstQMK_ColumnClick(index, column); };
    list.onContextMenu = [this, index](int x, int y) {
      if (peer() != nullptr) {
        commands.refresh();
        peer()->popUp(commands.contextMenu(index), x, y);
      }
    };
    list.onKey = [this, index](const controls::KeyStroke& stroke) {
      lstQMK_KeyDown(index, stroke);
    };
  }
  cmdBrowse.onClick = [this] { cmdBrowse_Click(); };
  cmdBrowse.onPointerEnter = [this] { OC_COLOR::SetButtonHot(cmdBrowse); };
  cmdBrowse.onPointerLeave = [this] { OC_COLOR::SetButtonIdle(cmdBrowse); };
  tmrFileUpdate.onTimer = [this] { tmrFileUpdate_Timer(); };
}

void frmQMK::Form_Load() {
  OC_COLOR::ApplyFlatStyle(*this);
  barMain.refresh();
  lstQMK[tools].setView(controls::iconView);
  lstQMK[tools].setTag(L"0");
  lstQMK[open].setTag(L"3");
  lstQMK[newFiles].setTag(L"0");
  lstQMK[web].setTag(L"3");
  mnuIcon_Click();
  restorePlace();
}

void frmQMK::SetupMainWindow() {
  modQMKGeneral::ensureFolder(modQMKGeneral::ShortCutsFolder);

  lstQMK[open].addColumn(L"Recently Used Files", 1500);
  lstQMK[open].addColumn(L"Last Modified", 2000);
  lstQMK[open].addColumn(L"Type", 3000);
  lstQMK[open].addColumn(L"Directory", 4000);
  lstQMK[open].addColumn(L"Type", 0);
  lstQMK[newFiles].addColumn(L"Name", 5000);
  lstQMK[newFiles].addColumn(L"File Type", 0);
  lstQMK[newFiles].setHeadersHidden(true);
  lstQMK[tools].addColumn(L"Path", 5000);
  lstQMK[tools].addColumn(L"EXE", 5000);
  lstQMK[tools].addColumn(L"Command", 0);
  lstQMK[tools].setHeadersHidden(true);
  lstQMK[web].addColumn(L"Name", 5000);
  lstQMK[web].addColumn(L"Url", 5000);
  lstQMK[web].setHeadersHidden(false);
  restoreColumnWidths();

  barMain.setImages(&imgIcons[2]);
  commands.dressButtons();
}

void frmQMK::Form_Activate() { setCaption(platform::application::title); }

void frmQMK::Form_MenuOpening() { commands.refresh(); }

bool frmQMK::mayExit() {
  using platform::dialogs::Answer;
  using platform::dialogs::MessageStyle;
  struct Asking {
    explicit Asking(frmQMK& asked) : form(asked) { form.askingToExit_ = true; }
    Asking(const Asking&) = delete;
    Asking& operator=(const Asking&) = delete;
    ~Asking() {
      form.askingToExit_ = false;
      if (std::exchange(form.sessionWaits_, false)) {
        platform::session::waitIsOver(form);
      }
    }
    frmQMK& form;
  };
  const Asking asking(*this);
  return platform::dialogs::showMessage(L"Exit Gateway?", MessageStyle::yesNoQuestion, L"") ==
         Answer::yes;
}

void frmQMK::Form_QueryUnload(bool& cancel, controls::UnloadMode mode) {
  // A second copy only says that it is one, and ends.
  if (mode == controls::UnloadMode::forced || platform::application::previousInstance()) {
    return;
  }
  if (mode == controls::UnloadMode::sessionEnd) {
    sessionWaits_ = true;
    platform::session::explainWait(*this, L"The question \"Exit Gateway?\" waits for an answer.");
  }
  // The system asks again while the question is up, and may ask while the user is being asked.
  cancel = askingToExit_ || !mayExit();
  if (!cancel) {
    // A failure to save these settings must not keep the window open.
    platform::dispatch([this] { remember(); });
  }
}

void frmQMK::Form_SessionEnd() {
  // Once more, because nobody may have been asked. Every list file is whole at any moment.
  platform::dispatch([this] { remember(); });
  platform::help::close();
  platform::application::end();
}

void frmQMK::Form_Unload(bool& /*cancel*/) {
  if (frmWeb_) {
    frmWeb_->unload();
  }
  if (frmAbout_) {
    frmAbout_->unload();
  }
  platform::help::close();
}

void frmQMK::layout(platform::Size client, int dpi) {
  const mainwindow::MainLayout places =
      mainwindow::layOut(client, dpi, {barMain.measuredHeight(), [&](const platform::Rect& bounds) {
                                         return TabMain.displayArea(bounds, dpi);
                                       }});
  barMain.setBounds(places.toolbar);
  TabMain.setBounds(places.tabs);
  for (std::size_t i = 0; i < lstQMK.size(); ++i) {
    lstQMK.at(i).setBounds(i == open ? places.listOnOpen : places.list);
  }
  cmdBrowse.setBounds(places.browseButton);
  if (shortcuts.dpi != dpi) {
    shortcuts.dpi = dpi;
    modSC::redrawShortcutIcons(shortcuts);
  }
}
