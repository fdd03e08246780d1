// Construction of the main window, its load and its end.
#include "mainwindow/main_window.h"

#include "flatlook/form_style.h"
#include "mainwindow/control_ids.h"
#include "mainwindow/main_layout.h"
#include "platform/application.h"
#include "platform/dialogs.h"
#include "platform/dispatcher.h"
#include "startup/paths.h"

using controls::ListView;

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
      mnuFile(L"mnuFile", ids::mnuFile, L"File"),
      mnuExit(L"mnuExit", ids::mnuExit, L"Exit"),
      mnuEdit(L"mnuEdit", ids::mnuEdit, L"Edit"),
      mnuCreate(L"mnuCreate", ids::mnuCreate, L"Create"),
      mnuRename(L"mnuRename", ids::mnuRename, L"Rename"),
      mnuDelete(L"mnuDelete", ids::mnuDelete, L"Delete File"),
      mnuView(L"mnuView", ids::mnuView, L"View"),
      mnuList(L"mnuList", ids::mnuList, L"List View"),
      mnuIcon(L"mnuIcon", ids::mnuIcon, L"Icon View"),
      mnuHelp(L"mnuHelp", ids::mnuHelp, L"Help"),
      mnuHelpContents(L"mnuHelpContents", ids::mnuHelpContents, L"Help Contents"),
      mnuWeb(L"mnuWeb", ids::mnuWeb, L"Web Based Support"),
      mnuAbout(L"mnuAbout", ids::mnuAbout, L"About"),
      catalogue{lstQMK[open], lstQMK[fresh], imgIcons[0], imgIcons[1]},
      shortcuts{lstQMK[tools], imgShortCut, picShortCuts, diaCommon, catalogue},
      webList{lstQMK, TabMain, imgIcons[0], imgIcons[1]},
      opening{catalogue, diaCommon, cmdBrowse, [this] { cmdBrowse_Click(); }} {
  setCaption(platform::application::title);
  setDesignSize(initialSize, smallestSize);
  buildToolbar();
  for (const wchar_t* const caption : {L"Tools", L"Open", L"New", L"Web"}) {
    TabMain.addTab(caption);
  }
  TabMain.setAccessibleName(L"Lists");
  buildLists();
  buildMenus();
  connect();
}

void frmQMK::buildMenus() {
  mnuFile.add(mnuExit);
  mnuEdit.add(mnuCreate).add(mnuRename).add(mnuDelete);
  mnuView.add(mnuList).add(mnuIcon);
  mnuHelp.add(mnuHelpContents).add(mnuWeb).add(mnuAbout);
  addMenu(mnuFile);
  addMenu(mnuEdit);
  addMenu(mnuView);
  addMenu(mnuHelp);
}

void frmQMK::buildToolbar() {
  imgIcons[2].setImageSize(toolbarIcon);
  imgIcons[2].addResource(L"Delete", L"TB_DELETE");
  imgIcons[2].addResource(L"Rename", L"TB_RENAME");
  imgIcons[2].addResource(L"Create", L"TB_CREATE");
  imgIcons[2].addResource(L"IconView", L"TB_ICONVIEW");
  imgIcons[2].addResource(L"listview", L"TB_LISTVIEW");
  imgIcons[2].addResource(L"Exit", L"TB_EXIT");
  imgIcons[2].addResource(L"Help", L"TB_HELP");

  const auto button = [](const wchar_t* key, int command, const wchar_t* toolTip,
                         bool check = false) {
    controls::Toolbar::Button made;
    made.key = key;
    made.command = command;
    made.toolTip = toolTip;
    made.check = check;
    return made;
  };
  barMain.setAccessibleName(L"Commands");
  barMain.addButton(button(L"Delete", ids::buttonDelete, L"Delete File or Shortcut"));
  barMain.addButton(button(L"Rename", ids::buttonRename, L"Rename file or shortcut"));
  barMain.addButton(button(L"Create", ids::buttonCreate, L"Create a file or shortcut"));
  barMain.addSeparator();
  barMain.addButton(button(L"Icon", ids::buttonIcon, L"Icon view mode", true));
  barMain.addButton(button(L"List", ids::buttonList, L"List view mode", true));
  barMain.addSeparator();
  barMain.addButton(button(L"Exit", ids::buttonExit, L"Exit Quillmark Suite"));
  barMain.addSeparator();
  barMain.addButton(button(L"Help", ids::buttonHelp, L"Obtain assistance"));
  add(barMain);
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
    list.onContextMenu = [this](int x, int y) {
      if (peer() != nullptr) {
        peer()->popUp(mnuEdit, x, y);
      }
    };
    list.onKey = [this, index](controls::ListKey key) { lstQMK_KeyDown(index, key); };
  }
  cmdBrowse.onClick = [this] { cmdBrowse_Click(); };
  cmdBrowse.onPointerEnter = [this] { OC_COLOR::SetButtonHot(cmdBrowse); };
  cmdBrowse.onPointerLeave = [this] { OC_COLOR::SetButtonIdle(cmdBrowse); };
  tmrFileUpdate.onTimer = [this] { tmrFileUpdate_Timer(); };
  mnuExit.onClick = [this] { mnuExit_Click(); };
  mnuCreate.onClick = [this] { mnuCreate_Click(); };
  mnuRename.onClick = [this] { mnuRename_Click(); };
  mnuDelete.onClick = [this] { mnuDelete_Click(); };
  mnuList.onClick = [this] { mnuList_Click(); };
  mnuIcon.onClick = [this] { mnuIcon_Click(); };
  mnuHelpContents.onClick = [this] { mnuHelpContents_Click(); };
  mnuWeb.onClick = mnuWeb_Click;
  mnuAbout.onClick = [this] { mnuAbout_Click(); };
}

void frmQMK::Form_Load() {
  OC_COLOR::ApplyFlatStyle(*this);
  barMain.refresh();
  lstQMK[tools].setView(controls::iconView);
  lstQMK[tools].setTag(L"0");
  lstQMK[open].setTag(L"3");
  lstQMK[fresh].setTag(L"0");
  lstQMK[web].setTag(L"3");
  mnuIcon_Click();
  restorePlace();
}

void frmQMK::SetupMainWindow() {
  modQMKGeneral::EnsureFolder(modQMKGeneral::ShortCutsFolder);

  lstQMK[open].addColumn(L"Recently Used Files", 1500);
  lstQMK[open].addColumn(L"Last Modified", 2000);
  lstQMK[open].addColumn(L"Type", 3000);
  lstQMK[open].addColumn(L"Directory", 4000);
  lstQMK[open].addColumn(L"Type", 0);
  lstQMK[fresh].addColumn(L"Name", 5000);
  lstQMK[fresh].addColumn(L"File Type", 0);
  lstQMK[fresh].setHeadersHidden(true);
  lstQMK[tools].addColumn(L"Path", 5000);
  lstQMK[tools].addColumn(L"EXE", 5000);
  lstQMK[tools].addColumn(L"Command", 0);
  lstQMK[tools].setHeadersHidden(true);
  lstQMK[web].addColumn(L"Name", 5000);
  lstQMK[web].addColumn(L"Url", 5000);
  lstQMK[web].setHeadersHidden(false);
  restoreColumnWidths();

  barMain.setImages(&imgIcons[2]);
  struct Look {
    const wchar_t* key;
    const wchar_t* image;
  };
  constexpr std::array looks{Look{L"Exit", L"Exit"},     Look{L"Icon", L"IconView"},
                             Look{L"List", L"listview"}, Look{L"Help", L"Help"},
                             Look{L"Delete", L"Delete"}, Look{L"Create", L"Create"},
                             Look{L"Rename", L"Rename"}};
  for (const Look& look : looks) {
    barMain.setButtonImage(look.key, look.image);
  }
  for (const Look& look : looks) {
    barMain.setButtonCaption(look.key, look.key);
  }
}

void frmQMK::Form_Activate() { setCaption(platform::application::title); }

void frmQMK::Form_QueryUnload(bool& cancel, controls::UnloadMode /*mode*/) {
  using platform::dialogs::Answer;
  using platform::dialogs::MessageStyle;
  cancel = platform::dialogs::showMessage(L"Exit Gateway?", MessageStyle::yesNoQuestion, L"") !=
           Answer::yes;
  if (!cancel) {
    // What cannot be remembered must not keep the window from closing.
    platform::dispatch([this] { remember(); });
  }
}

void frmQMK::Form_Unload(bool& /*cancel*/) {
  if (frmWeb_) {
    frmWeb_->unload();
  }
  if (frmAbout_) {
    frmAbout_->unload();
  }
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
    modSC::RedrawShortcutIcons(shortcuts);
  }
}
