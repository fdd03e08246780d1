// Runs the real program in an application folder and a user profile of the test's own.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "about/control_ids.h"
#include "earlier/control_ids.h"
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

/// What a stand-in tool recorded about one start.
struct ToolStart {
  std::wstring commandLine;
  std::wstring workingFolder;
  std::wstring showState;
  std::wstring errorMode;
};

/// Index of a tab and of its list.
enum Tab { tools = 0, open = 1, newFile = 2, web = 3 };

class GatewayApp {
 public:
  /// How the documents folder is named: by the drive's letter, or as part of a share. (Wine gives a
  /// program on a share a false path of itself, so the application folder is always local.)
  enum class Documents { local, onShare };

  /// Creates an application folder of that name with the program in it, an empty documents folder
  /// and empty settings.
  explicit GatewayApp(const std::wstring& folderName = L"Suite",
                      Documents documents = Documents::local);
  GatewayApp(const GatewayApp&) = delete;
  GatewayApp& operator=(const GatewayApp&) = delete;
  ~GatewayApp();

  // --- before the start ---

  /// Application folder without a trailing backslash.
  [[nodiscard]] const std::wstring& folder() const { return folder_; }
  /// Folder of the test, which contains the application folder.
  [[nodiscard]] const std::wstring& testFolder() const { return root_.path(); }
  [[nodiscard]] const std::wstring& documents() const { return documents_; }
  [[nodiscard]] std::wstring userFolder() const { return documents() + L"\\My QMKExtra3"; }
  [[nodiscard]] std::wstring shortCutsFolder() const { return userFolder() + L"\\ShortCuts"; }
  [[nodiscard]] std::wstring cataloguePath() const { return folder_ + L"\\QMKFileList3.txt"; }

  /// Copies the stand-in to the application folder under a tool's name.
  void addTool(const std::wstring& name) const;
  /// All six tools.
  void addAllTools() const;
  /// Creates a small file in the data folder and returns its full path.
  std::wstring addDataFile(const std::wstring& name) const;
  /// Creates a small file anywhere in the folder of the test and returns its full path.
  std::wstring addFileElsewhere(const std::wstring& relativePath) const;
  void writeCatalogue(const std::string& bytes) const;
  /// Bytes of the catalogue file, nothing when it does not exist.
  [[nodiscard]] std::optional<std::string> catalogue() const;
  /// Sets the setting which says that the example file has been catalogued already.
  static void skipExample() { TestProfile::setSetting(L"CWIExample", L"True"); }

  // --- running ---

  /// Starts the program and returns at once.
  void start();
  /// Waits for the splash window.
  HWND waitForSplash() const;
  [[nodiscard]] HWND splash() const;
  /// Waits until the main window is shown.
  HWND waitForMain();
  /// Starts the program, closes the splash with a click and waits until start-up has filled the
  /// lists.
  HWND startToMain();
  /// The same for a program that has been started already.
  HWND startToMainFromSplash();
  /// Waits until a start-up that has filled the lists is over.
  void waitForEndOfStart() const;
  [[nodiscard]] HWND main() const { return main_; }
  [[nodiscard]] DWORD processId() const { return process_->id(); }
  [[nodiscard]] const Process& process() const { return *process_; }
  /// Starts one more copy of the program.
  [[nodiscard]] std::unique_ptr<Process> startSecondCopy() const;

  [[nodiscard]] TabReader tabs() const;
  [[nodiscard]] ToolbarReader toolbar() const;
  [[nodiscard]] ListViewReader list(int index) const;
  [[nodiscard]] HWND browseButton() const;

  /// Clicks a tab and waits until its list is visible.
  void selectTab(int index) const;
  /// Double-clicks a row of list `index`, which must be the visible one.
  void doubleClickRow(int index, int row) const;
  /// Double-clicks the row with that text.
  void doubleClickRow(int index, const std::wstring& text) const;
  /// Chooses a menu command.
  void command(int id) const;

  /// Wait for the open dialog; of this program unless another process is named.
  [[nodiscard]] MessageBoxReader waitForMessage(DWORD process = 0) const;
  [[nodiscard]] InputBoxReader waitForInputBox() const;
  [[nodiscard]] FileDialogReader waitForFileDialog() const;
  /// Whether a dialog of the program is visible.
  [[nodiscard]] bool dialogShown() const;
  /// Texts of the program's open message boxes; none before the start.
  [[nodiscard]] std::vector<std::wstring> messagesShown() const;

  /// Closes the main window, answers Yes and waits for the end. Returns the exit code.
  DWORD close();
  /// Waits until the program has ended by itself. Returns the exit code.
  DWORD waitForExit() const;
  /// Kills the program and all tools.
  void kill();
  [[nodiscard]] bool running() const { return process_ != nullptr && process_->running(); }
  /// Whether the program has been started.
  [[nodiscard]] bool started() const { return process_ != nullptr; }

  // --- the tools ---

  [[nodiscard]] std::vector<ToolStart> toolStarts() const;
  /// Waits until there are `count` starts and returns the latest one. Raises `Failure` when there
  /// are more.
  [[nodiscard]] ToolStart waitForToolStart(std::size_t count = 1) const;

 private:
  [[nodiscard]] HWND waitForDialog(const std::string& what, bool (*isMeant)(HWND),
                                   DWORD process) const;
  TestFolder root_;
  std::wstring folder_;
  std::wstring documents_;
  TestProfile profile_;
  Job job_;
  std::unique_ptr<Process> process_;
  HWND main_ = nullptr;
};

}  // namespace harness
