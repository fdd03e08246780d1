#include <gtest/gtest.h>

#include "catalogue/data_types.h"
#include "unit/support/error_number.h"

namespace {

using modQMKGeneral::TypeNumberFromExtension;

TEST(TypeNumberFromExtension, EachTypeHasItsNumber) {
  EXPECT_EQ(TypeNumberFromExtension(L"plot.FP3"), 0);
  EXPECT_EQ(TypeNumberFromExtension(L"plot.BS3"), 1);
  EXPECT_EQ(TypeNumberFromExtension(L"plot.BI3"), 2);
  EXPECT_EQ(TypeNumberFromExtension(L"plot.CW3"), 3);
}

TEST(TypeNumberFromExtension, LetterCaseDoesNotCount) {
  EXPECT_EQ(TypeNumberFromExtension(L"plot.fp3"), 0);
  EXPECT_EQ(TypeNumberFromExtension(L"C:\\My Data\\plot.cW3"), 3);
}

TEST(TypeNumberFromExtension, AnythingElseIs99) {
  EXPECT_EQ(TypeNumberFromExtension(L"plot.txt"), 99);
  EXPECT_EQ(TypeNumberFromExtension(L"plotfp3"), 99);
  EXPECT_EQ(TypeNumberFromExtension(L"plot.fp3 "), 99);
  EXPECT_EQ(TypeNumberFromExtension(L"plot.bw3"), 99);
  EXPECT_EQ(TypeNumberFromExtension(L"plot.pv3"), 99);
}

TEST(TypeNumberFromExtension, TheExtensionAloneIsEnough) {
  EXPECT_EQ(TypeNumberFromExtension(L".bi3"), 2);
}

TEST(TypeNumberFromExtension, AnEmptyNameCountsAsAFuelProfile) {
  EXPECT_EQ(TypeNumberFromExtension(L""), 0);
}

TEST(TypeNumberFromExtension, ANameOfOneToThreeCharactersIsAnArgumentError) {
  for (const wchar_t* const name : {L"a", L"ab", L"fp3"}) {
    EXPECT_EQ(errorNumberOf([name] { static_cast<void>(TypeNumberFromExtension(name)); }), 5);
  }
}

}  // namespace
