#include "settings/store.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "platform/desktop_test.h"
#include "platform/faults.h"
#include "platform/run_time_error.h"
#include "unit/support/error_number.h"

namespace {

using memory::desktop;
using settings::Store;

constexpr const wchar_t* file = L"C:\\App\\gateway3.ini";

class SettingsStore : public memory::DesktopTest {
 protected:
  static std::string contents() { return desktop().bytesOf(file).value_or("(none)"); }
  static void put(const std::string& bytes) { desktop().putFile(file, bytes); }
  static bool replaced() {
    return desktop().journalHas(L"replace C:\\App\\gateway3.ini.tmp -> C:\\App\\gateway3.ini");
  }
};

TEST_F(SettingsStore, WithoutAFileItIsTheRegistry) {
  desktop().setSetting(L"General", L"Placement", L"1 2");
  Store store;
  EXPECT_FALSE(store.isFile());
  EXPECT_EQ(store.value(L"Placement", L""), L"1 2");
  EXPECT_EQ(store.value(L"Columns0", L"other"), L"other");
  EXPECT_TRUE(store.keep({{L"Placement", L"3"}, {L"Columns0", L"4"}}));
  EXPECT_EQ(desktop().setting(L"General", L"Placement"), L"3");
  EXPECT_EQ(desktop().setting(L"General", L"Columns0"), L"4");
  EXPECT_EQ(store.value(L"Placement", L""), L"3");
  EXPECT_TRUE(store.canKeep());
  EXPECT_EQ(contents(), "(none)");
}

TEST_F(SettingsStore, WhatTheRegistryRefusesIsRaised) {
  Store store;
  desktop().faults().failCall(1, platform::error::pathFileAccess);
  EXPECT_EQ(errorNumberOf([&] {
              static_cast<void>(store.keep({{L"Placement", L"3"}}));
            }),
            platform::error::pathFileAccess);
}

TEST_F(SettingsStore, TheFileTakesThePlaceOfTheRegistry) {
  put("; note\r\n[General]\r\nPlacement=1 2\r\n");
  desktop().setSetting(L"General", L"Placement", L"7");
  desktop().setSetting(L"General", L"Columns0", L"8");
  Store store;
  EXPECT_TRUE(store.isFile());
  EXPECT_EQ(store.value(L"Placement", L""), L"1 2");
  EXPECT_EQ(store.value(L"Columns0", L"none"), L"none");
  EXPECT_TRUE(store.keep({{L"Placement", L"3"}, {L"Columns0", L"4"}}));
  EXPECT_EQ(contents(), "; note\r\n[General]\r\nPlacement=3\r\nColumns0=4\r\n");
  EXPECT_EQ(store.value(L"Columns0", L""), L"4");
  EXPECT_EQ(desktop().setting(L"General", L"Placement"), L"7");
  EXPECT_TRUE(replaced());
}

TEST_F(SettingsStore, AnEmptyFileIsAStoreToo) {
  put("");
  Store store;
  EXPECT_TRUE(store.isFile());
  EXPECT_TRUE(store.keep({{L"Drive", L"E:"}}));
  EXPECT_EQ(contents(), "[General]\r\nDrive=E:\r\n");
}

TEST_F(SettingsStore, WhatIsStoredAlreadyIsNotWrittenAgain) {
  put("[General]\r\nDrive=E:\r\n");
  Store store;
  desktop().clearJournal();
  EXPECT_TRUE(store.keep({{L"Drive", L"E:"}}));
  EXPECT_TRUE(desktop().journal().empty());
}

TEST_F(SettingsStore, WhatAnotherCopyStoredMeanwhileStays) {
  put("[General]\r\nDrive=E:\r\n");
  Store store;
  put("[General]\r\nDrive=E:\r\nColumns0=5\r\n");
  EXPECT_TRUE(store.keep({{L"Drive", L"F:"}}));
  EXPECT_EQ(contents(), "[General]\r\nDrive=F:\r\nColumns0=5\r\n");
  EXPECT_EQ(store.value(L"Columns0", L""), L"5");
}

TEST_F(SettingsStore, AFileThatCannotBeWrittenStaysAsItIs) {
  put("[General]\r\nDrive=E:\r\n");
  Store store;
  desktop().setReadOnly(file);
  EXPECT_FALSE(store.canKeep());
  EXPECT_FALSE(store.keep({{L"Drive", L"F:"}}));
  EXPECT_EQ(contents(), "[General]\r\nDrive=E:\r\n");
  EXPECT_EQ(store.value(L"Drive", L""), L"E:");
  EXPECT_FALSE(desktop().setting(L"General", L"Drive").has_value());
}

TEST_F(SettingsStore, AFolderThatCannotBeWrittenToIsKnownBefore) {
  put("[General]\r\n");
  Store store;
  EXPECT_TRUE(store.canKeep());
  desktop().protect(L"C:\\App");
  EXPECT_FALSE(store.canKeep());
  EXPECT_FALSE(store.keep({{L"Drive", L"F:"}}));
}

TEST_F(SettingsStore, AFileThatCannotBeReadHasNoValuesAndIsTheStore) {
  put("[General]\r\nDrive=E:\r\n");
  desktop().faults().failCall(1, platform::error::permissionDenied);
  Store store;
  EXPECT_TRUE(store.isFile());
  EXPECT_EQ(store.value(L"Drive", L"none"), L"none");
  EXPECT_TRUE(store.keep({{L"Columns0", L"4"}}));
  EXPECT_EQ(contents(), "[General]\r\nDrive=E:\r\nColumns0=4\r\n");
}

TEST_F(SettingsStore, AFileThatIsGoneStaysAwayAndTheRegistryGetsNothing) {
  put("[General]\r\n");
  Store store;
  desktop().take(file);
  EXPECT_FALSE(store.canKeep());
  EXPECT_FALSE(store.keep({{L"Drive", L"F:"}}));
  EXPECT_EQ(contents(), "(none)");
  EXPECT_FALSE(desktop().setting(L"General", L"Drive").has_value());
}

}  // namespace
