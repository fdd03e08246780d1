// The table of the data types, and entries of the list.
#include "catalogue/data_types.h"

#include <gtest/gtest.h>

#include <string>

#include "catalogue/entry.h"
#include "unit/support/catalogue_test.h"
#include "unit/support/error_number.h"

namespace {

using modQMKGeneral::DataEntry;
using modQMKGeneral::DataType;
using modQMKGeneral::dataTypes;
using modQMKGeneral::typeOfCode;
using modQMKGeneral::typeOfNumber;

TEST(DataTypes, EachIsFoundByItsCodeInAnyLetterCaseAndByItsNumber) {
  EXPECT_EQ(dataTypes().size(), 4U);
  for (const DataType& type : dataTypes()) {
    EXPECT_EQ(typeOfCode(type.code), &type);
    EXPECT_EQ(typeOfCode(type.extension), &type);
    EXPECT_EQ(typeOfNumber(type.number), &type);
  }
}

TEST(DataTypes, OthersAreNone) {
  for (const wchar_t* const code : {L"", L"F", L"FP", L"FP4", L".FP3", L"FP3 ", L"TXT"}) {
    EXPECT_EQ(typeOfCode(code), nullptr) << ::testing::PrintToString(code);
  }
  for (const int number : {-1, 4, modQMKGeneral::typeUnknown}) {
    EXPECT_EQ(typeOfNumber(number), nullptr) << number;
  }
}

TEST(DataTypes, TheDialogOffersThemInTheirOrder) {
  EXPECT_EQ(modQMKGeneral::dataFileFilter(),
            L"Plotscan Fuel Profile(*.fp3)|*.fp3|Brushtally Planar Intercept(*.bi3)|*.bi3|"
            L"Brushtally Plotview(*.bs3)|*.bs3|Canopy Weigh(*.cw3)|*.cw3");
}

class DataEntries : public unit::CatalogueTest {
 protected:
  DataEntries() {
    list.add(L"plot 1.fp3", L"PV3", {L"11/20/2026", L"Fuel Profile", L"D:\\My Data\\", L"fp3"});
  }
};

TEST_F(DataEntries, AnEntryHasWhatTheListShows) {
  const DataEntry entry = modQMKGeneral::selectedEntry(list);
  EXPECT_EQ(entry.name, L"plot 1.fp3");
  EXPECT_EQ(entry.folder, L"D:\\My Data\\");
  EXPECT_EQ(entry.path(), L"D:\\My Data\\plot 1.fp3");
  EXPECT_EQ(entry.date, L"11/20/2026");
  EXPECT_EQ(entry.label, L"Fuel Profile");
  EXPECT_EQ(entry.type, L"fp3");
  EXPECT_EQ(modQMKGeneral::selectedKey(list).cells,
            (std::vector<std::wstring>{L"plot 1.fp3", L"D:\\My Data\\"}));
}

TEST_F(DataEntries, WithoutASelectionThereIsNone) {
  list.clear();
  EXPECT_EQ(errorNumberOf([this] { static_cast<void>(modQMKGeneral::selectedEntry(list)); }), 91);
  EXPECT_EQ(errorNumberOf([this] { static_cast<void>(modQMKGeneral::selectedKey(list)); }), 91);
  EXPECT_EQ(errorNumberOf([this] { static_cast<void>(modQMKGeneral::dataEntry(list, 0)); }), 35600);
}

}  // namespace
