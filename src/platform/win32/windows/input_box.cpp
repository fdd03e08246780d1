#include "platform/controls/input_box.h"

#include "platform/dialogs.h"

namespace platform::dialogs {

std::wstring inputBox(const std::wstring& prompt, const std::wstring& title,
                      const std::wstring& defaultAnswer) {
  controls::InputBox box(prompt, title, defaultAnswer);
  box.showModal();
  return box.answer();
}

}  // namespace platform::dialogs
