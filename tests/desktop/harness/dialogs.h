// Message boxes, the input box and the file dialog of the driven program.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace harness {

/// A message box on the screen.
class MessageBoxReader {
 public:
  explicit MessageBoxReader(HWND box) : box_(box) {}
  [[nodiscard]] HWND window() const { return box_; }
  [[nodiscard]] std::wstring title() const;
  [[nodiscard]] std::wstring text() const;
  /// Number of the system icon it shows: 32513 critical, 32514 question, 32515 exclamation, 0 none.
  [[nodiscard]] int icon() const;
  /// Ids of its buttons from left to right: 1 OK, 6 Yes, 7 No.
  [[nodiscard]] std::vector<int> buttons() const;
  /// Presses a button and waits until the box is closed. Raises `Failure` for an error report whose
  /// text was not read, because the test did not expect it.
  void answer(int button) const;

 private:
  HWND box_;
  mutable bool read_ = false;
};

/// The input box on the screen.
class InputBoxReader {
 public:
  explicit InputBoxReader(HWND box) : box_(box) {}
  [[nodiscard]] HWND window() const { return box_; }
  [[nodiscard]] std::wstring title() const;
  [[nodiscard]] std::wstring prompt() const;
  [[nodiscard]] std::wstring answer() const;
  /// Selected part of the edit line, as first and one-past-last character.
  [[nodiscard]] std::pair<int, int> selection() const;
  void type(const std::wstring& text) const;
  /// Presses OK or Cancel and waits until the box is closed.
  void ok() const;
  void cancel() const;

 private:
  HWND box_;
};

/// The system's dialog for opening a file.
class FileDialogReader {
 public:
  explicit FileDialogReader(HWND dialog) : dialog_(dialog) {}
  [[nodiscard]] HWND window() const { return dialog_; }
  [[nodiscard]] std::wstring title() const;
  /// Text of the file name line.
  [[nodiscard]] std::wstring fileName() const;
  /// The folder that is shown.
  [[nodiscard]] std::wstring folder() const;
  /// Labels of the filters, in their order, and the chosen one.
  [[nodiscard]] std::vector<std::wstring> filters() const;
  [[nodiscard]] int chosenFilter() const;
  /// Types a name, presses the open button and waits until the dialog is gone.
  void open(const std::wstring& name) const;
  void cancel() const;

 private:
  [[nodiscard]] HWND nameLine() const;
  HWND dialog_;
};

/// Whether a dialog is a message box: a text and buttons, nothing to fill in.
[[nodiscard]] bool isMessageBox(HWND dialog);
[[nodiscard]] bool isInputBox(HWND dialog);
[[nodiscard]] bool isFileDialog(HWND dialog);

}  // namespace harness
