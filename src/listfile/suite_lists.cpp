#include "listfile/suite_lists.h"

#include <utility>

#include "listfile/list_keeper.h"
#include "platform/dialogs.h"
#include "platform/trap.h"
#include "startup/paths.h"

namespace modQMKGeneral {

std::wstring temporaryPath() { return list_file::temporaryBeside(AppFolder() + L"\\"); }

void rewriteList(const std::wstring& path, list_file::Missing missing,
                 const std::function<std::string(std::string)>& edit, list_file::Patch* patch) {
  KeptChange change(path);
  std::size_t size = 0;
  list_file::Patch made;
  list_file::rewrite(path, temporaryPath(), missing, [&](std::string old) {
    change.replaces(old);
    const std::string before = patch == nullptr ? std::string() : old;
    std::string bytes = edit(std::move(old));
    if (patch != nullptr) {
      made = list_file::Patch(before, bytes);
    }
    size = bytes.size();
    return bytes;
  });
  change.done(size);
  if (patch != nullptr) {
    *patch = std::move(made);
  }
}

void overwriteList(const std::wstring& path, const std::string& bytes, list_file::Patch* patch) {
  KeptChange change(path);
  list_file::Patch made;
  list_file::overwrite(path, temporaryPath(), bytes, [&](const std::string& old) {
    change.replaces(old);
    if (patch != nullptr) {
      made = list_file::Patch(old, bytes);
    }
  });
  change.done(bytes.size());
  if (patch != nullptr) {
    *patch = std::move(made);
  }
}

platform::files::Replaced replaceList(const std::wstring& path, const std::string& bytes,
                                      const platform::files::Stamp& expected) {
  KeptChange change(path);
  change.replaces(expected.size);
  const platform::files::Replaced replaced =
      list_file::replaceAll(path, temporaryPath(), bytes, expected);
  if (replaced == platform::files::Replaced::yes) {
    change.done(bytes.size());
  }
  return replaced;
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
