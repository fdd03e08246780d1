// What assistive programs are told about a window.
#pragma once

#include <windows.h>

#include <string>

namespace harness {

/// What a screen reader says about a control.
struct Spoken {
  std::wstring name;
  long role = 0;  ///< ROLE_SYSTEM_... number.
};

/// Asks as a screen reader does. Raises `Failure` when the control does not answer.
[[nodiscard]] Spoken spokenOf(HWND control);

}  // namespace harness
