// For routines that handle their errors themselves, whatever these are.
#pragma once

#include <new>
#include <optional>
#include <stdexcept>
#include <utility>

#include "platform/run_time_error.h"

namespace platform {

/// Runs `operation` and returns the error that ended it; nothing when it ran to its end. Running
/// out of memory becomes `error::outOfMemory`.
template <class Operation>
[[nodiscard]] std::optional<RunTimeError> trapped(const Operation& operation) {
  try {
    operation();
    return std::nullopt;
  } catch (RunTimeError& failure) {
    return std::move(failure);
  } catch (const std::bad_alloc&) {
    return RunTimeError(error::outOfMemory);
  } catch (const std::length_error&) {
    return RunTimeError(error::outOfMemory);
  }
}

}  // namespace platform
