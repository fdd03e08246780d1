// The launcher's main window.
#pragma once

#include <array>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "about/about_box.h"
#include "catalogue/catalogue_view.h"
#include "catalogue/opening.h"
#include "earlier/earlier_dialog.h"
#include "listfile/list_keeper.h"
#include "mainwindow/command_objects.h"
#include "mainwindow/file_search.h"
#include "mainwindow/presence.h"
#include "platform/clipboard.h"
#include "platform/controls/bars.h"
#include "platform/controls/common_dialog.h"
#include "platform/controls/image_list.h"
#include "platform/controls/list_view.h"
#include "platform/controls/window.h"
#include "settings/store.h"
#include "shortcuts/shortcut_list.h"
#include "undo/history.h"
#include "web/web_dialog.h"
#include "web/web_list.h"

/// Four tabs with a list each, a toolbar and a menu bar. It routes every command to the subsystem
/// of the current tab.
class frmQMK : public controls::Window {
 public:
  frmQMK();

  /// Indices of the tabs and of their lists.
  enum Tab { tools = 0, open = modQMKGeneral::openTab, newFiles = 2, web = modQMKGeneral::webTab };

  controls::Toolbar barMain;
  controls::TabControl TabMain;
  controls::CoolButton cmdClearFind;
  controls::Label lblFind;  ///< Never shown: names the box for those who hear the screen.
  controls::TextBox txtFind;
  std::array<controls::ListView, 4> lstQMK;
  controls::CoolButton cmdBrowse;
  controls::StatusBar barStatus;
  controls::Timer tmrFileUpdate;
  controls::Timer tmrIdle;    ///< Runs while there is something to do when nothing else is.
  controls::Timer tmrSearch;  ///< Runs during a search, to show how far it is.
  controls::Timer tmrNews;    ///< Runs while the status line tells news.
  /// [0] large and [1] small pictures of the lists, [2] pictures of the toolbar.
  std::array<controls::ImageList, 3> imgIcons;
  std::array<controls::ImageList, 2> imgShortCut;
  controls::PictureBox picShortCuts;
  controls::CommonDialog diaCommon;

  /// Menus, menu entries and buttons of the commands, as the table of commands lists them.
  mainwindow::CommandObjects commands;
  controls::MenuItem& mnuFile;
  controls::MenuItem& mnuExit;
  controls::MenuItem& mnuEdit;
  controls::MenuItem& mnuCreate;
  controls::MenuItem& mnuRename;
  controls::MenuItem& mnuDelete;
  controls::MenuItem& mnuView;
  controls::MenuItem& mnuList;
  controls::MenuItem& mnuIcon;
  controls::MenuItem& mnuHelp;
  controls::MenuItem& mnuHelpContents;
  controls::MenuItem& mnuWeb;
  controls::MenuItem& mnuAbout;

  /// What is kept between runs.
  settings::Store kept;
  /// What the user can take back.
  undo::History history;

  /// The parts of this window that each subsystem uses.
  modQMKGeneral::CatalogueView catalogue;
  modSC::ShortcutList shortcuts;
  modQMKGeneral::WebList webList;
  ModQMKgeneral2::Opening opening;
  /// Keeps copies of the two list files.
  modQMKGeneral::ListKeeper keeper;
  /// Which tools and data files are not there.
  mainwindow::Presence toolsThere;
  mainwindow::Presence filesThere;

  /// Adds the lists' columns and the toolbar's pictures and captions. Raises the platform's error
  /// when the shortcuts folder is gone and cannot be created.
  void SetupMainWindow();
  /// The lists are full, and the user can see them. Says so if nothing can be kept between runs,
  /// and asks about the entries if the program's drive has got another letter since the last run.
  void afterStart();

  // Handlers; each is also called by its control.
  void TabMain_Click(int newTab);
  void barMain_ButtonClick(const std::wstring& key);
  void mnuExit_Click();
  void mnuCreate_Click();
  void mnuRename_Click();
  void mnuDelete_Click();
  void mnuIcon_Click();
  void mnuList_Click();
  void mnuHelpContents_Click();
  static void mnuWeb_Click();
  void mnuAbout_Click();
  void cmdBrowse_Click();
  /// Reloads the list of a tab (from 0). The new-file items never change.
  void reloadList(int index);
  /// The user wants the list anew, and to know what is not there, on slow drives, too.
  void reload(int index);
  void mnuFind_Click();
  void txtFind_Typed();
  [[nodiscard]] bool txtFind_KeyDown(const controls::KeyStroke& stroke);
  void cmdClearFind_Click();
  void mnuNewestFirst_Click();
  void mnuFitColumns_Click();
  /// Makes a column of a list as wide as its longest text, but not wider than the list.
  void fitColumn(int index, std::size_t column);
  void mnuUndo_Click();
  void mnuRedo_Click();
  void mnuCopy_Click();
  void mnuCopyPath_Click();
  void mnuOpenFolder_Click();
  void mnuRemoveFromList_Click();
  void mnuSaveListAs_Click();
  void mnuEarlierLists_Click();
  void mnuAddList_Click();
  void mnuAddFiles_Click();
  void mnuPaste_Click();
  void mnuFindMoved_Click();
  /// Adds to the list of a tab what was pasted or dropped there.
  void bringIn(int tab, const platform::clipboard::Content& content);
  /// Looks for files in folders and below them, while the status line shows how far it is. Esc ends
  /// that. `wanted` runs on another thread; `done` gets the full paths. Another search ends.
  void searchFolders(const std::wstring& what, std::vector<std::wstring> folders,
                     std::function<bool(std::wstring_view name)> wanted,
                     const std::function<void(const std::vector<std::wstring>& found)>& done);
  void tmrSearch_Timer();
  /// Edits the name of the selected entry of a list in the list itself. On the Web tab it opens the
  /// dialog.
  void editName(int index);
  void tmrIdle_Timer();
  void tmrNews_Timer();
  /// Says what an operation has done, in the status line for ten seconds.
  void tell(const std::wstring& news);
  /// What it says so at the moment; "" for nothing.
  [[nodiscard]] const std::wstring& news() const { return news_; }
  void lstQMK_DblClick(int index);
  void lstQMK_ColumnClick(int index, int column);
  void lstQMK_KeyDown(int index, const controls::KeyStroke& stroke);
  void tmrFileUpdate_Timer();

  /// The web shortcut dialog and the about box; nullptr until they are first shown.
  [[nodiscard]] frmWeb* webDialog() const { return frmWeb_.get(); }
  [[nodiscard]] frmAbout* aboutBox() const { return frmAbout_.get(); }
  /// The window with the earlier lists; nullptr until it is first shown.
  [[nodiscard]] frmEarlier* earlierLists() const { return frmEarlier_.get(); }

 protected:
  void Form_Load() override;
  void Form_Activate() override;
  bool Form_KeyDown(const controls::KeyStroke& stroke) override;
  void Form_MenuOpening() override;
  void Form_MenuMarked(const controls::MenuItem* item) override;
  void Form_DrivesChanged() override;
  void Form_QueryUnload(bool& cancel, controls::UnloadMode mode) override;
  void Form_Unload(bool& cancel) override;
  void Form_SessionEnd() override;
  void layout(platform::Size client, int dpi) override;

 private:
  /// What is kept between runs: placement of the window, widths of the columns.
  void restorePlace();
  void restoreColumnWidths();
  void remember();
  /// Asks whether the program is to end.
  [[nodiscard]] bool mayExit();
  void buildLists();
  void connect();
  void connectList(int index);
  void showViewMode(bool report);
  void setNewestFirst(bool on);
  /// Whether the find box hides every entry of a list, so that none can be meant.
  [[nodiscard]] static bool nothingFound(const controls::ListView& list);
  /// The way to look for missing entries of a list; nullptr for lists without such.
  [[nodiscard]] mainwindow::Presence* presenceOf(int index);
  /// What is not there has to be found out anew.
  void lookAgain();
  /// The same for one list, and its slow drives are asked, too.
  void lookAgainEverywhere(int index);
  /// The x is there while there is something to clear.
  void showClearButton();
  /// Lets the x look like a part of the box while the pointer is elsewhere.
  void calmClearButton();
  void showStatus();
  /// Path, target or address of the selected row; "" without one.
  [[nodiscard]] std::wstring selectedPlace();
  /// The data file or the shortcut of the selected row, if it is there; "" otherwise.
  [[nodiscard]] std::wstring selectedFile();
  void copy(const platform::clipboard::Content& content);
  /// Remembers for Undo what an operation on the selected shortcut changes.
  [[nodiscard]] undo::Recording recordingOfShortcut(const wchar_t* what);
  /// Undo or Redo.
  void go(undo::Way way);
  /// Says so if nobody keeps what an operation has deleted.
  void tellIfFinal(undo::Recording& recording);
  /// What the selected row of the current tab gives to others.
  [[nodiscard]] platform::clipboard::Content dragged();
  /// Adds data files to the list: `named` ones, and those `found` in folders.
  void addFiles(const std::vector<std::wstring>& named, const std::vector<std::wstring>& found);
  /// The same after a question, if many were found.
  void addFoundFiles(const std::vector<std::wstring>& named,
                     const std::vector<std::wstring>& found);
  void addShortcuts(const std::vector<std::wstring>& paths);
  void addWebShortcuts(const platform::clipboard::Content& content);
  /// Puts an earlier list in the place of the present one. Raises an error when nothing was
  /// changed.
  void restoreList(kept_lists::Which list, const std::string& bytes);
  /// Adds what the present list lacks of an earlier one. False, after a message, when nothing was
  /// changed.
  bool addMissingEntries(kept_lists::Which list, const std::string& bytes);
  struct Repair;
  /// Runs a step of the search for moved files in the background and then `next`, unless the
  /// command was given again. If the step cannot be started, the status line says so, and false is
  /// returned.
  bool nextStep(const std::shared_ptr<Repair>& repair, const std::function<void(Repair&)>& work,
                void (frmQMK::*next)(const std::shared_ptr<Repair>&));
  /// Asks what the other drives have, and then for a folder with the rest.
  void lookInFolder(const std::shared_ptr<Repair>& repair);
  void askAboutFound(const std::shared_ptr<Repair>& repair);
  /// Changes what the user has agreed to, in two steps.
  void changeMoved(const std::shared_ptr<Repair>& repair);
  void endRepair(const std::shared_ptr<Repair>& repair);
  /// Asks whether the entries follow the program's drive to its new letter.
  void askAboutDrive(const std::shared_ptr<Repair>& repair);
  void endSearch();
  /// Ends a search at the user's wish. False when there is none.
  bool stopSearch();
  /// Shows a dialog for choosing files. False when nothing was chosen; if the dialog failed, the
  /// status line says so.
  [[nodiscard]] bool chosen(const std::function<void()>& ask);
  void renameTo(int index, const controls::ItemKey& item, const std::wstring& name);
  void tellWhereItWent(const std::optional<std::wstring>& link);
  [[nodiscard]] controls::ListView& currentList();
  [[nodiscard]] const std::wstring& currentCaption() const;
  void renameCatalogueEntry();
  void deleteCatalogueEntry();
  /// The web shortcut dialog. A closed one is created anew, an open one is kept.
  frmWeb& webDialogForShowing();
  void createWebShortcut();
  void renameWebShortcut();
  void deleteWebShortcut();

  std::wstring news_;
  mainwindow::FileSearch search_;
  std::wstring searchFor_;
  /// Of the last search for moved files; those before it are given up.
  std::shared_ptr<bool> repairing_;
  int dpi_ = platform::designDpi;
  bool askingToExit_ = false;
  bool sessionWaits_ = false;  // the end of the session waits for that answer
  std::unique_ptr<frmWeb> frmWeb_;
  std::unique_ptr<frmAbout> frmAbout_;
  std::shared_ptr<frmEarlier> frmEarlier_;
};
