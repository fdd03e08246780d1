// The window that asks for a line of text.
#pragma once

#include <string>

#include "platform/controls/simple_controls.h"
#include "platform/controls/window.h"

namespace controls {

/// A prompt, an edit line and two buttons. It belongs to the window that is active when it is
/// loaded. Enter and OK give the text, everything else nothing.
class InputBox : public Window {
 public:
  InputBox(const std::wstring& prompt, const std::wstring& title,
           const std::wstring& defaultAnswer);

  Label prompt;
  TextBox edit;
  CommandButton ok;
  CommandButton cancel;

  /// What was confirmed, "" otherwise.
  [[nodiscard]] const std::wstring& answer() const { return answer_; }
  [[nodiscard]] platform::Size clientSize(int dpi) const override;

 protected:
  void layout(platform::Size client, int dpi) override;

 private:
  [[nodiscard]] int promptHeight(int dpi) const;
  std::wstring answer_;
};

}  // namespace controls
