#include "listfile/suite_lists.h"

#include "platform/dialogs.h"
#include "startup/paths.h"

namespace modQMKGeneral {

std::wstring TemporaryFile() { return AppFolder() + L"\\qmklist.tmp"; }

void ShowListFileProblem(const std::wstring& sentence, const platform::RunTimeError& failure) {
  platform::dialogs::showMessage(sentence + L"\r" + failure.numberAndDescription());
}

}  // namespace modQMKGeneral
