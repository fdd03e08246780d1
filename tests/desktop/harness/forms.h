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
  /// Puts text into a field at once, in the place of what is there.
  void fill(int id, const std::wstring& text) const;
  /// Pushes a button that closes the dialog, and waits until it is gone.
  void pushAndWait(int id) const;
  /// Presses a key in the dialog that closes it, and waits until it is gone.
  void pressAndWait(WORD key) const;
  /// Closes the dialog by its close box and waits until it is gone.
  void closeBox() const;
  [[nodiscard]] bool shown() const;
  void waitUntilGone() const;
  /// Rests the pointer on a control: the whole text of the tip that comes up.
  [[nodiscard]] std::wstring toolTip(int id) const;

 private:
  HWND form_;
};

/// The web shortcut dialog, waited for.
[[nodiscard]] FormReader waitForWebDialog(const GatewayApp& app);
/// The about box, waited for.
[[nodiscard]] FormReader waitForAboutBox(const GatewayApp& app);
/// How many of them the program has, hidden ones too.
[[nodiscard]] std::size_t webDialogs(const GatewayApp& app);
[[nodiscard]] std::size_t aboutBoxes(const GatewayApp& app);

}  // namespace harness
