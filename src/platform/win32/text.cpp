#include "platform/text.h"

#include <windows.h>

#include <limits>

#include "platform/run_time_error.h"

namespace platform::text {
namespace {

/// A length as the system's text functions take it; raises 7 for what they cannot take.
int checkedLength(std::size_t length) {
  // A sort key takes several bytes for a character, and its length must be an int as well.
  if (length > std::numeric_limits<int>::max() / 8) throw RunTimeError(error::outOfMemory);
  return static_cast<int>(length);
}

/// The length that a text function returned, which is 0 only when it failed.
std::size_t required(int length) {
  if (length <= 0) throw RunTimeError(errorNumberFromSystem(GetLastError()));
  return static_cast<std::size_t>(length);
}

/// Whether the code page lets us choose the substitute for characters that it lacks. Those that
/// hold every character do not, and need none.
bool hasSubstitute(UINT codePage) {
  constexpr UINT gb18030 = 54936;
  return codePage != CP_UTF8 && codePage != gb18030;
}

}  // namespace

std::wstring upper(std::wstring_view text) {
  if (text.empty()) return {};
  const int length = checkedLength(text.size());
  std::wstring result(text.size(), L'\0');
  // The simple mapping: one character for one, so that positions keep their meaning.
  required(LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_UPPERCASE, text.data(), length, result.data(),
                         length, nullptr, nullptr, 0));
  return result;
}

std::string sortKey(std::wstring_view text) {
  if (text.empty()) return {};
  constexpr DWORD flags = LCMAP_SORTKEY | NORM_IGNORECASE;
  const int length = checkedLength(text.size());
  const std::size_t size = required(LCMapStringEx(LOCALE_NAME_USER_DEFAULT, flags, text.data(),
                                                  length, nullptr, 0, nullptr, nullptr, 0));
  std::string key(size, '\0');
  // For a sort key the "wide" buffer holds bytes, and its size is given in bytes.
  auto* const bytes = reinterpret_cast<wchar_t*>(key.data());
  key.resize(required(LCMapStringEx(LOCALE_NAME_USER_DEFAULT, flags, text.data(), length, bytes,
                                    checkedLength(size), nullptr, nullptr, 0)));
  if (key.back() == '\0') key.pop_back();
  return key;
}

std::wstring fromCodePage(std::string_view bytes) {
  if (bytes.empty()) return {};
  const int length = checkedLength(bytes.size());
  std::wstring result(required(MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, nullptr, 0)),
                      L'\0');
  required(MultiByteToWideChar(CP_ACP, 0, bytes.data(), length, result.data(),
                               checkedLength(result.size())));
  return result;
}

std::string toCodePage(std::wstring_view text) {
  if (text.empty()) return {};
  const bool choose = hasSubstitute(GetACP());
  const DWORD flags = choose ? WC_NO_BEST_FIT_CHARS : 0;
  const char* const substitute = choose ? "?" : nullptr;
  const int length = checkedLength(text.size());
  std::string result(required(WideCharToMultiByte(CP_ACP, flags, text.data(), length, nullptr, 0,
                                                  substitute, nullptr)),
                     '\0');
  required(WideCharToMultiByte(CP_ACP, flags, text.data(), length, result.data(),
                               static_cast<int>(result.size()), substitute, nullptr));
  return result;
}

}  // namespace platform::text
