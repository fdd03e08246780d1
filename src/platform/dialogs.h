// Message boxes, the input box and the system's file dialog. All of them are modal: they return
// when the user has answered.
#pragma once

#include <string>
#include <vector>

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

/// Shows a message under the title that the caller gives.
Answer showMessage(const std::wstring& text, MessageStyle style, const std::wstring& title);

/// Asks for a line of text. The edit line starts with `defaultAnswer`, selected. Returns "" when
/// the user cancels (Cancel, Esc or the close box).
[[nodiscard]] std::wstring inputBox(const std::wstring& prompt, const std::wstring& title,
                                    const std::wstring& defaultAnswer);

/// Shows the report of an error that no routine trapped, with the critical icon under the
/// application's title.
void reportRunTimeError(const RunTimeError& error);

/// What a file dialog starts with.
struct FileRequest {
  std::wstring initialFolder;
  std::wstring fileName;  ///< Preset; its path overrides `initialFolder`. May hold wildcards.
  std::wstring title;
  std::wstring filter;  ///< "label|pattern|label|pattern".
  int filterIndex = 1;  ///< Counts from 1.
};

/// Shows the open dialog and returns the full path that the user chose. The file need not exist.
/// The current folder of the program does not change. Raises `error::cancelled` when the user
/// cancels, and 32767 minus the extended dialog error when the dialog fails.
[[nodiscard]] std::wstring openFile(const FileRequest& request);

/// The same for any number of files.
[[nodiscard]] std::vector<std::wstring> openFiles(const FileRequest& request);

/// What the user chose in a save dialog.
struct SaveFileChoice {
  std::wstring path;    ///< Full, as typed: it may lack an extension, and may exist.
  int filterIndex = 1;  ///< Counts from 1.
};

/// Shows the save dialog. Asks nothing about a file that exists. Errors as with `openFile`.
[[nodiscard]] SaveFileChoice saveFile(const FileRequest& request);

/// Shows the dialog for choosing a folder and returns its full path. It begins in the folder that
/// was chosen last. Errors as with `openFile`, and `error::cannotCreateObject`.
[[nodiscard]] std::wstring chooseFolder(const std::wstring& title);

}  // namespace platform::dialogs
