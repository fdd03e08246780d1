// Reading the dates of the list, to sort by them.
#include "catalogue/date_order.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/desktop_test.h"

namespace modQMKGeneral {
namespace {

using platform::clock::DateForm;

const DateForm american{L"M/d/yyyy", {}, L"AM", L"PM"};
const DateForm german{L"dd.MM.yyyy", {}, L"", L""};
const DateForm british{L"dd/MM/yyyy", {}, L"AM", L"PM"};
const DateForm swedish{L"yyyy-MM-dd", {}, L"fm", L"em"};
const DateForm named{
    L"dd-MMM-yy",
    {L"Jan", L"Feb",  L"Mar",  L"Apr",    L"May",       L"Jun",      L"Jul",      L"Aug",
     L"Sep", L"Oct",  L"Nov",  L"Dec",    L"January",   L"February", L"March",    L"April",
     L"May", L"June", L"July", L"August", L"September", L"October",  L"November", L"December"},
    L"AM",
    L"PM"};

class DateOrder : public ::memory::DesktopTest {
 protected:
  /// Each text is later than the one before it; none is unreadable.
  static void expectRising(const DateForm& form, const std::vector<std::wstring>& texts) {
    std::uint64_t before = 0;
    for (const std::wstring& text : texts) {
      const std::uint64_t rank = dateRank(text, form);
      EXPECT_GT(rank, before) << ::testing::PrintToString(text);
      before = rank;
    }
  }
};

TEST_F(DateOrder, EachPartCountsByItsWeight) {
  expectRising(american, {L"1/2/1999 3:04:05 AM", L"1/2/2026 3:04:05 AM", L"1/2/2026 3:04:06 AM",
                          L"1/2/2026 3:05:00 AM", L"1/2/2026 4:00:00 AM", L"1/3/2026 0:00:00 AM",
                          L"2/1/2026 0:00:00 AM", L"12/31/2026 11:59:59 PM", L"1/1/2027"});
}

TEST_F(DateOrder, ADateWithoutATimeIsTheBeginningOfItsDay) {
  EXPECT_EQ(dateRank(L"11/16/2026", american), dateRank(L"11/16/2026 12:00:00 AM", american));
  expectRising(american, {L"11/15/2026 11:59:59 PM", L"11/16/2026", L"11/16/2026 0:00:01"});
}

TEST_F(DateOrder, NoonAndMidnightAreInTheirPlaces) {
  expectRising(american,
               {L"5/5/2026 12:00:00 AM", L"5/5/2026 1:00:00 AM", L"5/5/2026 11:00:00 AM",
                L"5/5/2026 12:00:00 PM", L"5/5/2026 1:00:00 PM", L"5/5/2026 11:00:00 PM"});
  EXPECT_EQ(dateRank(L"5/5/2026 2:30:15 PM", american), dateRank(L"5/5/2026 14:30:15", american));
}

TEST_F(DateOrder, TheUsersFormDecidesOnDayAndMonth) {
  expectRising(american, {L"3/4/2026", L"4/3/2026"});
  expectRising(british, {L"4/3/2026", L"3/4/2026"});
  expectRising(german, {L"04.03.2026 08:00:00", L"03.04.2026 07:00:00"});
  expectRising(swedish, {L"2026-03-04 08:00:00", L"2026-04-03 07:00:00"});
}

TEST_F(DateOrder, OtherSeparatorsMeanTheFormThatHasThem) {
  EXPECT_EQ(dateRank(L"3/4/2026", german), dateRank(L"04.03.2026", german));
  EXPECT_EQ(dateRank(L"04.03.2026", american), dateRank(L"3/4/2026", american));
  EXPECT_EQ(dateRank(L"2026-03-04", american), dateRank(L"3/4/2026", american));
  EXPECT_EQ(dateRank(L"2026/03/04", british), dateRank(L"4/3/2026", british));
}

TEST_F(DateOrder, AMonthThatCannotBeIsTheDay) {
  EXPECT_EQ(dateRank(L"16/11/2026", american), dateRank(L"11/16/2026", american));
  EXPECT_EQ(dateRank(L"11/16/2026", british), dateRank(L"16/11/2026", british));
  EXPECT_EQ(dateRank(L"16/16/2026", american), 0U);
}

TEST_F(DateOrder, ShortYearsAreOfThisCenturyOrTheLast) {
  expectRising(american, {L"1/1/50", L"1/1/99", L"1/1/00", L"1/1/26", L"1/1/49"});
  EXPECT_EQ(dateRank(L"1/1/26", american), dateRank(L"1/1/2026", american));
}

TEST_F(DateOrder, MonthsMayHaveNames) {
  expectRising(named, {L"05-Feb-26", L"04-Mar-26 10:00:00", L"03-may-26 9:00:00 AM",
                       L"3-September-26", L"02-DEC-26"});
  EXPECT_EQ(dateRank(L"Mar 4, 2026", named), dateRank(L"04-Mar-26", named));
  EXPECT_EQ(dateRank(L"Mon 04 Mar 2026", named), dateRank(L"04-Mar-26", named))
      << "The day of the week is passed over";
}

TEST_F(DateOrder, QuotedLettersOfAPatternAreNoPlaces) {
  const DateForm quoted{L"d' de 'M' de 'yyyy", {}, L"", L""};
  expectRising(quoted, {L"2 de 3 de 2026", L"1 de 4 de 2026"});
}

TEST_F(DateOrder, TheMarksOfTheTimeAreTheUsersToo) {
  expectRising(swedish, {L"2026-03-04 2:00:00 fm", L"2026-03-04 1:00:00 em"});
}

TEST_F(DateOrder, AMarkMayHaveABlankInIt) {
  const DateForm spanish{L"dd/MM/yyyy", {}, L"a. m.", L"p. m."};
  expectRising(spanish, {L"05/03/2021 10:30:00 a. m.", L"05/03/2021 02:30:15 p. m."});
}

TEST_F(DateOrder, AMarkMayStandBeforeTheTime) {
  const DateForm chinese{L"yyyy/M/d", {}, L"\u4E0A\u5348", L"\u4E0B\u5348"};
  expectRising(chinese, {L"2026/3/4 \u4E0A\u5348 10:30:00", L"2026/3/4 \u4E0A\u534811:00:00",
                         L"2026/3/4 \u4E0B\u5348 2:30:15", L"2026/3/4 \u4E0B\u53482:30:16"});
}

TEST_F(DateOrder, TheSeparatorMayBeQuoted) {
  const DateForm chinese{L"yy'\u5E74'M'\u6708'd'\u65E5'", {}, L"", L""};
  expectRising(chinese, {L"20\u5E7412\u67081\u65E5", L"21\u5E741\u67081\u65E5"});
  const DateForm dotted{L"M' . 'd' . 'yyyy", {}, L"", L""};
  expectRising(dotted, {L"3 . 4 . 2026", L"4 . 3 . 2026"});
}

TEST_F(DateOrder, TheDayOfTheWeekIsNoMonth) {
  const DateForm italian{L"ddd d MMM yyyy",
                         {L"gen", L"feb", L"mar", L"apr", L"mag", L"giu", L"lug", L"ago", L"set",
                          L"ott", L"nov", L"dic"},
                         L"",
                         L""};
  expectRising(italian, {L"mar 5 gen 2021", L"lun 4 mar 2021", L"mar 2 apr 2021"});
}

TEST_F(DateOrder, UnusualOrdersOfTheUserCount) {
  expectRising({L"yyyy-dd-MM", {}, L"", L""}, {L"2026-04-03", L"2026-03-04"});
  DateForm monthFirst = named;
  monthFirst.pattern = L"MMM-yy-dd";
  expectRising(monthFirst, {L"Mar-25-30", L"Mar-26-04", L"Apr-26-01"});
  EXPECT_EQ(dateRank(L"Mar Mar May", named), 0U);
  EXPECT_EQ(dateRank(L"Mar 5 May", named), 0U);
}

TEST_F(DateOrder, DigitsOfOtherScriptsCount) {
  EXPECT_EQ(dateRank(L"\u0663/\u0664/\u0662\u0660\u0662\u0666", american),
            dateRank(L"3/4/2026", american));
}

TEST_F(DateOrder, WhatIsNoDateHasNoRank) {
  for (const wchar_t* const text :
       {L"", L" ", L"yesterday", L"11/2026", L"13/32/2026", L"0/1/2026", L"1/0/2026", L"1/32/2026",
        L"1/2/2026 24:00:00", L"1/2/2026 1:60:00", L"1/2/2026 1:00:60", L"1/2/20261",
        L"1/2/3/4/5/6/7", L"99999999999999999999"}) {
    EXPECT_EQ(dateRank(text, american), 0U) << ::testing::PrintToString(text);
  }
}

TEST_F(DateOrder, APatternWithoutAllPartsLeavesItToTheSeparators) {
  const DateForm odd{L"yyyy", {}, L"", L""};
  EXPECT_EQ(dateRank(L"3/4/2026", odd), dateRank(L"3/4/2026", american));
  EXPECT_EQ(dateRank(L"3/4/2026", DateForm{}), dateRank(L"3/4/2026", american));
}

TEST_F(DateOrder, ManyAreReadInTheFormOfToday) {
  memory::desktop().dateForm = british;
  const std::vector<std::wstring> texts{L"4/3/2026", L"no date", L"3/4/2026"};
  const auto ranks =
      dateRanks(texts.size(), [&](std::size_t n) { return std::wstring_view(texts[n]); });
  ASSERT_EQ(ranks.size(), 3U);
  EXPECT_LT(ranks[0], ranks[2]);
  EXPECT_EQ(ranks[1], 0U);
}

TEST_F(DateOrder, WhatTheProgramWritesIsReadBack) {
  const auto today = platform::clock::todayText();
  EXPECT_NE(dateRank(today, platform::clock::dateForm()), 0U);
  const auto moments = platform::clock::dateAndTimeTexts(
      {memory::desktop().now(), memory::desktop().now() + 10'000'000});
  EXPECT_LT(dateRank(moments[0], platform::clock::dateForm()),
            dateRank(moments[1], platform::clock::dateForm()));
}

}  // namespace
}  // namespace modQMKGeneral
