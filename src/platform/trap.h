// For the routines that deal with their errors themselves, whatever these are.
#pragma once

#include <new>
#include <optional>
#include <stdexcept>
#include <utility>

#include "platform/run_time_error.h"

namespace platform {

/// Runs `operation` and hands back the error that ended it; nothing when it came to its end.
/// Running out of memory is error 7.
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
