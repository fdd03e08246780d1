#include "harness/forms.h"

#include <commctrl.h>

#include <vector>

#include "harness/input.h"
#include "harness/remote_memory.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"

namespace harness {
namespace {

constexpr std::size_t longestTip = 2048;

constexpr const wchar_t* formClass = L"#32770";

/// The program's dialogs that have a control of that id, hidden ones too.
std::vector<HWND> formsWith(const GatewayApp& app, int id) {
  std::vector<HWND> forms = topWindows(app.processId());
  std::erase_if(forms, [id](HWND window) {
    return className(window) != formClass || child(window, id) == nullptr;
  });
  return forms;
}

FormReader waitForForm(const GatewayApp& app, const std::string& what, int id) {
  return FormReader(waitUntilFound(what, [&]() -> HWND {
    for (HWND const form : formsWith(app, id)) {
      if (IsWindowVisible(form) != FALSE) {
        return form;
      }
    }
    return nullptr;
  }));
}

/// Text that a tool tip window has for a control, "" when there is none.
std::wstring tipFrom(HWND tips, HWND control) {
  RemoteMemory memory(tips, sizeof(TTTOOLINFOW) + longestTip * sizeof(wchar_t));
  TTTOOLINFOW info{};
  info.cbSize = sizeof(info);
  info.hwnd = GetParent(control);
  info.uId = reinterpret_cast<UINT_PTR>(control);
  info.lpszText = static_cast<wchar_t*>(memory.address(sizeof(TTTOOLINFOW)));
  memory.put(info);
  send(tips, TTM_GETTEXTW, longestTip, memory.parameter());
  return memory.getText(longestTip, sizeof(TTTOOLINFOW));
}

}  // namespace

std::wstring FormReader::caption() const { return harness::text(form_); }

HWND FormReader::control(int id) const {
  HWND const found = child(form_, id);
  if (found == nullptr) {
    throw Failure("the dialog has no control " + std::to_string(id));
  }
  return found;
}

std::wstring FormReader::textOf(int id) const { return harness::text(control(id)); }

void FormReader::fill(int id, const std::wstring& text) const {
  send(control(id), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void FormReader::pushAndWait(int id) const {
  pushButton(form_, id);
  waitUntilGone();
}

void FormReader::pressAndWait(WORD key) const {
  bringToFront(form_);
  pressKey(key);
  waitUntilGone();
}

void FormReader::closeBox() const {
  post(form_, WM_SYSCOMMAND, SC_CLOSE);
  waitUntilGone();
}

bool FormReader::shown() const {
  return IsWindow(form_) != FALSE && IsWindowVisible(form_) != FALSE;
}

void FormReader::waitUntilGone() const {
  waitUntil("the dialog closes", [this] { return !shown(); });
}

std::wstring FormReader::toolTip(int id) const {
  HWND const labelled = control(id);
  moveTo(centreOf(screenRect(labelled)));
  return waitForToolTip(labelled);
}

std::wstring waitForToolTip(HWND labelled) {
  std::wstring tip;
  waitUntil("a tool tip comes up", [&] {
    for (HWND const window : topWindows(processOf(labelled))) {
      if (className(window) == TOOLTIPS_CLASSW && IsWindowVisible(window) != FALSE) {
        tip = tipFrom(window, labelled);
      }
    }
    return !tip.empty();
  });
  return tip;
}

FormReader waitForWebDialog(const GatewayApp& app) {
  return waitForForm(app, "the web shortcut dialog", ids::txtUrl);
}

FormReader waitForAboutBox(const GatewayApp& app) {
  return waitForForm(app, "the about box", ids::lblPath);
}

FormReader waitForEarlierLists(const GatewayApp& app) {
  return waitForForm(app, "the window with the earlier lists", ids::lstCopies);
}

std::size_t webDialogs(const GatewayApp& app) { return formsWith(app, ids::txtUrl).size(); }

std::size_t aboutBoxes(const GatewayApp& app) { return formsWith(app, ids::lblPath).size(); }

}  // namespace harness
