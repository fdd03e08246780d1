#include "harness/paths.h"

#include <windows.h>

namespace harness {
namespace {

constexpr DWORD longestPath = 32768;

}  // namespace

std::wstring buildFolder() {
  std::wstring path(longestPath, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), longestPath));
  return path.substr(0, path.find_last_of(L'\\'));
}

std::wstring gatewayExecutable() {
  std::wstring path(longestPath, L'\0');
  path.resize(GetEnvironmentVariableW(L"QMK_GATEWAY", path.data(), longestPath));
  return path.empty() ? buildFolder() + L"\\gateway3.exe" : path;
}

std::wstring standInExecutable() { return buildFolder() + L"\\stand-in.exe"; }

}  // namespace harness
