// A scheme of web addresses that starts a program of the test.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace harness {

/// Registers a command for addresses that begin with `scheme` and a colon, while this object
/// exists. Replaces an existing command and restores it at the end. Raises `Failure` when that is
/// not possible.
class UrlScheme {
 public:
  UrlScheme(const std::wstring& scheme, const std::wstring& command);
  UrlScheme(const UrlScheme&) = delete;
  UrlScheme& operator=(const UrlScheme&) = delete;
  ~UrlScheme();

 private:
  HKEY root_ = nullptr;
  std::wstring key_;
  std::optional<std::wstring> before_;  ///< Command of a scheme that was there already.
};

}  // namespace harness
