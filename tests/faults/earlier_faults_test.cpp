// Keeping copies of the lists, and the window with the earlier ones, with every call failing in
// turn.
#include <gtest/gtest.h>

#include "catalogue/catalogue_file.h"
#include "faults/sweep.h"
#include "mainwindow/control_ids.h"
#include "platform/run_time_error.h"
#include "startup/paths.h"

namespace faults {
namespace {

using memory::desktop;
using platform::dialogs::Answer;

const std::wstring backup = L"C:\\Users\\Ann\\Documents\\My QMKExtra3\\Backup";
const std::wstring ofAnotherDay = backup + L"\\QMKFileList3 2026-11-18.txt";
const std::wstring question = L"Replace the current list by the one of 2026-11-18?";

std::wstring descriptionOf(const Fault& fault) {
  return platform::RunTimeError(fault.number).description();
}

/// Every file that has the name of a copy is whole, and nothing else lies beside them unless it
/// could not be removed.
void expectWholeCopies(const Fault& fault, const std::string& given) {
  for (const std::wstring& name : desktop().has(backup) ? desktop().namesIn(backup) : Texts()) {
    const std::string bytes = desktop().bytesOf(backup + L"\\" + name).value_or("");
    if (name == L"qmklist.tmp") {
      EXPECT_TRUE(fault.forever) << "a temporary file stays";
    } else if (name.starts_with(L"QMKWebList ")) {
      EXPECT_EQ(bytes, fault.old.file(webListFile));
    } else {
      EXPECT_TRUE(isOneOf(bytes, {fault.old.file(catalogueFile), given}));
    }
  }
}

// --- keeping ---

/// Adds a file, and looks what the status line says of it.
void add(Rig& rig) {
  Rig::handle([] { modQMKGeneral::AddOrUpdateCatalogueEntry(L"D:\\New.cw3", L"CW3"); });
  Rig::handle([&rig] { rig.main().tmrIdle_Timer(); });
}

/// The last copies were made on the day before, and are gone.
void beginDay(Rig& rig) {
  desktop().setNow({.day = 19});
  rig.main().keeper.beforeChange();
  desktop().take(backup);
  desktop().setNow({.day = 20});
}

/// Whether the call that failed is one of those that make the copies.
bool inKeeping(const Fault& fault) {
  return !fault.followed(L"create ", temporaryFile) && !fault.was(L"create " + temporaryFile);
}

/// What fails while the copies are made changes nothing of the operation itself.
bool keepingIsRight(const Fault& fault) {
  expectWholeCopies(fault, "");
  if (!inKeeping(fault)) {
    return false;
  }
  // A list that seems to be missing has no copy, so there is nothing to say.
  const bool silent = fault.number == platform::error::fileNotFound && fault.was(L"read ");
  Texts told;
  if (fault.forever) {
    told.push_back(savingProblem(fault));
  }
  if (!silent) {
    told.push_back(L"status: The lists could not be copied to Backup: " + descriptionOf(fault));
  }
  EXPECT_EQ(fault.now.messages, told);
  EXPECT_EQ(fault.now.file(catalogueFile),
            fault.forever ? fault.old.file(catalogueFile) : fault.clean.file(catalogueFile));
  EXPECT_EQ(fault.now.file(webListFile), fault.old.file(webListFile));
  return true;
}

// --- the window with the earlier lists ---

std::string earlierList() {
  return record("fp3", "D:\\One.fp3", "1/1/2001") + record("fp3", "D:\\Lost.fp3", "9/9/1999");
}

void putEarlier(Rig& rig) {
  rig.select(frmQMK::open, L"One.fp3");
  desktop().putFile(ofAnotherDay, earlierList());
}

/// Opens the window, does something in it when it is there, and closes it.
template <class Action>
void use(Rig& rig, Action action) {
  script([&] {
    desktop().answers = {Answer::yes};
    desktop().at(5, [action] {
      if (auto* const form = desktop().window(L"frmEarlier")) {
        action(dynamic_cast<frmEarlier&>(*form));
      }
    });
    desktop().at(10, [] {
      if (auto* const form = desktop().window(L"frmEarlier")) {
        form->unload();
      }
    });
  });
  rig.main().commands.item(ids::mnuEarlierLists).fireClick();
  desktop().answers.clear();
}

bool isNotShown(const Fault& fault) {
  return fault.was(L"create frmEarlier") || fault.was(L"show frmEarlier");
}

Texts nothingChanged(const Fault& fault) {
  return isNotShown(fault) ? Texts{errorReport(fault)}
                           : Texts{L"status: Nothing was changed: " + descriptionOf(fault)};
}

Texts notRestored(const Fault& fault) {
  if (fault.inReload()) {
    return {question, catalogueProblem(fault), fault.clean.messages.back()};
  }
  Texts told = nothingChanged(fault);
  if (!isNotShown(fault)) {
    told.insert(told.begin(), question);
  }
  return told;
}

Texts notAdded(const Fault& fault) {
  if (fault.inReload()) {
    return {catalogueProblem(fault), fault.clean.messages.back()};
  }
  return isNotShown(fault) || fault.was(L"read " + ofAnotherDay) ? nothingChanged(fault)
                                                                 : Texts{savingProblem(fault)};
}

/// The list that is replaced is kept first.
bool restoredIsKept(const Fault& fault) {
  expectWholeCopies(fault, earlierList());
  if (fault.now.file(catalogueFile) == earlierList()) {
    EXPECT_EQ(desktop().bytesOf(backup + L"\\QMKFileList3 2026-11-20 143015.txt"),
              fault.old.file(catalogueFile));
  }
  return false;
}

std::vector<Operation> operationsOnEarlierLists() {
  return {
      {.name = "keep the lists of a day",
       .prepare = beginDay,
       .run = add,
       .told = [](const Fault& fault) { return Texts{trapped(fault)}; },
       .goesOn = keepingIsRight},
      {.name = "keep a list that another program has cut down",
       .prepare =
           [](Rig& rig) {
             desktop().putFile(catalogueFile, record("fp3", "D:\\One.fp3", "1/1/2001"));
             rig.settle();
           },
       .run = add,
       .told =
           [](const Fault& fault) {
             const bool copying = fault.call.find(backup) != std::wstring::npos;
             Texts told;
             if (!copying || fault.forever) {
               told.push_back(savingProblem(fault));
             }
             if (copying) {
               told.push_back(L"status: The lists could not be copied to Backup: " +
                              descriptionOf(fault));
             }
             return told;
           }},
      {.name = "show an earlier list",
       .prepare = putEarlier,
       .run =
           [](Rig& rig) { use(rig, [](frmEarlier& form) { form.lstCopies.fireDoubleClick(); }); },
       .told = nothingChanged},
      {.name = "restore an earlier list",
       .prepare = putEarlier,
       .run = [](Rig& rig) { use(rig, [](frmEarlier& form) { form.cmdRestore.fireClick(); }); },
       .told = notRestored,
       .goesOn = restoredIsKept},
      {.name = "add what an earlier list has",
       .prepare = putEarlier,
       .run = [](Rig& rig) { use(rig, [](frmEarlier& form) { form.cmdAdd.fireClick(); }); },
       .told = notAdded},
  };
}

class EarlierFaults : public ::testing::TestWithParam<Operation> {};

TEST_P(EarlierFaults, NoCallThatFailsLosesAnything) { sweepCalls(GetParam()); }

INSTANTIATE_TEST_SUITE_P(Each, EarlierFaults, ::testing::ValuesIn(operationsOnEarlierLists()),
                         nameOfTest);

}  // namespace
}  // namespace faults
