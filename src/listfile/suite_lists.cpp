#include "listfile/suite_lists.h"

#include "platform/dialogs.h"
#include "startup/paths.h"

namespace modQMKGeneral {

std::wstring temporaryPath() { return AppFolder() + L"\\qmklist.tmp"; }

void showListFileProblem(const std::wstring& sentence, const platform::RunTimeError& failure) {
  platform::dialogs::showMessage(sentence + L"\r" + failure.numberAndDescription());
}

}  // namespace modQMKGeneral
