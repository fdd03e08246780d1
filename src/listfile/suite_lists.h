// What the suite's two list files have in common besides their format.
#pragma once

#include <string>

#include "platform/run_time_error.h"

namespace modQMKGeneral {

/// Path of the temporary file that every rewrite of a list file uses.
[[nodiscard]] std::wstring temporaryPath();

/// Shows `sentence`, a line break, and the error's number and description.
void showListFileProblem(const std::wstring& sentence, const platform::RunTimeError& failure);

}  // namespace modQMKGeneral
