#include "listfile/kept_lists.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/desktop_test.h"

namespace {

using kept_lists::Copy;
using kept_lists::fromName;
using kept_lists::nameOfCopy;
using kept_lists::Which;
using memory::desktop;
using platform::clock::Moment;

constexpr Moment afternoon{2026, 11, 22, 14, 30, 15};

class KeptLists : public memory::DesktopTest {};

TEST_F(KeptLists, TheNameOfACopyTellsItsListAndItsDate) {
  EXPECT_EQ(nameOfCopy(Which::dataFiles, afternoon, false), L"QMKFileList3 2026-11-22.txt");
  EXPECT_EQ(nameOfCopy(Which::web, afternoon, true), L"QMKWebList 2026-11-22 143015.txt");
  EXPECT_EQ(nameOfCopy(Which::web, {33, 1, 2, 3, 4, 5}, true), L"QMKWebList 0033-01-02 030405.txt");
}

TEST_F(KeptLists, ANameIsReadBack) {
  for (const Which list : kept_lists::both) {
    for (const bool timed : {false, true}) {
      const auto copy = fromName(list, nameOfCopy(list, afternoon, timed));
      ASSERT_TRUE(copy);
      EXPECT_EQ(copy->timed, timed);
      EXPECT_EQ(copy->made, timed ? afternoon : (Moment{2026, 11, 22}));
      EXPECT_EQ(copy->date(), timed ? L"2026-11-22 14:30:15" : L"2026-11-22");
    }
  }
}

TEST_F(KeptLists, TheCaseOfANameDoesNotMatter) {
  EXPECT_TRUE(fromName(Which::dataFiles, L"qmkfilelist3 2026-11-22.TXT"));
}

TEST_F(KeptLists, OtherNamesAreNoCopies) {
  for (const wchar_t* const name : {L"",
                                    L"QMKFileList3.txt",
                                    L"QMKFileList3 2026-11-22",
                                    L"QMKFileList3 2026-11-22.tx",
                                    L"QMKFileList3 2026-11-22.txt2",
                                    L"QMKFileList3  2026-11-2.txt",
                                    L"QMKFileList3 2026-11-2.txt",
                                    L"QMKFileList3 2026-13-01.txt",
                                    L"QMKFileList3 2026-02-30.txt",
                                    L"QMKFileList3 2026-00-10.txt",
                                    L"QMKFileList3 2026-11-22 240000.txt",
                                    L"QMKFileList3 2026-11-22 236000.txt",
                                    L"QMKFileList3 2026-11-22 143060.txt",
                                    L"QMKFileList3 2026-11-22 14301.txt",
                                    L"QMKFileList3 2026-11-22 1430156.txt",
                                    L"QMKFileList3 2026-11-22_143015.txt",
                                    L"QMKFileList3_2026-11-22.txt",
                                    L"QMKFileList3 2O26-11-22.txt",
                                    L"QMKWebList 2026-11-22.txt",
                                    L"My list 2026-11-22.txt",
                                    L"QMKFileList3 \u0662\u0660\u0662\u0666-11-22.txt"}) {
    EXPECT_FALSE(fromName(Which::dataFiles, name)) << ::testing::PrintToString(name);
  }
}

TEST_F(KeptLists, KnowsTheFilesOfTheLists) {
  EXPECT_EQ(kept_lists::listAt(L"C:\\App\\QMKFileList3.txt"), Which::dataFiles);
  EXPECT_EQ(kept_lists::listAt(L"C:\\App\\QMKWebList.txt"), Which::web);
  for (const wchar_t* const path : {L"", L"QMKFileList3.txt", L"C:\\App\\MyQMKFileList3.txt",
                                    L"C:\\App\\QMKFileList3", L"C:\\App\\Other.txt"}) {
    EXPECT_EQ(kept_lists::listAt(path), std::nullopt) << ::testing::PrintToString(path);
  }
}

TEST_F(KeptLists, TheNewestComesFirstAndTheOneOfTheDayIsItsOldest) {
  for (const wchar_t* const name :
       {L"QMKWebList 2026-11-20.txt", L"QMKWebList 2026-11-21 090000.txt",
        L"QMKWebList 2026-11-21.txt", L"QMKWebList 2025-12-31 235959.txt", L"QMKWebList notes.txt",
        L"QMKFileList3 2026-11-22.txt", L"QMKWebList 2026-11-21 000000.txt"}) {
    desktop().putFile(std::wstring(L"D:\\") + name, "12345");
  }
  std::vector<std::wstring> dates;
  for (const Copy& copy : kept_lists::in(L"D:", Which::web)) {
    dates.push_back(copy.date());
    EXPECT_EQ(copy.size, 5U);
  }
  EXPECT_EQ(dates,
            (std::vector<std::wstring>{L"2026-11-21 09:00:00", L"2026-11-21 00:00:00",
                                       L"2026-11-21", L"2026-11-20", L"2025-12-31 23:59:59"}));
  EXPECT_TRUE(kept_lists::in(L"D:\\none", Which::web).empty());
  EXPECT_TRUE(kept_lists::in(L"", Which::web).empty());
}

TEST_F(KeptLists, TheNextSecondMayBeOfTheNextYear) {
  EXPECT_EQ(kept_lists::secondAfter(afternoon), (Moment{2026, 11, 22, 14, 30, 16}));
  EXPECT_EQ(kept_lists::secondAfter({2026, 12, 31, 23, 59, 59}), (Moment{2027, 1, 1}));
  EXPECT_EQ(kept_lists::secondAfter({2028, 2, 28, 23, 59, 59}), (Moment{2028, 2, 29}));
}

}  // namespace
