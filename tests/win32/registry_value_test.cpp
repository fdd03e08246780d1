// Reading registry values as text, from the real registry.
#include <gtest/gtest.h>
#include <windows.h>

#include <cstdint>
#include <initializer_list>
#include <string>
#include <vector>

#include "about/about_box.h"
#include "harness/text.h"

namespace desktop_tests {
namespace {

constexpr const wchar_t* keyName = L"Software\\Quillmark Suite 3 test values";
constexpr const wchar_t* valueName = L"value";
constexpr std::size_t bufferCharacters = 1024;

class RegistryValue : public ::testing::Test {
 protected:
  void TearDown() override { RegDeleteTreeW(HKEY_CURRENT_USER, keyName); }

  static void store(DWORD type, const void* data, std::size_t bytes,
                    const wchar_t* name = valueName) {
    HKEY key = nullptr;
    ASSERT_EQ(RegCreateKeyExW(HKEY_CURRENT_USER, keyName, 0, nullptr, 0, KEY_SET_VALUE, nullptr,
                              &key, nullptr),
              ERROR_SUCCESS);
    EXPECT_EQ(RegSetValueExW(key, name, 0, type, static_cast<const BYTE*>(data),
                             static_cast<DWORD>(bytes)),
              ERROR_SUCCESS);
    RegCloseKey(key);
  }
  static void storeText(const std::wstring& text, DWORD type = REG_SZ) {
    // The registry includes a NUL that follows the text in memory, so there must not be one.
    const std::wstring followed = text + L'x';
    store(type, followed.data(), text.size() * sizeof(wchar_t));
  }
  static void storeNumber(std::uint32_t number) { store(REG_DWORD, &number, sizeof(number)); }

  /// The value that is read; "(nothing)" when there is none.
  static std::wstring read(const std::wstring& key = keyName,
                           const std::wstring& name = valueName) {
    std::wstring value = L"(unchanged)";
    if (!frmAbout::GetKeyValue(platform::registry::Root::currentUser, key, name, value)) {
      EXPECT_EQ(value, L"(unchanged)");
      return L"(nothing)";
    }
    return value;
  }
};

TEST_F(RegistryValue, AStringLosesItsFinalNul) {
  storeText(std::wstring(L"C:\\Tools\\caf\u00E9.exe") + L'\0');
  EXPECT_EQ(read(), L"C:\\Tools\\caf\u00E9.exe");
}

TEST_F(RegistryValue, AStringWithoutAFinalNulIsWhole) {
  storeText(L"C:\\Tools");
  EXPECT_EQ(read(), L"C:\\Tools");
}

TEST_F(RegistryValue, OnlyOneFinalNulIsDropped) {
  storeText(std::wstring(L"two") + std::wstring(2, L'\0'));
  EXPECT_EQ(read(), std::wstring(L"two") + L'\0');
}

TEST_F(RegistryValue, AnEmptyStringIsFound) {
  storeText(std::wstring(1, L'\0'));
  EXPECT_EQ(read(), L"");
  storeText(L"");
  EXPECT_EQ(read(), L"");
}

TEST_F(RegistryValue, ANumberIsSpelledByItsBytesWithoutLeadingZeros) {
  storeNumber(0x12345678);
  EXPECT_EQ(read(), std::to_wstring(0x12345678));
  // 1, 2, 3 and 4 have one digit each.
  storeNumber(0x01020304);
  EXPECT_EQ(read(), std::to_wstring(0x1234));
  storeNumber(0x10000000);
  EXPECT_EQ(read(), std::to_wstring(0x10000));
  storeNumber(0);
  EXPECT_EQ(read(), L"0");
  storeNumber(0xFFFFFFFF);
  EXPECT_EQ(read(), L"-1");
}

TEST_F(RegistryValue, OtherTypesAreTheTextAsItIsStored) {
  storeText(std::wstring(L"%SystemRoot%\\tool.exe") + L'\0', REG_EXPAND_SZ);
  EXPECT_EQ(read(), L"%SystemRoot%\\tool.exe");
  storeText(L"bytes", REG_BINARY);
  EXPECT_EQ(read(), L"bytes");
}

TEST_F(RegistryValue, TheUnnamedValueIsOneLikeOthers) {
  const std::wstring text = L"default";
  store(REG_SZ, text.data(), (text.size() + 1) * sizeof(wchar_t), L"");
  EXPECT_EQ(read(keyName, L""), L"default");
}

TEST_F(RegistryValue, AMissingKeyOrValueIsNotFound) {
  EXPECT_EQ(read(L"Software\\No such key of Quillmark Suite 3"), L"(nothing)");
  storeText(L"there");
  EXPECT_EQ(read(keyName, L"no such value"), L"(nothing)");
}

TEST_F(RegistryValue, AStringLongerThanTheBufferIsNotFound) {
  const std::wstring longest(bufferCharacters, L'x');
  storeText(longest);
  EXPECT_EQ(read(), longest);
  storeText(std::wstring(bufferCharacters + 1, L'x'));
  EXPECT_EQ(read(), L"(nothing)");
}

}  // namespace
}  // namespace desktop_tests
