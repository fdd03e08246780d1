// The real program in an application folder and a user profile of a test's own.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "about/control_ids.h"
#include "harness/bars.h"
#include "harness/dialogs.h"
#include "harness/files.h"
#include "harness/list_view.h"
#include "harness/process.h"
#include "harness/profile.h"
#include "mainwindow/control_ids.h"
#include "platform/controls/input_box_ids.h"
#include "startup/control_ids.h"
#include "web/control_ids.h"

namespace harness {

/// What a stand-in wrote down about one start.
struct ToolStart {
  std::wstring commandLine;
  std::wstring workingFolder;
  std::wstring showState;
};

/// Index of a tab and of its list.
enum Tab { tools = 0, open = 1, newFile = 2, web = 3 };

class GatewayApp {
 public:
  /// Lays out an application folder of that name with the program in it, an empty documents folder
  /// and empty settings.
  explicit GatewayApp(const std::wstring& folderName = L"Suite");
  GatewayApp(const GatewayApp&) = delete;
  GatewayApp& operator=(const GatewayApp&) = delete;
  ~GatewayApp();

  // --- before the start ---

  /// Application folder without a trailing backslash.
  [[nodiscard]] const std::wstring& folder() const { return folder_; }
  /// Folder of the test, in which the application folder lies.
  [[nodiscard]] const std::wstring& testFolder() const { return root_.path(); }
  [[nodiscard]] std::wstring documents() const { return root_.path() + L"\\Documents"; }
  [[nodiscard]] std::wstring userFolder() const { return documents() + L"\\My QMKExtra3"; }
  [[nodiscard]] std::wstring shortCutsFolder() const { return userFolder() + L"\\ShortCuts"; }
  [[nodiscard]] std::wstring cataloguePath() const { return folder_ + L"\\QMKFileList3.txt"; }

  /// Puts the stand-in into the application folder under a tool's name.
  void addTool(const std::wstring& name) const;
  /// All six tools.
  void addAllTools() const;
  /// Makes a small file in the data folder and gives its full path.
  std::wstring addDataFile(const std::wstring& name) const;
  /// Makes a small file anywhere in the folder of the test; gives its full path.
  std::wstring addFileElsewhere(const std::wstring& relativePath) const;
  void writeCatalogue(const std::string& bytes) const;
  /// Bytes of the catalogue file, nothing while there is none.
  [[nodiscard]] std::optional<std::string> catalogue() const;
  /// Tells the program that its example file has been catalogued before.
  static void skipExample() { TestProfile::setSetting(L"CWIExample", L"True"); }

  // --- running ---

  /// Starts the program and returns at once.
  void start();
  /// The splash window, waited for.
  HWND waitForSplash() const;
  [[nodiscard]] HWND splash() const;
  /// The main window, waited for until it is shown.
  HWND waitForMain();
  /// Starts, clicks the splash away and waits until start-up has filled the lists.
  HWND startToMain();
  /// The rest of that, for a program that has been started.
  HWND startToMainFromSplash();
  [[nodiscard]] HWND main() const { return main_; }
  [[nodiscard]] DWORD processId() const { return process_->id(); }
  [[nodiscard]] const Process& process() const { return *process_; }
  /// Starts one more copy of the program.
  [[nodiscard]] std::unique_ptr<Process> startSecondCopy() const;

  [[nodiscard]] TabReader tabs() const;
  [[nodiscard]] ToolbarReader toolbar() const;
  [[nodiscard]] ListViewReader list(int index) const;
  [[nodiscard]] HWND browseButton() const;

  /// Clicks a tab and waits until its list is shown.
  void selectTab(int index) const;
  /// Double-clicks a row of list `index`, which has to be in front.
  void doubleClickRow(int index, int row) const;
  /// Double-clicks the row with that text.
  void doubleClickRow(int index, const std::wstring& text) const;
  /// Chooses a menu command.
  void command(int id) const;

  /// The dialog that is up, waited for; of this process unless another one is named.
  [[nodiscard]] MessageBoxReader waitForMessage(DWORD process = 0) const;
  [[nodiscard]] InputBoxReader waitForInputBox() const;
  [[nodiscard]] FileDialogReader waitForFileDialog() const;
  /// Whether a dialog of the program is on the screen.
  [[nodiscard]] bool dialogShown() const;
  /// Texts of the program's message boxes that are on the screen; none before the start.
  [[nodiscard]] std::vector<std::wstring> messagesShown() const;

  /// Closes the main window, answers Yes and waits for the end; the exit code.
  DWORD close();
  /// Waits until the program has ended by itself; the exit code.
  DWORD waitForExit() const;
  /// Ends the program and all tools at once, whatever they are doing.
  void kill();
  [[nodiscard]] bool running() const { return process_ != nullptr && process_->running(); }
  /// Whether `close` or `waitForExit` has seen the end.
  [[nodiscard]] bool started() const { return process_ != nullptr; }

  // --- the tools ---

  [[nodiscard]] std::vector<ToolStart> toolStarts() const;
  /// The latest of `count` starts, waited for; raises `Failure` when there are more.
  [[nodiscard]] ToolStart waitForToolStart(std::size_t count = 1) const;

 private:
  [[nodiscard]] HWND waitForDialog(const std::string& what, bool (*isMeant)(HWND),
                                   DWORD process) const;
  TestFolder root_;
  std::wstring folder_;
  TestProfile profile_;
  Job job_;
  std::unique_ptr<Process> process_;
  HWND main_ = nullptr;
};

}  // namespace harness
