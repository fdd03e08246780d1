// Message boxes, the input box and the system's file dialog. All of them are modal: they return
// when the user has answered.
#pragma once

#include <string>

#include "platform/run_time_error.h"

namespace platform::dialogs {

/// Buttons and icon of a message box.
enum class MessageStyle {
  information,    ///< OK, no icon.
  critical,       ///< OK, the critical-stop icon.
  yesNoWarning,   ///< Yes and No, the exclamation icon.
  yesNoQuestion,  ///< Yes and No, the question icon.
};

/// The button that closed a message box.
enum class Answer { ok, yes, no };

/// Shows a message under the application's title. A lone carriage return breaks the line.
Answer showMessage(const std::wstring& text, MessageStyle style = MessageStyle::information);

/// Shows a message under a title of the caller's.
Answer showMessage(const std::wstring& text, MessageStyle style, const std::wstring& title);

/// Asks for a line of text; `defaultAnswer` stands in the edit line, selected. "" stands for
/// Cancel, Esc and the close box.
[[nodiscard]] std::wstring inputBox(const std::wstring& prompt, const std::wstring& title,
                                    const std::wstring& defaultAnswer);

/// Tells the user of an error that no routine trapped: its report, with the critical icon under
/// the application's title.
void reportRunTimeError(const RunTimeError& error);

/// What an open dialog starts with.
struct OpenFileRequest {
  std::wstring initialFolder;
  std::wstring fileName;  ///< Preset; a path inside it wins over the folder. May hold wildcards.
  std::wstring title;
  std::wstring filter;  ///< "label|pattern|label|pattern".
  int filterIndex = 1;  ///< Counts from 1.
};

/// Shows the open dialog; the result is the full path that was chosen. The file need not exist,
/// and the current folder of the program stays what it was. Raises 32755 when the user cancels,
/// 32767 minus the extended dialog error when the dialog fails.
[[nodiscard]] std::wstring openFile(const OpenFileRequest& request);

}  // namespace platform::dialogs
