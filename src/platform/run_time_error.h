// The error that every platform operation raises when it fails.
#pragma once

#include <cstdint>
#include <exception>
#include <string>

namespace platform {

/// Numbers of the run-time errors that the program tells apart or raises itself.
namespace error {
inline constexpr int invalidCall = 5;
inline constexpr int overflow = 6;
inline constexpr int outOfMemory = 7;
inline constexpr int typeMismatch = 13;
inline constexpr int badFileName = 52;
inline constexpr int fileNotFound = 53;
inline constexpr int deviceError = 57;
inline constexpr int fileExists = 58;
inline constexpr int diskFull = 61;
inline constexpr int permissionDenied = 70;
inline constexpr int pathFileAccess = 75;
inline constexpr int pathNotFound = 76;
inline constexpr int objectNotSet = 91;
inline constexpr int cannotCreateObject = 429;
inline constexpr int indexOutOfBounds = 35600;
inline constexpr int elementNotFound = 35601;
inline constexpr int keyNotUnique = 35602;
inline constexpr int cancelled = 32755;
}  // namespace error

/// A failed operation: a number and the text that belongs to it.
class RunTimeError : public std::exception {
 public:
  /// An error with the text of the run-time's own table; a number that is not in it gets
  /// "Application-defined or object-defined error".
  explicit RunTimeError(int number);
  RunTimeError(int number, std::wstring description);

  [[nodiscard]] int number() const { return number_; }
  [[nodiscard]] const std::wstring& description() const { return description_; }
  /// "53-File not found": the form in which messages quote an error.
  [[nodiscard]] std::wstring numberAndDescription() const;
  [[nodiscard]] const char* what() const noexcept override { return "run-time error"; }

 private:
  int number_;
  std::wstring description_;
};

/// The run-time error number for a Windows error code (57 for codes without one of their own).
[[nodiscard]] int errorNumberFromSystem(std::uint32_t systemError);

}  // namespace platform
