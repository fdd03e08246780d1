#include <gtest/gtest.h>

#include "about/about_box.h"
#include "platform/desktop_test.h"

namespace {

using memory::desktop;
using memory::Start;
using platform::registry::Root;
using platform::registry::Value;

constexpr const wchar_t* toolKey = L"SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
constexpr const wchar_t* locationKey = L"SOFTWARE\\Microsoft\\Shared Tools Location";

using Starts = std::vector<Start>;

class KeyValue : public ::memory::DesktopTest {
 protected:
  static void put(std::uint32_t type, const std::vector<std::uint8_t>& bytes) {
    desktop().setRegistry(Root::localMachine, L"Key", L"Name", Value{type, bytes});
  }
  /// The value as text, "(none)" when it is not found.
  static std::wstring get() {
    std::wstring value = L"untouched";
    const bool found = frmAbout::GetKeyValue(Root::localMachine, L"Key", L"Name", value);
    if (!found) {
      EXPECT_EQ(value, L"untouched");
      return L"(none)";
    }
    return value;
  }
  static std::wstring number(std::uint8_t a, std::uint8_t b, std::uint8_t c, std::uint8_t d) {
    put(platform::registry::typeNumber, {a, b, c, d});
    return get();
  }
};

TEST_F(KeyValue, AsksForAllAccessAndABufferOf1024Characters) {
  EXPECT_EQ(get(), L"(none)");
  ASSERT_EQ(desktop().registryQueries.size(), 1U);
  const auto& query = desktop().registryQueries[0];
  EXPECT_EQ(query.root, Root::localMachine);
  EXPECT_EQ(query.key, L"Key");
  EXPECT_EQ(query.name, L"Name");
  EXPECT_EQ(query.access, 0x2003FU);
  EXPECT_EQ(query.bufferBytes, 1024 * sizeof(char16_t));
}

TEST_F(KeyValue, AStringLosesItsFinalNul) {
  put(platform::registry::typeString, {'a', 0, 'b', 0, 0, 0});
  EXPECT_EQ(get(), L"ab");
}

TEST_F(KeyValue, AStringWithoutAFinalNulIsWhole) {
  put(platform::registry::typeString, {'a', 0, 'b', 0});
  EXPECT_EQ(get(), L"ab");
}

TEST_F(KeyValue, OnlyOneFinalNulIsDropped) {
  put(platform::registry::typeString, {'a', 0, 0, 0, 0, 0});
  EXPECT_EQ(get(), std::wstring(L"a\0", 2));
}

TEST_F(KeyValue, AnEmptyStringIsFound) {
  put(platform::registry::typeString, {});
  EXPECT_EQ(get(), L"");
  put(platform::registry::typeString, {0, 0});
  EXPECT_EQ(get(), L"");
}

TEST_F(KeyValue, AStringKeepsCharactersBeyondTheCodePage) {
  put(platform::registry::typeString, {0x16, 0x04});
  EXPECT_EQ(get(), L"\u0416");
}

TEST_F(KeyValue, ANumberIsTheDecimalOfItsBytesHighByteFirst) {
  EXPECT_EQ(number(0x78, 0x56, 0x34, 0x12), std::to_wstring(0x12345678));
  EXPECT_EQ(number(0xFF, 0x10, 0x10, 0x10), std::to_wstring(0x101010FF));
}

TEST_F(KeyValue, AByteBelowSixteenTakesASingleHexadecimalDigit) {
  EXPECT_EQ(number(0x05, 0, 0, 0), L"5");
  EXPECT_EQ(number(0x00, 0x01, 0, 0), std::to_wstring(0x10));
  EXPECT_EQ(number(0x02, 0x01, 0x00, 0x00), std::to_wstring(0x12));
  EXPECT_EQ(number(0x20, 0x01, 0x0A, 0x00), std::to_wstring(0xA120));
  EXPECT_EQ(number(0x04, 0x03, 0x02, 0x01), std::to_wstring(0x1234));
  EXPECT_EQ(number(0x00, 0x00, 0x00, 0x01), std::to_wstring(0x1000));
}

TEST_F(KeyValue, TheHighestBitIsASign) {
  EXPECT_EQ(number(0xFF, 0xFF, 0xFF, 0xFF), L"-1");
  EXPECT_EQ(number(0x10, 0x10, 0x10, 0x80), std::to_wstring(static_cast<std::int32_t>(0x80101010)));
}

TEST_F(KeyValue, AnyOtherTypeIsTheTextAsRead) {
  constexpr std::uint32_t expandable = 2;
  constexpr std::uint32_t binary = 3;
  put(expandable, {'%', 0, 'a', 0, '%', 0, 0, 0});
  EXPECT_EQ(get(), L"%a%");
  put(binary, {'x', 0, 'y', 0});
  EXPECT_EQ(get(), L"xy");
}

TEST_F(KeyValue, AValueThatFillsTheBufferIsFoundAndALongerOneIsNot) {
  std::vector<std::uint8_t> bytes;
  for (int i = 0; i < 1024; ++i) {
    bytes.insert(bytes.end(), {'x', 0});
  }
  put(platform::registry::typeString, bytes);
  EXPECT_EQ(get(), std::wstring(1024, L'x'));
  bytes.insert(bytes.end(), {'x', 0});
  put(platform::registry::typeString, bytes);
  EXPECT_EQ(get(), L"(none)");
}

TEST_F(KeyValue, AMissingKeyOrValueIsNotFound) {
  put(platform::registry::typeString, {'a', 0});
  std::wstring value;
  EXPECT_FALSE(frmAbout::GetKeyValue(Root::localMachine, L"Key", L"Other", value));
  EXPECT_FALSE(frmAbout::GetKeyValue(Root::localMachine, L"Other", L"Name", value));
  EXPECT_FALSE(frmAbout::GetKeyValue(Root::currentUser, L"Key", L"Name", value));
  EXPECT_TRUE(desktop().messages.empty());
}

class SystemInformation : public ::memory::DesktopTest {
 protected:
  static void expectUnavailable() {
    EXPECT_TRUE(desktop().starts.empty());
    ASSERT_EQ(desktop().messages.size(), 1U);
    EXPECT_EQ(desktop().messages[0].text, L"System Information Is Unavailable At This Time");
    EXPECT_EQ(desktop().messages[0].style, platform::dialogs::MessageStyle::information);
  }
};

TEST_F(SystemInformation, StartsThePathThatTheRegistryNames) {
  desktop().setRegistryText(Root::localMachine, toolKey, L"PATH", L"C:\\Tools Here\\info.exe");
  desktop().setRegistryText(Root::localMachine, locationKey, L"MSINFO", L"C:\\Other");
  desktop().putProgram(L"C:\\Tools Here\\info.exe");
  desktop().putProgram(L"C:\\Other\\MSINFO32.EXE");
  frmAbout::StartSysInfo();
  EXPECT_EQ(desktop().starts, (Starts{{L"C:\\Tools Here\\info.exe", L"C:\\Tools Here\\info.exe"}}));
  EXPECT_EQ(desktop().registryQueries.size(), 1U);
  EXPECT_TRUE(desktop().messages.empty());
}

TEST_F(SystemInformation, ElseStartsTheToolOfTheSharedFolder) {
  desktop().setRegistryText(Root::localMachine, locationKey, L"MSINFO", L"C:\\Other");
  desktop().putProgram(L"C:\\Other\\MSINFO32.EXE");
  frmAbout::StartSysInfo();
  EXPECT_EQ(desktop().starts, (Starts{{L"C:\\Other\\MSINFO32.EXE", L"C:\\Other\\MSINFO32.EXE"}}));
  ASSERT_EQ(desktop().registryQueries.size(), 2U);
  EXPECT_EQ(desktop().registryQueries[0].key, toolKey);
  EXPECT_EQ(desktop().registryQueries[0].name, L"PATH");
  EXPECT_EQ(desktop().registryQueries[0].root, Root::localMachine);
  EXPECT_EQ(desktop().registryQueries[1].key, locationKey);
  EXPECT_EQ(desktop().registryQueries[1].name, L"MSINFO");
  EXPECT_EQ(desktop().registryQueries[1].root, Root::localMachine);
}

TEST_F(SystemInformation, WithoutTheToolInTheSharedFolderItIsUnavailable) {
  desktop().setRegistryText(Root::localMachine, locationKey, L"MSINFO", L"C:\\Other");
  desktop().putFolder(L"C:\\Other");
  frmAbout::StartSysInfo();
  expectUnavailable();
}

TEST_F(SystemInformation, WithNothingInTheRegistryItIsUnavailable) {
  frmAbout::StartSysInfo();
  expectUnavailable();
}

TEST_F(SystemInformation, AToolThatCannotBeStartedIsUnavailable) {
  desktop().setRegistryText(Root::localMachine, toolKey, L"PATH", L"C:\\gone.exe");
  frmAbout::StartSysInfo();
  expectUnavailable();
}

}  // namespace
