// What happens to a question about an entry when something else happens before its answer: every
// question with every such event.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "unit/support/question_bench.h"

namespace {

namespace keys = controls::keys;
using controls::UnloadMode;
using desktop::desktop;
using platform::dialogs::Answer;
using unit::answerWith;
using unit::QuestionBench;
using unit::record;
using unit::shortcuts;
using unit::Texts;

/// A command that asks about the middle entry of a list and acts on it.
struct Question {
  std::string name;
  std::wstring entry;  ///< As the list shows it.
  /// Asks, calls `happen` while the question is open, and confirms it.
  std::function<void(QuestionBench&)> ask;
  /// Whether the requested change has been made to the entry.
  std::function<bool()> done;
  bool modal = true;
};

void confirm(QuestionBench& bench, int tab, controls::MenuItem& command) {
  bench.program().TabMain.raiseSwitch(tab);
  desktop().answers.push_front(Answer::yes);
  command.raiseClick();
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

/// The result of the question.
enum class Outcome {
  done,    ///< The requested change is made to the named entry.
  gone,    ///< The entry is reported as gone, and nothing changes.
  lapsed,  ///< Nothing changes and nothing is shown.
};

/// An event while a question is open.
struct Event {
  std::string name;
  std::function<void(QuestionBench&)> happen;
  Outcome modal = Outcome::done;     ///< Result for a question in a message or input box.
  Outcome modeless = Outcome::done;  ///< Result for the web shortcut dialog.
};

void takeEntries(QuestionBench& bench) {
  bench.putCatalogue(bench.alder + bench.cedar);
  bench.putWebList(bench.atlas + bench.clock);
  // Not deleted but moved out of the list's folder.
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
         bench.program().lstQMK[frmQMK::open].raiseKey({keys::f5});
         bench.reload();
         unlockLists();
         bench.program().lstQMK[frmQMK::open].raiseKey({keys::f5});
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
      // The box was confirmed before its window closed; the dialog closes with the window.
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

}  // namespace
