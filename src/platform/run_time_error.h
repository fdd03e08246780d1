// The error that every platform operation raises when it fails.
#pragma once

#include <cstdint>
#include <exception>
#include <string>
#include <utility>

namespace platform {

/// Numbers of the run-time errors that the program raises itself or handles in a special way.
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

/// A failed operation: an error number and its text.
class RunTimeError : public std::exception {
 public:
  /// An error with the text of the run-time's own table. A number that is not in the table gets
  /// "Application-defined or object-defined error".
  explicit RunTimeError(int number);
  /// An error with a text of its own and, optionally, the name of what raised it.
  RunTimeError(int number, std::wstring description, std::wstring source = {});

  [[nodiscard]] int number() const { return number_; }
  [[nodiscard]] const std::wstring& description() const { return description_; }
  /// Name of what raised the error, "" when unknown.
  [[nodiscard]] const std::wstring& source() const { return source_; }
  /// The file or folder concerned, as the caller of the failed operation gave it; "" when unknown.
  [[nodiscard]] const std::wstring& path() const { return path_; }
  /// Sets the file or folder concerned, unless one is set already: the code closest to the failure
  /// knows best.
  void concern(const std::wstring& path) noexcept;
  /// "53-File not found": the form in which messages quote an error.
  [[nodiscard]] std::wstring numberAndDescription() const;
  /// Text of the report of an error that no routine trapped: "Run-time error '53':", an empty line
  /// and the description. If a file or folder is known, an empty line and its path follow.
  [[nodiscard]] std::wstring report() const;
  [[nodiscard]] const char* what() const noexcept override { return "run-time error"; }

 private:
  int number_;
  std::wstring description_;
  std::wstring source_;
  std::wstring path_;
};

/// Runs an operation on a file or folder. A run-time error that it raises gets the path `path`,
/// unless the error names another path already.
template <class Operation>
decltype(auto) concerning(const std::wstring& path, Operation&& operation) {
  try {
    return std::forward<Operation>(operation)();
  } catch (RunTimeError& failure) {
    failure.concern(path);
    throw;
  }
}

/// Raises the error `number` with the path of the file or folder concerned.
[[noreturn]] void raiseAbout(const std::wstring& path, int number);

/// The run-time error number for a Windows error code (`error::deviceError` for codes that have no
/// number of their own).
[[nodiscard]] int errorNumberFromSystem(std::uint32_t systemError);

}  // namespace platform
