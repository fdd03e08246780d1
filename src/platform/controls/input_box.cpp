#include "platform/controls/input_box.h"

#include "platform/controls/input_box_ids.h"
#include "platform/windows.h"

namespace controls {

using platform::scaled;

namespace {

// Sizes at 96 dpi.
constexpr int width = 360;
constexpr int edge = 12;
constexpr int promptGap = 10;
constexpr int editHeight = 23;
constexpr platform::Size button{80, 25};
constexpr int buttonGap = 8;

}  // namespace

InputBox::InputBox(const std::wstring& promptText, const std::wstring& title,
                   const std::wstring& defaultAnswer)
    : Window(L"InputBox", WindowKind::dialog),
      prompt(L"prompt", ids::inputPrompt),
      edit(L"edit", ids::inputEdit),
      ok(L"ok", ids::inputOK),
      cancel(L"cancel", ids::inputCancel) {
  setOwned();
  setCaption(title);
  // The prompt stands before the edit line, which makes it the line's name to screen readers.
  prompt.setCaption(promptText);
  edit.setText(defaultAnswer);
  ok.setCaption(L"OK");
  ok.isDefault = true;
  ok.onClick = [this] {
    answer_ = edit.text();
    unload();
  };
  cancel.setCaption(L"Cancel");
  cancel.isCancel = true;
  cancel.onClick = [this] { unload(); };
  add(prompt);
  add(edit);
  add(ok);
  add(cancel);
}

int InputBox::promptHeight(int dpi) const {
  const std::wstring& text = prompt.caption().empty() ? L" " : prompt.caption();
  return platform::windows::textHeight(text, prompt.font(),
                                       scaled(width, dpi) - 2 * scaled(edge, dpi), dpi);
}

platform::Size InputBox::clientSize(int dpi) const {
  return {scaled(width, dpi), 3 * scaled(edge, dpi) + promptHeight(dpi) + scaled(promptGap, dpi) +
                                  scaled(editHeight, dpi) + scaled(button.height, dpi)};
}

void InputBox::layout(platform::Size client, int dpi) {
  const auto at = [dpi](int length) { return scaled(length, dpi); };
  const int inner = client.width - 2 * at(edge);
  prompt.setBounds({at(edge), at(edge), inner, promptHeight(dpi)});
  edit.setBounds({at(edge), prompt.bounds().bottom() + at(promptGap), inner, at(editHeight)});
  const int top = edit.bounds().bottom() + at(edge);
  const int cancelLeft = client.width - at(edge) - at(button.width);
  ok.setBounds(
      {cancelLeft - at(buttonGap) - at(button.width), top, at(button.width), at(button.height)});
  cancel.setBounds({cancelLeft, top, at(button.width), at(button.height)});
}

}  // namespace controls
