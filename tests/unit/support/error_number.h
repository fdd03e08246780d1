// What tests say about operations that raise.
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

/// File or folder that the run-time error of `operation` names, "no error" when it raises none.
template <class Operation>
[[nodiscard]] std::wstring pathNamedBy(Operation operation) {
  try {
    operation();
  } catch (const platform::RunTimeError& failure) {
    return failure.path();
  }
  return L"no error";
}
