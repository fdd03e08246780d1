// What becomes of a question about an entry when something else happens before its answer: every
// question with every such thing.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "platform/shell_links.h"
#include "unit/support/list_file_bytes.h"
#include "unit/support/loaded_main_window.h"

namespace {

using controls::ListKey;
using controls::UnloadMode;
using desktop::desktop;
using platform::dialogs::Answer;
using unit::record;
using unit::Texts;

const std::wstring shortcuts = L"C:\\Users\\Ann\\Documents\\My QMKExtra3\\ShortCuts\\";

/// Three entries in each list, of which the middle one is selected and asked about.
class QuestionBench : public unit::LoadedMainWindow {
 protected:
  QuestionBench() {
    for (const wchar_t* const name : {L"Alder.bi3", L"Birch.bi3", L"Cedar.bi3"}) {
      desktop().putFile(L"D:\\" + std::wstring(name), "data");
    }
    putCatalogue(alder + birch + cedar);
    putWebList(atlas + barometer + clock);
    for (const wchar_t* const name : {L"Adder", L"Burner", L"Cutter"}) {
      putShortcut(name);
    }
    desktop().putFolder(L"C:\\App\\shortcuts");
    modQMKGeneral::LoadCatalogueView(main.catalogue);
    modQMKGeneral::LoadWebList(main.webList);
    modSC::LoadShortcutList(main.shortcuts);
    main.tmrFileUpdate.setEnabled(true);
    desktop().advance(2000);
    for (controls::ListView& list : main.lstQMK) {
      if (list.count() > 1) {
        list.acceptSelection(1);
      }
    }
  }

 public:
  const std::string alder = record({"bi3", "D:\\Alder.bi3", "1/1/2001"});
  const std::string birch = record({"bi3", "D:\\Birch.bi3", "2/2/2002"});
  const std::string cedar = record({"bi3", "D:\\Cedar.bi3", "3/3/2003"});
  const std::string atlas = record({"Atlas", "http://atlas"});
  const std::string barometer = record({"Barometer", "http://barometer"});
  const std::string clock = record({"Clock", "http://clock"});

  static void putCatalogue(const std::string& bytes) {
    desktop().putFile(unit::catalogueFile, bytes);
  }
  static void putWebList(const std::string& bytes) { desktop().putFile(unit::webListFile, bytes); }
  static void putShortcut(const std::wstring& name) {
    platform::shell_links::Link link;
    link.targetPath = L"C:\\Tools\\" + name + L".exe";
    desktop().putLink(shortcuts + name + L".lnk", link);
  }
  static std::string catalogue() { return unit::bytesOf(unit::catalogueFile); }
  static std::string webList() { return unit::bytesOf(unit::webListFile); }
  static bool hasData(const std::wstring& name) { return desktop().has(L"D:\\" + name); }
  static bool hasShortcut(const std::wstring& name) {
    return desktop().has(shortcuts + name + L".lnk");
  }
  [[nodiscard]] Texts names() const { return textsOf(main.lstQMK[frmQMK::web]); }
  /// Whether no entry but the one asked about has lost its file.
  static bool othersAreThere() {
    return hasData(L"Alder.bi3") && hasData(L"Cedar.bi3") && hasShortcut(L"Adder") &&
           hasShortcut(L"Cutter");
  }
  frmQMK& program() { return main; }
  /// The watch ticks, and the user reloads the lists that are not watched.
  void reload() {
    desktop().advance(1000);
    main.lstQMK[frmQMK::tools].raiseKey(ListKey::reload);
    main.lstQMK[frmQMK::web].raiseKey(ListKey::reload);
  }
  /// Texts of the messages that are no questions.
  static Texts told() {
    Texts texts;
    for (const auto& message : desktop().messages) {
      if (message.answer == Answer::ok) {
        texts.push_back(message.text);
      }
    }
    return texts;
  }
  /// What happens before the answer.
  std::function<void()> meanwhile;
  void happen() {
    if (const auto once = std::exchange(meanwhile, nullptr)) {
      once();
    }
  }
};

/// Something that asks about the middle entry of a list and acts on it.
struct Question {
  std::string name;
  std::wstring entry;  ///< As the list shows it.
  /// Asks, lets `happen` run while the question is up, and confirms it.
  std::function<void(QuestionBench&)> ask;
  /// Whether what was asked for has been done to the entry.
  std::function<bool()> done;
  bool modal = true;
};

void confirm(QuestionBench& bench, int tab, controls::MenuItem& command) {
  bench.program().TabMain.raiseSwitch(tab);
  desktop().answers.push_front(Answer::yes);
  command.raiseClick();
}

void answerWith(QuestionBench& bench, int tab, const std::wstring& name) {
  bench.program().TabMain.raiseSwitch(tab);
  desktop().inputAnswers = {name};
  bench.program().mnuRename.raiseClick();
}

const std::vector<Question>& questions() {
  static const std::vector<Question> all{
      {"RenameFile", L"Birch.bi3",
       [](QuestionBench& bench) { answerWith(bench, frmQMK::open, L"Beech"); },
       [] {
         return !QuestionBench::hasData(L"Birch.bi3") && QuestionBench::hasData(L"Beech.BI3") &&
                QuestionBench::catalogue().find("Beech.BI3\",\"2/2/2002") != std::string::npos;
       }},
      {"DeleteFile", L"Birch.bi3",
       [](QuestionBench& bench) { confirm(bench, frmQMK::open, bench.program().mnuDelete); },
       [] {
         return !QuestionBench::hasData(L"Birch.bi3") &&
                QuestionBench::catalogue().find("Birch") == std::string::npos;
       }},
      {"MissingFile", L"Birch.bi3",
       [](QuestionBench& bench) {
         desktop().take(L"D:\\Birch.bi3");
         desktop().answers.push_front(Answer::no);
         bench.program().lstQMK[frmQMK::open].raiseDoubleClick();
       },
       [] { return QuestionBench::catalogue().find("Birch") == std::string::npos; }},
      {"RenameShortcut", L"Burner",
       [](QuestionBench& bench) { answerWith(bench, frmQMK::tools, L"Blower"); },
       [] {
         return !QuestionBench::hasShortcut(L"Burner") &&
                desktop().has(L"C:\\App\\shortcuts\\Blower.lnk");
       }},
      {"DeleteShortcut", L"Burner",
       [](QuestionBench& bench) { confirm(bench, frmQMK::tools, bench.program().mnuDelete); },
       [] { return !QuestionBench::hasShortcut(L"Burner"); }},
      {"DeleteWebShortcut", L"Barometer",
       [](QuestionBench& bench) { confirm(bench, frmQMK::web, bench.program().mnuDelete); },
       [] { return QuestionBench::webList().find("Barometer") == std::string::npos; }},
      {"RenameWebShortcut", L"Barometer",
       [](QuestionBench& bench) {
         bench.program().TabMain.raiseSwitch(frmQMK::web);
         bench.program().mnuRename.raiseClick();
         frmWeb& dialog = *bench.program().webDialog();
         dialog.txtName.acceptTyped(L"Buoy");
         bench.happen();
         if (dialog.loaded()) {
           dialog.cmdOK.raiseClick();
         }
       },
       [] {
         return QuestionBench::webList().find(record({"Buoy", "http://barometer"})) !=
                    std::string::npos &&
                QuestionBench::webList().find("Barometer") == std::string::npos;
       },
       false},
  };
  return all;
}

/// What becomes of the question.
enum class Outcome {
  done,    ///< What was asked for is done to the entry that was named.
  gone,    ///< The entry is said to be gone, and nothing is touched.
  lapsed,  ///< Nothing is done and nothing said.
};

/// Something that happens while a question is up.
struct Event {
  std::string name;
  std::function<void(QuestionBench&)> happen;
  Outcome modal = Outcome::done;     ///< Of a question that is answered in a box.
  Outcome modeless = Outcome::done;  ///< Of the web shortcut dialog.
};

void takeEntries(QuestionBench& bench) {
  bench.putCatalogue(bench.alder + bench.cedar);
  bench.putWebList(bench.atlas + bench.clock);
  // Not deleted: moved to where the list does not look.
  desktop().take(shortcuts + L"Burner.lnk");
  bench.reload();
}

void putEntriesBack(QuestionBench& bench) {
  bench.putCatalogue(bench.cedar + bench.birch + bench.alder);
  bench.putWebList(bench.clock + bench.barometer + bench.atlas);
  bench.putShortcut(L"Burner");
  bench.reload();
}

void lockLists() {
  desktop().lock(unit::catalogueFile);
  desktop().lock(unit::webListFile);
}

void unlockLists() {
  desktop().unlock(unit::catalogueFile);
  desktop().unlock(unit::webListFile);
}

const std::vector<Event>& events() {
  static const std::vector<Event> all{
      {"Nothing", [](QuestionBench& /*bench*/) {}},
      {"AReloadWithEntriesBeforeIt",
       [](QuestionBench& bench) {
         bench.putCatalogue(record({"bi3", "D:\\Aaa.bi3", "x"}) + bench.cedar + bench.birch +
                            bench.alder);
         bench.putWebList(record({"New", "http://new"}) + bench.clock + bench.barometer +
                          bench.atlas);
         bench.putShortcut(L"Aaa");
         bench.reload();
       }},
      {"AReloadThatLeavesOnlyIt",
       [](QuestionBench& bench) {
         bench.putCatalogue(bench.birch);
         bench.putWebList(bench.barometer);
         bench.reload();
       }},
      {"AReloadWithoutIt", takeEntries, Outcome::gone, Outcome::gone},
      {"AReloadWithoutItAndOneWithItAgain",
       [](QuestionBench& bench) {
         takeEntries(bench);
         putEntriesBack(bench);
       }},
      {"AReloadThatFailsAndOneThatWorks",
       [](QuestionBench& bench) {
         lockLists();
         bench.putShortcut(L"Aaa");
         bench.program().lstQMK[frmQMK::open].raiseKey(ListKey::reload);
         bench.reload();
         unlockLists();
         bench.program().lstQMK[frmQMK::open].raiseKey(ListKey::reload);
         bench.reload();
         desktop().messages.clear();
       }},
      {"TheListsAreEmptied",
       [](QuestionBench& bench) {
         bench.putCatalogue("");
         bench.putWebList("");
         desktop().take(shortcuts + L"Adder.lnk");
         takeEntries(bench);
         bench.putCatalogue("");
         bench.putWebList("");
         bench.reload();
         bench.putShortcut(L"Adder");
       },
       Outcome::gone, Outcome::gone},
      {"AColumnClick",
       [](QuestionBench& bench) {
         bench.program().lstQMK[frmQMK::open].raiseColumnClick(1);
         bench.program().lstQMK[frmQMK::web].raiseColumnClick(2);
         bench.program().lstQMK[frmQMK::open].raiseColumnClick(2);
       }},
      {"AViewMode",
       [](QuestionBench& bench) {
         bench.program().mnuIcon.raiseClick();
         bench.program().mnuList.raiseClick();
       }},
      {"ATabKeyThereAndBack",
       [](QuestionBench& bench) {
         const int tab = bench.program().TabMain.current();
         bench.program().TabMain.raiseSwitch(frmQMK::fresh);
         bench.program().TabMain.raiseSwitch(tab);
       }},
      {"ACloseThatIsRefused",
       [](QuestionBench& bench) {
         desktop().answers = {Answer::no};
         EXPECT_FALSE(bench.program().raiseClose(UnloadMode::user));
       }},
      // A box was confirmed before its window went; the dialog goes with it.
      {"AClose",
       [](QuestionBench& bench) {
         desktop().answers = {Answer::yes};
         EXPECT_TRUE(bench.program().raiseClose(UnloadMode::user));
       },
       Outcome::done, Outcome::lapsed},
      {"AnEndOfTheSessionThatIsRefused",
       [](QuestionBench& bench) {
         desktop().answers = {Answer::no};
         EXPECT_FALSE(bench.program().raiseClose(UnloadMode::sessionEnd));
       }},
      {"TheEndOfTheSession",
       [](QuestionBench& bench) {
         desktop().answers = {Answer::yes};
         EXPECT_TRUE(bench.program().raiseClose(UnloadMode::sessionEnd));
       }},
      {"AnotherDensity",
       [](QuestionBench& bench) {
         bench.program().raiseLayout({1200, 800}, 144);
       }},
  };
  return all;
}

// For GoogleTest, which would otherwise print the bytes of the objects.
void PrintTo(const Question& question, std::ostream* out) { *out << question.name; }
void PrintTo(const Event& event, std::ostream* out) { *out << event.name; }

class Questions : public QuestionBench,
                  public ::testing::WithParamInterface<std::tuple<Question, Event>> {};

TEST_P(Questions, ActOnTheEntryThatTheyName) {
  const auto& [question, event] = GetParam();
  meanwhile = [this, &event = event] { event.happen(*this); };
  desktop().onMessage = [this](const auto& /*message*/) { happen(); };
  desktop().onInput = [this](const auto& /*input*/) { happen(); };
  question.ask(*this);
  ASSERT_FALSE(meanwhile) << "nothing has been asked";

  const Outcome outcome = question.modal ? event.modal : event.modeless;
  const bool taken = event.modal == Outcome::gone;
  EXPECT_EQ(question.done() && !taken, outcome == Outcome::done);
  EXPECT_EQ(told(), outcome == Outcome::gone ? Texts{question.entry + L" is no longer in the list"}
                                             : Texts{});
  EXPECT_TRUE(othersAreThere());
  const bool aboutTheFile = question.name == "RenameFile" || question.name == "DeleteFile";
  EXPECT_EQ(hasData(L"Birch.bi3"),
            question.name != "MissingFile" && !(aboutTheFile && outcome == Outcome::done));
  EXPECT_TRUE(desktop().starts.empty());
}

INSTANTIATE_TEST_SUITE_P(Before, Questions,
                         ::testing::Combine(::testing::ValuesIn(questions()),
                                            ::testing::ValuesIn(events())),
                         [](const auto& tested) {
                           return std::get<0>(tested.param).name + "_" +
                                  std::get<1>(tested.param).name;
                         });

// --- a file that comes back ---

TEST_F(QuestionBench, AFileThatIsBackBeforeTheAnswerStaysAndOnlyItsEntryGoes) {
  meanwhile = [] { desktop().putFile(L"D:\\Birch.bi3", "the work of a summer"); };
  desktop().onMessage = [this](const auto& /*message*/) { happen(); };
  desktop().take(L"D:\\Birch.bi3");
  desktop().answers = {Answer::no};
  main.lstQMK[frmQMK::open].raiseDoubleClick();
  EXPECT_EQ(desktop().bytesOf(L"D:\\Birch.bi3"), "the work of a summer");
  EXPECT_EQ(catalogue(), alder + cedar);
  EXPECT_EQ(textsOf(main.lstQMK[frmQMK::open]), (Texts{L"Alder.bi3", L"Cedar.bi3"}));
}

TEST_F(QuestionBench, AFileThatIsBackWhenARenameHasMissedItStays) {
  meanwhile = [] { desktop().putFile(L"D:\\Birch.bi3", "the work of a summer"); };
  desktop().onMessage = [this](const auto& /*message*/) { happen(); };
  desktop().take(L"D:\\Birch.bi3");
  answerWith(*this, frmQMK::open, L"Beech");
  EXPECT_EQ(told(), Texts{L"File does not exists, removing entry"});
  EXPECT_EQ(desktop().bytesOf(L"D:\\Birch.bi3"), "the work of a summer");
}

// --- the user chooses another entry ---

TEST_F(QuestionBench, TheWebShortcutDialogChangesWhatTheUserHasSelectedSince) {
  main.TabMain.raiseSwitch(frmQMK::web);
  main.mnuRename.raiseClick();
  main.webDialog()->txtName.acceptTyped(L"Buoy");
  main.lstQMK[frmQMK::web].acceptSelection(2);
  main.webDialog()->cmdOK.raiseClick();
  EXPECT_EQ(webList(), atlas + barometer + record({"Buoy", "http://barometer"}));
}

TEST_F(QuestionBench, AnEntryThatTheUserHasSelectedSinceMustBeThereToo) {
  main.TabMain.raiseSwitch(frmQMK::web);
  main.mnuRename.raiseClick();
  main.lstQMK[frmQMK::web].acceptSelection(2);
  putWebList(atlas + barometer);
  reload();
  main.webDialog()->cmdOK.raiseClick();
  EXPECT_EQ(told(), Texts{L"Clock is no longer in the list"});
  EXPECT_EQ(webList(), atlas + barometer);
  ASSERT_TRUE(main.webDialog()->loaded()) << "What was typed stays";
  main.lstQMK[frmQMK::web].acceptSelection(0);
  main.webDialog()->cmdOK.raiseClick();
  EXPECT_FALSE(main.webDialog()->loaded());
  EXPECT_EQ(names(), (Texts{L"Barometer", L"Barometer"}));
}

TEST_F(QuestionBench, OnAnotherTabAReloadMovesNothingEither) {
  main.TabMain.raiseSwitch(frmQMK::web);
  main.mnuRename.raiseClick();
  main.TabMain.raiseSwitch(frmQMK::open);
  putCatalogue(alder + cedar);
  reload();
  main.webDialog()->cmdOK.raiseClick();
  EXPECT_EQ(told(), Texts{L"Birch.bi3 is no longer in the list"});
  EXPECT_EQ(webList(), atlas + barometer + clock);
}

TEST_F(QuestionBench, WhatIsSelectedWhenTheDialogIsShownIsChosen) {
  main.TabMain.raiseSwitch(frmQMK::web);
  putWebList(atlas + clock);
  reload();
  main.mnuRename.raiseClick();
  EXPECT_EQ(main.webDialog()->txtName.text(), L"Atlas");
  main.webDialog()->txtName.acceptTyped(L"Axis");
  main.webDialog()->cmdOK.raiseClick();
  EXPECT_EQ(webList(), record({"Axis", "http://atlas"}) + clock);
  EXPECT_EQ(told(), Texts{});
}

// --- equal entries ---

TEST_F(QuestionBench, EqualWebShortcutsAreToldApartByTheirOrder) {
  putWebList(atlas + clock + clock);
  reload();
  main.TabMain.raiseSwitch(frmQMK::web);
  main.lstQMK[frmQMK::web].acceptSelection(2);
  main.mnuRename.raiseClick();
  main.webDialog()->txtName.acceptTyped(L"Sundial");
  main.lstQMK[frmQMK::web].raiseKey(ListKey::reload);
  EXPECT_EQ(main.lstQMK[frmQMK::web].selected(), 2U);
  main.webDialog()->cmdOK.raiseClick();
  EXPECT_EQ(webList(), atlas + clock + record({"Sundial", "http://clock"}));
}

// --- a list that could not be read whole ---

TEST_F(QuestionBench, AWebListThatCouldNotBeReadDoesNotBecomeTheFile) {
  main.TabMain.raiseSwitch(frmQMK::web);
  main.mnuRename.raiseClick();
  main.webDialog()->txtName.acceptTyped(L"Buoy");
  desktop().lock(unit::webListFile);
  reload();
  main.webDialog()->cmdOK.raiseClick();
  EXPECT_TRUE(main.webDialog()->loaded());
  const std::wstring problem = L"Problem reading Web file list\r70-Permission denied";
  EXPECT_EQ(told(), (Texts{problem, problem}));
  desktop().unlock(unit::webListFile);
  EXPECT_EQ(webList(), atlas + barometer + clock);
  main.webDialog()->cmdOK.raiseClick();
  EXPECT_EQ(webList(), atlas + record({"Buoy", "http://barometer"}) + clock);
}

}  // namespace
