// What tests say about operations that raise.
#pragma once

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
