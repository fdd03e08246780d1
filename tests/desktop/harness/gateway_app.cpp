#include "harness/gateway_app.h"

#include <commctrl.h>

#include "harness/input.h"
#include "harness/paths.h"
#include "harness/text.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"

namespace harness {
namespace {

constexpr const wchar_t* splashClass = L"frmSplash";
constexpr const wchar_t* mainClass = L"frmQMK";
constexpr const wchar_t* dialogClass = L"#32770";
constexpr int newFileItems = 4;

HWND required(HWND window, const char* what) {
  if (window == nullptr) {
    throw Failure(std::string("the main window has no ") + what);
  }
  return window;
}

}  // namespace

GatewayApp::GatewayApp(const std::wstring& folderName, Documents documents)
    : folder_(root_.path() + L"\\" + folderName),
      documents_((documents == Documents::onShare ? networkPath(root_.path()) : root_.path()) +
                 L"\\Documents"),
      profile_(documents_) {
  makeFolder(documents_);
  makeFolder(folder_ + L"\\data");
  copyFile(gatewayExecutable(), folder_ + L"\\gateway3.exe");
  // Tools record their start and end at once; a test that needs a tool to stay open changes this.
  SetEnvironmentVariableW(L"QMK_STANDIN_MS", L"0");
}

GatewayApp::~GatewayApp() { TerminateJobObject(job_.get(), 99); }

void GatewayApp::addTool(const std::wstring& name) const {
  copyFile(standInExecutable(), folder_ + L"\\" + name);
}

void GatewayApp::addAllTools() const {
  for (const wchar_t* name :
       {L"plv3.exe", L"brtpc3.exe", L"imgkeep3.exe", L"MDLHS3.EXE", L"CW3.EXE", L"unishift3.exe"}) {
    addTool(name);
  }
}

std::wstring GatewayApp::addDataFile(const std::wstring& name) const {
  std::wstring path = folder_ + L"\\data\\" + name;
  writeFile(path, "data\r\n");
  return path;
}

std::wstring GatewayApp::addFileElsewhere(const std::wstring& relativePath) const {
  std::wstring path = root_.path() + L"\\" + relativePath;
  makeFolder(path.substr(0, path.find_last_of(L'\\')));
  writeFile(path, "data\r\n");
  return path;
}

void GatewayApp::writeCatalogue(const std::string& bytes) const {
  writeFile(cataloguePath(), bytes);
}

std::optional<std::string> GatewayApp::catalogue() const { return readFile(cataloguePath()); }

void GatewayApp::start() {
  // The working folder is not the program's own folder, as when a shortcut or a document starts it.
  process_ = std::make_unique<Process>(folder_ + L"\\gateway3.exe", root_.path(), job_);
}

std::unique_ptr<Process> GatewayApp::startSecondCopy() const {
  return std::make_unique<Process>(folder_ + L"\\gateway3.exe", root_.path(), job_);
}

HWND GatewayApp::splash() const { return visibleWindow(process_->id(), splashClass); }

HWND GatewayApp::waitForSplash() const {
  return waitUntilFound("the splash window", [this] { return splash(); });
}

HWND GatewayApp::waitForMain() {
  main_ = waitUntilFound("the main window",
                         [this] { return visibleWindow(process_->id(), mainClass); });
  return main_;
}

HWND GatewayApp::startToMain() {
  start();
  return startToMainFromSplash();
}

HWND GatewayApp::startToMainFromSplash() {
  HWND const splashWindow = waitForSplash();
  clickAt(centreOf(screenRect(splashWindow)), splashWindow);
  waitForMain();
  waitUntil("start-up fills the lists", [this] {
    return list(Tab::newFile).count() == newFileItems && exists(cataloguePath());
  });
  waitForEndOfStart();
  return main_;
}

void GatewayApp::waitForEndOfStart() const { harness::waitForEndOfStart(main_); }

TabReader GatewayApp::tabs() const {
  return TabReader(required(child(main_, ids::TabMain), "tab control"));
}

ToolbarReader GatewayApp::toolbar() const {
  return ToolbarReader(required(child(main_, ids::barMain), "toolbar"));
}

ListViewReader GatewayApp::list(int index) const {
  return ListViewReader(required(child(main_, ids::lstQMK0 + index), "list"));
}

HWND GatewayApp::browseButton() const {
  return required(child(main_, ids::cmdBrowse), "browse button");
}

void GatewayApp::selectTab(int index) const {
  bringToFront(main_);
  const TabReader tab = tabs();
  if (tab.current() != index) {
    clickAt(centreOf(tab.tabOnScreen(index)), main_);
  }
  waitUntil("the tab comes to the front", [&] {
    return tab.current() == index && IsWindowVisible(list(index).window()) != FALSE;
  });
}

void GatewayApp::doubleClickRow(int index, int row) const {
  bringToFront(main_);
  const ListViewReader shown = list(index);
  shown.scrollIntoView(row);
  doubleClickAt(centreOf(shown.textOnScreen(row)), main_);
}

void GatewayApp::doubleClickRow(int index, const std::wstring& text) const {
  doubleClickRow(index,
                 *waitUntilFound("the row " + utf8(text), [&] { return list(index).find(text); }));
}

void GatewayApp::command(int id) const { post(main_, WM_COMMAND, static_cast<WPARAM>(id)); }

HWND GatewayApp::waitForDialog(const std::string& what, bool (*isMeant)(HWND),
                               DWORD process) const {
  const DWORD owner = process != 0 ? process : process_->id();
  return waitUntilFound(what, [owner, isMeant]() -> HWND {
    for (HWND const window : visibleWindows(owner)) {
      if (className(window) == dialogClass && IsWindowEnabled(window) != FALSE && isMeant(window)) {
        return window;
      }
    }
    return nullptr;
  });
}

MessageBoxReader GatewayApp::waitForMessage(DWORD process) const {
  return MessageBoxReader(waitForDialog("a message box", isMessageBox, process));
}

InputBoxReader GatewayApp::waitForInputBox() const {
  return InputBoxReader(waitForDialog("the input box", isInputBox, 0));
}

FileDialogReader GatewayApp::waitForFileDialog() const {
  return FileDialogReader(waitForDialog("the file dialog", isFileDialog, 0));
}

bool GatewayApp::dialogShown() const {
  return visibleWindow(process_->id(), dialogClass) != nullptr;
}

std::vector<std::wstring> GatewayApp::messagesShown() const {
  std::vector<std::wstring> texts;
  if (running()) {
    for (HWND const window : visibleWindows(process_->id())) {
      if (className(window) == dialogClass && isMessageBox(window)) {
        texts.push_back(MessageBoxReader(window).text());
      }
    }
  }
  return texts;
}

DWORD GatewayApp::close() {
  // The last key of a test would answer the question instead.
  waitForInput(main_);
  post(main_, WM_CLOSE);
  waitForMessage().answer(IDYES);
  return waitForExit();
}

DWORD GatewayApp::waitForExit() const {
  return *waitUntilFound("the end of the program", [this] { return process_->waitForExit(0); });
}

void GatewayApp::kill() { job_.end(); }

std::vector<ToolStart> GatewayApp::toolStarts() const {
  std::vector<ToolStart> starts;
  const std::wstring text = fromUtf8(readFile(folder_ + L"\\standin.log").value_or(""));
  std::size_t begin = 0;
  for (std::size_t end = text.find(L'\n'); end != std::wstring::npos;
       begin = end + 1, end = text.find(L'\n', begin)) {
    const std::wstring line = text.substr(begin, end - begin);
    const std::size_t first = line.find(L'\t');
    const std::size_t second = line.find(L'\t', first + 1);
    const std::size_t third = line.find(L'\t', second + 1);
    starts.push_back({line.substr(0, first), line.substr(first + 1, second - first - 1),
                      line.substr(second + 1, third - second - 1), line.substr(third + 1)});
  }
  return starts;
}

ToolStart GatewayApp::waitForToolStart(std::size_t count) const {
  waitUntil("start " + std::to_string(count) + " of a tool",
            [&] { return toolStarts().size() >= count; });
  const std::vector<ToolStart> starts = toolStarts();
  if (starts.size() != count) {
    throw Failure("a tool was started once too often: " + utf8(starts.back().commandLine));
  }
  return starts.back();
}

}  // namespace harness
