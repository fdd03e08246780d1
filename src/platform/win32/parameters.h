// Conversions between the numbers in messages and what they stand for.
#pragma once

#include <windows.h>
// Needs <windows.h> first.
#include <bit>
#include <string>

namespace platform::win32 {

/// The object to which a message's LPARAM points.
template <class T>
[[nodiscard]] T* pointerFrom(LPARAM parameter) {
  return std::bit_cast<T*>(parameter);
}

/// The window whose handle a message carries.
[[nodiscard]] inline HWND windowFrom(LPARAM parameter) { return std::bit_cast<HWND>(parameter); }

[[nodiscard]] inline LPARAM parameterFrom(const void* pointer) {
  return std::bit_cast<LPARAM>(pointer);
}

[[nodiscard]] inline WPARAM firstParameterFrom(const void* pointer) {
  return std::bit_cast<WPARAM>(pointer);
}

/// A control id as the menu handle, for the creation of a child window.
[[nodiscard]] inline HMENU menuFromId(int id) {
  return std::bit_cast<HMENU>(static_cast<INT_PTR>(id));
}

/// Name of a resource that is identified by a number.
[[nodiscard]] inline const wchar_t* nameFromNumber(WORD number) {
  return std::bit_cast<const wchar_t*>(static_cast<ULONG_PTR>(number));
}

/// The text of a window.
[[nodiscard]] inline std::wstring windowText(HWND window) {
  std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
  if (!text.empty()) {
    const int copied = GetWindowTextW(window, text.data(), static_cast<int>(text.size()) + 1);
    text.resize(static_cast<std::size_t>(copied));
  }
  return text;
}

}  // namespace platform::win32
