// The common dialog of a window: open a file, show classic help.
#pragma once

#include <functional>
#include <string>

namespace controls {

/// Properties that are set one by one before the dialog is shown, and its actions.
class CommonDialog {
 public:
  std::wstring initDir;
  std::wstring fileName;  ///< Preset before, full path after `showOpen`.
  bool cancelError = false;
  std::wstring dialogTitle;
  std::wstring filter;
  int filterIndex = 1;
  std::wstring helpFile;
  int helpCommand = 0;

  /// Shows the open dialog and stores the chosen path in `fileName`. Raises `error::cancelled` when
  /// the user cancels and `cancelError` is set; without it the preset stays. Raises the dialog's
  /// own errors in any case.
  void showOpen();
  /// Opens `helpFile` with `helpCommand` in the classic help viewer. `refused` is called later if
  /// the system has no such viewer any more.
  void showHelp(std::function<void()> refused) const;
};

}  // namespace controls
