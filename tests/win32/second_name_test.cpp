// The second name of a file that is going to be replaced.
#include <gtest/gtest.h>

#include <string>

#include "harness/files.h"
#include "platform/draft_steps.h"

namespace {

using platform::files::steps::addName;
using platform::files::steps::Step;

TEST(SecondName, IsGivenOnceAndFoundAgain) {
  const harness::TestFolder folder;
  const std::wstring file = folder.path() + L"\\list.txt";
  const std::wstring second = folder.path() + L"\\list.old";
  harness::writeFile(file, "old");
  EXPECT_EQ(addName(file, second), Step::done);
  EXPECT_EQ(harness::readFile(second), "old");
  EXPECT_EQ(addName(file, second), Step::done);
}

TEST(SecondName, OfAnotherFileIsNotTaken) {
  const harness::TestFolder folder;
  const std::wstring file = folder.path() + L"\\list.txt";
  const std::wstring other = folder.path() + L"\\list.old";
  harness::writeFile(file, "old");
  harness::writeFile(other, "other");
  EXPECT_EQ(addName(file, other), Step::notOffered);
  EXPECT_EQ(harness::readFile(other), "other");
  EXPECT_EQ(addName(folder.path() + L"\\gone.txt", folder.path() + L"\\gone.old"),
            Step::notOffered);
}

}  // namespace
