#include "harness/url_scheme.h"

#include <array>
#include <utility>

#include "harness/wait.h"

namespace harness {
namespace {

bool write(HKEY root, const std::wstring& key, const wchar_t* name, const std::wstring& text) {
  return RegSetKeyValueW(root, key.c_str(), name, REG_SZ, text.c_str(),
                         static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))) == ERROR_SUCCESS;
}

constexpr const wchar_t* openCommand = L"\\shell\\open\\command";

/// The command that the system starts for a scheme, nothing when there is none.
std::optional<std::wstring> commandOf(const std::wstring& scheme) {
  std::array<wchar_t, 1024> command{};
  auto size = static_cast<DWORD>(sizeof(command));
  if (RegGetValueW(HKEY_CLASSES_ROOT, (scheme + openCommand).c_str(), nullptr,
                   RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND, nullptr, command.data(),
                   &size) != ERROR_SUCCESS) {
    return std::nullopt;
  }
  return command.data();
}

}  // namespace

UrlScheme::UrlScheme(const std::wstring& scheme, const std::wstring& command)
    : before_(commandOf(scheme)) {
  if (before_) {
    root_ = HKEY_CLASSES_ROOT;
    key_ = scheme;
    write(root_, key_ + openCommand, nullptr, command);
    if (commandOf(scheme) != command) {
      throw Failure("the scheme's command cannot be replaced");
    }
    return;
  }
  // The user's own classes first; some systems use only those of the machine.
  for (const auto& place : {std::pair(HKEY_CURRENT_USER, L"Software\\Classes\\" + scheme),
                            std::pair(HKEY_CLASSES_ROOT, scheme)}) {
    root_ = place.first;
    key_ = place.second;
    write(root_, key_, nullptr, L"URL:" + scheme);
    write(root_, key_, L"URL Protocol", L"");
    write(root_, key_ + openCommand, nullptr, command);
    if (commandOf(scheme) == command) {
      return;
    }
    RegDeleteTreeW(root_, key_.c_str());
  }
  throw Failure("the scheme cannot be registered");
}

UrlScheme::~UrlScheme() {
  if (before_) {
    write(root_, key_ + openCommand, nullptr, *before_);
  } else {
    RegDeleteTreeW(root_, key_.c_str());
  }
}

}  // namespace harness
