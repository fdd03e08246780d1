// The plain list (plain_list.exe) in a process of its own, beside the program's window.
#pragma once

#include <windows.h>

#include <string>

#include "harness/process.h"

namespace bench {

/// The floor of what a person sees in a list. It ends with the object.
class PlainList {
 public:
  /// Returns when the window shows the rows. Raises `harness::Failure` when it never does.
  explicit PlainList(const std::wstring& catalogue);
  PlainList(const PlainList&) = delete;
  PlainList& operator=(const PlainList&) = delete;
  ~PlainList() { job_.end(); }

  /// Gives the lists the size and the column widths of another list, and its window a place where
  /// neither window covers the other.
  void resemble(HWND otherWindow, HWND otherList) const;

  [[nodiscard]] static std::wstring executable();
  [[nodiscard]] HANDLE process() const { return process_.handle(); }
  [[nodiscard]] HWND window() const { return window_; }
  [[nodiscard]] HWND box() const;
  [[nodiscard]] HWND rows() const;
  /// Time until it has read the catalogue again and has painted the rows, in milliseconds.
  [[nodiscard]] double reload() const;

 private:
  harness::Job job_;
  harness::Process process_;
  HWND window_ = nullptr;
};

}  // namespace bench
