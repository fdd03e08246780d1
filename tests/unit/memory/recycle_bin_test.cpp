// The contract of platform/recycle_bin.h, tested on the in-memory desktop.
#include "platform/recycle_bin.h"

#include <gtest/gtest.h>

#include <string>

#include "platform/desktop_test.h"
#include "platform/faults.h"
#include "platform/files.h"
#include "unit/support/error_number.h"

namespace platform::recycle_bin {
namespace {

using memory::desktop;

class MemoryRecycleBinTest : public ::memory::DesktopTest {
 protected:
  MemoryRecycleBinTest() {
    desktop().putFile(file, "old", files::normal, changed);
    desktop().putFile(L"E:\\Plot.fp3", "stick");
  }
  static Item recycled(const std::wstring& path) {
    const auto item = recycle(path);
    EXPECT_TRUE(item);
    return item.value_or(Item{});
  }
  static int errorOfRecycling(const std::wstring& path) {
    return errorNumberOf([&] { static_cast<void>(recycle(path)); });
  }
  static int errorOfRestoring(const Item& item) {
    return errorNumberOf([&] { restore(item); });
  }
  static constexpr files::FileTime changed = 10'000'000;
  const std::wstring file = L"C:\\App\\Plot.fp3";
};

TEST_F(MemoryRecycleBinTest, AFileGoesIntoTheBinAndComesBackAsItWas) {
  desktop().setHidden(file);
  const Item item = recycled(file);
  EXPECT_EQ(item.path, file);
  EXPECT_FALSE(desktop().has(file));
  EXPECT_TRUE(holds(item));
  ASSERT_EQ(desktop().bin().size(), 1U);
  EXPECT_EQ(desktop().bin()[0].path, file);
  EXPECT_EQ(desktop().bin()[0].bytes, "old");
  EXPECT_EQ(desktop().bin()[0].attributes, unsigned{files::hidden});
  EXPECT_EQ(desktop().bin()[0].modified, changed);
  restore(item);
  EXPECT_EQ(desktop().bytesOf(file), "old");
  EXPECT_FALSE(files::fileExists(file)) << "hidden as before";
  desktop().setHidden(file, false);
  EXPECT_EQ(files::modifiedTime(file), changed);
  EXPECT_FALSE(holds(item));
  EXPECT_TRUE(desktop().bin().empty());
  EXPECT_EQ(errorOfRestoring(item), 53) << "only once";
  EXPECT_TRUE(desktop().journalHas(L"recycle " + file));
  EXPECT_TRUE(desktop().journalHas(L"restore " + file));
}

TEST_F(MemoryRecycleBinTest, OfSeveralFilesWithOnePathTheRightOneComesBack) {
  const Item first = recycled(file);
  desktop().putFile(file, "second");
  const Item second = recycled(file);
  EXPECT_NE(first, second);
  restore(first);
  EXPECT_EQ(desktop().bytesOf(file), "old");
  EXPECT_TRUE(holds(second));
  desktop().take(file);
  restore(second);
  EXPECT_EQ(desktop().bytesOf(file), "second");
}

TEST_F(MemoryRecycleBinTest, WhatMustNotBeDeletedIsRefusedAndStays) {
  EXPECT_EQ(errorOfRecycling(L"C:\\App\\Gone.fp3"), 53);
  EXPECT_EQ(errorOfRecycling(L"C:\\Nowhere\\Plot.fp3"), 53);
  EXPECT_EQ(errorOfRecycling(L"C:\\App\\a*b"), 52);
  EXPECT_EQ(errorOfRecycling(L"C:\\App"), 75);
  desktop().lock(file);
  EXPECT_EQ(errorOfRecycling(file), 70);
  desktop().unlock(file);
  desktop().setReadOnly(file);
  EXPECT_EQ(errorOfRecycling(file), 75);
  EXPECT_EQ(pathNamedBy([&] { static_cast<void>(recycle(file)); }), file);
  EXPECT_EQ(desktop().bytesOf(file), "old");
  EXPECT_TRUE(desktop().bin().empty());
  EXPECT_TRUE(desktop().journalHas(L"recycle " + file + L" failed 75"));
}

TEST_F(MemoryRecycleBinTest, ADriveWithoutABinDeletesForGood) {
  desktop().noBin = {L"E:", L"\\\\SERVER\\SHARE"};
  EXPECT_FALSE(recycle(L"e:\\Plot.fp3"));
  EXPECT_FALSE(desktop().has(L"E:\\Plot.fp3"));
  desktop().putFile(L"\\\\server\\share\\Plot.fp3", "x");
  EXPECT_FALSE(recycle(L"\\\\server\\share\\Plot.fp3"));
  EXPECT_TRUE(desktop().bin().empty());
  EXPECT_EQ(errorOfRecycling(L"E:\\Plot.fp3"), 53);
  desktop().putFile(L"E:\\Plot.fp3", "x");
  desktop().lock(L"E:\\Plot.fp3");
  EXPECT_EQ(errorOfRecycling(L"E:\\Plot.fp3"), 70);
  EXPECT_TRUE(holds(recycled(file))) << "the other drives have one";
}

TEST_F(MemoryRecycleBinTest, WhatCannotComeBackStaysInTheBin) {
  const Item item = recycled(file);
  desktop().putFile(file, "new");
  EXPECT_EQ(errorOfRestoring(item), 58);
  EXPECT_EQ(desktop().bytesOf(file), "new");
  desktop().take(file);
  desktop().protect(L"C:\\App");
  EXPECT_EQ(errorOfRestoring(item), 57);
  desktop().take(L"C:\\App");
  EXPECT_EQ(errorOfRestoring(item), 76);
  EXPECT_EQ(pathNamedBy([&] { restore(item); }), file);
  EXPECT_TRUE(holds(item));
  desktop().putFolder(L"C:\\App");
  restore(item);
  EXPECT_EQ(desktop().bytesOf(file), "old");
}

TEST_F(MemoryRecycleBinTest, AFileThatWasDeletedByItsShortNameComesBackUnderBothNames) {
  desktop().giveShortNames(L"C:");
  const std::wstring longName = L"C:\\App\\A long name.fp3";
  desktop().putFile(longName, "it");
  const std::wstring shortName =
      L"C:\\App\\" + files::entryAt(longName).value_or(files::Entry{}).shortName;
  const Item item = recycled(shortName);
  EXPECT_FALSE(desktop().has(longName));
  desktop().putFile(longName, "other");
  EXPECT_EQ(errorOfRestoring(item), 58);
  desktop().take(longName);
  restore(item);
  EXPECT_EQ(desktop().bytesOf(longName), "it");
  EXPECT_EQ(desktop().bytesOf(shortName), "it");
}

TEST_F(MemoryRecycleBinTest, AnEmptiedBinHasNothing) {
  const Item item = recycled(file);
  desktop().emptyBin();
  EXPECT_FALSE(holds(item));
  EXPECT_EQ(errorOfRestoring(item), 53);
  EXPECT_FALSE(desktop().has(file));
  EXPECT_TRUE(desktop().bin().empty());
  desktop().putFile(file, "new");
  const Item other = recycled(file);
  EXPECT_FALSE(holds(item)) << "another file of the same path";
  EXPECT_TRUE(holds(other));
}

TEST_F(MemoryRecycleBinTest, WhatIsInTheBinNeedsItsSpace) {
  desktop().disk().setFreeBytes(0);
  const Item item = recycled(file);
  EXPECT_EQ(errorNumberOf([] { desktop().disk().writeWhole(L"C:\\App\\new.txt", "x"); }), 61);
  desktop().emptyBin();
  EXPECT_EQ(errorNumberOf([] { desktop().disk().writeWhole(L"C:\\App\\new.txt", "x"); }), 0);
}

TEST_F(MemoryRecycleBinTest, CallsFailWhenATestWantsIt) {
  desktop().faults().failCall(1, 70);
  EXPECT_EQ(errorOfRecycling(file), 70);
  EXPECT_TRUE(desktop().has(file));
  const Item item = recycled(file);
  desktop().faults().failCall(1, 57);
  EXPECT_EQ(errorOfRestoring(item), 57);
  EXPECT_FALSE(desktop().has(file));
  desktop().faults().failLook(1, ::memory::Faults::LookFault::findsNothing);
  EXPECT_FALSE(holds(item));
  EXPECT_TRUE(holds(item));
}

TEST_F(MemoryRecycleBinTest, AResetEmptiesTheBin) {
  const Item item = recycled(file);
  desktop().noBin = {L"C:"};
  desktop().reset();
  EXPECT_FALSE(holds(item));
  EXPECT_TRUE(desktop().noBin.empty());
}

}  // namespace
}  // namespace platform::recycle_bin
