#include <windows.h>

#include "platform/application.h"
#include "platform/dialogs.h"
#include "platform/error_report.h"
#include "platform/win32/modality.h"

namespace platform::dialogs {
namespace {

UINT flagsOf(MessageStyle style) {
  switch (style) {
    case MessageStyle::critical:
      return MB_OK | MB_ICONERROR;
    case MessageStyle::yesNoWarning:
      return MB_YESNO | MB_ICONWARNING;
    case MessageStyle::yesNoQuestion:
      return MB_YESNO | MB_ICONQUESTION;
    case MessageStyle::information:
      break;
  }
  return MB_OK;
}

}  // namespace

Answer showMessage(const std::wstring& text, MessageStyle style) {
  return showMessage(text, style, application::title);
}

Answer showMessage(const std::wstring& text, MessageStyle style, const std::wstring& title) {
  HWND owner = win32::dialogOwner();
  const win32::ModalScope modal(owner);
  const int button = MessageBoxW(owner, text.c_str(), title.c_str(), flagsOf(style));
  if (style == MessageStyle::information || style == MessageStyle::critical) return Answer::ok;
  // A message box that could not be shown must not count as "yes".
  return button == IDYES ? Answer::yes : Answer::no;
}

void reportRunTimeError(const RunTimeError& error) {
  showMessage(reportText(error), MessageStyle::critical);
}

}  // namespace platform::dialogs
