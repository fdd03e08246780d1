// Checks of operations that raise errors.
#pragma once

#include <string>

#include "platform/run_time_error.h"

/// Number of the run-time error that `operation` raises, 0 when it raises none.
template <class Operation>
[[nodiscard]] int errorNumberOf(Operation operation) {
  try {
    operation();
  } catch (const platform::RunTimeError& failure) {
    return failure.number();
  }
  return 0;
}

/// Path of the file or folder in the run-time error of `operation`, "no error" when it raises none.
template <class Operation>
[[nodiscard]] std::wstring pathNamedBy(Operation operation) {
  try {
    operation();
  } catch (const platform::RunTimeError& failure) {
    return failure.path();
  }
  return L"no error";
}
