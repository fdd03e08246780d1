#include "startup/paths.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/desktop_test.h"
#include "platform/folders.h"
#include "unit/support/error_number.h"
#include "unit/support/journal_order.h"

namespace {

using memory::desktop;
using modQMKGeneral::AppFolder;
using modQMKGeneral::ensureFolder;
using modQMKGeneral::InitUserFolders;
using modQMKGeneral::ShortCutsFolder;
using modQMKGeneral::UserFolder;
using smodFolders::GetSpecialFolder;
using SmodMisc::CanonicalPath;

class PathsTest : public memory::DesktopTest {
 protected:
  PathsTest() {
    UserFolder.clear();
    ShortCutsFolder.clear();
  }
};

// --- user folders ---

TEST_F(PathsTest, TheUserFolderStandsInDocumentsAndTheShortcutsFolderInIt) {
  InitUserFolders();

  EXPECT_EQ(UserFolder, L"C:\\Users\\Ann\\Documents\\My QMKExtra3");
  EXPECT_EQ(ShortCutsFolder, L"C:\\Users\\Ann\\Documents\\My QMKExtra3\\ShortCuts");
}

TEST_F(PathsTest, BothUserFoldersAreMadeTheUpperOneFirst) {
  InitUserFolders();

  expectInOrder({L"make folder C:\\Users\\Ann\\Documents\\My QMKExtra3",
                 L"make folder C:\\Users\\Ann\\Documents\\My QMKExtra3\\ShortCuts"});
  EXPECT_TRUE(desktop().has(UserFolder));
  EXPECT_TRUE(desktop().has(ShortCutsFolder));
}

TEST_F(PathsTest, AnExistingUserFolderOnlyGetsItsShortcutsFolder) {
  desktop().putFolder(L"C:\\Users\\Ann\\Documents\\My QMKExtra3");

  InitUserFolders();

  EXPECT_EQ(linesBeginning(L"make folder"), 1U);
  EXPECT_TRUE(desktop().has(ShortCutsFolder));
}

TEST_F(PathsTest, NothingIsMadeTheSecondTime) {
  InitUserFolders();
  desktop().clearJournal();

  InitUserFolders();

  EXPECT_EQ(linesBeginning(L"make folder"), 0U);
}

TEST_F(PathsTest, AFolderThatCannotBeMadeRaisesThePlatformsErrorWithoutAMessage) {
  desktop().take(L"C:\\Users\\Ann\\Documents");

  EXPECT_EQ(errorNumberOf(InitUserFolders), 76);
  EXPECT_EQ(UserFolder, L"C:\\Users\\Ann\\Documents\\My QMKExtra3");
  EXPECT_TRUE(desktop().messages.empty());
}

TEST_F(PathsTest, AFileInThePlaceOfTheUserFolderLeavesNoRoomForTheShortcuts) {
  desktop().putFile(L"C:\\Users\\Ann\\Documents\\My QMKExtra3", "in the way");

  EXPECT_EQ(errorNumberOf(InitUserFolders), 76);
  EXPECT_TRUE(desktop().messages.empty());
}

TEST_F(PathsTest, WithoutADocumentsFolderTheUserFolderIsRelativeToTheRoot) {
  desktop().documents.reset();

  static_cast<void>(errorNumberOf(InitUserFolders));

  EXPECT_EQ(UserFolder, L"\\My QMKExtra3");
  EXPECT_EQ(linesBeginning(L"make folder \\My QMKExtra3"), 1U);
  EXPECT_TRUE(desktop().messages.empty());
}

TEST_F(PathsTest, AShortDocumentsFolderStaysShortAndOnlyTheCanonicalPathExpandsIt) {
  desktop().putFolder(L"C:\\Users\\Annabel Lee\\Documents");
  desktop().alias(L"C:\\Users\\ANNABE~1", L"C:\\Users\\Annabel Lee");
  desktop().documents = L"C:\\Users\\ANNABE~1\\Documents";

  InitUserFolders();

  EXPECT_EQ(UserFolder, L"C:\\Users\\ANNABE~1\\Documents\\My QMKExtra3");
  EXPECT_EQ(ShortCutsFolder, L"C:\\Users\\ANNABE~1\\Documents\\My QMKExtra3\\ShortCuts");
  EXPECT_EQ(CanonicalPath(ShortCutsFolder),
            L"C:\\Users\\Annabel Lee\\Documents\\My QMKExtra3\\ShortCuts");
}

TEST_F(PathsTest, ADocumentsFolderInADrivesRootGivesNoDoubledBackslash) {
  desktop().putFolder(L"D:");
  desktop().documents = L"D:\\";

  InitUserFolders();

  EXPECT_EQ(UserFolder, L"D:\\My QMKExtra3");
  EXPECT_EQ(ShortCutsFolder, L"D:\\My QMKExtra3\\ShortCuts");
}

TEST_F(PathsTest, AVanishedFolderIsMadeAgainAndAnExistingOneIsLeftAlone) {
  ensureFolder(L"C:\\App\\PhotoImages");
  ensureFolder(L"C:\\App\\PhotoImages");
  EXPECT_EQ(linesBeginning(L"make folder"), 1U);

  desktop().take(L"C:\\App\\PhotoImages");
  ensureFolder(L"C:\\App\\PhotoImages");
  EXPECT_EQ(linesBeginning(L"make folder"), 2U);
}

TEST_F(PathsTest, FoldersAreMadeOneLevelAtATime) {
  EXPECT_EQ(errorNumberOf([] { ensureFolder(L"C:\\App\\one\\two"); }), 76);
  EXPECT_FALSE(desktop().has(L"C:\\App\\one"));
}

TEST_F(PathsTest, TheApplicationFolderIsReadAfresh) {
  EXPECT_EQ(AppFolder(), L"C:\\App");
  desktop().applicationFolder = L"D:\\Elsewhere";
  EXPECT_EQ(AppFolder(), L"D:\\Elsewhere");
}

// --- special folders ---

TEST_F(PathsTest, TheDocumentsFolderIsWhatTheShellReports) {
  desktop().documents = L"E:\\Papers";
  EXPECT_EQ(GetSpecialFolder(platform::folders::personal), L"E:\\Papers");
  EXPECT_EQ(platform::folders::personal, 5);
}

TEST_F(PathsTest, ASpecialFolderThatTheShellDoesNotKnowIsEmpty) {
  EXPECT_EQ(GetSpecialFolder(9999), L"");
  desktop().documents.reset();
  EXPECT_EQ(GetSpecialFolder(platform::folders::personal), L"");
}

TEST_F(PathsTest, TheWindowThatOwnsTheLookUpIsNeverShownAndGoesInEveryCase) {
  static_cast<void>(GetSpecialFolder(platform::folders::personal));
  static_cast<void>(GetSpecialFolder(9999));

  const std::vector<std::wstring> expected{
      L"create frmSpecialFolders", L"destroy frmSpecialFolders", L"create frmSpecialFolders",
      L"destroy frmSpecialFolders"};
  EXPECT_EQ(desktop().journal(), expected);
  EXPECT_TRUE(desktop().windows().empty());
}

// --- canonical paths ---

class CanonicalPathTest : public PathsTest {
 protected:
  CanonicalPathTest() {
    desktop().putFile(L"C:\\Program Files\\App\\Tool.exe", "MZ");
    desktop().alias(L"C:\\PROGRA~1", L"C:\\Program Files");
  }
};

TEST_F(CanonicalPathTest, ShortNamesAndLetterCaseBecomeWhatIsOnDisk) {
  EXPECT_EQ(CanonicalPath(L"C:\\PROGRA~1\\APP\\"), L"C:\\Program Files\\App");
  EXPECT_EQ(CanonicalPath(L"C:\\program files\\app"), L"C:\\Program Files\\App");
}

TEST_F(CanonicalPathTest, TheLastComponentMayBeAFile) {
  EXPECT_EQ(CanonicalPath(L"C:\\PROGRA~1\\APP\\TOOL.EXE"), L"C:\\Program Files\\App\\Tool.exe");
}

TEST_F(CanonicalPathTest, TheDriveStaysAsItWasWritten) {
  EXPECT_EQ(CanonicalPath(L"c:\\app"), L"c:\\App");
}

TEST_F(CanonicalPathTest, TheResultNeverEndsInABackslash) {
  EXPECT_EQ(CanonicalPath(L"C:\\App\\"), L"C:\\App");
  EXPECT_EQ(CanonicalPath(L"C:\\"), L"C:");
  EXPECT_EQ(CanonicalPath(L"C:"), L"C:");
}

TEST_F(CanonicalPathTest, HiddenAndSystemComponentsAreFound) {
  desktop().putFile(L"C:\\App\\Secret", "x", platform::files::hidden | platform::files::system);
  desktop().putFolder(L"C:\\Vault\\Inner");
  desktop().setHidden(L"C:\\Vault");

  EXPECT_EQ(CanonicalPath(L"C:\\APP\\SECRET"), L"C:\\App\\Secret");
  EXPECT_EQ(CanonicalPath(L"C:\\vault\\inner"), L"C:\\Vault\\Inner");
}

TEST_F(CanonicalPathTest, AnEmptyPathGivesNothing) { EXPECT_EQ(CanonicalPath(L""), L""); }

TEST_F(CanonicalPathTest, AnyMissingComponentGivesNothing) {
  EXPECT_EQ(CanonicalPath(L"C:\\Missing"), L"");
  EXPECT_EQ(CanonicalPath(L"C:\\Missing\\App"), L"");
  EXPECT_EQ(CanonicalPath(L"C:\\App\\Missing\\"), L"");
}

TEST_F(CanonicalPathTest, ServerAndShareOfANetworkPathStayAsTheyWereWritten) {
  desktop().putFolder(L"\\\\server\\share\\App\\Inner");
  EXPECT_EQ(CanonicalPath(L"\\\\Server\\SHARE\\app\\INNER"), L"\\\\Server\\SHARE\\App\\Inner");
  EXPECT_EQ(CanonicalPath(L"\\\\server\\share\\app\\"), L"\\\\server\\share\\App");
  EXPECT_EQ(CanonicalPath(L"\\\\server\\share\\"), L"\\\\server\\share");
  EXPECT_EQ(CanonicalPath(L"\\\\server\\share"), L"\\\\server\\share");
}

TEST_F(CanonicalPathTest, ANetworkPathWithoutAShareOrWithAMissingComponentGivesNothing) {
  desktop().putFolder(L"\\\\server\\share\\App");
  for (const wchar_t* const path :
       {L"\\\\server\\share\\Missing", L"\\\\server\\other\\App", L"\\\\server\\", L"\\\\server",
        L"\\\\", L"\\\\\\share\\App", L"\\\\server\\\\App", L"\\\\\\\\"}) {
    EXPECT_EQ(CanonicalPath(path), L"") << ::testing::PrintToString(path);
  }
}

TEST_F(PathsTest, DocumentsOnANetworkPathHaveTheirUserFolderThere) {
  desktop().putFolder(L"\\\\server\\home\\ann");
  desktop().documents = L"\\\\server\\home\\ann";

  InitUserFolders();

  EXPECT_EQ(ShortCutsFolder, L"\\\\server\\home\\ann\\My QMKExtra3\\ShortCuts");
  EXPECT_TRUE(desktop().has(ShortCutsFolder));
  EXPECT_EQ(CanonicalPath(ShortCutsFolder), ShortCutsFolder);
}

// --- splitting ---

struct Split {
  const wchar_t* path;
  const wchar_t* name;
  const wchar_t* folder;
};

TEST(SplitPathTest, TheNameFollowsTheLastBackslashWhichStaysWithTheFolder) {
  const std::vector<Split> cases{
      {L"C:\\a\\b.lnk", L"b.lnk", L"C:\\a\\"},
      {L"b.lnk", L"b.lnk", L""},
      {L"C:\\a\\", L"", L"C:\\a\\"},
      {L"\\b", L"b", L"\\"},
      {L"C:b.lnk", L"C:b.lnk", L""},
      {L"C:/a/b.lnk", L"C:/a/b.lnk", L""},
      {L"C:\\a\\b c.tar.gz", L"b c.tar.gz", L"C:\\a\\"},
      {L"", L"", L""},
  };
  for (const Split& expected : cases) {
    std::wstring name = L"what was here before";
    std::wstring folder = L"what was here before";
    SmodMisc::SplitPath(expected.path, name, folder);
    EXPECT_EQ(name, expected.name) << ::testing::PrintToString(expected.path);
    EXPECT_EQ(folder, expected.folder) << ::testing::PrintToString(expected.path);
  }
}

TEST(SplitPathTest, AnOutputMayBeThePathItself) {
  std::wstring path = L"C:\\a\\b.lnk";
  std::wstring name;
  SmodMisc::SplitPath(path, name, path);
  EXPECT_EQ(name, L"b.lnk");
  EXPECT_EQ(path, L"C:\\a\\");

  path = L"C:\\a\\b.lnk";
  std::wstring folder;
  SmodMisc::SplitPath(path, path, folder);
  EXPECT_EQ(path, L"b.lnk");
  EXPECT_EQ(folder, L"C:\\a\\");
}

}  // namespace
