// The lists of version 3.0.0 in this version, and those of this version in 3.0.0.
#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <string>

#include "catalogue/catalogue_file.h"
#include "earlier/earlier_lists.h"
#include "listfile/list_file.h"
#include "versions/versions_fixture.h"

namespace versions {
namespace {

using memory::desktop;
using platform::dialogs::Answer;

// --- what 3.0.0 has written ---

class ListsOf300 : public Versions, public ::testing::WithParamInterface<std::string> {};

TEST_P(ListsOf300, ArriveWithEveryEntry) {
  show(GetParam());
  EXPECT_EQ(dataRows(), dataRowsIn300(catalogue()));
  EXPECT_EQ(webRows(), webRowsIn300(webList()));
}

INSTANTIATE_TEST_SUITE_P(At, ListsOf300, ::testing::ValuesIn(stages),
                         [](const auto& stage) { return stage.param; });

TEST_F(Versions, OddRecordsOfOtherProgramsArrive) {
  show("given");
  const std::wstring street = L"D:\\Stra\u00DFe\\";
  EXPECT_EQ(
      dataRows(),
      (Texts{L"Gully.cw3|11/15/2026 8:00:00 AM|Canopy Weigh Inventory|C:\\Field Work\\|CW3|CW3",
             L"Ridge.fp3|11/18/2026 9:15:00 AM|Fuel Profile|C:\\Field Work\\|FP3|PV3",
             L"Slope.bi3|11/17/2026|Planar Intercept Inventory|C:\\Field Work\\|bi3|BW3",
             L"g,1.bs3|11/16/2026 2:30:15 PM|Plotview Inventory|D:\\one, two\\|Bs3|BW3",
             L"last.bi3|1/6/2026|Planar Intercept Inventory|D:\\x\\|BI3|BW3",
             L"open.fp3|1/4/2026|Fuel Profile|D:\\x\\|FP3|PV3",
             L"plain.fp3|1/2/2026|Fuel Profile|C:\\Old Season\\|fp3|PV3", L"root.xyz|||E:\\|XYZ|",
             L"st|1/3/2026|Canopy Weigh Inventory|D:\\x\\|cW3|CW3",
             L"\u00C9t\u00E9 caf\u00E9.fp3|11/14/2026 7:45:00 AM|Fuel Profile|" + street +
                 L"|FP3|PV3"}));
  EXPECT_EQ(webRows(), (Texts{L"Caf\u00E9, plans|http://caf\u00E9.example/\u00FC,1",
                              L"Maps|http://maps.example/?a=1", L"Weather|http://second.example/",
                              L"Weather|http://weather.example/", L"no address|", L"open,|",
                              L"|http://nameless.example/"}));
}

TEST(ListReaders, TakeAnyLineApartAlike) {
  std::mt19937 random(300);
  const std::vector<std::string> pieces{"\"",  ",",         "\",\"", "\"fp3\"", " ",
                                        "\t",  "\r\n",      "\r\n",  "\n",      "\r",
                                        "abc", "\xE9t\xE9", "\\",    ",\"b"};
  for (int round = 0; round < 20'000; ++round) {
    std::string bytes;
    for (auto left = random() % 14; left > 0; --left) {
      bytes += pieces[random() % pieces.size()];
    }
    list_file::Reader reader(bytes);
    list_file::Record record;
    for (const reader_3_0_0::Fields& fields : reader_3_0_0::fields(bytes)) {
      ASSERT_TRUE(reader.next(record));
      ASSERT_EQ(record.fieldCount, fields.count) << ::testing::PrintToString(bytes);
      ASSERT_TRUE(std::equal(record.fields.begin(), record.fields.end(), fields.first.begin()))
          << ::testing::PrintToString(bytes);
    }
    ASSERT_FALSE(reader.next(record));
  }
}

// --- what this version writes ---

/// Something that a user of this version does to a list.
struct Operation {
  std::string name;
  int tab = frmQMK::open;
  std::function<void(Versions&)> run;
  Texts gone;                ///< Names of the entries that are no longer as they were.
  Texts come;                ///< Names of those that are new, or different now.
  bool rewritesAll = false;  ///< The whole list is written anew, in a form of its own.
  bool canBeTakenBack = true;
};

/// For GoogleTest, which would otherwise print the bytes of the object.
void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.name; }

void paste(Versions& in, platform::clipboard::Content content) {
  desktop().clipboard = std::move(content);
  in.command(ids::mnuPaste);
}

void addList(Versions& in, const std::string& bytes) {
  desktop().putFile(L"D:\\list.txt", bytes);
  desktop().fileDialogResults = {L"D:\\list.txt"};
  in.command(ids::mnuAddList);
}

void useWebDialog(Versions& in, int command, const std::wstring& name, const std::wstring& url) {
  in.command(command);
  in.gateway().webDialog()->txtName.acceptTyped(name);
  in.gateway().webDialog()->txtUrl.acceptTyped(url);
  in.gateway().webDialog()->cmdOK.fireClick();
}

const std::vector<Operation>& operations() {
  static const std::vector<Operation> all{
      {.name = "AddAFile",
       .run =
           [](Versions& in) {
             desktop().putFile(L"D:\\New\\added \u00FC.fp3", "x");
             paste(in, {.text = {}, .files = {L"D:\\New\\added \u00FC.fp3"}});
           },
       .come = {L"added \u00FC.fp3"}},
      {.name = "AddAFileThatIsThere",
       .run =
           [](Versions& in) { paste(in, {.text = {}, .files = {L"C:\\Field Work\\Ridge.fp3"}}); },
       .gone = {L"Ridge.fp3"},
       .come = {L"Ridge.fp3"}},
      {.name = "AddAFileThatTheCodePageCannotHold",
       .run =
           [](Versions& in) {
             desktop().giveShortNames(L"D:");
             desktop().putFile(L"D:\\New\\\u0416.fp3", "x");
             paste(in, {.text = {}, .files = {L"D:\\New\\\u0416.fp3"}});
           },
       .come = {L"_~1.FP3"}},
      {.name = "RemoveFromTheList",
       .run =
           [](Versions& in) {
             in.selectEntry(L"plain.fp3");
             in.command(ids::mnuRemoveFromList);
           },
       .gone = {L"plain.fp3"}},
      {.name = "Delete",
       .run =
           [](Versions& in) {
             in.selectEntry(L"last.bi3");
             desktop().answers = {Answer::yes};
             in.command(ids::mnuDelete);
           },
       .gone = {L"last.bi3"}},
      {.name = "Rename",
       .run =
           [](Versions& in) {
             in.selectEntry(L"Ridge.fp3");
             desktop().inputAnswers = {L"Crest \u00E9"};
             in.command(ids::mnuRename);
           },
       .gone = {L"Ridge.fp3"},
       .come = {L"Crest \u00E9.FP3"},
       .rewritesAll = true},
      {.name = "RefreshTheDataFolder",
       .run =
           [](Versions& in) {
             desktop().putFile(L"C:\\App\\data\\fresh.cw3", "x");
             desktop().take(L"C:\\App\\data\\Creek Bottom.bi3");
             modQMKGeneral::RefreshDataFolderEntries(in.gateway().catalogue);
           },
       .gone = {L"North Ridge 12.fp3", L"Creek Bottom.bi3", L"CWIexample.cw3",
                L"\u00C4hren \u00FC.bs3"},
       .come = {L"fresh.cw3", L"North Ridge 12.fp3", L"CWIexample.cw3", L"\u00C4hren \u00FC.bs3"},
       .canBeTakenBack = false},
      {.name = "AddAList",
       .run =
           [](Versions& in) {
             addList(in,
                     "\"FP3\",\"c:\\field work\\RIDGE.fp3\",\"9/9/2009\"\r\n"
                     "XX, C:\\Far\\merged.cw3 ,\"9/9/2009\",\"kept\"\n"
                     "\"bs3\",\"C:\\Far\\odd\"ity.bs3\",\"9/9/2009\r\n");
           },
       .come = {L"merged.cw3", L"odd"}},
      {.name = "ShowMovedFilesElsewhere",
       .run =
           [](Versions& in) {
             desktop().putFile(L"D:\\Season\\plain.fp3", "x");
             desktop().folderDialogResults = {L"D:\\Season"};
             desktop().answers = {Answer::yes};
             in.command(ids::mnuFindMoved);
             Versions::settle();
           },
       .gone = {L"plain.fp3"},
       .come = {L"plain.fp3"}},
      {.name = "CreateAWebShortcut",
       .tab = frmQMK::web,
       .run =
           [](Versions& in) {
             useWebDialog(in, ids::mnuCreate, L"\u00E9, new", L"http://new.example/\u00FC,1");
           },
       .come = {L"\u00E9, new"}},
      {.name = "RenameAWebShortcut",
       .tab = frmQMK::web,
       .run =
           [](Versions& in) {
             in.selectEntry(L"Caf\u00E9, plans");
             useWebDialog(in, ids::mnuRename, L"Teahouse", L"http://tea.example/");
           },
       .gone = {L"Caf\u00E9, plans"},
       .come = {L"Teahouse"},
       .rewritesAll = true},
      {.name = "DeleteAWebShortcut",
       .tab = frmQMK::web,
       .run =
           [](Versions& in) {
             in.selectEntry(L"Weather");
             desktop().answers = {Answer::yes};
             in.command(ids::mnuDelete);
           },
       .gone = {L"Weather"}},
      {.name = "PasteAnAddress",
       .tab = frmQMK::web,
       .run = [](Versions& in) { paste(in, {.text = L"http://pasted.example"}); },
       .come = {L"pasted.example"}},
      {.name = "AddAWebList",
       .tab = frmQMK::web,
       .run =
           [](Versions& in) {
             addList(in,
                     "\"Weather\",\"http://weather.example/\"\r\n"
                     "merged one, http://one.example \n\"merged two\",\"http://two.example\"");
           },
       .come = {L"merged one", L"merged two"}},
  };
  return all;
}

using Case = std::tuple<std::string, Operation>;

class AfterAnOperation : public Versions, public ::testing::WithParamInterface<Case> {
 protected:
  AfterAnOperation() {
    show(std::get<0>(GetParam()));
    bringToFront(operation.tab);
    before = bytes();
    operation.run(*this);
    after = bytes();
    static_cast<void>(desktop().messages.size());
  }
  [[nodiscard]] std::string bytes() const {
    return operation.tab == frmQMK::web ? webList() : catalogue();
  }
  [[nodiscard]] Texts rowsIn300(const std::string& list) const {
    return operation.tab == frmQMK::web ? webRowsIn300(list) : dataRowsIn300(list);
  }
  const Operation& operation = std::get<1>(GetParam());
  std::string before;
  std::string after;
};

TEST_P(AfterAnOperation, Version300ShowsTheListAsThisOneDoes) {
  EXPECT_NE(after, before);
  EXPECT_EQ(rowsIn300(after), operation.tab == frmQMK::web ? webRows() : dataRows());
}

TEST_P(AfterAnOperation, AllOtherEntriesAreWhatTheyWereIn300) {
  EXPECT_EQ(without(rowsIn300(after), operation.come), without(rowsIn300(before), operation.gone));
  for (const std::wstring& name : operation.come) {
    EXPECT_NE(without(rowsIn300(after), {name}), rowsIn300(after))
        << platform::text::toCodePage(name);
  }
}

TEST_P(AfterAnOperation, OtherRecordsKeepTheirBytes) {
  if (operation.rewritesAll) {
    return;
  }
  EXPECT_EQ(linesWithout(after, operation.come), linesWithout(before, operation.gone));
}

TEST_P(AfterAnOperation, UndoBringsTheBytesOf300Back) {
  if (!operation.canBeTakenBack) {
    return;
  }
  command(ids::mnuUndo);
  EXPECT_EQ(bytes(), before);
  command(ids::mnuRedo);
  EXPECT_EQ(bytes(), after);
}

INSTANTIATE_TEST_SUITE_P(On, AfterAnOperation,
                         ::testing::Combine(::testing::ValuesIn(stages),
                                            ::testing::ValuesIn(operations())),
                         [](const auto& each) {
                           return std::get<1>(each.param).name + "_" + std::get<0>(each.param);
                         });

TEST_F(Versions, ARecordWithTodaysDateKeepsWhatAToolPutBehindIt) {
  show("used");
  paste(*this, {.text = {}, .files = {L"C:\\Field Work\\Ridge.fp3"}});
  EXPECT_NE(catalogue().find("\"FP3\",\"C:\\Field Work\\Ridge.fp3\",\"11/20/2026\",\"kept by a "
                             "tool\"\r\n"),
            std::string::npos);
}

TEST_F(Versions, AnEarlierListOf300ComesBackByteForByte) {
  for (const std::string& stage : stages) {
    show("renamed");
    earlier_lists::restore(kept_lists::Which::dataFiles, fileOf300(stage + "/QMKFileList3.txt"),
                           gateway().keeper);
    earlier_lists::restore(kept_lists::Which::web, fileOf300(stage + "/QMKWebList.txt"),
                           gateway().keeper);
    EXPECT_EQ(catalogue(), fileOf300(stage + "/QMKFileList3.txt"));
    EXPECT_EQ(webList(), fileOf300(stage + "/QMKWebList.txt"));
  }
}

TEST_F(Versions, ManyOperationsLaterNothingElseHasChanged) {
  show("used");
  const std::string files = catalogue();
  const std::string sites = webList();
  Texts names;
  Texts webNames;
  std::size_t steps = 0;
  for (const Operation& operation : operations()) {
    if (operation.rewritesAll || !operation.canBeTakenBack || operation.name == "AddAList") {
      continue;
    }
    bringToFront(operation.tab);
    settle();
    operation.run(*this);
    ++steps;
    Texts& concerned = operation.tab == frmQMK::web ? webNames : names;
    concerned.insert(concerned.end(), operation.gone.begin(), operation.gone.end());
    concerned.insert(concerned.end(), operation.come.begin(), operation.come.end());
  }
  EXPECT_EQ(linesWithout(catalogue(), names), linesWithout(files, names));
  EXPECT_EQ(linesWithout(webList(), webNames), linesWithout(sites, webNames));
  for (std::size_t step = 0; step < steps; ++step) {
    command(ids::mnuUndo);
  }
  EXPECT_EQ(catalogue(), files);
  EXPECT_EQ(webList(), sites);
}

}  // namespace
}  // namespace versions
