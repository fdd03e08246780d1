#include "platform/error_report.h"

#include "platform/application.h"
#include "platform/files.h"

namespace platform {

std::wstring reportText(const RunTimeError& error) {
  const std::wstring folder = application::folder();
  std::wstring text = error.report();
  // The lists are beside the program, so this happens at every start, for example in Program Files.
  if (error.number() == error::pathFileAccess && error.path().starts_with(folder + L"\\") &&
      !files::mayWriteTo(folder)) {
    text +=
        L"\r\n\r\nThe program may not write to its own folder:\r\n\r\n" + folder +
        L"\r\n\r\nAsk for the right to change files in this folder, or install the program in a "
        L"folder of your own.";
  }
  return text;
}

}  // namespace platform
