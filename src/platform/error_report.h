// The text of the report of an error that no routine trapped.
#pragma once

#include <string>

#include "platform/run_time_error.h"

namespace platform {

/// `error.report()`. If the error comes from the program's own folder, and nobody may write there,
/// an empty line and what the user can do about that follow.
[[nodiscard]] std::wstring reportText(const RunTimeError& error);

}  // namespace platform
