#include "catalogue/changed_drive.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/desktop_test.h"

namespace {

using memory::desktop;
using modQMKGeneral::driveQuestion;
using modQMKGeneral::entriesThatFollow;
using modQMKGeneral::hasPair;
using modQMKGeneral::ListedFolder;
using modQMKGeneral::ownLetter;
using modQMKGeneral::withPair;

class ChangedDrive : public memory::DesktopTest {
 protected:
  ChangedDrive() {
    for (const wchar_t* const path :
         {L"F:\\Field\\1.fp3", L"F:\\Field\\Deep\\2.bi3", L"C:\\Here\\0.fp3"}) {
      desktop().putFile(path, "x");
    }
  }
  /// The paths of the entries that follow from E: to F:, from and to.
  static std::vector<std::wstring> followers(std::vector<ListedFolder> entries) {
    std::vector<std::wstring> texts;
    for (const auto& change : entriesThatFollow(std::move(entries), L"E:", L"F:")) {
      texts.push_back(change.from + L" > " + change.to);
    }
    return texts;
  }
  using Texts = std::vector<std::wstring>;
  const ListedFolder field{L"e:\\Field\\", {L"1.fp3", L"gone.fp3"}};
  const ListedFolder deep{L"E:\\Field\\Deep\\", {L"2.BI3"}};
};

TEST_F(ChangedDrive, MissingEntriesFollowWhereTheirFilesAre) {
  EXPECT_EQ(followers({{L"C:\\Here\\", {L"0.fp3"}}, field, deep}),
            (Texts{L"e:\\Field\\1.fp3 > F:\\Field\\1.fp3",
                   L"E:\\Field\\Deep\\2.BI3 > F:\\Field\\Deep\\2.BI3"}));
}

TEST_F(ChangedDrive, MostMissingEntriesMustLieOnTheFormerLetter) {
  const ListedFolder elsewhere{L"G:\\Other\\", {L"a.fp3", L"b.fp3"}};
  EXPECT_EQ(followers({field, deep, elsewhere}).size(), 2U);  // three of five
  EXPECT_TRUE(followers({deep, elsewhere}).empty());
  EXPECT_TRUE(followers({{L"E:\\Field\\", {L"1.fp3", L"gone.fp3"}}, elsewhere}).empty());  // half
}

TEST_F(ChangedDrive, EntriesThatAreThereStay) {
  desktop().putFile(L"E:\\Field\\1.fp3", "still there");
  EXPECT_EQ(followers({field, deep}), Texts{L"E:\\Field\\Deep\\2.BI3 > F:\\Field\\Deep\\2.BI3"});
}

TEST_F(ChangedDrive, WhatIsListedAlreadyDoesNotFollow) {
  EXPECT_EQ(followers({field, deep, {L"F:\\FIELD\\", {L"1.FP3"}}}),
            Texts{L"E:\\Field\\Deep\\2.BI3 > F:\\Field\\Deep\\2.BI3"});
}

TEST_F(ChangedDrive, TwoEntriesDoNotFollowToOneFile) {
  EXPECT_EQ(followers({field, {L"E:\\FIELD\\", {L"1.fp3"}}}),
            Texts{L"e:\\Field\\1.fp3 > F:\\Field\\1.fp3"});
}

TEST_F(ChangedDrive, NobodyFollowsWhereNothingIs) {
  EXPECT_TRUE(followers({{L"E:\\Elsewhere\\", {L"1.fp3"}}}).empty());
  EXPECT_TRUE(followers({}).empty());
}

TEST_F(ChangedDrive, LettersAreCapitalsOfDrivesThatAreNoNetworkDrives) {
  EXPECT_EQ(ownLetter(L"e:\\Suite"), L"E:");
  EXPECT_EQ(ownLetter(L"E:"), L"E:");
  EXPECT_EQ(ownLetter(L"\\\\server\\share\\Suite"), L"");
  EXPECT_EQ(ownLetter(L"1:\\Suite"), L"");
  EXPECT_EQ(ownLetter(L"[:\\Suite"), L"");
  EXPECT_EQ(ownLetter(L"z:\\Suite"), L"Z:");
  EXPECT_EQ(ownLetter(L"a:\\Suite"), L"A:");
  EXPECT_EQ(ownLetter(L"nonsense"), L"");
  EXPECT_EQ(ownLetter(L""), L"");
  desktop().networkDrives = {L"E:"};
  EXPECT_EQ(ownLetter(L"E:\\Suite"), L"");
}

TEST_F(ChangedDrive, PairsAreRememberedInTheirDirection) {
  const std::wstring one = withPair(L"", L"E:", L"F:");
  EXPECT_EQ(one, L"E:F:");
  EXPECT_EQ(withPair(one, L"E:", L"F:"), L"E:F:");
  const std::wstring two = withPair(one, L"G:", L"E:");
  EXPECT_EQ(two, L"E:F: G:E:");
  EXPECT_TRUE(hasPair(two, L"E:", L"F:"));
  EXPECT_TRUE(hasPair(two, L"G:", L"E:"));
  EXPECT_FALSE(hasPair(two, L"F:", L"E:"));
  EXPECT_FALSE(hasPair(two, L"F:", L"G:"));
  EXPECT_FALSE(hasPair(L"", L"E:", L"F:"));
}

TEST_F(ChangedDrive, TheQuestionCounts) {
  EXPECT_EQ(driveQuestion(L"E:", L"F:", 14),
            L"This stick was E:, now it is F:. Change 14 entries?");
  EXPECT_EQ(driveQuestion(L"E:", L"F:", 1), L"This stick was E:, now it is F:. Change 1 entry?");
}

}  // namespace
