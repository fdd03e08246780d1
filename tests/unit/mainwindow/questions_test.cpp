// What happens to a question about an entry when something else happens before its answer: every
// question with every such event.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include "unit/support/question_rig.h"

namespace {

namespace keys = controls::keys;
using controls::UnloadMode;
using memory::desktop;
using platform::dialogs::Answer;
using unit::answerWith;
using unit::QuestionRig;
using unit::record;
using unit::shortcuts;
using unit::Texts;

/// A command that asks about the middle entry of a list and acts on it.
struct Question {
  std::string name;
  std::wstring entry;  ///< As the list shows it.
  /// Asks, calls `happen` while the question is open, and confirms it.
  std::function<void(QuestionRig&)> ask;
  /// Whether the requested change has been made to the entry.
  std::function<bool()> done;
  bool modal = true;
};

void confirm(QuestionRig& rig, int tab, controls::MenuItem& command) {
  rig.program().TabMain.fireSwitch(tab);
  desktop().answers.push_front(Answer::yes);
  command.fireClick();
}

const std::vector<Question>& questions() {
  static const std::vector<Question> all{
      {"RenameFile", L"Birch.bi3",
       [](QuestionRig& rig) { answerWith(rig, frmQMK::open, L"Beech"); },
       [] {
         return !QuestionRig::hasData(L"Birch.bi3") && QuestionRig::hasData(L"Beech.BI3") &&
                QuestionRig::catalogue().find("Beech.BI3\",\"2/2/2002") != std::string::npos;
       }},
      {"DeleteFile", L"Birch.bi3",
       [](QuestionRig& rig) { confirm(rig, frmQMK::open, rig.program().mnuDelete); },
       [] {
         return !QuestionRig::hasData(L"Birch.bi3") &&
                QuestionRig::catalogue().find("Birch") == std::string::npos;
       }},
      {"MissingFile", L"Birch.bi3",
       [](QuestionRig& rig) {
         desktop().take(L"D:\\Birch.bi3");
         desktop().answers.push_front(Answer::no);
         rig.program().lstQMK[frmQMK::open].fireDoubleClick();
       },
       [] { return QuestionRig::catalogue().find("Birch") == std::string::npos; }},
      {"RenameShortcut", L"Burner",
       [](QuestionRig& rig) { answerWith(rig, frmQMK::tools, L"Blower"); },
       [] {
         return !QuestionRig::hasShortcut(L"Burner") &&
                desktop().has(L"C:\\App\\shortcuts\\Blower.lnk");
       }},
      {"DeleteShortcut", L"Burner",
       [](QuestionRig& rig) { confirm(rig, frmQMK::tools, rig.program().mnuDelete); },
       [] { return !QuestionRig::hasShortcut(L"Burner"); }},
      {"DeleteWebShortcut", L"Barometer",
       [](QuestionRig& rig) { confirm(rig, frmQMK::web, rig.program().mnuDelete); },
       [] { return QuestionRig::webList().find("Barometer") == std::string::npos; }},
      {"RenameWebShortcut", L"Barometer",
       [](QuestionRig& rig) {
         rig.program().TabMain.fireSwitch(frmQMK::web);
         rig.program().mnuRename.fireClick();
         frmWeb& dialog = *rig.program().webDialog();
         dialog.txtName.acceptTyped(L"Buoy");
         rig.happen();
         if (dialog.loaded()) {
           dialog.cmdOK.fireClick();
         }
       },
       [] {
         return QuestionRig::webList().find(record({"Buoy", "http://barometer"})) !=
                    std::string::npos &&
                QuestionRig::webList().find("Barometer") == std::string::npos;
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
  std::function<void(QuestionRig&)> happen;
  Outcome modal = Outcome::done;     ///< Result for a question in a message or input box.
  Outcome modeless = Outcome::done;  ///< Result for the web shortcut dialog.
};

void takeEntries(QuestionRig& rig) {
  rig.putCatalogue(rig.alder + rig.cedar);
  rig.putWebList(rig.atlas + rig.clock);
  // Not deleted but moved out of the list's folder.
  desktop().take(shortcuts + L"Burner.lnk");
  rig.reload();
}

void putEntriesBack(QuestionRig& rig) {
  rig.putCatalogue(rig.cedar + rig.birch + rig.alder);
  rig.putWebList(rig.clock + rig.barometer + rig.atlas);
  rig.putShortcut(L"Burner");
  rig.reload();
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
      {"Nothing", [](QuestionRig& /*rig*/) {}},
      {"AReloadWithEntriesBeforeIt",
       [](QuestionRig& rig) {
         rig.putCatalogue(record({"bi3", "D:\\Aaa.bi3", "x"}) + rig.cedar + rig.birch + rig.alder);
         rig.putWebList(record({"New", "http://new"}) + rig.clock + rig.barometer + rig.atlas);
         rig.putShortcut(L"Aaa");
         rig.reload();
       }},
      {"AReloadThatLeavesOnlyIt",
       [](QuestionRig& rig) {
         rig.putCatalogue(rig.birch);
         rig.putWebList(rig.barometer);
         rig.reload();
       }},
      {"AReloadWithoutIt", takeEntries, Outcome::gone, Outcome::gone},
      {"AReloadWithoutItAndOneWithItAgain",
       [](QuestionRig& rig) {
         takeEntries(rig);
         putEntriesBack(rig);
       }},
      {"AReloadThatFailsAndOneThatWorks",
       [](QuestionRig& rig) {
         lockLists();
         rig.putShortcut(L"Aaa");
         rig.program().lstQMK[frmQMK::open].fireKey({keys::f5});
         rig.reload();
         unlockLists();
         rig.program().lstQMK[frmQMK::open].fireKey({keys::f5});
         rig.reload();
         desktop().messages.clear();
       }},
      {"TheListsAreEmptied",
       [](QuestionRig& rig) {
         rig.putCatalogue("");
         rig.putWebList("");
         desktop().take(shortcuts + L"Adder.lnk");
         takeEntries(rig);
         rig.putCatalogue("");
         rig.putWebList("");
         rig.reload();
         rig.putShortcut(L"Adder");
       },
       Outcome::gone, Outcome::gone},
      {"AColumnClick",
       [](QuestionRig& rig) {
         rig.program().lstQMK[frmQMK::open].fireColumnClick(1);
         rig.program().lstQMK[frmQMK::web].fireColumnClick(2);
         rig.program().lstQMK[frmQMK::open].fireColumnClick(2);
       }},
      {"AViewMode",
       [](QuestionRig& rig) {
         rig.program().mnuIcon.fireClick();
         rig.program().mnuList.fireClick();
       }},
      {"ATabKeyThereAndBack",
       [](QuestionRig& rig) {
         const int tab = rig.program().TabMain.current();
         rig.program().TabMain.fireSwitch(frmQMK::newFiles);
         rig.program().TabMain.fireSwitch(tab);
       }},
      {"ACloseThatIsRefused",
       [](QuestionRig& rig) {
         desktop().answers = {Answer::no};
         EXPECT_FALSE(rig.program().fireClose(UnloadMode::user));
       }},
      // The box was confirmed before its window closed; the dialog closes with the window.
      {"AClose",
       [](QuestionRig& rig) {
         desktop().answers = {Answer::yes};
         EXPECT_TRUE(rig.program().fireClose(UnloadMode::user));
       },
       Outcome::done, Outcome::lapsed},
      {"AnEndOfTheSessionThatIsRefused",
       [](QuestionRig& rig) {
         desktop().answers = {Answer::no};
         EXPECT_FALSE(rig.program().fireClose(UnloadMode::sessionEnd));
       }},
      {"TheEndOfTheSession",
       [](QuestionRig& rig) {
         desktop().answers = {Answer::yes};
         EXPECT_TRUE(rig.program().fireClose(UnloadMode::sessionEnd));
       }},
      {"AnotherDensity",
       [](QuestionRig& rig) {
         rig.program().fireLayout({1200, 800}, 144);
       }},
  };
  return all;
}

// For GoogleTest, which would otherwise print the bytes of the objects.
void PrintTo(const Question& question, std::ostream* out) { *out << question.name; }
void PrintTo(const Event& event, std::ostream* out) { *out << event.name; }

class Questions : public QuestionRig,
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
