// What assistive programs read from a window.
#pragma once

#include <windows.h>

#include <string>

namespace harness {

/// What a screen reader reads from a control.
struct Spoken {
  std::wstring name;
  long role = 0;  ///< ROLE_SYSTEM_... number.
};

/// Queries the control like a screen reader does. Raises `Failure` when the control does not
/// answer.
[[nodiscard]] Spoken spokenOf(HWND control);

}  // namespace harness
