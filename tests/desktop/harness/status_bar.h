// The status line of the driven program.
#pragma once

#include <windows.h>

#include <string>

namespace harness {

class StatusBarReader {
 public:
  explicit StatusBarReader(HWND bar) : bar_(bar) {}
  [[nodiscard]] HWND window() const { return bar_; }
  /// Text of a part, from 0.
  [[nodiscard]] std::wstring part(int index) const;
  /// The text over the whole line, "" while the parts are shown.
  [[nodiscard]] std::wstring note() const;

 private:
  HWND bar_;
};

}  // namespace harness
