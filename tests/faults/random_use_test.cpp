// Random use of the whole window on the in-memory desktop, under the sanitizers: commands in any
// order, any answers, other programs that write meanwhile, and a watch that ticks while a box is
// open.
#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <random>
#include <set>
#include <string>

#include "faults/sweep.h"
#include "listfile/list_file.h"
#include "mainwindow/control_ids.h"
#include "platform/desktop_test.h"

namespace faults {
namespace {

using memory::desktop;
using platform::dialogs::Answer;

class RandomUse : public ::memory::DesktopTest {
 protected:
  void use(unsigned seed, int events);

 private:
  std::size_t below(std::size_t most) { return random_() % most; }
  bool oneIn(unsigned n) { return random_() % n == 0; }
  std::wstring someName();
  void prepareAnswers();
  void otherProgram();
  /// Something that the system does: drives become slow or fast, viewers of help come and go,
  /// programs need an administrator, the session wants to end.
  void system();
  void select();
  void command();
  const mainwindow::Command& someCommand();
  void dialogs();
  void act();
  /// Called while a box is open: time passes and other programs write. Sometimes a command arrives
  /// that was already on its way.
  void meanwhile();

  std::mt19937 random_;
  frmQMK* main_ = nullptr;
  int depth_ = 0;

 protected:
  int events_ = 0;
};

std::wstring RandomUse::someName() {
  const std::wstring units = L"ab ,\"'%&.\u00E4\u20AC?\\x12";
  std::wstring name(1 + below(9), L'x');
  for (wchar_t& unit : name) {
    if (oneIn(2)) {
      unit = units[below(units.size())];
    }
  }
  return name;
}

void RandomUse::prepareAnswers() {
  desktop().answers.assign(40, oneIn(2) ? Answer::yes : Answer::no);
  desktop().inputAnswers.clear();
  desktop().fileDialogResults.clear();
  for (int n = 0; n < 10; ++n) {
    desktop().inputAnswers.emplace_back(oneIn(4) ? L"" : someName());
    if (oneIn(3)) {
      desktop().fileDialogResults.emplace_back(32755);
    } else {
      desktop().fileDialogResults.emplace_back(
          std::wstring(oneIn(2) ? L"D:\\One.fp3" : L"C:\\Tools\\calc.exe"));
    }
  }
}

void RandomUse::otherProgram() {
  std::string bytes = desktop().bytesOf(catalogueFile).value_or("");
  switch (below(6)) {
    case 0:
      list_file::append(bytes,
                        record("fp3", "D:\\Found " + std::to_string(below(9)) + ".fp3", "x"));
      desktop().putFile(catalogueFile, bytes);
      break;
    case 1:
      desktop().putFile(catalogueFile, bytes.substr(0, below(bytes.size() + 1)));
      break;
    case 2:
      desktop().putFile(L"D:\\Two.bi3", "two");
      break;
    case 3:
      desktop().take(catalogueFile);
      desktop().putFile(catalogueFile, record("cw3", "D:\\Only.cw3", "y"));
      break;
    case 4:
      desktop().putFile(webListFile,
                        record("Page " + std::to_string(below(9)), "http://x.example"));
      break;
    default:
      desktop().putFile(L"C:\\App\\data\\New " + std::to_wstring(below(9)) + L".bs3", "z");
      break;
  }
}

void RandomUse::system() {
  switch (below(5)) {
    case 0:
      desktop().slowDrives = oneIn(2) ? std::set<std::wstring>{L"C:"} : std::set<std::wstring>{};
      desktop().backgroundMilliseconds = static_cast<int>(below(3000));
      break;
    case 1:
      desktop().classicHelp = oneIn(2);
      desktop().compiledHelp = oneIn(2);
      break;
    case 2:
      desktop().elevated.clear();
      if (oneIn(2)) {
        desktop().elevated[L"C:\\Tools\\calc.exe"] = oneIn(2);
      }
      break;
    case 3:
      main_->fireLayout({900, 700}, oneIn(2) ? 96 : 144);
      break;
    default:
      main_->fireClose(oneIn(2) ? controls::UnloadMode::sessionEnd : controls::UnloadMode::forced);
      break;
  }
}

void RandomUse::select() {
  controls::ListView& list = main_->lstQMK.at(below(4));
  if (list.count() > 0) {
    list.acceptSelection(below(list.count()));
  }
}

const mainwindow::Command& RandomUse::someCommand() {
  const auto rows = mainwindow::commandTable().rows;
  return rows[below(rows.size())];
}

void RandomUse::command() {
  const auto list = static_cast<int>(below(4));
  switch (below(14)) {
    case 0:
    case 1:
    case 2:
    case 3:
    case 4:
    case 5:
      // Any command, including those that are in no menu.
      if (const auto& row = someCommand(); row.id != ids::mnuExit || oneIn(100)) {
        main_->commands.item(row.id).fireClick();
      }
      break;
    case 6:
      if (const auto& row = someCommand(); row.key.reach == mainwindow::Reach::window) {
        main_->fireKeyDown(row.key.stroke);
      }
      break;
    case 7:
      main_->cmdBrowse.fireClick();
      break;
    case 8:
    case 9:
      main_->lstQMK.at(static_cast<std::size_t>(list)).fireDoubleClick();
      break;
    case 10:
      main_->lstQMK.at(static_cast<std::size_t>(list))
          .fireColumnClick(1 + static_cast<int>(below(5)));
      break;
    case 11:
      main_->lstQMK.at(static_cast<std::size_t>(list)).fireKey(someCommand().key.stroke);
      break;
    case 12:
      main_->lstQMK.at(static_cast<std::size_t>(list)).fireContextMenu(1, 2);
      break;
    default:
      main_->TabMain.fireSwitch(static_cast<int>(below(4)));
      break;
  }
}

void RandomUse::dialogs() {
  if (frmWeb* const dialog = main_->webDialog(); dialog != nullptr && dialog->loaded()) {
    dialog->txtName.setText(someName());
    dialog->txtUrl.setText(L"http://" + someName());
    if (oneIn(3)) {
      dialog->cmdCancel.fireClick();
    } else {
      dialog->cmdOK.fireClick();
    }
  } else if (frmAbout* const box = main_->aboutBox(); box != nullptr && box->loaded()) {
    box->cmdOK.fireClick();
  }
}

void RandomUse::act() {
  switch (below(9)) {
    case 0:
      otherProgram();
      break;
    case 5:
      system();
      break;
    case 1:
      desktop().advance(static_cast<int>(below(2500)));
      break;
    case 2:
    case 3:
      select();
      break;
    case 4:
      dialogs();
      break;
    default:
      command();
      break;
  }
}

void RandomUse::meanwhile() {
  constexpr int deepest = 3;
  if (depth_ >= deepest) {
    return;
  }
  ++depth_;
  otherProgram();
  desktop().advance(1000);
  if (oneIn(4)) {
    act();
  }
  --depth_;
}

void RandomUse::use(unsigned seed, int events) {
  random_.seed(seed);
  Rig rig;
  main_ = &rig.main();
  main_->tmrFileUpdate.setEnabled(true);
  desktop().onMessage = [this](const ::memory::Message&) { meanwhile(); };
  desktop().onPump = [this] { meanwhile(); };
  for (int n = 0; n < events && main_->loaded(); ++n) {
    prepareAnswers();
    desktop().clearJournal();
    desktop().messages.clear();
    act();
    ++events_;
  }
  if (!main_->loaded()) {
    return;
  }
  // Afterwards the Open list shows what is in the file.
  desktop().onMessage = nullptr;
  desktop().onPump = nullptr;
  desktop().putFile(catalogueFile, record("fp3", "D:\\Last.fp3", "z"));
  desktop().advance(2000);
  EXPECT_EQ(main_->lstQMK[frmQMK::open].count(), 1U) << "seed " << seed;
}

TEST_F(RandomUse, FindsNothingThatTheSanitizersObjectTo) {
  const char* const wanted = std::getenv("QMK_RANDOM_USES");
  const int uses = wanted == nullptr ? 60 : std::atoi(wanted);
  constexpr int events = 400;
  for (int seed = 1; seed <= uses; ++seed) {
    desktop().reset();
    use(static_cast<unsigned>(seed), events);
    if (HasFailure()) {
      break;
    }
  }
  std::cout << "figure: random use in memory, events: " << events_ << '\n';
}

}  // namespace
}  // namespace faults
