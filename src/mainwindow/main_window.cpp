// Construction of the main window, its load and its end.
#include "mainwindow/main_window.h"

#include <utility>

#include "catalogue/stored_path.h"
#include "flatlook/form_style.h"
#include "mainwindow/control_ids.h"
#include "mainwindow/incoming.h"
#include "mainwindow/main_layout.h"
#include "platform/application.h"
#include "platform/dialogs.h"
#include "platform/dispatcher.h"
#include "platform/files.h"
#include "platform/help.h"
#include "platform/session.h"
#include "platform/trap.h"
#include "platform/windows.h"
#include "startup/paths.h"

using controls::ListView;
using mainwindow::Menu;

namespace {

constexpr int watchInterval = 1000;
constexpr int idleInterval = 10;
constexpr int newsTime = 10'000;
constexpr int searchInterval = 100;
constexpr platform::Size initialSize{780, 500};
constexpr platform::Size smallestSize{420, 300};
constexpr platform::Size largeIcon{32, 32};
constexpr platform::Size smallIcon{16, 16};
constexpr platform::Size toolbarIcon{24, 24};
/// Width at 96 dpi of the button at the end of the find box.
constexpr int clearWidth = 18;

/// Whether the file of a catalogue entry is there. A name that may mean several files is not
/// missing.
bool dataFileExists(const std::wstring& path) {
  bool found = true;
  static_cast<void>(platform::trapped([&] { found = stored_path::realFile(path).has_value(); }));
  return found;
}

/// Whether a shortcut's target, a file or a folder, is there.
bool targetExists(const std::wstring& path) { return platform::files::entryAt(path).has_value(); }

}  // namespace

frmQMK::frmQMK()
    : Window(L"frmQMK", controls::WindowKind::frame),
      barMain(L"barMain", ids::barMain),
      TabMain(L"TabMain", ids::TabMain),
      cmdClearFind(L"cmdClearFind", ids::cmdClearFind),
      lblFind(L"lblFind", ids::lblFind),
      txtFind(L"txtFind", ids::txtFind),
      lstQMK{{{L"lstQMK", ids::lstQMK0},
              {L"lstQMK", ids::lstQMK0 + 1},
              {L"lstQMK", ids::lstQMK0 + 2},
              {L"lstQMK", ids::lstQMK0 + 3}}},
      cmdBrowse(L"cmdBrowse", ids::cmdBrowse),
      barStatus(L"barStatus", ids::barStatus),
      tmrFileUpdate(L"tmrFileUpdate", ids::tmrFileUpdate, watchInterval, true),
      tmrIdle(L"tmrIdle", ids::tmrIdle, idleInterval, false),
      tmrSearch(L"tmrSearch", ids::tmrSearch, searchInterval, false),
      tmrNews(L"tmrNews", ids::tmrNews, newsTime, false),
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
      webList{lstQMK, TabMain, imgIcons[0], imgIcons[1], &history},
      opening{catalogue,
              diaCommon,
              cmdBrowse,
              [this] { cmdBrowse_Click(); },
              [this](const std::wstring& news) { tell(news); },
              {},
              &history},
      toolsThere(lstQMK[tools], {std::nullopt, modSC::shortcut_column::target}, targetExists),
      filesThere(lstQMK[open], {modQMKGeneral::data_column::folder, 0}, dataFileExists) {
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
  cmdClearFind.setCaption(L"\u00D7");
  cmdClearFind.setAccessibleName(L"Clear");
  cmdClearFind.setToolTip(L"Show everything (Esc)");
  cmdClearFind.setVisible(false);
  cmdClearFind.tabStop = false;  // Esc does the same in the box before it
  add(cmdClearFind);
  lblFind.setCaption(L"Find");
  lblFind.setVisible(false);
  add(lblFind);
  txtFind.setCue(L"Find");
  txtFind.setAccessibleName(L"Find");
  txtFind.setToolTip(L"Shows the entries that hold these words (Ctrl+F)");
  txtFind.setEndMargin(clearWidth);
  add(txtFind);
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
  barStatus.setAccessibleName(L"Status");
  add(barStatus);
  add(tmrFileUpdate);
  add(tmrIdle);
  add(tmrSearch);
  add(tmrNews);
  lstQMK[tools].setEmptyText(L"No shortcuts yet. Create (Insert) makes one.");
  lstQMK[open].setEmptyText(L"No data files yet. Browse opens one.");
  lstQMK[web].setEmptyText(L"No web shortcuts yet. Create (Insert) makes one.");
}

void frmQMK::connect() {
  TabMain.onSwitch = [this](int /*oldTab*/, int newTab) { TabMain_Click(newTab); };
  barMain.onButtonClick = [this](const std::wstring& key) { barMain_ButtonClick(key); };
  for (int index = 0; index < static_cast<int>(lstQMK.size()); ++index) {
    connectList(index);
  }
  txtFind.onTyped = [this] { txtFind_Typed(); };
  txtFind.onKey = [this](const controls::KeyStroke& stroke) { return txtFind_KeyDown(stroke); };
  cmdClearFind.onClick = [this] { cmdClearFind_Click(); };
  cmdClearFind.onPointerEnter = [this] { OC_COLOR::SetButtonHot(cmdClearFind); };
  cmdClearFind.onPointerLeave = [this] { calmClearButton(); };
  cmdBrowse.onClick = [this] { cmdBrowse_Click(); };
  cmdBrowse.onPointerEnter = [this] { OC_COLOR::SetButtonHot(cmdBrowse); };
  cmdBrowse.onPointerLeave = [this] { OC_COLOR::SetButtonIdle(cmdBrowse); };
  tmrFileUpdate.onTimer = [this] { tmrFileUpdate_Timer(); };
  tmrIdle.onTimer = [this] { tmrIdle_Timer(); };
  tmrSearch.onTimer = [this] { tmrSearch_Timer(); };
  tmrNews.onTimer = [this] { tmrNews_Timer(); };
  // Told at the next idle moment, behind what the operation says of itself.
  keeper.onFailure = [this] {
    static_cast<void>(platform::trapped([this] { tmrIdle.setEnabled(true); }));
  };
}

void frmQMK::connectList(int index) {
  ListView& list = lstQMK.at(static_cast<std::size_t>(index));
  list.onDoubleClick = [this, index] { lstQMK_DblClick(index); };
  list.onColumnClick = [this, index](int column) { lstQMK_ColumnClick(index, column); };
  list.onContextMenu = [this, index](int x, int y) {
    if (peer() != nullptr) {
      commands.refresh();
      peer()->popUp(commands.contextMenu(index), x, y);
    }
  };
  list.onKey = [this, index](const controls::KeyStroke& stroke) { lstQMK_KeyDown(index, stroke); };
  list.onFitColumn = [this, index](std::size_t column) { fitColumn(index, column); };
  list.onNameClick = [this, index] {
    if (index != web && commands.enabled(ids::mnuEditName)) {
      editName(index);
    }
  };
  list.onNameTyped = [this, index](const controls::ItemKey& item, const std::wstring& name) {
    renameTo(index, item, name);
  };
  list.takes = [index](const platform::clipboard::Content& content) {
    return mainwindow::canBeTaken(index, content);
  };
  list.onDropped = [this, index](const platform::clipboard::Content& content) {
    bringIn(index, content);
  };
  list.dragged = [this] { return dragged(); };
  // A status line that comes late must not disturb an operation.
  const auto later = [this] {
    static_cast<void>(platform::trapped([this] { tmrIdle.setEnabled(true); }));
  };
  list.onShown = later;
  list.onScroll = later;
}

void frmQMK::Form_Load() {
  OC_COLOR::ApplyFlatStyle(*this);
  calmClearButton();
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

void frmQMK::Form_Activate() {
  setCaption(platform::application::title);
  lookAgain();
}

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
  if (frmEarlier_) {
    frmEarlier_->unload();
  }
  platform::help::close();
}

void frmQMK::layout(platform::Size client, int dpi) {
  const mainwindow::MainLayout places = mainwindow::layOut(
      client, dpi,
      {barMain.measuredHeight(), platform::windows::textSize(L"Xg", {}, dpi).height,
       [&](const platform::Rect& bounds) { return TabMain.displayArea(bounds, dpi); }});
  dpi_ = dpi;
  barMain.setBounds(places.toolbar);
  cmdClearFind.setBounds(places.clearButton);
  OC_COLOR::attachLate(txtFind, *this);  // the frame's native controls come after its load
  txtFind.setBounds(places.findBox);
  // The frame of a flat box is drawn on the window, up to one pixel outside its rectangle.
  TabMain.setHole(platform::inset(places.findBox, -1));
  barStatus.setBounds(places.statusBar);
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
