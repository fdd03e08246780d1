// Operations that write a list file.
#include <gtest/gtest.h>

#include <algorithm>

#include "catalogue/catalogue_file.h"
#include "faults/sweep.h"
#include "mainwindow/control_ids.h"
#include "platform/run_time_error.h"
#include "web/web_list.h"

namespace faults {
namespace {

using memory::desktop;
using platform::dialogs::Answer;

Texts reported(const Fault& fault) { return {untrapped(fault)}; }
Texts problemWithSaving(const Fault& fault) { return {trapped(fault)}; }

const std::string others = record("cw3", "D:\\Other.cw3", "4/4/2004");

/// Another program writes the catalogue just before it is replaced the first time.
void disturbOnce() {
  desktop().onReplace = [] {
    desktop().onReplace = nullptr;
    script([] {
      const std::string bytes = desktop().bytesOf(catalogueFile).value_or("");
      desktop().putFile(catalogueFile, others + bytes);
    });
  };
}

void addOthersRecord(Fault& fault) {
  if (fault.was(L"hold ") || fault.was(L"replace ") || fault.followed(L"hold ", L"(changed)")) {
    fault.old.files[catalogueFile].insert(0, others);
  }
}

/// Text of the first item whose file has a new name, if its data file was renamed.
bool listsMayShowNewName(const Fault& fault) {
  std::vector<Texts> expected = fault.old.lists;
  if (fault.inReload()) {
    expected.at(frmQMK::open).clear();
    return fault.now.lists == expected;
  }
  if (fault.now.lists == expected) {
    return true;
  }
  // The item has its new name once the data file has been renamed.
  Texts& items = expected.at(frmQMK::open);
  const bool renamed = fault.now.file(L"D:\\Afar.FP3") == "one";
  for (std::wstring& item : items) {
    if (item.starts_with(L"One.fp3|")) {
      item.replace(0, 7, L"Afar.FP3");
    }
  }
  std::sort(items.begin(), items.end());
  Texts shown = fault.now.lists.at(frmQMK::open);
  std::sort(shown.begin(), shown.end());
  return renamed && shown == items;
}

/// The same for the Web list, whose item is changed first.
bool webListShowsNewName(const Fault& fault) {
  std::vector<Texts> expected = fault.old.lists;
  if (fault.inReload()) {
    expected.at(frmQMK::web).clear();
  } else {
    expected.at(frmQMK::web).at(0) = L"Storms|http://storms.example|||";
  }
  return fault.now.lists == expected;
}

/// After a load that fails, the list keeps what was added so far.
bool dataListIsEmpty(const Fault& fault) {
  std::vector<Texts> expected = fault.old.lists;
  expected.at(frmQMK::open).clear();
  return fault.now.lists == expected;
}

void typeWebEntry(Rig& rig, const std::wstring& name, const std::wstring& url) {
  frmWeb* const dialog = rig.main().webDialog();
  ASSERT_NE(dialog, nullptr);
  dialog->txtName.acceptTyped(name);
  dialog->txtUrl.acceptTyped(url);
}

bool dialogStaysUnlessWritten(const Fault& fault) {
  return fault.now.dialogOpen == !fault.inReload();
}

bool dialogIsClosed(const Fault& fault) { return !fault.now.dialogOpen; }

void build(Rig& rig) {
  Rig::handle([&rig] { modQMKGeneral::BuildCatalogue(rig.main().catalogue); });
}

void refresh(Rig& rig) {
  Rig::handle([&rig] { modQMKGeneral::RefreshDataFolderEntries(rig.main().catalogue); });
}

void addNew(Rig& /*rig*/) { modQMKGeneral::AddOrUpdateCatalogueEntry(L"D:\\New.cw3", L"CW3"); }

void leaveStaleFile(Rig& /*rig*/) { desktop().putFile(temporaryFile, "stale"); }

void deleteSelectedFile(Rig& rig) {
  script([] { desktop().answers = {Answer::yes}; });
  rig.main().mnuDelete.fireClick();
}

void renameSelectedFile(Rig& rig) {
  script([] { desktop().inputAnswers = {L"Afar"}; });
  rig.main().mnuRename.fireClick();
}

/// Types another name over that of the selected file.
void renameInList(Rig& rig) {
  controls::ListView& list = rig.main().lstQMK[frmQMK::open];
  list.fireKey({controls::keys::f2});
  list.fireNameTyped(L"Afar");
}

void declineToLocate(Rig& rig) {
  script([] { desktop().answers = {Answer::no}; });
  rig.main().lstQMK[frmQMK::open].fireDoubleClick();
}

const std::wstring otherList = L"D:\\Other.txt";

void putOtherList(Rig& /*rig*/) {
  desktop().putFile(otherList, record("fp3", "d:\\one.fp3", "9/9/2009") +
                                   record("cw3", "D:\\Far.cw3", "9/9/2009"));
}

void addList(Rig& rig) {
  script([] { desktop().fileDialogResults = {otherList}; });
  rig.main().commands.item(ids::mnuAddList).fireClick();
}

void saveList(Rig& rig, const std::wstring& path) {
  script([&path] {
    desktop().saveDialogResults = {platform::dialogs::SaveFileChoice{path, 1}};
    desktop().answers = {Answer::yes};
  });
  rig.main().commands.item(ids::mnuSaveListAs).fireClick();
}

/// News of the status line about a dialog that failed; a cancelled one needs none.
Texts problemWithDialog(const Fault& fault) {
  const platform::RunTimeError error(fault.number);
  return error.number() == platform::error::cancelled
             ? Texts{}
             : Texts{L"status: The dialog cannot be shown: " + error.description()};
}

Texts problemWithAdding(const Fault& fault) {
  if (fault.was(L"open file dialog")) {
    return problemWithDialog(fault);
  }
  if (fault.was(L"read " + otherList)) {
    return {L"status: Nothing was added: " + platform::RunTimeError(fault.number).description()};
  }
  return fault.inReload() ? Texts{trapped(fault), fault.clean.messages.back()}
                          : Texts{trapped(fault)};
}

void takeCatalogue(Rig& /*rig*/) { desktop().take(catalogueFile); }

// --- files that have moved ---

constexpr const wchar_t* movedQuestion =
    L"1 of 1 missing entries under D:\\ are in D:\\New. Change them?";

void knowOfMissing(Rig& rig) {
  rig.select(frmQMK::open, L"Gone.fp3");
  desktop().advance(100);
  rig.settle();
  desktop().advance(100);
}

void findMoved(Rig& rig) {
  script([] {
    desktop().answers = {Answer::yes};
    desktop().folderDialogResults = {std::wstring(L"D:\\New")};
  });
  // The steps go on if the command fails after it has begun them.
  Rig::handle([&rig] {
    rig.main().commands.refresh();
    rig.main().commands.item(ids::mnuFindMoved).fireClick();
  });
  // The steps in the background. Nothing that the window does when it is idle comes between.
  for (int step = 0; step < 10; ++step) {
    desktop().advance(0);
  }
}

/// Whether there was no memory to begin the step after the look on the other drives. Nothing is
/// changed then, and only the status line says for a while that the program is looking.
bool endsLooking(const Fault& fault) {
  return fault.now.files == fault.old.files && fault.now.lists == fault.old.lists &&
         fault.now.messages == Texts{errorReport(fault), L"status: Looking on the other drives"};
}

/// The messages after a question, when the list could not be written or shown.
Texts afterQuestion(const std::wstring& asked, const Fault& fault) {
  return fault.inReload() ? Texts{asked, trapped(fault), fault.clean.messages.back()}
                          : Texts{asked, trapped(fault)};
}

Texts withQuestion(const std::wstring& asked, const Fault& fault) {
  return {asked, untrapped(fault)};
}

std::vector<Operation> operationsOnTheLists() {
  const std::wstring gone =
      L"File does not exist: D:\\Gone.fp3\rIt may have been moved or deleted. Do you wish to "
      L"locate the file yourself? ";
  const auto selectOne = [](Rig& rig) { rig.select(frmQMK::open, L"One.fp3"); };
  const auto selectGone = [](Rig& rig) { rig.select(frmQMK::open, L"Gone.fp3"); };
  const auto narrowTo = [](Rig& rig, const std::wstring& name) {
    rig.select(frmQMK::open, name);
    rig.main().txtFind.acceptTyped(name);
    const controls::ListView& list = rig.main().lstQMK[frmQMK::open];
    ASSERT_LT(list.rows(), list.count());
  };
  const auto deletion = [](const Fault& fault) {
    return withQuestion(L"Are your sure you want to delete ONE.FP3", fault);
  };
  std::vector<Operation> all{
      {.name = "build", .prepare = prepareNothing, .run = build, .told = reported},
      {.name = "build over a stale temporary file",
       .prepare = leaveStaleFile,
       .run = build,
       .told = reported},
      {.name = "build by showing a missing catalogue",
       .prepare = takeCatalogue,
       .run = [](Rig& rig) { modQMKGeneral::LoadCatalogueView(rig.main().catalogue); },
       .told = [](const Fault& fault) { return Texts{catalogueProblem(fault)}; },
       .listsAreRight = dataListIsEmpty},
      {.name = "add", .prepare = prepareNothing, .run = addNew, .told = problemWithSaving},
      {.name = "add over a stale temporary file",
       .prepare = leaveStaleFile,
       .run = addNew,
       .told = problemWithSaving},
      {.name = "add to a missing catalogue",
       .prepare = takeCatalogue,
       .run = addNew,
       .told = problemWithSaving},
      {.name = "add while another program writes",
       .prepare = prepareNothing,
       .run =
           [](Rig& rig) {
             disturbOnce();
             addNew(rig);
           },
       .told = problemWithSaving,
       .addOthersWork = addOthersRecord},
      {.name = "update",
       .prepare = prepareNothing,
       .run =
           [](Rig& /*rig*/) { modQMKGeneral::AddOrUpdateCatalogueEntry(L"d:\\one.FP3", L"FP3"); },
       .told = problemWithSaving},
      {.name = "remove", .prepare = selectOne, .run = deleteSelectedFile, .told = deletion},
      {.name = "remove over a stale temporary file",
       .prepare =
           [selectOne](Rig& rig) {
             selectOne(rig);
             leaveStaleFile(rig);
           },
       .run = deleteSelectedFile,
       .told = deletion},
      {.name = "remove by the question about a missing file",
       .prepare = selectGone,
       .run = declineToLocate,
       .told = [gone](const Fault& fault) { return withQuestion(gone, fault); }},
      {.name = "refresh", .prepare = prepareNothing, .run = refresh, .told = reported},
      {.name = "refresh over a stale temporary file",
       .prepare = leaveStaleFile,
       .run = refresh,
       .told = reported},
      {.name = "rename",
       .prepare = selectOne,
       .run = renameSelectedFile,
       .told = problemWithSaving,
       .listsAreRight = listsMayShowNewName},
      {.name = "rename over a stale temporary file",
       .prepare =
           [selectOne](Rig& rig) {
             selectOne(rig);
             leaveStaleFile(rig);
           },
       .run = renameSelectedFile,
       .told = problemWithSaving,
       .listsAreRight = listsMayShowNewName},
      {.name = "rename a missing file",
       .prepare = selectGone,
       .run = renameSelectedFile,
       .told =
           [](const Fault& fault) {
             return Texts{L"File does not exists, removing entry", trapped(fault)};
           }},
      {.name = "rename in a narrowed list",
       .prepare = [narrowTo](Rig& rig) { narrowTo(rig, L"One.fp3"); },
       .run = renameInList,
       .told = problemWithSaving,
       .listsAreRight = listsMayShowNewName},
      {.name = "rename a missing file in a narrowed list",
       .prepare = [narrowTo](Rig& rig) { narrowTo(rig, L"Gone.fp3"); },
       .run = renameInList,
       .told =
           [](const Fault& fault) {
             return Texts{L"File does not exists, removing entry", trapped(fault)};
           }},
      {.name = "take out of the list",
       .prepare = selectOne,
       .run = [](Rig& rig) { rig.main().commands.item(ids::mnuRemoveFromList).fireClick(); },
       .told =
           [](const Fault& fault) {
             return fault.inReload() ? Texts{trapped(fault), fault.clean.messages.back()}
                                     : Texts{trapped(fault)};
           }},
      {.name = "add files",
       .prepare =
           [selectOne](Rig& rig) {
             selectOne(rig);
             desktop().putFile(L"D:\\Far.cw3", "far");
           },
       .run =
           [](Rig& rig) {
             script([] {
               desktop().filesDialogResults = {
                   std::vector<std::wstring>{L"D:\\Far.cw3", L"d:\\one.fp3", L"D:\\Two.txt"}};
             });
             rig.main().commands.item(ids::mnuAddFiles).fireClick();
           },
       .told = problemWithAdding},
      {.name = "drop a folder",
       .prepare =
           [selectOne](Rig& rig) {
             selectOne(rig);
             desktop().putFile(L"D:\\Season\\East\\Far.cw3", "far");
           },
       .run =
           [](Rig& rig) {
             rig.main().lstQMK[frmQMK::open].fireDropped({.text = {}, .files = {L"D:\\Season"}});
             rig.finishBackground();
           },
       .told = problemWithAdding},
      {.name = "paste addresses",
       .prepare = [](Rig& rig) { rig.select(frmQMK::web, L"Weather"); },
       .run =
           [](Rig& rig) {
             script([] { desktop().clipboard = {.text = L"http://storms.example"}; });
             rig.main().commands.item(ids::mnuPaste).fireClick();
           },
       .told = problemWithAdding},
      {.name = "drop a web shortcut",
       .prepare =
           [](Rig& rig) {
             rig.select(frmQMK::web, L"Weather");
             desktop().putFile(L"D:\\Storms.url", "[InternetShortcut]\nURL=http://storms.example");
           },
       .run =
           [](Rig& rig) {
             rig.main().lstQMK[frmQMK::web].fireDropped({.text = {}, .files = {L"D:\\Storms.url"}});
           },
       .told =
           [](const Fault& fault) {
             return fault.was(L"read D:\\Storms.url")
                        ? Texts{L"status: 0 added, 1 not added: " +
                                platform::RunTimeError(fault.number).description()}
                        : problemWithAdding(fault);
           }},
      {.name = "add a list",
       .prepare =
           [selectOne](Rig& rig) {
             selectOne(rig);
             putOtherList(rig);
           },
       .run = addList,
       .told = problemWithAdding},
      {.name = "add a list while another program writes",
       .prepare =
           [selectOne](Rig& rig) {
             selectOne(rig);
             putOtherList(rig);
           },
       .run =
           [](Rig& rig) {
             disturbOnce();
             addList(rig);
           },
       .told = problemWithAdding,
       .addOthersWork = addOthersRecord},
      {.name = "add a web list",
       .prepare =
           [](Rig& rig) {
             rig.select(frmQMK::web, L"Weather");
             desktop().putFile(otherList, record("Storms", "http://storms.example"));
           },
       .run = addList,
       .told = problemWithAdding},
      {.name = "save the list",
       .prepare = selectOne,
       .run = [](Rig& rig) { saveList(rig, L"D:\\Mine.txt"); },
       .told =
           [](const Fault& fault) {
             return fault.was(L"save file dialog") ? problemWithDialog(fault)
                                                   : Texts{savingProblem(fault)};
           }},
      {.name = "save the list as a table in the place of another file",
       .prepare =
           [selectOne](Rig& rig) {
             selectOne(rig);
             desktop().putFile(L"D:\\Mine.csv", "mine");
           },
       .run = [](Rig& rig) { saveList(rig, L"D:\\Mine.csv"); },
       .told =
           [](const Fault& fault) {
             if (fault.was(L"save file dialog")) {
               return problemWithDialog(fault);
             }
             return fault.followed(L"message ", L"Replace it?")
                        ? Texts{L"Mine.csv already exists. Replace it?", savingProblem(fault)}
                        : Texts{savingProblem(fault)};
           }},
      {.name = "find moved files in a folder",
       .prepare =
           [](Rig& rig) {
             desktop().putFile(L"D:\\New\\Gone.fp3", "gone");
             knowOfMissing(rig);
           },
       .run = findMoved,
       .told =
           [](const Fault& fault) {
             return fault.was(L"folder dialog") ? problemWithDialog(fault)
                                                : afterQuestion(movedQuestion, fault);
           },
       .goesOn = endsLooking},
      {.name = "find moved files on another drive while another program writes",
       .prepare =
           [](Rig& rig) {
             desktop().putFile(L"E:\\Gone.fp3", "gone");
             knowOfMissing(rig);
           },
       .run =
           [](Rig& rig) {
             disturbOnce();
             findMoved(rig);
           },
       .told =
           [](const Fault& fault) {
             return afterQuestion(L"1 of 1 missing entries under D:\\ are in E:\\. Change them?",
                                  fault);
           },
       .goesOn = endsLooking,
       .addOthersWork = addOthersRecord},
      {.name = "let the list show a missing file elsewhere",
       .prepare =
           [selectGone](Rig& rig) {
             selectGone(rig);
             desktop().putFile(L"D:\\Found.fp3", "found");
             // The dialog and the start of the tool have tests of their own.
             ModQMKgeneral2::Opening& opening = rig.main().opening;
             opening.clickBrowse = [&opening] { opening.browsed = L"D:\\Found.fp3"; };
           },
       .run =
           [](Rig& rig) {
             script([] { desktop().answers = {Answer::yes, Answer::yes}; });
             rig.main().lstQMK[frmQMK::open].fireDoubleClick();
           },
       .told =
           [gone](const Fault& fault) {
             Texts told =
                 afterQuestion(L"D:\\Found.fp3\rLet the list show it there from now on?", fault);
             told.insert(told.begin(), gone);
             return told;
           }},
      {.name = "tick of the watch",
       .prepare = prepareNothing,
       .run =
           [](Rig& rig) {
             rig.main().catalogue.lastSeen = 0;
             rig.main().tmrFileUpdate.setEnabled(true);
             rig.main().tmrFileUpdate.fireTimer();
             rig.main().tmrFileUpdate.setEnabled(false);
           },
       .told =
           [](const Fault& fault) {
             if (!fault.was(L"read ")) {
               return Texts{errorReport(fault)};
             }
             // After a load that failed, the watch may read the file's time again.
             return fault.failures > 1 ? Texts{catalogueProblem(fault), errorReport(fault)}
                                       : Texts{catalogueProblem(fault)};
           },
       .listsAreRight =
           [](const Fault& fault) {
             return fault.was(L"read ") ? dataListIsEmpty(fault)
                                        : fault.now.lists == fault.old.lists;
           }},
      {.name = "append a web entry",
       .prepare =
           [](Rig& rig) {
             rig.select(frmQMK::web, L"Weather");
             rig.main().mnuCreate.fireClick();
             typeWebEntry(rig, L"Storms", L"http://storms.example");
           },
       .run = [](Rig& rig) { rig.main().webDialog()->cmdOK.fireClick(); },
       .told = reported,
       .dialogIsRight = dialogStaysUnlessWritten},
      {.name = "append a web entry to a missing file",
       .prepare =
           [](Rig& rig) {
             rig.select(frmQMK::web, L"Weather");
             rig.main().mnuCreate.fireClick();
             desktop().take(webListFile);
             leaveStaleFile(rig);
           },
       .run = [](Rig& rig) { rig.main().webDialog()->cmdOK.fireClick(); },
       .told = reported,
       .dialogIsRight = dialogStaysUnlessWritten},
      {.name = "save a web entry",
       .prepare =
           [](Rig& rig) {
             rig.select(frmQMK::web, L"Weather");
             rig.main().mnuRename.fireClick();
             typeWebEntry(rig, L"Storms", L"http://storms.example");
           },
       .run = [](Rig& rig) { rig.main().webDialog()->cmdOK.fireClick(); },
       .told = problemWithSaving,
       .listsAreRight = webListShowsNewName,
       .dialogIsRight = dialogIsClosed},
      {.name = "save a web entry of a narrowed list",
       .prepare =
           [](Rig& rig) {
             rig.select(frmQMK::web, L"Weather");
             rig.main().txtFind.acceptTyped(L"weath");
             rig.main().mnuRename.fireClick();
             typeWebEntry(rig, L"Storms", L"http://storms.example");
           },
       .run = [](Rig& rig) { rig.main().webDialog()->cmdOK.fireClick(); },
       .told = problemWithSaving,
       .listsAreRight = webListShowsNewName,
       .dialogIsRight = dialogIsClosed},
      {.name = "delete a web entry",
       .prepare = [](Rig& rig) { rig.select(frmQMK::web, L"Weather"); },
       .run = deleteSelectedFile,
       .told =
           [](const Fault& fault) {
             return withQuestion(L"Are your sure you want to delete WEATHER", fault);
           }},
  };
  return all;
}

class ListFileFaults : public ::testing::TestWithParam<Operation> {};

TEST_P(ListFileFaults, NoCallThatFailsLosesAnything) { sweepCalls(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Each, ListFileFaults, ::testing::ValuesIn(operationsOnTheLists()),
                         nameOfTest);

class ListFileLooks : public ::testing::TestWithParam<Operation> {};

TEST_P(ListFileLooks, NothingIsLostWhenASearchFindsNothingOrMemoryRunsOut) {
  sweepLooks(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Each, ListFileLooks, ::testing::ValuesIn(operationsOnTheLists()),
                         nameOfTest);

class ListFileMemory : public ::testing::TestWithParam<Operation> {};

TEST_P(ListFileMemory, NothingIsLostWhenItRunsOut) { sweepMemory(GetParam()); }

TEST_P(ListFileMemory, NothingIsLostWhenAListIsRefused) { sweepPeers(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Each, ListFileMemory, ::testing::ValuesIn(operationsOnTheLists()),
                         nameOfTest);

}  // namespace
}  // namespace faults
