// Web lists that the program does not write: valid records are shown, and records that an operation
// does not concern keep their bytes.
#include <gtest/gtest.h>

#include "unit/support/web_test.h"

namespace {

using namespace std::string_literals;
using modQMKGeneral::AppendWebEntry;
using modQMKGeneral::DeleteWebEntry;
using modQMKGeneral::LoadWebList;
using unit::record;
using unit::sameBytes;

class MalformedWebList : public unit::WebTest,
                         public ::testing::WithParamInterface<unit::MalformedFile> {};

const std::string soundB = record({"b", "http://b/"});

TEST_P(MalformedWebList, ShowsWhatIsSoundAndSurvivesAnAddAndADelete) {
  putWebList(GetParam().bytes);
  LoadWebList(web);
  EXPECT_EQ(names(), GetParam().shown);
  EXPECT_TRUE(messages().empty());

  AppendWebEntry(web, L"new", L"http://new/");
  std::string expected = GetParam().bytes;
  if (!expected.empty() && expected.back() != '\r' && expected.back() != '\n') {
    expected += "\r\n";
  }
  expected += record({"new", "http://new/"});
  EXPECT_PRED_FORMAT2(sameBytes, webList(), expected);

  DeleteWebEntry(web, L"b");
  const std::size_t at = expected.find(soundB);
  if (at != std::string::npos) {
    expected.erase(at, soundB.size());
  }
  EXPECT_PRED_FORMAT2(sameBytes, webList(), expected);
  EXPECT_TRUE(messages().empty());
}

INSTANTIATE_TEST_SUITE_P(
    Files, MalformedWebList,
    ::testing::Values(
        unit::MalformedFile{"Empty", "", {}}, unit::MalformedFile{"OneCharacter", "x", {L"x"}},
        unit::MalformedFile{"OneQuote", "\"", {L""}}, unit::MalformedFile{"OneComma", ",", {L""}},
        unit::MalformedFile{"OneLineFeed", "\n", {}},
        unit::MalformedFile{"OneCarriageReturn", "\r", {}},
        unit::MalformedFile{"OneNul", "\0"s, {L"\0"s}},
        unit::MalformedFile{"NoFinalLineEnd", soundB + "\"a\",\"http://a/\"", {L"b", L"a"}},
        unit::MalformedFile{"LoneLineFeeds", "a,x\n" + soundB + "c,y\n", {L"a", L"b", L"c"}},
        unit::MalformedFile{"LoneCarriageReturns", "a,x\r" + soundB + "c,y\r", {L"a", L"b", L"c"}},
        unit::MalformedFile{
            "UnbalancedQuotes", "\"a,x\r\n" + soundB + "\"c\",\"y", {L"a,x", L"b", L"c"}},
        unit::MalformedFile{"OneField", "\"a\"\r\n" + soundB, {L"a", L"b"}},
        unit::MalformedFile{
            "FiveFields", "\"a\",\"1\",\"2\",\"3\",\"4\"\r\n" + soundB, {L"a", L"b"}},
        unit::MalformedFile{"ALineOfTenMegabytes",
                            "\"a\",\"" + std::string(10'000'000, 'x') + "\"\r\n" + soundB,
                            {L"a", L"b"}}),
    [](const auto& tested) { return tested.param.name; });

class LargeWebList : public unit::WebTest {};

TEST_F(LargeWebList, TwoHundredThousandRecordsShowAndSurviveAnAddAndADelete) {
  constexpr std::size_t count = 200'000;
  const std::string one = record({"One", "http://one/"});
  const std::string two = record({"Two", "http://two/"});
  std::string many;
  for (std::size_t i = 0; i < count; ++i) {
    many += record({"name " + std::to_string(i), "http://x/" + std::to_string(i)});
  }
  putWebList(one + many);
  LoadWebList(web);
  EXPECT_EQ(list.count(), count + 1);
  AppendWebEntry(web, L"Two", L"http://two/");
  DeleteWebEntry(web, L"One");
  EXPECT_PRED_FORMAT2(sameBytes, webList(), many + two);
  EXPECT_EQ(list.count(), count + 1);
}

}  // namespace
