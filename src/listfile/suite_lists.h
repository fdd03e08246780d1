// What the suite's two list files have in common besides their form.
#pragma once

#include <string>

#include "platform/run_time_error.h"

namespace modQMKGeneral {

/// Path of the temporary file that every rewrite of a list file goes through.
[[nodiscard]] std::wstring TemporaryFile();

/// Shows `sentence`, a line break, and the error's number and description.
void ShowListFileProblem(const std::wstring& sentence, const platform::RunTimeError& failure);

}  // namespace modQMKGeneral
