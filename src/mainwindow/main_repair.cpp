// Entries whose files have been moved, or whose drive has got another letter: finding the files and
// changing the entries.
#include <memory>
#include <optional>
#include <unordered_set>
#include <utility>

#include "catalogue/changed_drive.h"
#include "catalogue/missing_files.h"
#include "catalogue/moved_files.h"
#include "catalogue/moved_records.h"
#include "catalogue/stored_path.h"
#include "mainwindow/main_window.h"
#include "platform/background.h"
#include "platform/dialogs.h"
#include "platform/drives.h"
#include "platform/trap.h"
#include "startup/paths.h"

using modQMKGeneral::FoundFile;
using modQMKGeneral::ListedFolder;

/// One search for moved files, from the command to its end. While a step runs in the background,
/// nobody else uses it.
struct frmQMK::Repair {
  std::weak_ptr<bool> current;  ///< Expires when the command is given again or the window ends.
  std::vector<ListedFolder> missing;                 ///< The entries without a file so far.
  std::vector<modQMKGeneral::Move> moves{};          ///< What to ask about.
  std::vector<modQMKGeneral::PathChange> changes{};  ///< What the user has agreed to.
  std::size_t unclear = 0;  ///< Entries whose file may be in too many places.
  std::size_t gone = 0;     ///< Changes to files that are not there any more.
  std::wstring before{};    ///< The letter that the program's drive had,
  std::wstring now{};       ///< and the one that it has.

  /// Asks about the moves. What the user agrees to is missing no longer.
  void ask();
};

namespace {

/// Takes the names of these files out of the folders.
void takeOut(std::vector<ListedFolder>& folders, const std::vector<FoundFile>& files) {
  // The files go by numbers, so nothing may move before all of them are marked. No file has an
  // empty name.
  for (const FoundFile& file : files) {
    folders[file.folder].names[file.name].clear();
  }
  for (ListedFolder& folder : folders) {
    std::erase(folder.names, L"");
  }
}

/// Whether a file may be one of the missing entries, by its name.
std::function<bool(std::wstring_view)> namesAmong(const std::vector<ListedFolder>& missing) {
  const auto wanted = std::make_shared<std::unordered_set<std::wstring>>();
  for (const ListedFolder& folder : missing) {
    for (const std::wstring& name : folder.names) {
      wanted->insert(stored_path::comparable(name));
    }
  }
  return
      [wanted](std::wstring_view name) { return wanted->contains(stored_path::comparable(name)); };
}

/// The letter of the program's drive, if it may be another one at the next start: that of a copy
/// that is carried around, or on a drive that can be taken out. "" otherwise.
std::wstring letterToKeep(const settings::Store& kept) {
  const std::wstring folder = modQMKGeneral::AppFolder();
  return kept.isFile() || platform::drives::mayBeSlow(folder) ? modQMKGeneral::ownLetter(folder)
                                                              : std::wstring();
}

}  // namespace

void frmQMK::Repair::ask() {
  const std::vector<FoundFile> chosen =
      modQMKGeneral::askAboutMoves(missing, std::exchange(moves, {}));
  for (const FoundFile& file : chosen) {
    const ListedFolder& folder = missing[file.folder];
    changes.push_back({folder.path + folder.names[file.name], file.path});
  }
  takeOut(missing, chosen);
}

bool frmQMK::nextStep(const std::shared_ptr<Repair>& repair,
                      const std::function<void(Repair&)>& work,
                      void (frmQMK::*next)(const std::shared_ptr<Repair>&)) {
  const auto failure = std::make_shared<std::optional<platform::RunTimeError>>();
  const bool started = platform::background::run(
      [repair, work, failure] { *failure = platform::trapped([&] { work(*repair); }); },
      [this, repair, next, failure] {
        if (repair->current.expired()) {
          return;
        }
        if (*failure) {
          tell(L"Nothing was changed: " + (*failure)->description());
        } else {
          (this->*next)(repair);
        }
      });
  if (!started) {
    tell(L"The search cannot be started");
  }
  return started;
}

void frmQMK::mnuFindMoved_Click() {
  repairing_ = std::make_shared<bool>();
  const auto repair = std::make_shared<Repair>(
      Repair{.current = repairing_, .missing = modQMKGeneral::entriesByFolder(lstQMK[open])});
  const auto look = [](Repair& step) {
    modQMKGeneral::keepMissing(step.missing);
    step.moves = modQMKGeneral::movesOf(step.missing, modQMKGeneral::onOtherDrives(step.missing));
  };
  if (nextStep(repair, look, &frmQMK::lookInFolder)) {
    tell(L"Looking on the other drives");
  }
}

void frmQMK::lookInFolder(const std::shared_ptr<Repair>& repair) {
  if (repair->missing.empty()) {
    tell(L"No file of the list is missing");
    return;
  }
  tell({});
  repair->ask();
  std::wstring folder;
  if (modQMKGeneral::countOf(repair->missing) == 0 ||
      !chosen([&folder] { folder = platform::dialogs::chooseFolder(L"Find Moved Files"); })) {
    changeMoved(repair);
    return;
  }
  searchFolders(L"Looking for moved files", {folder}, namesAmong(repair->missing),
                [this, repair](const std::vector<std::wstring>& found) {
                  const auto fit = [found](Repair& step) {
                    auto files = modQMKGeneral::amongFiles(step.missing, found);
                    step.unclear = files.unclear;
                    step.moves = modQMKGeneral::movesOf(step.missing, std::move(files.files));
                  };
                  static_cast<void>(nextStep(repair, fit, &frmQMK::askAboutFound));
                });
}

void frmQMK::askAboutFound(const std::shared_ptr<Repair>& repair) {
  if (repair->moves.empty() && repair->unclear == 0 && repair->changes.empty()) {
    tell(L"None of them is there.");
    return;
  }
  repair->ask();
  if (repair->changes.empty() && repair->unclear == 0) {
    tell(L"Nothing was changed");
  }
  changeMoved(repair);
}

void frmQMK::changeMoved(const std::shared_ptr<Repair>& repair) {
  if (repair->changes.empty() && repair->unclear == 0) {
    return;
  }
  // Time has passed with questions. Only what is there now is listed.
  const auto check = [](Repair& step) { step.gone = modQMKGeneral::dropThoseGone(step.changes); };
  static_cast<void>(nextStep(repair, check, &frmQMK::endRepair));
}

void frmQMK::endRepair(const std::shared_ptr<Repair>& repair) {
  modQMKGeneral::PathChanges result;
  if (!repair->changes.empty()) {
    undo::Recording changing(&history, modQMKGeneral::findMovedStep, open);
    const auto changed = modQMKGeneral::changePaths(repair->changes, changing.changes());
    if (!changed) {
      return;
    }
    result = *changed;
    modQMKGeneral::loadChanged(catalogue, repair->changes);
  }
  result.gone = repair->gone;
  result.unclear = repair->unclear;
  tell(modQMKGeneral::changedText(result));
}

void frmQMK::afterStart() {
  if (!kept.canKeep()) {
    tell(L"Settings are not kept: gateway3.ini cannot be written");
    return;
  }
  const std::wstring before = kept.value(settings::key::drive, L"");
  const std::wstring now = letterToKeep(kept);
  if (before == now) {
    return;
  }
  if (before.empty() || now.empty() || before != modQMKGeneral::ownLetter(before) ||
      modQMKGeneral::hasPair(kept.value(settings::key::drivesKept, L""), before, now)) {
    static_cast<void>(kept.keep({{settings::key::drive, now}}));
    return;
  }
  repairing_ = std::make_shared<bool>();
  const auto repair =
      std::make_shared<Repair>(Repair{.current = repairing_,
                                      .missing = modQMKGeneral::entriesByFolder(lstQMK[open]),
                                      .before = before,
                                      .now = now});
  static_cast<void>(nextStep(
      repair,
      [](Repair& step) {
        step.changes =
            modQMKGeneral::entriesThatFollow(std::move(step.missing), step.before, step.now);
      },
      &frmQMK::askAboutDrive));
}

void frmQMK::askAboutDrive(const std::shared_ptr<Repair>& repair) {
  using platform::dialogs::Answer;
  using platform::dialogs::MessageStyle;
  std::vector<settings::Value> values{{settings::key::drive, repair->now}};
  if (!repair->changes.empty() &&
      platform::dialogs::showMessage(
          modQMKGeneral::driveQuestion(repair->before, repair->now, repair->changes.size()),
          MessageStyle::yesNoQuestion) != Answer::yes) {
    values.push_back({settings::key::drivesKept,
                      modQMKGeneral::withPair(kept.value(settings::key::drivesKept, L""),
                                              repair->before, repair->now)});
    repair->changes.clear();
  }
  static_cast<void>(kept.keep(values));
  changeMoved(repair);
}
