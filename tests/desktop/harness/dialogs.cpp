#include "harness/dialogs.h"

#include <commdlg.h>
#include <dlgs.h>

#include <algorithm>

#include "harness/bars.h"
#include "harness/input.h"
#include "harness/remote_memory.h"
#include "harness/text.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"
#include "platform/controls/input_box_ids.h"

namespace harness {
namespace {

constexpr int messageTextId = 0xFFFF;

void waitUntilGone(HWND window) {
  waitUntil("the dialog closes",
            [window] { return IsWindow(window) == FALSE || IsWindowVisible(window) == FALSE; });
}

void push(HWND dialog, int id) {
  pushButton(dialog, id);
  waitUntilGone(dialog);
}

HWND messageIcon(HWND box) {
  for (HWND const candidate : children(box)) {
    if (className(candidate) == L"Static" &&
        (GetWindowLongPtrW(candidate, GWL_STYLE) & SS_TYPEMASK) == SS_ICON &&
        IsWindowVisible(candidate) != FALSE) {
      return candidate;
    }
  }
  return nullptr;
}

HWND messageText(HWND box) {
  for (HWND const candidate : children(box)) {
    if (className(candidate) == L"Static" &&
        static_cast<WORD>(GetDlgCtrlID(candidate)) == messageTextId) {
      return candidate;
    }
  }
  return nullptr;
}

}  // namespace

std::wstring MessageBoxReader::title() const { return harness::text(box_); }

std::wstring MessageBoxReader::text() const {
  read_ = true;
  HWND const label = messageText(box_);
  return label != nullptr ? harness::text(label) : std::wstring();
}

int MessageBoxReader::icon() const {
  HWND const picture = messageIcon(box_);
  return picture != nullptr ? systemIconOf(picture) : 0;
}

std::vector<int> MessageBoxReader::buttons() const {
  std::vector<HWND> found;
  for (HWND const candidate : children(box_)) {
    if (className(candidate) == L"Button" && IsWindowVisible(candidate) != FALSE) {
      found.push_back(candidate);
    }
  }
  std::sort(found.begin(), found.end(),
            [](HWND one, HWND other) { return screenRect(one).left < screenRect(other).left; });
  std::vector<int> ids;
  std::transform(found.begin(), found.end(), std::back_inserter(ids), GetDlgCtrlID);
  return ids;
}

void MessageBoxReader::answer(int button) const {
  const bool expected = read_;
  if (const std::wstring shown = text(); !expected && shown.starts_with(L"Run-time error '")) {
    throw Failure("the test did not expect this report: " + utf8(shown));
  }
  push(box_, button);
}

std::wstring InputBoxReader::title() const { return text(box_); }

std::wstring InputBoxReader::prompt() const { return text(child(box_, ids::inputPrompt)); }

std::wstring InputBoxReader::answer() const { return text(child(box_, ids::inputEdit)); }

std::pair<int, int> InputBoxReader::selection() const {
  const LRESULT range = send(child(box_, ids::inputEdit), EM_GETSEL);
  return {LOWORD(range), HIWORD(range)};
}

void InputBoxReader::type(const std::wstring& text) const {
  send(child(box_, ids::inputEdit), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

void InputBoxReader::ok() const { push(box_, IDOK); }
void InputBoxReader::cancel() const { push(box_, IDCANCEL); }

HWND FileDialogReader::nameLine() const {
  // An edit box, or a combo box with an edit box in it.
  HWND line = child(dialog_, edt1, L"Edit");
  if (line == nullptr) {
    for (HWND const combo : children(dialog_)) {
      if (GetDlgCtrlID(combo) == cmb13) {
        for (HWND const inner : children(combo)) {
          if (className(inner) == L"Edit") {
            line = inner;
          }
        }
      }
    }
  }
  if (line == nullptr) {
    throw Failure("the file dialog has no line for the name");
  }
  return line;
}

std::wstring FileDialogReader::title() const { return text(dialog_); }
std::wstring FileDialogReader::fileName() const { return text(nameLine()); }

std::wstring FileDialogReader::folder() const {
  constexpr std::size_t longestPath = 1024;
  RemoteMemory memory(dialog_, longestPath * sizeof(wchar_t));
  send(dialog_, CDM_GETFOLDERPATH, longestPath, memory.parameter());
  return memory.getText(longestPath);
}

std::vector<std::wstring> FileDialogReader::filters() const {
  HWND const combo = child(dialog_, cmb1);
  std::vector<std::wstring> labels;
  const auto count = static_cast<int>(send(combo, CB_GETCOUNT));
  for (int index = 0; index < count; ++index) {
    const auto length =
        static_cast<std::size_t>(send(combo, CB_GETLBTEXTLEN, static_cast<WPARAM>(index)));
    std::wstring label(length + 1, L'\0');
    send(combo, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(label.data()));
    label.resize(length);
    labels.push_back(label);
  }
  return labels;
}

int FileDialogReader::chosenFilter() const {
  return static_cast<int>(send(child(dialog_, cmb1), CB_GETCURSEL));
}

void FileDialogReader::open(const std::wstring& name) const {
  send(nameLine(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(name.c_str()));
  push(dialog_, IDOK);
}

void FileDialogReader::cancel() const { push(dialog_, IDCANCEL); }

bool isInputBox(HWND dialog) { return child(dialog, ids::inputEdit) != nullptr; }

bool isFileDialog(HWND dialog) { return child(dialog, cmb1, L"ComboBox") != nullptr; }

bool isMessageBox(HWND dialog) {
  return !isInputBox(dialog) && !isFileDialog(dialog) && messageText(dialog) != nullptr;
}

}  // namespace harness
