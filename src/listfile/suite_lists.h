// What the suite's two list files have in common besides their format.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "listfile/list_exchange.h"
#include "listfile/list_file.h"
#include "listfile/list_patch.h"
#include "platform/files.h"
#include "platform/run_time_error.h"

namespace modQMKGeneral {

/// Path of the temporary file that every rewrite of a list file uses.
[[nodiscard]] std::wstring temporaryPath();

/// Replaces the contents of one of the two list files by the result of `edit`, as
/// `list_file::rewrite` does. `patch`, if there is one, becomes what that has changed; it stays as
/// it is when the list was not replaced.
void rewriteList(const std::wstring& path, list_file::Missing missing,
                 const std::function<std::string(std::string)>& edit,
                 list_file::Patch* patch = nullptr);

/// The same whatever the file contains, as `list_file::overwrite` does.
void overwriteList(const std::wstring& path, const std::string& bytes,
                   list_file::Patch* patch = nullptr);

/// The same if the file is still in the state `expected`, as `list_file::replaceAll` does.
[[nodiscard]] platform::files::Replaced replaceList(const std::wstring& path,
                                                    const std::string& bytes,
                                                    const platform::files::Stamp& expected);

/// Shows `sentence`, a line break, and the error's number and description.
void showListFileProblem(const std::wstring& sentence, const platform::RunTimeError& failure);

/// Appends to the list file at `path` those records of another list, `bytes`, whose entry it does
/// not have yet, and then calls `reload`. A missing file is created. Errors of the file are trapped
/// and shown as "Problem saving to QMK list"; nothing is returned then.
std::optional<list_file::Merged> addRecords(const std::wstring& path, const std::string& bytes,
                                            const list_file::KeyOf& keyOf,
                                            const std::function<void()>& reload,
                                            list_file::Patch* patch = nullptr);

}  // namespace modQMKGeneral
