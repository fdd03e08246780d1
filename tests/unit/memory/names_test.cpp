// Paths, wildcards and directory searches on the in-memory disk.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/desktop_test.h"
#include "platform/file_node.h"
#include "platform/files.h"
#include "unit/support/error_number.h"

namespace platform::files {
namespace {

using memory::desktop;
using Names = std::vector<std::wstring>;

class MemoryNamesTest : public ::memory::DesktopTest {
 protected:
  static Names found(const std::wstring& pattern, unsigned attributes = normal) {
    Names names;
    for (const Entry& entry : search(pattern, attributes)) {
      names.push_back(entry.name);
    }
    return names;
  }
};

TEST_F(MemoryNamesTest, ASearchKeepsTheOrderOfTheDirectory) {
  for (const auto* const name : {L"c.lnk", L"A.lnk", L"b.txt"}) {
    desktop().putFile(std::wstring(L"C:\\App\\") + name, "");
  }
  EXPECT_EQ(found(L"C:\\App\\*"), (Names{L"c.lnk", L"A.lnk", L"b.txt"}));
  EXPECT_EQ(found(L"c:\\app\\*.LNK"), (Names{L"c.lnk", L"A.lnk"}));
  EXPECT_EQ(findFirst(L"C:\\App\\*.lnk"), L"c.lnk");
  EXPECT_EQ(findFirst(L"C:\\App\\*.fp3"), L"");
}

TEST_F(MemoryNamesTest, SpecialEntriesComeOnlyWhenAskedFor) {
  desktop().putFile(L"C:\\App\\plain", "");
  desktop().putFile(L"C:\\App\\hidden", "", hidden);
  desktop().putFile(L"C:\\App\\system", "", system);
  desktop().putFolder(L"C:\\App\\folder");
  desktop().putFolder(L"C:\\App\\hidden folder");
  desktop().setHidden(L"C:\\App\\hidden folder");
  EXPECT_EQ(found(L"C:\\App\\*"), (Names{L"plain"}));
  EXPECT_EQ(found(L"C:\\App\\*", hidden), (Names{L"plain", L"hidden"}));
  EXPECT_EQ(found(L"C:\\App\\*", system), (Names{L"plain", L"system"}));
  EXPECT_EQ(found(L"C:\\App\\*", directory), (Names{L"plain", L"folder"}));
  EXPECT_EQ(found(L"C:\\App\\*", hidden | directory),
            (Names{L"plain", L"hidden", L"folder", L"hidden folder"}));
  EXPECT_FALSE(fileExists(L"C:\\App\\hidden"));
  EXPECT_FALSE(fileExists(L"C:\\App\\folder"));
  EXPECT_TRUE(folderExists(L"C:\\App\\plain")) << "A search that includes folders finds files too";
}

TEST_F(MemoryNamesTest, NothingFoundIsNoError) {
  for (const auto* const pattern : {L"", L"x", L"C:", L"C:\\", L"C:\\App\\", L"C:\\Nowhere\\*",
                                    L"X:\\*", L"\\\\server\\share\\*", L"C:\\App\\<>|"}) {
    EXPECT_EQ(found(pattern, directory), Names{}) << testing::PrintToString(std::wstring(pattern));
  }
}

TEST_F(MemoryNamesTest, APathWithANulNamesNothing) {
  desktop().putFile(L"C:\\App\\file", "x");
  const std::wstring path(L"C:\\App\\file\0.txt", 16);
  EXPECT_EQ(found(path), Names{});
  EXPECT_FALSE(fileExists(path));
  EXPECT_EQ(errorNumberOf([&] { static_cast<void>(readWhole(path)); }), 52);
  EXPECT_EQ(errorNumberOf([&] { static_cast<void>(readForAppending(path)); }), 52);
  EXPECT_EQ(errorNumberOf([&] { const Draft draft(path); }), 52);
  EXPECT_EQ(errorNumberOf([&] { remove(path); }), 52);
  EXPECT_EQ(errorNumberOf([&] { rename(path, L"C:\\App\\x"); }), 52);
  EXPECT_EQ(errorNumberOf([&] { rename(L"C:\\App\\file", path); }), 52);
  EXPECT_EQ(errorNumberOf([&] { copy(L"C:\\App\\file", path); }), 52);
  EXPECT_EQ(errorNumberOf([&] { makeFolder(path); }), 52);
  EXPECT_EQ(modifiedTime(path), std::nullopt);
  EXPECT_EQ(errorNumberOf([&] { static_cast<void>(Draft(L"C:\\App\\x").replace(path, {})); }), 52);
}

TEST_F(MemoryNamesTest, NamesCompareWithoutCaseAndKeepTheirs) {
  desktop().putFile(L"C:\\App\\\u00C4rger.TXT", "x");
  EXPECT_EQ(findFirst(L"c:\\APP\\\u00E4RGER.txt"), L"\u00C4rger.TXT");
  EXPECT_EQ(readWhole(L"c:\\app\\\u00E4rger.txt").bytes, "x");
  copy(L"c:\\app\\\u00E4rger.txt", L"C:\\App\\B.txt");
  remove(L"C:\\app\\b.TXT");
  EXPECT_EQ(desktop().namesIn(L"C:\\App"), Names{L"\u00C4rger.TXT"});
}

TEST_F(MemoryNamesTest, SeparatorsMayBeDoubledAndEitherSlash) {
  desktop().putFile(L"C:\\App\\Data\\plot.fp3", "x");
  EXPECT_TRUE(fileExists(L"C:\\App\\\\Data\\plot.fp3"));
  EXPECT_TRUE(fileExists(L"C:/App/Data/plot.fp3"));
  EXPECT_TRUE(fileExists(L"C:\\App\\Data\\..\\.\\Data\\plot.fp3"));
  EXPECT_EQ(readWhole(L"C:\\\\App\\\\Data\\\\plot.fp3").bytes, "x");
}

TEST_F(MemoryNamesTest, DotsAndBlanksAtTheEndDoNotCount) {
  desktop().putFile(L"C:\\App\\plot.fp3", "x");
  EXPECT_TRUE(fileExists(L"C:\\App\\plot.fp3 "));
  EXPECT_EQ(readWhole(L"C:\\App.\\plot.fp3. .").bytes, "x");
  EXPECT_FALSE(fileExists(L"C:\\App\\ plot.fp3"));
}

TEST_F(MemoryNamesTest, AFileIsNoFolder) {
  desktop().putFile(L"C:\\App\\file", "x");
  EXPECT_EQ(errorNumberOf([] { static_cast<void>(readWhole(L"C:\\App\\file\\")); }), 52);
  EXPECT_EQ(errorNumberOf([] { static_cast<void>(readWhole(L"C:\\App\\file\\x")); }), 76);
  EXPECT_FALSE(fileExists(L"C:\\App\\file\\x"));
}

TEST_F(MemoryNamesTest, ShortNamesLeadToTheLongOnes) {
  desktop().putFile(L"C:\\Program Files\\Long name.text", "x");
  desktop().alias(L"C:\\PROGRA~1", L"C:\\Program Files");
  desktop().alias(L"LONGNA~1.TEX", L"C:\\Program Files\\Long name.text");
  EXPECT_EQ(findFirst(L"C:\\progra~1", directory), L"Program Files");
  EXPECT_EQ(findFirst(L"C:\\PROGRA~1\\LONGNA~1.TEX"), L"Long name.text");
  EXPECT_EQ(readWhole(L"C:\\PROGRA~1\\longna~1.tex").bytes, "x");
  EXPECT_EQ(findFirst(L"C:\\PROGRA~1\\*.tex"), L"Long name.text")
      << "A pattern may fit the short name";
}

TEST_F(MemoryNamesTest, AnEntryIsFoundByItsVeryNameWhateverItsKind) {
  desktop().putFile(L"C:\\App\\Long name.text", "", hidden, 5);
  desktop().alias(L"LONGNA~1.TEX", L"C:\\App\\Long name.text");
  for (const auto* const path : {L"c:\\app\\LONG NAME.TEXT", L"C:\\App\\longna~1.tex"}) {
    const auto entry = entryAt(path);
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->name, L"Long name.text");
    EXPECT_EQ(entry->shortName, L"LONGNA~1.TEX");
    EXPECT_EQ(entry->modified, 5U);
  }
  EXPECT_EQ(entryAt(L"c:\\APP").value_or(Entry{}).name, L"App");
  EXPECT_EQ(entryAt(L"c:\\APP").value_or(Entry{}).shortName, L"");
  for (const auto* const path : {L"", L"C:", L"C:\\", L"X:\\a", L"C:\\App\\gone", L"C:\\App\\*",
                                 L"C:\\App\\Long?name.text", L"C:\\App\\gone\\x"}) {
    EXPECT_FALSE(entryAt(path)) << testing::PrintToString(std::wstring(path));
  }
}

TEST_F(MemoryNamesTest, OnlySomeVolumesGiveShortNames) {
  desktop().putFile(L"C:\\\u0416\u0443\u043A Suite\\plot 1.fp3x", "x");
  desktop().putFolder(L"D:");
  desktop().giveShortNames(L"C:");
  const std::wstring folder = L"C:\\___SUI~1";
  EXPECT_EQ(entryAt(folder).value_or(Entry{}).name, L"\u0416\u0443\u043A Suite");
  EXPECT_EQ(entryAt(folder + L"\\plot 1.fp3x").value_or(Entry{}).shortName, L"PLOT1~1.FP3");
  desktop().putFile(folder + L"\\\u0416.fp3", "new");
  desktop().putFile(folder + L"\\\u0411.fp3", "another");
  desktop().putFile(folder + L"\\plot.fp3", "");
  desktop().putFile(L"D:\\\u0416.fp3", "");
  EXPECT_EQ(readWhole(folder + L"\\_~1.FP3").bytes, "new");
  EXPECT_EQ(readWhole(folder + L"\\_~2.FP3").bytes, "another");
  EXPECT_EQ(entryAt(folder + L"\\plot.fp3").value_or(Entry{}).shortName, L"");
  EXPECT_EQ(entryAt(L"D:\\\u0416.fp3").value_or(Entry{}).shortName, L"");
  EXPECT_EQ(searchByExtension(folder, {L"fp3"})[0].size(), 4U);
  EXPECT_EQ(searchByExtension(folder, {L"fp3"})[0][1].shortName, L"_~1.FP3");
  EXPECT_EQ(search(folder + L"\\_~1.FP3").at(0).shortName, L"") << "a plain search leaves it out";
}

TEST_F(MemoryNamesTest, ARenamedFileHasAnotherShortName) {
  desktop().giveShortNames(L"C:");
  desktop().putFile(L"C:\\App\\\u0416.fp3", "");
  rename(L"C:\\App\\\u0416.fp3", L"C:\\App\\long name.fp3");
  EXPECT_EQ(entryAt(L"C:\\App\\long name.fp3").value_or(Entry{}).shortName, L"LONGNA~1.FP3");
  rename(L"C:\\App\\long name.fp3", L"C:\\App\\LONGNA~1.FP3");
  EXPECT_EQ(entryAt(L"C:\\App\\LONGNA~1.FP3").value_or(Entry{L"", 0, L"none"}).shortName, L"");
}

TEST_F(MemoryNamesTest, TheShortNameOfANewFileIsKnownBeforehand) {
  desktop().giveShortNames(L"C:");
  desktop().putFolder(L"D:");
  const std::wstring path = L"C:\\App\\\u0416.fp3";
  EXPECT_EQ(shortNameOfNew(path), L"_~1.FP3");
  EXPECT_FALSE(desktop().has(path));
  EXPECT_EQ(shortNameOfNew(L"C:\\App\\plot.fp3"), L"");
  EXPECT_EQ(shortNameOfNew(L"D:\\\u0416.fp3"), L"");
  desktop().putFile(path, "");
  EXPECT_EQ(errorNumberOf([&] { static_cast<void>(shortNameOfNew(path)); }), 58);
  EXPECT_EQ(errorNumberOf([] { static_cast<void>(shortNameOfNew(L"C:\\gone\\\u0416")); }), 76);
  EXPECT_EQ(errorNumberOf([] { static_cast<void>(shortNameOfNew(L"C:\\App\\\u0416?")); }), 52);
  EXPECT_EQ(desktop().journal().front(), L"short name of new " + path);
}

TEST_F(MemoryNamesTest, SharesAreDrives) {
  desktop().putFile(L"\\\\server\\share\\a.txt", "x");
  EXPECT_TRUE(fileExists(L"\\\\SERVER\\Share\\A.txt"));
  EXPECT_EQ(errorNumberOf([] { static_cast<void>(readWhole(L"\\\\gone\\share\\a.txt")); }), 52);
}

TEST_F(MemoryNamesTest, EveryEntryComesWithItsDate) {
  desktop().putFile(L"C:\\App\\a", "", normal, 12345);
  const auto entries = search(L"C:\\App\\a");
  ASSERT_EQ(entries.size(), 1U);
  EXPECT_EQ(entries.front().modified, 12345U);
}

TEST(Wildcards, FitAsTheSystemFitsThem) {
  using ::memory::fits;
  EXPECT_TRUE(fits(L"A.TXT", L"*"));
  EXPECT_TRUE(fits(L"A.TXT", L"*.*"));
  EXPECT_TRUE(fits(L"NODOT", L"*.*"));
  EXPECT_TRUE(fits(L"A.TXT", L"*.TXT"));
  EXPECT_TRUE(fits(L"A.B.TXT", L"*.TXT"));
  EXPECT_TRUE(fits(L"A.TXT", L"A*"));
  EXPECT_TRUE(fits(L"PLOT 1.FP3", L"PLOT?1.FP3"));
  EXPECT_TRUE(fits(L"PLOT.FP3", L"PLOT??.FP3"));
  EXPECT_TRUE(fits(L"PLOT", L"PLOT?"));
  EXPECT_TRUE(fits(L"A", L"**A**"));
  EXPECT_FALSE(fits(L"A.TXTX", L"*.TXT"));
  EXPECT_FALSE(fits(L"A.TXT", L"?"));
  EXPECT_FALSE(fits(L"PLOT1.FP3", L"PLOT.FP3"));
  EXPECT_FALSE(fits(L"NODOT", L"*.TXT"));
  EXPECT_FALSE(fits(L"AB", L"A"));
  EXPECT_FALSE(fits(L"", L"A"));
}

}  // namespace
}  // namespace platform::files
