#include "windows/driven_gateway.h"

#include "harness/dialogs.h"
#include "harness/files.h"
#include "harness/link_file.h"
#include "harness/looks.h"
#include "harness/text.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"

namespace bench {

namespace {

std::wstring dataFileName(int n) {
  constexpr std::array extensions{L".fp3", L".bi3", L".bs3", L".cw3"};
  return L"plot " + std::to_wstring(n) + extensions.at(static_cast<std::size_t>(n) % 4);
}

HWND visibleWindow(const wchar_t* className) {
  HWND const window = FindWindowW(className, nullptr);
  return window != nullptr && IsWindowVisible(window) != 0 ? window : nullptr;
}

}  // namespace

DrivenGateway::DrivenGateway() { harness::GatewayApp::skipExample(); }

void DrivenGateway::addUsualData() const {
  app.addAllTools();
  for (int n = 0; n < usualDataFiles; ++n) {
    static_cast<void>(app.addDataFile(dataFileName(n)));
  }
  for (int n = ownShortcuts; n < usualShortcuts; ++n) {
    harness::LinkFile link;
    link.target = app.folder() + L"\\plv3.exe";
    link.workingFolder = app.folder();
    link.icon = link.target;
    harness::writeLink(app.shortCutsFolder() + L"\\Shortcut " + std::to_wstring(n) + L".lnk", link);
  }
  std::string web;
  for (int n = 0; n < usualWebEntries; ++n) {
    const std::string number = std::to_string(n);
    web.append("\"Entry ").append(number).append("\",\"http://www.example.com/page");
    web.append(number).append("\"\r\n");
  }
  harness::writeFile(app.folder() + L"\\QMKWebList.txt", web);
  resetCatalogue();
}

void DrivenGateway::resetCatalogue() const {
  std::string bytes;
  for (int n = 0; n + 1 < usualDataFiles; ++n) {
    const std::wstring name = dataFileName(n);
    bytes += harness::codePageBytes(L"\"" + name.substr(name.size() - 3) + L"\",\"" + app.folder() +
                                    L"\\data\\" + name + L"\",\"11/20/2026 9:15:00 AM\"\r\n");
  }
  placeCatalogue(bytes);
}

void DrivenGateway::placeCatalogue(const std::string& bytes) const {
  const std::wstring beside = app.cataloguePath() + L".beside";
  harness::writeFile(beside, bytes);
  if (MoveFileExW(beside.c_str(), app.cataloguePath().c_str(), MOVEFILE_REPLACE_EXISTING) == 0) {
    throw harness::Failure("the catalogue cannot be put in place");
  }
}

HWND DrivenGateway::splash() { return visibleWindow(L"frmSplash"); }

void DrivenGateway::findLists() {
  // The window exists before the splash does, but is hidden.
  main_ = FindWindowW(L"frmQMK", nullptr);
  for (int index = 0; index < static_cast<int>(lists_.size()); ++index) {
    HWND const found = main_ == nullptr ? nullptr : harness::child(main_, ids::lstQMK0 + index);
    if (found == nullptr) {
      throw harness::Failure("the main window lacks a list");
    }
    lists_.at(static_cast<std::size_t>(index)) = found;
  }
}

int DrivenGateway::count(int index) const {
  constexpr UINT getItemCount = 0x1004;  // LVM_GETITEMCOUNT
  return static_cast<int>(SendMessageW(list(index), getItemCount, 0, 0));
}

bool DrivenGateway::usuallyFilled() const {
  return IsWindowVisible(main_) != 0 && count(harness::Tab::open) == usualDataFiles &&
         count(harness::Tab::web) == usualWebEntries &&
         count(harness::Tab::tools) == usualShortcuts &&
         count(harness::Tab::newFile) == newFileItems;
}

void DrivenGateway::paint() const { harness::paint(main_); }

void DrivenGateway::tick() const { SendMessageW(main_, WM_TIMER, ids::tmrFileUpdate, 0); }

void DrivenGateway::startToOpenTab() {
  app.startToMain();
  findLists();
  app.selectTab(harness::Tab::open);
}

void DrivenGateway::stop() {
  app.kill();
  main_ = nullptr;
}

void refuseMessages() {
  for (HWND window = FindWindowW(L"#32770", nullptr); window != nullptr;
       window = FindWindowExW(nullptr, window, L"#32770", nullptr)) {
    if (IsWindowVisible(window) != FALSE && harness::isMessageBox(window)) {
      throw harness::Failure("the program says: " +
                             harness::utf8(harness::MessageBoxReader(window).text()));
    }
  }
}

}  // namespace bench
