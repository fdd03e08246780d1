// How often the program tries again when other programs keep changing a list file.
#include <gtest/gtest.h>

#include "listfile/list_file.h"
#include "unit/support/catalogue_test.h"

namespace {

using memory::desktop;
using unit::record;
using unit::Texts;

constexpr int mostTries = 50;

class Tries : public unit::CatalogueTest {
 protected:
  /// Makes another program write the catalogue again just before each of the next `changes`
  /// replacements, and counts all replacements.
  void interrupt(int changes) {
    desktop().onReplace = [this, changes] {
      if (++tries <= changes) {
        putCatalogue(record({"FP3", "D:\\d\\old.fp3", std::to_string(tries)}));
      }
    };
  }
  void listOne() {
    desktop().putFile(L"D:\\d\\old.fp3", "data");
    putCatalogue(record({"FP3", "D:\\d\\old.fp3", "0"}));
    modQMKGeneral::LoadCatalogueView(view);
  }
  static void addX() {
    list_file::rewrite(unit::catalogueFile, unit::temporaryFile, list_file::Missing::isError,
                       [](const std::string& old) { return old + "x"; });
  }
  int tries = 0;
};

TEST_F(Tries, ARenameSucceedsAtTheLastOfThem) {
  listOne();
  interrupt(mostTries - 1);
  modQMKGeneral::RenameCatalogueFile(view, L"new.fp3");
  EXPECT_EQ(tries, mostTries);
  EXPECT_TRUE(messages().empty());
  EXPECT_EQ(catalogue(), record({"FP3", "D:\\d\\new.fp3", std::to_string(mostTries - 1)}));
}

TEST_F(Tries, ARenameGivesUpBehindTheLastOfThem) {
  listOne();
  interrupt(mostTries);
  modQMKGeneral::RenameCatalogueFile(view, L"new.fp3");
  EXPECT_EQ(tries, mostTries);
  EXPECT_EQ(messages(), Texts{L"Problem saving to QMK list\r70-Permission denied"});
  EXPECT_EQ(catalogue(), record({"FP3", "D:\\d\\old.fp3", std::to_string(mostTries)}));
}

TEST_F(Tries, ARewriteSucceedsAtTheLastOfThem) {
  listOne();
  interrupt(mostTries - 1);
  addX();
  EXPECT_EQ(tries, mostTries);
  EXPECT_EQ(catalogue(), record({"FP3", "D:\\d\\old.fp3", std::to_string(mostTries - 1)}) + "x");
}

TEST_F(Tries, ARewriteGivesUpBehindTheLastOfThem) {
  listOne();
  interrupt(mostTries);
  EXPECT_EQ(errorNumberOf(addX), 70);
  EXPECT_EQ(tries, mostTries);
  EXPECT_EQ(catalogue(), record({"FP3", "D:\\d\\old.fp3", std::to_string(mostTries)}));
}

}  // namespace
