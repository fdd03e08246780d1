// Catalogues that no program of the suite writes: valid records are shown, and records that an
// operation does not concern keep their bytes.
#include <gtest/gtest.h>

#include "listfile/list_file.h"
#include "unit/support/catalogue_test.h"

namespace {

using namespace std::string_literals;
using memory::desktop;
using unit::MalformedFile;
using unit::record;
using unit::sameBytes;
using unit::Texts;

const std::string soundB = record({"fp3", "D:\\b.fp3", "1"});

std::string manyRecords(std::size_t count) {
  std::string bytes;
  for (std::size_t i = 0; i < count; ++i) {
    bytes += record({"fp3", "D:\\plot" + std::to_string(i) + ".fp3", "1"});
  }
  return bytes;
}

class MalformedCatalogue : public unit::CatalogueTest,
                           public ::testing::WithParamInterface<MalformedFile> {
 protected:
  [[nodiscard]] static const std::string& bytes() { return GetParam().bytes; }
};

TEST_P(MalformedCatalogue, ShowsWhatIsSound) {
  putCatalogue(bytes());
  modQMKGeneral::LoadCatalogueView(view);
  EXPECT_EQ(rows(), GetParam().shown);
  EXPECT_TRUE(messages().empty());
  EXPECT_PRED_FORMAT2(sameBytes, catalogue(), bytes());
}

TEST_P(MalformedCatalogue, AnAddLeavesEveryForeignByte) {
  putCatalogue(bytes());
  modQMKGeneral::AddOrUpdateCatalogueEntry(L"D:\\new.cw3", L"CW3");
  std::string expected = bytes();
  if (!expected.empty() && expected.back() != '\r' && expected.back() != '\n') {
    expected += "\r\n";
  }
  EXPECT_PRED_FORMAT2(sameBytes, catalogue(),
                      expected + record({"CW3", "D:\\new.cw3", "11/20/2026"}));
  EXPECT_TRUE(messages().empty());
}

TEST_P(MalformedCatalogue, ARestampLeavesEveryForeignByte) {
  putCatalogue(bytes());
  modQMKGeneral::AddOrUpdateCatalogueEntry(L"D:\\B.fp3", L"CW3");
  std::string expected = bytes();
  const std::size_t at = expected.find(soundB);
  if (at != std::string::npos) {
    expected.replace(at, soundB.size(), record({"fp3", "D:\\B.fp3", "11/20/2026"}));
  } else {
    list_file::append(expected, record({"CW3", "D:\\B.fp3", "11/20/2026"}));
  }
  EXPECT_PRED_FORMAT2(sameBytes, catalogue(), expected);
}

TEST_P(MalformedCatalogue, ARemoveLeavesEveryForeignByte) {
  putCatalogue(bytes());
  desktop().putFile(L"D:\\b.fp3", "data");
  modQMKGeneral::RemoveCatalogueEntry(L"D:\\b.fp3");
  std::string expected = bytes();
  const std::size_t at = expected.find(soundB);
  if (at != std::string::npos) {
    expected.erase(at, soundB.size());
  }
  EXPECT_PRED_FORMAT2(sameBytes, catalogue(), expected);
  EXPECT_FALSE(desktop().has(L"D:\\b.fp3"));
}

TEST_P(MalformedCatalogue, ARefreshLeavesEveryForeignByte) {
  putCatalogue(bytes());
  modQMKGeneral::RefreshDataFolderEntries(view);
  EXPECT_PRED_FORMAT2(sameBytes, catalogue(), bytes());
  EXPECT_EQ(rows(), GetParam().shown);
}

const std::string soundA = record({"fp3", "D:\\a.fp3", "1"});

INSTANTIATE_TEST_SUITE_P(
    Files, MalformedCatalogue,
    ::testing::Values(
        MalformedFile{"Empty", "", {}}, MalformedFile{"OneCharacter", "x", {}},
        MalformedFile{"OneQuote", "\"", {}}, MalformedFile{"OneComma", ",", {}},
        MalformedFile{"OneCarriageReturn", "\r", {}}, MalformedFile{"OneLineFeed", "\n", {}},
        MalformedFile{"OneNul", "\0"s, {}}, MalformedFile{"OneHighByte", "\xFF", {}},
        MalformedFile{
            "NoFinalLineEnd", soundB + "\"fp3\",\"D:\\a.fp3\",\"1\"", {L"a.fp3", L"b.fp3"}},
        MalformedFile{"CutOffInAField", soundB + "\"fp3\",\"D:\\a.fp", {L"a.fp", L"b.fp3"}},
        MalformedFile{"LoneLineFeeds",
                      "fp3,D:\\a.fp3,1\n" + soundB + "fp3,D:\\c.fp3,1\n",
                      {L"a.fp3", L"b.fp3", L"c.fp3"}},
        MalformedFile{"LoneCarriageReturns",
                      "fp3,D:\\a.fp3,1\r" + soundB + "fp3,D:\\c.fp3,1\r",
                      {L"a.fp3", L"b.fp3", L"c.fp3"}},
        MalformedFile{"SwappedLineEnds", "fp3,D:\\a.fp3,1\n\r" + soundB, {L"a.fp3", L"b.fp3"}},
        MalformedFile{"BlankLines", "\r\n\r\n  \t\r\n" + soundB + "\r\n", {L"b.fp3"}},
        MalformedFile{"Nuls", "\0\0\0\r\n\"\0\",\"\0\",\"\0\"\r\n"s + soundB + "\0"s, {L"b.fp3"}},
        MalformedFile{"UnbalancedQuotes",
                      "\"fp3\",\"D:\\a.fp3\r\n\"fp3,\"D:\\x.fp3\",\"1\"\r\n" + soundB + "\"\"\"",
                      {L"a.fp3", L"b.fp3"}},
        MalformedFile{"OneField", "\"fp3\"\r\n" + soundB, {L"b.fp3"}},
        MalformedFile{"TwoFields", "\"fp3\",\"D:\\a.fp3\"\r\n" + soundB, {L"a.fp3", L"b.fp3"}},
        MalformedFile{"FiveFields",
                      "\"fp3\",\"D:\\a.fp3\",\"1\",\"2\",\"3\"\r\n" + soundB,
                      {L"a.fp3", L"b.fp3"}},
        MalformedFile{"NoQuotes", " fp3 , D:\\a.fp3 , 1 \r\n" + soundB, {L"a.fp3", L"b.fp3"}},
        MalformedFile{"EveryByte",
                      [] {
                        std::string bytes;
                        for (int i = 255; i >= 0; --i) {
                          bytes += static_cast<char>(i);
                        }
                        return bytes + "\r\n";
                      }() +
                          soundB,
                      {L"b.fp3"}}),
    [](const auto& tested) { return tested.param.name; });

INSTANTIATE_TEST_SUITE_P(
    LargeFiles, MalformedCatalogue,
    ::testing::Values(MalformedFile{"ALineOfTenMegabytes",
                                    soundA + std::string(10'000'000, 'x') + "\r\n" + soundB,
                                    {L"a.fp3", L"b.fp3"}},
                      MalformedFile{"TenMegabytesOfCommas",
                                    std::string(10'000'000, ',') + "\n" + soundB,
                                    {L"b.fp3"}}),
    [](const auto& tested) { return tested.param.name; });

class LargeCatalogue : public unit::CatalogueTest {};

TEST_F(LargeCatalogue, TwoHundredThousandRecordsShowAndSurviveAnAddAndARemove) {
  constexpr std::size_t count = 200'000;
  const std::string before = manyRecords(count);
  putCatalogue(before + soundB);
  modQMKGeneral::LoadCatalogueView(view);
  EXPECT_EQ(list.count(), count + 1);
  EXPECT_EQ(list.text(0), L"b.fp3");
  EXPECT_EQ(list.text(1), L"plot0.fp3");
  modQMKGeneral::AddOrUpdateCatalogueEntry(L"D:\\new.cw3", L"CW3");
  modQMKGeneral::RemoveCatalogueEntry(L"D:\\b.fp3");
  EXPECT_PRED_FORMAT2(sameBytes, catalogue(),
                      before + record({"CW3", "D:\\new.cw3", "11/20/2026"}));
  EXPECT_TRUE(messages().empty());
}

TEST_F(LargeCatalogue, APathOfTenMegabytesIsAnEntryLikeAnother) {
  const std::string name(10'000'000, 'x');
  putCatalogue(record({"fp3", "D:\\" + name, "1"}) + soundB);
  modQMKGeneral::LoadCatalogueView(view);
  ASSERT_EQ(list.count(), 2U);
  EXPECT_EQ(list.text(0), L"b.fp3");
  EXPECT_EQ(list.text(1).size(), name.size());
}

}  // namespace
