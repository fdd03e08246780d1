// Missing files: which they are, where they may be, and what is asked about them.
#include "catalogue/moved_files.h"

#include <gtest/gtest.h>

#include <string>
#include <tuple>
#include <vector>

#include "platform/faults.h"
#include "unit/support/catalogue_test.h"

namespace {

using memory::desktop;
using modQMKGeneral::FoundFile;
using modQMKGeneral::ListedFolder;
using modQMKGeneral::Move;
using platform::dialogs::Answer;
using unit::Texts;

using Folders = std::vector<ListedFolder>;

class MovedFiles : public unit::CatalogueTest {
 protected:
  static Texts pathsOf(const Folders& folders) {
    Texts paths;
    for (const ListedFolder& folder : folders) {
      for (const std::wstring& name : folder.names) {
        paths.push_back(folder.path + name);
      }
    }
    return paths;
  }
  static Texts missingOf(Folders folders) {
    modQMKGeneral::keepMissing(folders);
    return pathsOf(folders);
  }
  /// "entry -> place" for each file that was found.
  static Texts found(const Folders& missing, const std::vector<FoundFile>& files) {
    Texts texts;
    for (const FoundFile& file : files) {
      texts.push_back(missing[file.folder].path + missing[file.folder].names[file.name] + L" -> " +
                      file.path);
    }
    return texts;
  }
  static std::vector<Move> movesAmong(const Folders& missing, const Texts& paths) {
    return modQMKGeneral::movesOf(missing, modQMKGeneral::amongFiles(missing, paths).files);
  }
  /// What is asked, when all answers are the same.
  static Texts asked(const Folders& missing, const Texts& paths, Answer answer) {
    desktop().answers.assign(20, answer);
    static_cast<void>(modQMKGeneral::askAboutMoves(missing, movesAmong(missing, paths)));
    return messages();
  }
};

// --- what is missing ---

TEST_F(MovedFiles, TheListIsTakenApartByFolder) {
  putCatalogue(unit::record({"FP3", "C:\\A\\1.fp3", ""}) +
               unit::record({"FP3", "C:\\B\\2.fp3", ""}) +
               unit::record({"FP3", "C:\\A\\3.fp3", ""}) + unit::record({"FP3", "nowhere", ""}));
  modQMKGeneral::LoadCatalogueView(view);
  const Folders folders = modQMKGeneral::entriesByFolder(list);
  ASSERT_EQ(folders.size(), 2U);
  EXPECT_EQ(pathsOf(folders), (Texts{L"C:\\A\\1.fp3", L"C:\\A\\3.fp3", L"C:\\B\\2.fp3"}));
  EXPECT_EQ(modQMKGeneral::countOf(folders), 3U);
}

TEST_F(MovedFiles, OnlyWhatIsNotThereIsMissing) {
  desktop().putFile(L"C:\\A\\1.fp3", "");
  desktop().putFile(L"C:\\A\\hidden.fp3", "", platform::files::hidden);
  EXPECT_EQ(missingOf({{L"C:\\A\\", {L"1.FP3", L"2.fp3", L"hidden.fp3"}},
                       {L"C:\\Gone\\", {L"3.fp3"}},
                       {L"C:\\", {L"4.fp3"}},
                       {L"relative\\", {L"5.fp3"}}}),
            (Texts{L"C:\\A\\2.fp3", L"C:\\A\\hidden.fp3", L"C:\\Gone\\3.fp3", L"C:\\4.fp3"}));
}

TEST_F(MovedFiles, FilesInAHiddenFolderAreThere) {
  desktop().putFile(L"C:\\A\\1.fp3", "");
  desktop().setHidden(L"C:\\A");
  EXPECT_EQ(missingOf({{L"C:\\A\\", {L"1.fp3"}}}), Texts{});
}

TEST_F(MovedFiles, ManyEntriesOfAFolderAreLookedForAtOnce) {
  Folders folders{{L"C:\\A\\", {}}};
  for (int n = 0; n < 40; ++n) {
    const std::wstring name = L"Plot " + std::to_wstring(n) + L".fp3";
    folders.front().names.push_back(name);
    if (n != 7) {
      desktop().putFile(L"C:\\A\\" + name, "");
    }
  }
  const int before = desktop().faults().looks();
  EXPECT_EQ(missingOf(folders), Texts{L"C:\\A\\Plot 7.fp3"});
  EXPECT_LT(desktop().faults().looks() - before, 6);
}

TEST_F(MovedFiles, AmongManyAFileMayBeListedInAnotherForm) {
  desktop().giveShortNames(L"C:");
  Folders folders{{L"C:\\A\\", {L"__~1.FP3", L"?x.fp3"}}};
  desktop().putFile(L"C:\\A\\\u0416\u0416.fp3", "");
  desktop().putFile(L"C:\\A\\\u0416x.fp3", "");
  for (int n = 0; n < 40; ++n) {
    folders.front().names.push_back(std::to_wstring(n));
    desktop().putFile(L"C:\\A\\" + std::to_wstring(n), "");
  }
  EXPECT_EQ(missingOf(folders), Texts{});
}

TEST_F(MovedFiles, ANameThatMayMeanSeveralFilesIsNotMissing) {
  desktop().putFile(L"C:\\A\\\u0416.fp3", "");
  desktop().putFile(L"C:\\A\\\u0417.fp3", "");
  EXPECT_EQ(missingOf({{L"C:\\A\\", {L"?.fp3"}}}), Texts{});
}

TEST_F(MovedFiles, EverythingOnADriveThatDoesNotAnswerIsMissing) {
  desktop().putFile(L"E:\\1.fp3", "");
  desktop().missingDrives = {L"E:"};
  EXPECT_EQ(missingOf({{L"E:\\", {L"1.fp3"}}}), Texts{L"E:\\1.fp3"});
}

// --- other drives ---

TEST_F(MovedFiles, TheSamePathIsLookedForOnTheOtherDrives) {
  desktop().putFile(L"F:\\Work\\1.fp3", "");
  desktop().putFile(L"F:\\Other\\2.fp3", "");
  desktop().putFile(L"G:\\4.fp3", "");
  desktop().slowDrives = {L"F:"};
  const Folders missing{{L"E:\\Work\\", {L"1.fp3", L"2.fp3"}},
                        {L"\\\\server\\share\\Work\\", {L"1.fp3"}},
                        {L"E:\\", {L"4.fp3"}}};
  EXPECT_EQ(
      found(missing, modQMKGeneral::onOtherDrives(missing)),
      (Texts{L"E:\\Work\\1.fp3 -> F:\\Work\\1.fp3",
             L"\\\\server\\share\\Work\\1.fp3 -> F:\\Work\\1.fp3", L"E:\\4.fp3 -> G:\\4.fp3"}));
}

TEST_F(MovedFiles, ADriveThatIsNotConnectedHasNothing) {
  desktop().putFile(L"F:\\Work\\1.fp3", "");
  desktop().missingDrives = {L"F:"};
  EXPECT_TRUE(modQMKGeneral::onOtherDrives({{L"E:\\Work\\", {L"1.fp3"}}}).empty());
}

// --- by name ---

TEST_F(MovedFiles, FilesAreFoundByNameInWhateverCase) {
  const Folders missing{{L"C:\\Old\\", {L"Ridge.fp3", L"ge.fp3", L"Gone.fp3"}}};
  const auto result = modQMKGeneral::amongFiles(missing, {L"D:\\New\\RIDGE.FP3", L"D:\\x.fp3"});
  EXPECT_EQ(found(missing, result.files), Texts{L"C:\\Old\\Ridge.fp3 -> D:\\New\\RIDGE.FP3"});
  EXPECT_EQ(result.unclear, 0U);
}

TEST_F(MovedFiles, TheBestFitKeepsTheMostFolders) {
  const Folders missing{{L"C:\\Work\\2024\\North\\", {L"1.fp3"}},
                        {L"C:\\Work\\South\\", {L"1.fp3"}}};
  const Texts paths{L"D:\\1.fp3", L"D:\\North\\1.fp3", L"D:\\A\\2024\\North\\1.fp3",
                    L"D:\\A\\2024x\\North\\1.fp3", L"D:\\A\\South\\1.fp3"};
  EXPECT_EQ(found(missing, modQMKGeneral::amongFiles(missing, paths).files),
            (Texts{L"C:\\Work\\2024\\North\\1.fp3 -> D:\\A\\2024\\North\\1.fp3",
                   L"C:\\Work\\South\\1.fp3 -> D:\\A\\South\\1.fp3"}));
}

TEST_F(MovedFiles, ANameWithSubstitutesIsFound) {
  const Folders missing{{L"C:\\Old ?\\", {L"Pl?t.fp3"}}};
  EXPECT_EQ(found(missing, modQMKGeneral::amongFiles(
                               missing, {L"D:\\Old \u0416\\Pl\u0416t.fp3", L"D:\\Plot.fp3"})
                               .files),
            Texts{L"C:\\Old ?\\Pl?t.fp3 -> D:\\Old \u0416\\Pl\u0416t.fp3"});
}

TEST_F(MovedFiles, TooManyPlacesAreNoQuestion) {
  const Folders missing{{L"C:\\Old\\", {L"1.fp3"}}};
  Texts paths;
  for (wchar_t folder = L'a'; folder <= L'i'; ++folder) {
    paths.push_back(std::wstring(L"D:\\") + folder + L"\\1.fp3");
  }
  EXPECT_EQ(modQMKGeneral::amongFiles(missing, paths).files.size(), 9U);
  paths.push_back(L"D:\\j\\1.fp3");
  const auto result = modQMKGeneral::amongFiles(missing, paths);
  EXPECT_TRUE(result.files.empty());
  EXPECT_EQ(result.unclear, 1U);
}

TEST_F(MovedFiles, AFileThatIsThereAgainHasNotMoved) {
  const Folders missing{{L"C:\\Old\\", {L"1.fp3"}}};
  EXPECT_TRUE(modQMKGeneral::amongFiles(missing, {L"c:\\OLD\\1.fp3"}).files.empty());
  EXPECT_TRUE(modQMKGeneral::amongFiles(missing, {}).files.empty());
}

TEST_F(MovedFiles, ManyEqualNamesAreSorted) {
  // Each entry must be found without looking at all the others.
  Folders missing;
  Texts paths;
  constexpr int many = 20'000;
  for (int n = 0; n < many; ++n) {
    missing.push_back({L"C:\\Work\\" + std::to_wstring(n) + L"\\", {L"Plot 1.fp3"}});
    paths.push_back(L"D:\\Archive\\" + std::to_wstring(n) + L"\\Plot 1.fp3");
  }
  const std::vector<Move> moves = movesAmong(missing, paths);
  ASSERT_EQ(moves.size(), 1U);
  EXPECT_EQ(moves.front().from, L"C:\\Work\\");
  EXPECT_EQ(moves.front().to, Texts{L"D:\\Archive\\"});
  EXPECT_EQ(moves.front().files.front().size(), std::size_t{many});
}

// --- moves ---

TEST_F(MovedFiles, AFolderWithAllBelowItIsOneMove) {
  const Folders missing{{L"C:\\Work\\", {L"0.fp3"}},
                        {L"C:\\Work\\A\\", {L"1.fp3"}},
                        {L"C:\\Work\\B\\C\\", {L"2.fp3"}}};
  const auto moves =
      movesAmong(missing, {L"D:\\New\\0.fp3", L"D:\\New\\a\\1.fp3", L"D:\\New\\B\\C\\2.fp3"});
  ASSERT_EQ(moves.size(), 1U);
  EXPECT_EQ(moves.front().from, L"C:\\Work\\");
  EXPECT_EQ(moves.front().to, Texts{L"D:\\New\\"});
}

TEST_F(MovedFiles, TheDriveIsNeverCutOff) {
  const Folders missing{{L"\\\\one\\data\\A\\", {L"1.fp3"}}, {L"E:\\A\\", {L"2.fp3"}}};
  const auto moves = movesAmong(missing, {L"\\\\two\\data\\A\\1.fp3", L"F:\\A\\2.fp3"});
  ASSERT_EQ(moves.size(), 2U);
  EXPECT_EQ(moves[0].from, L"\\\\one\\data\\");
  EXPECT_EQ(moves[0].to, Texts{L"\\\\two\\data\\"});
  EXPECT_EQ(moves[1].from, L"E:\\");
  EXPECT_EQ(moves[1].to, Texts{L"F:\\"});
}

// --- questions ---

TEST_F(MovedFiles, AQuestionNamesTheFolderAndWhatWasNotFound) {
  const Folders missing{{L"C:\\Old\\", {L"1.fp3", L"2.fp3", L"gone.fp3"}},
                        {L"C:\\Old\\Deep\\", {L"lost.fp3"}},
                        {L"C:\\Older\\", {L"3.fp3"}}};
  EXPECT_EQ(asked(missing, {L"D:\\New\\1.fp3", L"D:\\New\\2.fp3"}, Answer::yes),
            Texts{L"2 of 4 missing entries under C:\\Old are in D:\\New. Change them?\r"
                  L"Not found there: gone.fp3, Deep\\lost.fp3"});
  EXPECT_EQ(desktop().messages[0].style, platform::dialogs::MessageStyle::yesNoQuestion);
}

TEST_F(MovedFiles, ALongListOfNamesIsShortened) {
  Folders missing{{L"E:\\", {L"found.fp3"}}};
  for (int n = 0; n < 15; ++n) {
    missing.front().names.push_back(std::to_wstring(n));
  }
  EXPECT_EQ(asked(missing, {L"F:\\found.fp3"}, Answer::no),
            Texts{L"1 of 16 missing entries under E:\\ are in F:\\. Change them?\r"
                  L"Not found there: 0, 1, 2, 3, 4, 5, 6, 7, 8, 9 and 5 more"});
}

TEST_F(MovedFiles, YesTakesTheEntriesAndNoLeavesThem) {
  const Folders missing{{L"C:\\A\\", {L"1.fp3", L"2.fp3"}}, {L"C:\\B\\", {L"3.fp3"}}};
  const Texts paths{L"D:\\A1\\1.fp3", L"D:\\A1\\2.fp3", L"D:\\B1\\3.fp3"};
  desktop().answers = {Answer::no, Answer::yes};
  EXPECT_EQ(found(missing, modQMKGeneral::askAboutMoves(missing, movesAmong(missing, paths))),
            Texts{L"C:\\B\\3.fp3 -> D:\\B1\\3.fp3"});
  EXPECT_EQ(messages(), (Texts{L"2 of 2 missing entries under C:\\A are in D:\\A1. Change them?",
                               L"1 of 1 missing entries under C:\\B are in D:\\B1. Change them?"}));
}

TEST_F(MovedFiles, PlacesThatFitEquallyWellAreAskedAboutOneByOne) {
  const Folders missing{{L"C:\\Old\\A\\", {L"1.fp3", L"2.fp3", L"3.fp3"}}};
  const Texts paths{L"D:\\X\\A\\1.fp3", L"D:\\Y\\A\\1.fp3", L"D:\\X\\A\\2.fp3", L"D:\\Y\\A\\2.fp3"};
  desktop().answers = {Answer::no, Answer::yes};
  EXPECT_EQ(
      found(missing, modQMKGeneral::askAboutMoves(missing, movesAmong(missing, paths))),
      (Texts{L"C:\\Old\\A\\1.fp3 -> D:\\Y\\A\\1.fp3", L"C:\\Old\\A\\2.fp3 -> D:\\Y\\A\\2.fp3"}));
  const std::wstring both =
      L"2 of 3 missing entries under C:\\Old may be in several folders: A\\1.fp3, A\\2.fp3\r"
      L"D:\\X\rD:\\Y\r";
  EXPECT_EQ(messages(), (Texts{both + L"Are those in D:\\X meant?\rNot found there: A\\3.fp3",
                               both + L"Are those in D:\\Y meant?\rNot found there: A\\3.fp3"}));
}

TEST_F(MovedFiles, NoAnswerIsGuessed) {
  const Folders missing{{L"C:\\Old\\", {L"1.fp3"}}};
  desktop().answers = {Answer::no, Answer::no};
  EXPECT_TRUE(
      modQMKGeneral::askAboutMoves(missing, movesAmong(missing, {L"D:\\X\\1.fp3", L"D:\\Y\\1.fp3"}))
          .empty());
  EXPECT_EQ(desktop().messages.size(), 2U);
}

TEST_F(MovedFiles, OneFileIsNotGivenToTwoEntries) {
  // The entry that keeps more folders is asked about first.
  const Folders missing{{L"C:\\B\\", {L"1.fp3"}}, {L"C:\\A\\Deep\\", {L"1.fp3"}}};
  desktop().answers = {Answer::yes};
  EXPECT_EQ(found(missing,
                  modQMKGeneral::askAboutMoves(missing, movesAmong(missing, {L"D:\\Deep\\1.fp3"}))),
            Texts{L"C:\\A\\Deep\\1.fp3 -> D:\\Deep\\1.fp3"});
  EXPECT_EQ(messages(), Texts{L"1 of 1 missing entries under C:\\A are in D:\\. Change them?"});
}

TEST_F(MovedFiles, ARefusedFileIsOfferedToTheNextEntry) {
  const Folders missing{{L"C:\\B\\", {L"1.fp3"}}, {L"C:\\A\\Deep\\", {L"1.fp3"}}};
  desktop().answers = {Answer::no, Answer::yes};
  EXPECT_EQ(found(missing,
                  modQMKGeneral::askAboutMoves(missing, movesAmong(missing, {L"D:\\Deep\\1.fp3"}))),
            Texts{L"C:\\B\\1.fp3 -> D:\\Deep\\1.fp3"});
  EXPECT_EQ(desktop().messages.size(), 2U);
}

}  // namespace
