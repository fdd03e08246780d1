// The table that says which call fails with which numbers.
#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include "faults/sweep.h"

namespace faults {
namespace {

TEST(ErrorsOf, ACallHasTheNumbersOfItsRow) {
  EXPECT_EQ(errorsOf(L"setting Start\\Left = 5"), std::vector<int>{75});
  // The beginning of one row is the whole of another one's.
  EXPECT_EQ(errorsOf(L"create frmWeb"), std::vector<int>{7});
  EXPECT_NE(errorsOf(L"create " + temporaryFile), errorsOf(L"create frmWeb"));
  EXPECT_NE(errorsOf(L"read to append " + webListFile), errorsOf(L"read " + webListFile));
}

TEST(ErrorsOf, ACallWithoutARowFailsTheTestAndIsNamed) {
  EXPECT_NONFATAL_FAILURE(static_cast<void>(errorsOf(L"lock C:\\App\\a.txt")),
                          "does not know the call \"lock C:\\App\\a.txt\"");
  EXPECT_NONFATAL_FAILURE(static_cast<void>(errorsOf(L"")), "does not know the call \"\"");
}

}  // namespace
}  // namespace faults
