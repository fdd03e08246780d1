// Pictures of the screen, for people to look at.
#pragma once

#include <windows.h>

#include <string>

namespace harness {

/// Writes a part of the screen to a PNG file. Raises `Failure`.
void takePicture(const RECT& place, const std::wstring& file);

/// The place of a window, without the invisible border that newer systems add for the mouse.
[[nodiscard]] RECT visibleFrame(HWND window);

/// All screens together.
[[nodiscard]] RECT allScreens();

}  // namespace harness
