#include "harness/profile.h"

#include <array>

#include "harness/permission.h"
#include "harness/wait.h"

namespace harness {
namespace {

constexpr const wchar_t* shellFolders =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\Shell Folders";
constexpr const wchar_t* userShellFolders =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Explorer\\User Shell Folders";
constexpr const wchar_t* settingsRoot = L"Software\\Quillmark Suite 3";
constexpr const wchar_t* settingsKey = L"Software\\Quillmark Suite 3\\General";
constexpr const wchar_t* desktopKey = L"Control Panel\\Desktop";
constexpr const wchar_t* exampleSetting = L"CWIExample";
constexpr const wchar_t* density = L"LogPixels";

std::optional<std::wstring> read(const std::wstring& key, const std::wstring& name, DWORD& type) {
  std::array<wchar_t, 1024> text{};
  auto size = static_cast<DWORD>(sizeof(text));
  if (RegGetValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str(),
                   RRF_RT_REG_SZ | RRF_RT_REG_EXPAND_SZ | RRF_NOEXPAND, &type, text.data(),
                   &size) != ERROR_SUCCESS) {
    return std::nullopt;
  }
  return text.data();
}

void write(const std::wstring& key, const std::wstring& name, DWORD type,
           const std::wstring& text) {
  if (RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), name.c_str(), type, text.c_str(),
                      static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))) != ERROR_SUCCESS) {
    throw Failure("the registry cannot be written");
  }
}

}  // namespace

TestProfile::TestProfile(const std::wstring& documents) {
  keep(shellFolders, L"Personal");
  keep(userShellFolders, L"Personal");
  keep(settingsKey, exampleSetting);
  write(shellFolders, L"Personal", REG_SZ, documents);
  write(userShellFolders, L"Personal", REG_EXPAND_SZ, documents);
  RegDeleteTreeW(HKEY_CURRENT_USER, settingsRoot);
}

TestProfile::~TestProfile() {
  RegDeleteTreeW(HKEY_CURRENT_USER, settingsRoot);
  for (const Value& value : kept_) {
    if (value.text) {
      RegSetKeyValueW(HKEY_CURRENT_USER, value.key.c_str(), value.name.c_str(), value.type,
                      value.text->c_str(),
                      static_cast<DWORD>((value.text->size() + 1) * sizeof(wchar_t)));
    } else {
      RegDeleteKeyValueW(HKEY_CURRENT_USER, value.key.c_str(), value.name.c_str());
    }
  }
}

void TestProfile::keep(const std::wstring& key, const std::wstring& name) {
  Value value{key, name, std::nullopt, REG_SZ};
  value.text = read(key, name, value.type);
  kept_.push_back(value);
}

std::optional<std::wstring> TestProfile::setting(const std::wstring& name) {
  DWORD type = 0;
  return read(settingsKey, name, type);
}

void TestProfile::setSetting(const std::wstring& name, const std::wstring& value) {
  write(settingsKey, name, REG_SZ, value);
}

void TestProfile::removeSetting(const std::wstring& name) {
  RegDeleteKeyValueW(HKEY_CURRENT_USER, settingsKey, name.c_str());
}

std::optional<std::string> whyNoDensity(DWORD dpi) {
  HDC const screen = GetDC(nullptr);
  const auto its = static_cast<DWORD>(GetDeviceCaps(screen, LOGPIXELSX));
  ReleaseDC(nullptr, screen);
  if (runsUnderWine() || its == dpi) {
    return std::nullopt;
  }
  return "the screen has " + std::to_string(its) + " dpi, and sign-in alone changes that to " +
         std::to_string(dpi);
}

std::optional<std::string> whyNoColours() {
  if (runsUnderWine()) {
    return std::nullopt;
  }
  return "Windows takes other colours only at sign-in";
}

ScreenDensity::ScreenDensity(DWORD dpi) {
  DWORD before = 0;
  DWORD size = sizeof(before);
  if (RegGetValueW(HKEY_CURRENT_USER, desktopKey, density, RRF_RT_REG_DWORD, nullptr, &before,
                   &size) == ERROR_SUCCESS) {
    before_ = before;
  }
  RegSetKeyValueW(HKEY_CURRENT_USER, desktopKey, density, REG_DWORD, &dpi, sizeof(dpi));
}

ScreenDensity::~ScreenDensity() {
  if (before_) {
    RegSetKeyValueW(HKEY_CURRENT_USER, desktopKey, density, REG_DWORD, &*before_, sizeof(*before_));
  } else {
    RegDeleteKeyValueW(HKEY_CURRENT_USER, desktopKey, density);
  }
}

ColourScheme::ColourScheme(const std::map<std::wstring, COLORREF>& colours) {
  // Wine stores colours that a program has set for the session here, including those of other
  // tests.
  RegDeleteTreeW(HKEY_CURRENT_USER,
                 L"Software\\Wine\\Temporary System Parameters\\Control Panel\\Colors");
  set(L"Software\\Microsoft\\Windows\\CurrentVersion\\ThemeManager", L"ThemeActive", L"0");
  for (const auto& [name, colour] : colours) {
    set(L"Control Panel\\Colors", name,
        std::to_wstring(GetRValue(colour)) + L" " + std::to_wstring(GetGValue(colour)) + L" " +
            std::to_wstring(GetBValue(colour)));
  }
}

ColourScheme::~ColourScheme() {
  for (const Value& value : values_) {
    if (value.before) {
      RegSetKeyValueW(HKEY_CURRENT_USER, value.key.c_str(), value.name.c_str(), REG_SZ,
                      value.before->c_str(),
                      static_cast<DWORD>((value.before->size() + 1) * sizeof(wchar_t)));
    } else {
      RegDeleteKeyValueW(HKEY_CURRENT_USER, value.key.c_str(), value.name.c_str());
    }
  }
}

void ColourScheme::set(const std::wstring& key, const std::wstring& name,
                       const std::wstring& text) {
  DWORD type = 0;
  values_.push_back({key, name, read(key, name, type)});
  write(key, name, REG_SZ, text);
}

}  // namespace harness
