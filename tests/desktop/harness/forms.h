// The program's own modeless dialogs: the web shortcut dialog and the about box.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

#include "harness/gateway_app.h"

namespace harness {

/// A modeless dialog on the screen.
class FormReader {
 public:
  explicit FormReader(HWND form) : form_(form) {}
  [[nodiscard]] HWND window() const { return form_; }
  [[nodiscard]] std::wstring caption() const;
  /// A control of the dialog; raises `Failure` when there is none.
  [[nodiscard]] HWND control(int id) const;
  [[nodiscard]] std::wstring textOf(int id) const;
  /// Sets the text of a field directly.
  void fill(int id, const std::wstring& text) const;
  /// Presses a button that closes the dialog, and waits until it is closed.
  void pushAndWait(int id) const;
  /// Presses a key that closes the dialog, and waits until it is closed.
  void pressAndWait(WORD key) const;
  /// Closes the dialog by its close box and waits until it is gone.
  void closeBox() const;
  [[nodiscard]] bool shown() const;
  void waitUntilGone() const;
  /// Rests the pointer on a control and returns the whole text of the tool tip that appears.
  [[nodiscard]] std::wstring toolTip(int id) const;

 private:
  HWND form_;
};

/// Waits for the tool tip of a control under the pointer, and returns its whole text.
[[nodiscard]] std::wstring waitForToolTip(HWND labelled);

/// Waits for the web shortcut dialog.
[[nodiscard]] FormReader waitForWebDialog(const GatewayApp& app);
/// Waits for the about box.
[[nodiscard]] FormReader waitForAboutBox(const GatewayApp& app);
/// Waits for the window with the earlier lists.
[[nodiscard]] FormReader waitForEarlierLists(const GatewayApp& app);
/// How many of them the program has, hidden ones too.
[[nodiscard]] std::size_t webDialogs(const GatewayApp& app);
[[nodiscard]] std::size_t aboutBoxes(const GatewayApp& app);

}  // namespace harness
