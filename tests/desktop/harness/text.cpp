#include "harness/text.h"

#include <windows.h>

#include <algorithm>
#include <array>

namespace harness {
namespace {

std::string bytesOf(const std::wstring& text, UINT codePage) {
  const int length = static_cast<int>(text.size());
  const int count =
      WideCharToMultiByte(codePage, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string bytes(static_cast<std::size_t>(count), '\0');
  WideCharToMultiByte(codePage, 0, text.data(), length, bytes.data(), count, nullptr, nullptr);
  return bytes;
}

std::wstring textOf(const std::string& bytes, UINT codePage) {
  const int length = static_cast<int>(bytes.size());
  const int count = MultiByteToWideChar(codePage, 0, bytes.data(), length, nullptr, 0);
  std::wstring text(static_cast<std::size_t>(count), L'\0');
  MultiByteToWideChar(codePage, 0, bytes.data(), length, text.data(), count);
  return text;
}

}  // namespace

std::string utf8(const std::wstring& text) { return bytesOf(text, CP_UTF8); }
std::wstring fromUtf8(const std::string& bytes) { return textOf(bytes, CP_UTF8); }
std::string codePageBytes(const std::wstring& text) { return bytesOf(text, CP_ACP); }
std::wstring fromCodePage(const std::string& bytes) { return textOf(bytes, CP_ACP); }

std::wstring encoded(std::wstring path) {
  std::replace(path.begin(), path.end(), L' ', L'?');
  return path;
}

std::wstring today() {
  std::array<wchar_t, 80> text{};
  GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, text.data(),
                  static_cast<int>(text.size()), nullptr);
  return text.data();
}

std::wstring dateAndTime(std::uint64_t changeTime) {
  const FILETIME time{static_cast<DWORD>(changeTime), static_cast<DWORD>(changeTime >> 32U)};
  SYSTEMTIME universal{};
  SYSTEMTIME local{};
  FileTimeToSystemTime(&time, &universal);
  SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local);
  std::array<wchar_t, 80> date{};
  std::array<wchar_t, 80> clock{};
  GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &local, nullptr, date.data(),
                  static_cast<int>(date.size()), nullptr);
  GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &local, nullptr, clock.data(),
                  static_cast<int>(clock.size()));
  return std::wstring(date.data()) + L" " + clock.data();
}

}  // namespace harness
