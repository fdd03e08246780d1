// The parts of the user's profile that the program reads and writes.
#pragma once

#include <windows.h>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace harness {

/// Sets the user's documents folder to a folder of the test and removes the program's settings.
/// Everything is restored at the end, so that a real user can run the tests too.
class TestProfile {
 public:
  explicit TestProfile(const std::wstring& documents);
  TestProfile(const TestProfile&) = delete;
  TestProfile& operator=(const TestProfile&) = delete;
  ~TestProfile();

  /// Value of a setting of the program, nothing when it is not set.
  [[nodiscard]] static std::optional<std::wstring> setting(const std::wstring& name);
  static void setSetting(const std::wstring& name, const std::wstring& value);
  static void removeSetting(const std::wstring& name);

 private:
  struct Value {
    std::wstring key;
    std::wstring name;
    std::optional<std::wstring> text;
    DWORD type = REG_SZ;
  };
  void keep(const std::wstring& key, const std::wstring& name);
  std::vector<Value> kept_;
};

/// Why a test that needs another dpi or other colours than the system's cannot run: Windows takes
/// them from the registry only when somebody signs in, Wine at each start of a program. Nothing
/// when it can. docs/windows-checklist.md has what people look at instead.
[[nodiscard]] std::optional<std::string> whyNoDensity(DWORD dpi);
[[nodiscard]] std::optional<std::string> whyNoColours();

/// Sets the dpi for programs that are started from now on, while this object exists.
class ScreenDensity {
 public:
  explicit ScreenDensity(DWORD dpi);
  ScreenDensity(const ScreenDensity&) = delete;
  ScreenDensity& operator=(const ScreenDensity&) = delete;
  ~ScreenDensity();

 private:
  std::optional<DWORD> before_;
};

/// Sets the system colours for programs that are started from now on, and turns off a theme's
/// pictures, while this object exists.
class ColourScheme {
 public:
  /// Names as in the registry ("Window", "WindowText"), and colours.
  explicit ColourScheme(const std::map<std::wstring, COLORREF>& colours);
  ColourScheme(const ColourScheme&) = delete;
  ColourScheme& operator=(const ColourScheme&) = delete;
  ~ColourScheme();

 private:
  void set(const std::wstring& key, const std::wstring& name, const std::wstring& text);
  struct Value {
    std::wstring key;
    std::wstring name;
    std::optional<std::wstring> before;
  };
  std::vector<Value> values_;
};

}  // namespace harness
