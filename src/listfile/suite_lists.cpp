#include "listfile/suite_lists.h"

#include <utility>

#include "platform/dialogs.h"
#include "platform/trap.h"
#include "startup/paths.h"

namespace modQMKGeneral {

std::wstring temporaryPath() { return AppFolder() + L"\\qmklist.tmp"; }

void rewriteList(const std::wstring& path, list_file::Missing missing,
                 const std::function<std::string(std::string)>& edit, list_file::Patch* patch) {
  list_file::rewrite(path, temporaryPath(), missing, [&edit, patch](std::string old) {
    if (patch == nullptr) {
      return edit(std::move(old));
    }
    const std::string before = old;
    std::string after = edit(std::move(old));
    *patch = list_file::Patch(before, after);
    return after;
  });
}

void overwriteList(const std::wstring& path, const std::string& bytes, list_file::Patch* patch) {
  const std::string old = list_file::overwrite(path, temporaryPath(), bytes);
  if (patch != nullptr) {
    *patch = list_file::Patch(old, bytes);
  }
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
                                            const std::function<void()>& reload,
                                            list_file::Patch* patch) {
  list_file::Merged merged;
  const auto failure = platform::trapped([&] {
    rewriteList(
        path, list_file::Missing::isEmpty,
        [&](std::string old) {
          merged = list_file::merged(std::move(old), bytes, keyOf);
          return std::move(merged.content);
        },
        patch);
  });
  if (failure) {
    showListFileProblem(L"Problem saving to QMK list", *failure);
    return std::nullopt;
  }
  reload();
  return merged;
}

}  // namespace modQMKGeneral
