// Changes of a list that are taken back and made again.
#include "listfile/list_patch.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "listfile/list_file.h"

namespace list_file {
namespace {

std::optional<std::wstring> second(const Record& record) {
  return record.has(1) ? std::optional(record.text(1)) : std::nullopt;
}

/// What becomes of `now` when the change from `before` to `after` is taken back.
std::string back(const std::string& before, const std::string& after, const std::string& now) {
  return Patch(before, after).takenBack(now, second);
}

std::string again(const std::string& before, const std::string& after, const std::string& now) {
  return Patch(before, after).madeAgain(now, second);
}

constexpr const char* three = "a,1\r\nb,2\r\nc,3\r\n";

TEST(ListPatches, KeepOnlyTheLinesThatDiffer) {
  const Patch patch("a,1\r\nb,2\r\nc,3\r\n", "a,1\r\nc,3\r\n");
  EXPECT_EQ(patch.size(), 5U);
  EXPECT_FALSE(patch.empty());
  EXPECT_TRUE(Patch(three, three).empty());
  EXPECT_TRUE(Patch().empty());
}

TEST(ListPatches, AreTakenBackByteForByte) {
  for (const std::string before : {"", "a,1", "a,1\r\nb,2", "a\rb\nc\r\n", three, "\r\n\r\n"}) {
    for (const std::string after : {"", "a,1\r\n", "b,2\r\nc,3", "a\rc\r\n", "x,1\r\nb,2\r\n"}) {
      EXPECT_EQ(back(before, after, after), before);
      EXPECT_EQ(again(before, after, before), after);
    }
  }
}

TEST(ListPatches, LeaveWhatOthersHaveChangedElsewhere) {
  // Of the same length, so that nothing but the lines themselves tells.
  EXPECT_EQ(back("a,1\r\nb,2\r\nc,3\r\n", "a,1\r\nb,9\r\nc,3\r\n", "a,1\r\nb,9\r\nd,4\r\n"),
            "a,1\r\nb,2\r\nd,4\r\n");
}

TEST(ListPatches, PutARemovedRecordBehindTheOneThatItFollowed) {
  EXPECT_EQ(back(three, "a,1\r\nc,3\r\n", "new,0\r\na,1\r\nother,4\r\nc,3\r\n"),
            "new,0\r\na,1\r\nb,2\r\nother,4\r\nc,3\r\n");
}

TEST(ListPatches, PutItBeforeTheNextOneWhenThatIsGone) {
  EXPECT_EQ(back(three, "a,1\r\nc,3\r\n", "x,7\r\nc,3\r\ny,8\r\n"), "x,7\r\nb,2\r\nc,3\r\ny,8\r\n");
}

TEST(ListPatches, PutItLastWhenBothAreGone) {
  EXPECT_EQ(back(three, "a,1\r\nc,3\r\n", "x,7"), "x,7\r\nb,2\r\n");
}

TEST(ListPatches, PutTheFirstRecordFirst) {
  EXPECT_EQ(back(three, "b,2\r\nc,3\r\n", "b,2\r\nc,3\r\nd,4\r\n"), "a,1\r\nb,2\r\nc,3\r\nd,4\r\n");
}

TEST(ListPatches, KeepTheOrderOfSeveral) {
  EXPECT_EQ(back("a,1\r\nb,2\r\nc,3\r\nd,4\r\n", "a,1\r\nd,4\r\n", "a,1\r\nd,4\r\ne,5\r\n"),
            "a,1\r\nb,2\r\nc,3\r\nd,4\r\ne,5\r\n");
}

TEST(ListPatches, FindThePlaceAmongRecordsThatStayed) {
  // Two removals with a record between them.
  EXPECT_EQ(back("a,1\r\nb,2\r\nc,3\r\nd,4\r\n", "a,1\r\nc,3\r\n", "c,3\r\na,1\r\nz,9\r\n"),
            "c,3\r\nd,4\r\na,1\r\nb,2\r\nz,9\r\n");
}

TEST(ListPatches, DoNotPutBackWhatIsThereAlready) {
  EXPECT_EQ(back(three, "a,1\r\nc,3\r\n", "a,1\r\nnewer,2\r\nc,3\r\n"),
            "a,1\r\nnewer,2\r\nc,3\r\n");
}

TEST(ListPatches, PutBackBothOfTwoEqualRecords) {
  EXPECT_EQ(back("a,1\r\nb,2\r\nb,2\r\n", "a,1\r\n", "a,1\r\nc,3\r\n"),
            "a,1\r\nb,2\r\nb,2\r\nc,3\r\n");
}

TEST(ListPatches, TakeOutWhatWasAdded) {
  EXPECT_EQ(back("a,1\r\n", "a,1\r\nb,2\r\n", "a,1\r\nb,2\r\nc,3\r\n"), "a,1\r\nc,3\r\n");
}

TEST(ListPatches, TakeItOutAlthoughAnotherProgramHasChangedIt) {
  EXPECT_EQ(back("a,1\r\n", "a,1\r\nb,2\r\n", "a,1\r\nchanged,2\r\nc,3\r\n"), "a,1\r\nc,3\r\n");
}

TEST(ListPatches, TakeOutOneOfTwoEqualRecords) {
  EXPECT_EQ(back("a,1\r\n", "a,1\r\na,1\r\n", "a,1\r\na,1\r\nc,3\r\n"), "a,1\r\nc,3\r\n");
}

TEST(ListPatches, LeaveTheListWhenTheAddedRecordIsGone) {
  EXPECT_EQ(back("a,1\r\n", "a,1\r\nb,2\r\n", "a,1\r\nc,3"), "a,1\r\nc,3");
}

TEST(ListPatches, ChangeARecordBackInItsPlace) {
  EXPECT_EQ(back(three, "a,1\r\nnew,2\r\nc,3\r\n", "z,9\r\nnew,2\r\na,1\r\nc,3\r\n"),
            "z,9\r\nb,2\r\na,1\r\nc,3\r\n");
}

TEST(ListPatches, ChangeBackAnEntryThatHasAnotherKeySince) {
  // As after a renaming, which also sorts the list and writes a record in its usual form.
  const std::string before = "c,3\r\nb , 2\r\na,1\r\n";
  const std::string after = "a,1\r\nb,2\r\nz,9\r\n";
  EXPECT_EQ(back(before, after, "a,1\r\nb,2\r\nz,9\r\nd,4\r\n"), "a,1\r\nb , 2\r\nc,3\r\nd,4\r\n");
  EXPECT_EQ(again(before, after, "c,3\r\nb , 2\r\na,1\r\nd,4\r\n"), "z,9\r\nb,2\r\na,1\r\nd,4\r\n");
}

TEST(ListPatches, PutTheFormerRecordBackWhenTheChangedOneIsGone) {
  EXPECT_EQ(back(three, "a,1\r\nb,9\r\nc,3\r\n", "a,1\r\nc,3\r\nd,4\r\n"),
            "a,1\r\nb,2\r\nc,3\r\nd,4\r\n");
}

TEST(ListPatches, DropTheChangedRecordWhenTheFormerOneIsThereAgain) {
  EXPECT_EQ(back(three, "a,1\r\nb,9\r\nc,3\r\n", "a,1\r\nb,9\r\nc,3\r\nd,2\r\n"),
            "a,1\r\nc,3\r\nd,2\r\n");
}

TEST(ListPatches, KnowLinesWithoutAKeyByTheirBytes) {
  EXPECT_EQ(back("odd\r\na,1\r\n", "a,1\r\n", "a,1\r\nb,2\r\n"), "odd\r\na,1\r\nb,2\r\n");
  EXPECT_EQ(back("odd\r\na,1\r\n", "a,1\r\n", "odd\r\na,1\r\nb,2\r\n"), "odd\r\na,1\r\nb,2\r\n");
  EXPECT_EQ(back("a,1\r\n", "a,1\r\nodd\r\n", "odd\r\nb,2\r\n"), "b,2\r\n");
}

TEST(ListPatches, WorkOnAListThatWasEmptied) {
  EXPECT_EQ(back(three, "a,1\r\nc,3\r\n", ""), "b,2\r\n");
  EXPECT_EQ(back("a,1\r\n", "a,1\r\nb,2\r\n", ""), "");
}

std::string randomList(std::mt19937& random) {
  std::string content;
  for (auto left = random() % 6; left > 0; --left) {
    content +=
        std::string(1, static_cast<char>('a' + random() % 3)) + "," + std::to_string(random() % 4);
    content += random() % 5 == 0 ? "\n" : "\r\n";
  }
  if (random() % 4 == 0) {
    content += "d,4";
  }
  return content;
}

TEST(ListPatches, AreTakenBackByteForByteWhateverTheListsAre) {
  std::mt19937 random(19);
  for (int n = 0; n < 20'000; ++n) {
    const std::string before = randomList(random);
    const std::string after = randomList(random);
    ASSERT_EQ(back(before, after, after), before) << after;
    ASSERT_EQ(again(before, after, before), after) << before;
  }
}

TEST(ListPatches, NeverTouchARecordOfAnotherEntry) {
  std::mt19937 random(20);
  for (int n = 0; n < 5'000; ++n) {
    const std::string before = randomList(random);
    const std::string after = randomList(random);
    const std::string others = "other,8\r\nother,8\r\n\"o\",\"9\",x\r\n";
    const std::string changed = back(before, after, others + randomList(random));
    ASSERT_TRUE(changed.find("other,8\r\nother,8\r\n") != std::string::npos &&
                changed.find("\"o\",\"9\",x\r\n") != std::string::npos)
        << changed;
  }
}

}  // namespace
}  // namespace list_file
