// Waits of tests: what holds in the end passes, and what does not fails and shows what was there.
#include "harness/eventually.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>

namespace {

using harness::eventually;
using harness::happens;
using harness::stays;
using ::testing::AllOf;
using ::testing::Ge;
using ::testing::HasSubstr;
using ::testing::Lt;

constexpr int briefMs = 30;

TEST(Eventually, WaitsForAValue) {
  int read = 0;
  EXPECT_TRUE(eventually([&] { return ++read; }, 3));
  EXPECT_EQ(read, 3) << "it is read no more than it takes";
  EXPECT_TRUE(eventually([&] { return ++read; }, Ge(5)));
  EXPECT_TRUE(eventually([&] { return std::optional<int>(++read); }, 7));
}

TEST(Eventually, ShowsWhatWasWantedAndWhatWasReadLast) {
  int read = 0;
  const auto result = eventually(
      [&] {
        ++read;
        return std::wstring(L"other");
      },
      L"wanted", briefMs);
  EXPECT_FALSE(result);
  EXPECT_GT(read, 1);
  EXPECT_THAT(result.message(),
              AllOf(HasSubstr("is equal to L\"wanted\""), HasSubstr("read last: L\"other\"")));
}

TEST(Eventually, ShowsLongTextsWithoutTheirMiddle) {
  const std::string longText = "begin" + std::string(100'000, 'x') + "end";
  const auto result = eventually([&] { return longText; }, "short", briefMs);
  EXPECT_FALSE(result);
  EXPECT_THAT(result.message(),
              AllOf(HasSubstr("begin"), HasSubstr("characters more"), HasSubstr("end")));
  EXPECT_LT(std::string(result.message()).size(), 4000U);
}

TEST(Eventually, StaysFailsAtTheFirstThatDoesNotFit) {
  EXPECT_TRUE(stays([] { return 1; }, 1, briefMs));
  int read = 0;
  const auto result = stays([&] { return ++read; }, Lt(3), 15000);
  EXPECT_FALSE(result);
  EXPECT_EQ(read, 3);
  EXPECT_THAT(result.message(), AllOf(HasSubstr("is < 3"), HasSubstr("read: 3")));
}

TEST(Eventually, AnEventThatDoesNotHappenIsNamed) {
  int asked = 0;
  EXPECT_TRUE(happens("asked three times", [&] { return ++asked == 3; }));
  const auto result = happens(
      "the bell rings", [] { return false; }, briefMs);
  EXPECT_FALSE(result);
  EXPECT_THAT(result.message(), HasSubstr("the bell rings"));
}

}  // namespace
