#include "listfile/suite_lists.h"

#include <utility>

#include "platform/dialogs.h"
#include "platform/trap.h"
#include "startup/paths.h"

namespace modQMKGeneral {

std::wstring temporaryPath() { return AppFolder() + L"\\qmklist.tmp"; }

void rewriteList(const std::wstring& path, list_file::Missing missing,
                 const std::function<std::string(std::string)>& edit) {
  list_file::rewrite(path, temporaryPath(), missing, edit);
}

void overwriteList(const std::wstring& path, const std::string& bytes) {
  list_file::overwrite(path, temporaryPath(), bytes);
}

platform::files::Replaced replaceList(const std::wstring& path, const std::string& bytes,
                                      const platform::files::Stamp& expected) {
  return list_file::replaceAll(path, temporaryPath(), bytes, expected);
}

void showListFileProblem(const std::wstring& sentence, const platform::RunTimeError& failure) {
  platform::dialogs::showMessage(sentence + L"\r" + failure.numberAndDescription());
}

std::optional<list_file::Merged> addRecords(const std::wstring& path, const std::string& bytes,
                                            const list_file::KeyOf& keyOf,
                                            const std::function<void()>& reload) {
  list_file::Merged merged;
  const auto failure = platform::trapped([&] {
    rewriteList(path, list_file::Missing::isEmpty, [&](std::string old) {
      merged = list_file::merged(std::move(old), bytes, keyOf);
      return std::move(merged.content);
    });
  });
  if (failure) {
    showListFileProblem(L"Problem saving to QMK list", *failure);
    return std::nullopt;
  }
  reload();
  return merged;
}

}  // namespace modQMKGeneral
