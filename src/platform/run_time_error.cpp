#include "platform/run_time_error.h"

#include <algorithm>
#include <array>
#include <new>
#include <utility>

namespace platform {
namespace {

struct Description {
  int number;
  const wchar_t* text;
};

constexpr std::array descriptions{
    Description{5, L"Invalid procedure call or argument"},
    Description{6, L"Overflow"},
    Description{7, L"Out of memory"},
    Description{9, L"Subscript out of range"},
    Description{13, L"Type mismatch"},
    Description{52, L"Bad file name or number"},
    Description{53, L"File not found"},
    Description{54, L"Bad file mode"},
    Description{55, L"File already open"},
    Description{57, L"Device I/O error"},
    Description{58, L"File already exists"},
    Description{61, L"Disk full"},
    Description{62, L"Input past end of file"},
    Description{67, L"Too many files"},
    Description{68, L"Device unavailable"},
    Description{70, L"Permission denied"},
    Description{71, L"Disk not ready"},
    Description{74, L"Can't rename with different drive"},
    Description{75, L"Path/File access error"},
    Description{76, L"Path not found"},
    Description{91, L"Object variable or With block variable not set"},
    Description{429, L"ActiveX component can't create object"},
    Description{32755, L"Cancel was selected."},
    Description{35600, L"Index out of bounds"},
    Description{35601, L"Element not found"},
    Description{35602, L"Key is not unique in collection"},
};

std::wstring describe(int number) {
  const auto* const found =
      std::find_if(descriptions.begin(), descriptions.end(),
                   [number](const Description& entry) { return entry.number == number; });
  return found == descriptions.end() ? L"Application-defined or object-defined error" : found->text;
}

}  // namespace

RunTimeError::RunTimeError(int number) : RunTimeError(number, describe(number)) {}

RunTimeError::RunTimeError(int number, std::wstring description, std::wstring source)
    : number_(number), description_(std::move(description)), source_(std::move(source)) {}

void RunTimeError::concern(const std::wstring& path) noexcept {
  try {
    if (path_.empty()) {
      path_ = path;
    }
  } catch (const std::bad_alloc&) {
    // The error is reported even if there is no memory for the path.
    path_.clear();
  }
}

std::wstring RunTimeError::numberAndDescription() const {
  return std::to_wstring(number_) + L"-" + description_;
}

std::wstring RunTimeError::report() const {
  constexpr const wchar_t* paragraph = L"\r\n\r\n";
  std::wstring text = L"Run-time error '" + std::to_wstring(number_) + L"':";
  text.append(paragraph).append(description_);
  if (!path_.empty()) {
    text.append(paragraph).append(path_);
  }
  return text;
}

void raiseAbout(const std::wstring& path, int number) {
  RunTimeError failure(number);
  failure.concern(path);
  throw failure;
}

int errorNumberFromSystem(std::uint32_t systemError) {
  switch (systemError) {
    case 2:
      return error::fileNotFound;
    case 3:
      return error::pathNotFound;
    case 4:
      return 67;
    case 5:
      return error::pathFileAccess;
    case 8:
    case 14:
      return error::outOfMemory;
    case 17:
      return 74;
    case 19:
    case 32:
    case 33:
      return error::permissionDenied;
    case 21:
      return 71;
    case 39:
    case 112:
      return error::diskFull;
    case 53:
    case 67:
    case 123:
      return error::badFileName;
    case 80:
    case 183:
      return error::fileExists;
    default:
      return error::deviceError;
  }
}

}  // namespace platform
