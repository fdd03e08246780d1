// The contract of platform/files.h, tested on the in-memory disk.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/desktop_test.h"
#include "platform/faults.h"
#include "platform/files.h"
#include "platform/processes.h"
#include "platform/shell_links.h"
#include "unit/support/error_number.h"

namespace platform::files {
namespace {

using memory::desktop;

class MemoryFilesTest : public ::memory::DesktopTest {
 protected:
  MemoryFilesTest() {
    desktop().putFile(file, "old");
    desktop().putFolder(L"C:\\App\\Data");
    desktop().putFolder(L"D:\\");
  }
  const std::wstring file = L"C:\\App\\list.txt";
  const std::wstring other = L"C:\\App\\other.txt";
  const std::wstring missing = L"C:\\App\\missing.txt";
  const std::wstring astray = L"C:\\Nowhere\\file.txt";
  const std::wstring folder = L"C:\\App\\Data";
};

TEST_F(MemoryFilesTest, ReadsAFileWhole) {
  const Contents contents = readWhole(file);
  EXPECT_EQ(contents.bytes, "old");
  EXPECT_TRUE(contents.stamp.present);
  EXPECT_EQ(contents.stamp.size, 3U);
  EXPECT_EQ(contents.stamp.modified, modifiedTime(file));
}

TEST_F(MemoryFilesTest, ReadingRaises) {
  EXPECT_EQ(errorNumberOf([&] { static_cast<void>(readWhole(missing)); }), 53);
  EXPECT_EQ(errorNumberOf([&] { static_cast<void>(readWhole(astray)); }), 76);
  EXPECT_EQ(errorNumberOf([&] { static_cast<void>(readWhole(L"X:\\file.txt")); }), 76);
  EXPECT_EQ(errorNumberOf([&] { static_cast<void>(readWhole(folder)); }), 75);
  EXPECT_EQ(errorNumberOf([&] { static_cast<void>(readWhole(L"C:\\App\\a*b")); }), 52);
  desktop().lock(file);
  EXPECT_EQ(errorNumberOf([&] { static_cast<void>(readWhole(file)); }), 70);
  desktop().unlock(file);
  desktop().setReadOnly(file);
  EXPECT_EQ(readWhole(file).bytes, "old");
}

TEST_F(MemoryFilesTest, AnErrorNamesTheFileOrFolderConcerned) {
  desktop().putFile(other, "other");
  desktop().setReadOnly(other);
  EXPECT_EQ(pathNamedBy([&] { static_cast<void>(readWhole(missing)); }), missing);
  EXPECT_EQ(pathNamedBy([&] { static_cast<void>(readForAppending(other)); }), other);
  EXPECT_EQ(pathNamedBy([&] { remove(other); }), other);
  EXPECT_EQ(pathNamedBy([&] { makeFolder(file); }), file);
  EXPECT_EQ(pathNamedBy([&] { makeFolder(astray); }), astray);
  EXPECT_EQ(pathNamedBy([&] { rename(missing, file); }), missing);
  EXPECT_EQ(pathNamedBy([&] { rename(file, other); }), other);
  EXPECT_EQ(pathNamedBy([&] { rename(file, astray); }), astray);
  EXPECT_EQ(pathNamedBy([&] { rename(file, L"C:\\App\\im:possible"); }), L"C:\\App\\im:possible");
  EXPECT_EQ(pathNamedBy([&] { copy(missing, file); }), missing);
  EXPECT_EQ(pathNamedBy([&] { copy(file, other); }), other);
  EXPECT_EQ(pathNamedBy([&] { copy(file, astray); }), astray);
  EXPECT_EQ(pathNamedBy([&] { const Draft draft(astray); }), astray);
  Draft draft(L"C:\\App\\list.tmp");
  EXPECT_EQ(pathNamedBy([&] { static_cast<void>(draft.replace(other, {.present = true})); }),
            other);
  EXPECT_EQ(pathNamedBy([&] { static_cast<void>(draft.replace(missing, {.present = true})); }),
            missing);
  EXPECT_EQ(pathNamedBy([&] { processes::start(missing, missing); }), missing);
  EXPECT_EQ(pathNamedBy([&] { shell_links::write(other, {}); }), other);
  desktop().faults().failCall(1, 57);
  EXPECT_EQ(pathNamedBy([&] { draft.write("new"); }), L"C:\\App\\list.tmp");
  desktop().faults().failCall(1, 57);
  EXPECT_EQ(pathNamedBy([&] { copy(file, L"C:\\App\\copy.txt"); }), file);
  EXPECT_EQ(desktop().faults().failedCalls().front().path, file);
}

TEST_F(MemoryFilesTest, ReadsForAppending) {
  EXPECT_EQ(readForAppending(file).bytes, "old");
  const Contents none = readForAppending(missing);
  EXPECT_EQ(none.bytes, "");
  EXPECT_EQ(none.stamp, Stamp{});
  EXPECT_FALSE(desktop().has(missing));
  EXPECT_EQ(errorNumberOf([&] { static_cast<void>(readForAppending(astray)); }), 76);
  EXPECT_EQ(errorNumberOf([&] { static_cast<void>(readForAppending(folder)); }), 75);
  desktop().lock(file);
  EXPECT_EQ(errorNumberOf([&] { static_cast<void>(readForAppending(file)); }), 70);
  desktop().setReadOnly(file);
  EXPECT_EQ(errorNumberOf([&] { static_cast<void>(readForAppending(file)); }), 75);
}

TEST_F(MemoryFilesTest, ADraftIsCreatedAnew) {
  { const Draft draft(missing); }
  EXPECT_EQ(desktop().bytesOf(missing), "");
  const Stamp before = readWhole(file).stamp;
  Draft draft(file);
  EXPECT_EQ(desktop().bytesOf(file), "") << "The stale content is discarded";
  draft.write("first, longer");
  draft.write("next");
  EXPECT_EQ(desktop().bytesOf(file), "next");
  const Stamp after = readWhole(file).stamp;
  EXPECT_GT(after.modified, before.modified) << "Even while the clock stands still";
  EXPECT_NE(after.fileId, before.fileId);
}

TEST_F(MemoryFilesTest, ADraftRaises) {
  const auto number = [](const std::wstring& path) {
    return errorNumberOf([&path] { const Draft draft(path); });
  };
  EXPECT_EQ(number(astray), 76);
  EXPECT_EQ(number(folder), 75);
  EXPECT_EQ(number(L"C:\\App\\a?b"), 52);
  desktop().lock(file);
  EXPECT_EQ(number(file), 70);
  desktop().setReadOnly(file);
  EXPECT_EQ(number(file), 75);
  EXPECT_EQ(desktop().bytesOf(file), "old");
}

TEST_F(MemoryFilesTest, AFullDiskKeepsWhatFitted) {
  desktop().disk().setFreeBytes(4);
  Draft draft(other);
  EXPECT_EQ(errorNumberOf([&] { draft.write("123456"); }), 61);
  EXPECT_EQ(desktop().bytesOf(other), "1234");
  EXPECT_EQ(errorNumberOf([&] { draft.write("1234"); }), 0);
}

TEST_F(MemoryFilesTest, ABrokenWriteKeepsItsFirstHalf) {
  Draft draft(other);
  for (const int number : {57, 61}) {
    desktop().faults().failCall(1, number);
    EXPECT_EQ(errorNumberOf([&] { draft.write("123456"); }), number);
    EXPECT_EQ(desktop().bytesOf(other), "123");
  }
  desktop().faults().failCall(1, 70);
  EXPECT_EQ(errorNumberOf([&] { const Draft refused(missing); }), 70);
  EXPECT_FALSE(desktop().has(missing));
}

TEST_F(MemoryFilesTest, Removes) {
  remove(file);
  EXPECT_FALSE(desktop().has(file));
  EXPECT_EQ(errorNumberOf([&] { remove(file); }), 53);
  EXPECT_EQ(errorNumberOf([&] { remove(astray); }), 53);
  EXPECT_EQ(errorNumberOf([&] { remove(folder); }), 75);
  desktop().putFile(file, "");
  desktop().lock(file);
  EXPECT_EQ(errorNumberOf([&] { remove(file); }), 70);
  desktop().setReadOnly(file);
  EXPECT_EQ(errorNumberOf([&] { remove(file); }), 75);
  EXPECT_TRUE(desktop().has(file));
}

TEST_F(MemoryFilesTest, Renames) {
  desktop().setReadOnly(file);
  const Stamp before = readWhole(file).stamp;
  rename(file, L"C:\\App\\Data\\New.txt");
  EXPECT_FALSE(desktop().has(file));
  EXPECT_EQ(readWhole(L"C:\\App\\Data\\New.txt").stamp, before);
}

TEST_F(MemoryFilesTest, RenamesInLetterCaseOnly) {
  rename(file, L"C:\\App\\LIST.txt");
  EXPECT_EQ(findFirst(file), L"LIST.txt");
}

TEST_F(MemoryFilesTest, RenamingRaises) {
  desktop().putFile(other, "other");
  EXPECT_EQ(errorNumberOf([&] { rename(missing, L"C:\\App\\x"); }), 53);
  EXPECT_EQ(errorNumberOf([&] { rename(astray, L"C:\\App\\x"); }), 53);
  EXPECT_EQ(errorNumberOf([&] { rename(file, other); }), 58);
  EXPECT_EQ(errorNumberOf([&] { rename(file, L"C:\\APP\\OTHER.TXT"); }), 58);
  EXPECT_EQ(errorNumberOf([&] { rename(file, folder); }), 58);
  EXPECT_EQ(errorNumberOf([&] { rename(file, astray); }), 76);
  EXPECT_EQ(errorNumberOf([&] { rename(file, L"D:\\list.txt"); }), 74);
  EXPECT_EQ(errorNumberOf([&] { rename(file, L"C:\\App\\a:b"); }), 52);
  desktop().lock(file);
  EXPECT_EQ(errorNumberOf([&] { rename(file, missing); }), 70);
  EXPECT_EQ(desktop().bytesOf(file), "old");
}

TEST_F(MemoryFilesTest, CopiesWithDateAndAttributes) {
  desktop().putFile(other, "other");
  const auto modified = modifiedTime(file);
  desktop().advance(60'000);
  desktop().setReadOnly(file);
  copy(file, other);
  EXPECT_EQ(desktop().bytesOf(other), "old");
  EXPECT_EQ(modifiedTime(other), modified);
  EXPECT_EQ(errorNumberOf([&] { remove(other); }), 75);
  copy(file, L"D:\\list.txt");
  EXPECT_EQ(desktop().bytesOf(L"D:\\list.txt"), "old");
}

TEST_F(MemoryFilesTest, CopyingRaises) {
  desktop().putFile(other, "other");
  EXPECT_EQ(errorNumberOf([&] { copy(missing, other); }), 53);
  EXPECT_EQ(errorNumberOf([&] { copy(astray, other); }), 53);
  EXPECT_EQ(errorNumberOf([&] { copy(file, astray); }), 76);
  EXPECT_EQ(errorNumberOf([&] { copy(file, folder); }), 75);
  EXPECT_EQ(errorNumberOf([&] { copy(file, file); }), 70);
  desktop().setReadOnly(other);
  EXPECT_EQ(errorNumberOf([&] { copy(file, other); }), 75);
  EXPECT_EQ(desktop().bytesOf(other), "other");
}

TEST_F(MemoryFilesTest, MakesOneFolder) {
  makeFolder(L"C:\\App\\PhotoImages");
  EXPECT_TRUE(folderExists(L"C:\\App\\PhotoImages"));
  EXPECT_FALSE(fileExists(L"C:\\App\\PhotoImages"));
  EXPECT_EQ(errorNumberOf([&] { makeFolder(folder); }), 75);
  EXPECT_EQ(errorNumberOf([&] { makeFolder(file); }), 75);
  EXPECT_EQ(errorNumberOf([&] { makeFolder(L"C:\\"); }), 75);
  EXPECT_EQ(errorNumberOf([&] { makeFolder(L"C:\\Nowhere\\New"); }), 76);
  EXPECT_EQ(errorNumberOf([&] { makeFolder(L"C:\\App\\list.txt\\New"); }), 76);
}

TEST_F(MemoryFilesTest, AMissingFileHasNoDate) {
  EXPECT_EQ(modifiedTime(missing), std::nullopt);
  EXPECT_EQ(modifiedTime(astray), std::nullopt);
  EXPECT_EQ(modifiedTime(folder), std::nullopt);
  desktop().setHidden(file);
  EXPECT_EQ(modifiedTime(file), std::nullopt);
}

TEST_F(MemoryFilesTest, AWriteBearsTheDateOfTheClock) {
  Draft draft(file);
  desktop().setNow({2030, 1, 2, 3, 4, 5, 0});
  draft.write("");
  EXPECT_EQ(modifiedTime(file), ::memory::fileTime({2030, 1, 2, 3, 4, 5, 0}));
}

TEST_F(MemoryFilesTest, ReplacesAFileThatIsStillTheSame) {
  const Stamp expected = readWhole(file).stamp;
  Draft draft(other);
  draft.write("new");
  const Stamp written = readWhole(other).stamp;
  EXPECT_EQ(draft.replace(file, expected), Replaced::yes);
  EXPECT_EQ(desktop().bytesOf(file), "new");
  EXPECT_FALSE(desktop().has(other));
  EXPECT_EQ(readWhole(file).stamp, written);
  EXPECT_NE(readWhole(file).stamp.fileId, expected.fileId);
}

TEST_F(MemoryFilesTest, DoesNotReplaceAFileThatChanged) {
  const Stamp expected = readWhole(file).stamp;
  Draft draft(other);
  draft.write("new");
  desktop().onReplace = [this] { desktop().putFile(file, "OLD"); };
  EXPECT_EQ(draft.replace(file, expected), Replaced::changedSince);
  EXPECT_EQ(desktop().bytesOf(file), "OLD");
  EXPECT_EQ(desktop().bytesOf(other), "new");
  EXPECT_TRUE(desktop().journalHas(L"hold C:\\App\\list.txt (changed)"));
}

TEST_F(MemoryFilesTest, PutsAFileInTheFreePlaceOnly) {
  Draft draft(other);
  draft.write("new");
  EXPECT_EQ(draft.replace(file, {}), Replaced::changedSince);
  EXPECT_EQ(draft.replace(missing, {}), Replaced::yes);
  EXPECT_EQ(desktop().bytesOf(missing), "new");
  EXPECT_FALSE(desktop().has(other));
}

TEST_F(MemoryFilesTest, ReplacingRaisesWhatADeletionWouldRaise) {
  Draft draft(other);
  draft.write("new");
  const Stamp expected = readWhole(file).stamp;
  const auto number = [&](const std::wstring& to) {
    return errorNumberOf([&] { static_cast<void>(draft.replace(to, expected)); });
  };
  EXPECT_EQ(number(missing), 53);
  EXPECT_EQ(number(astray), 53);
  desktop().lock(file);
  EXPECT_EQ(number(file), 70);
  desktop().setReadOnly(file);
  EXPECT_EQ(number(file), 75);
  EXPECT_EQ(desktop().bytesOf(file), "old");
  EXPECT_EQ(desktop().bytesOf(other), "new");
}

}  // namespace
}  // namespace platform::files
