// Operations on data files whose names the code page cannot hold.
#include <gtest/gtest.h>

#include <algorithm>

#include "catalogue/catalogue_file.h"
#include "faults/sweep.h"

namespace faults {
namespace {

using memory::desktop;
using platform::dialogs::Answer;

const std::wstring beetle = L"\u0416\u0443\u043A";
const std::wstring file = L"D:\\" + beetle + L".fp3";

/// Creates a data file with such a name, on a volume that has short names, and lists it.
void list(Rig& rig, const std::string& path) {
  desktop().putFile(file, "one");
  desktop().giveShortNames(L"D:");
  desktop().putFile(catalogueFile, desktop().bytesOf(catalogueFile).value_or("") +
                                       record("fp3", path, "5/5/2005"));
  rig.settle();
}

void listWithSubstitutes(Rig& rig) {
  list(rig, "D:\\???.fp3");
  rig.select(frmQMK::open, L"???.fp3");
}

void add(Rig& /*rig*/) { modQMKGeneral::AddOrUpdateCatalogueEntry(file, L"FP3"); }

void renameTo(Rig& rig, const std::wstring& name) {
  desktop().inputAnswers = {name};
  rig.main().mnuRename.fireClick();
}

Texts problemWithSaving(const Fault& fault) { return {trapped(fault)}; }

/// The renamed item has its new name once its file has been renamed.
bool listsMayShow(const Fault& fault, const std::wstring& oldName, const std::wstring& newName) {
  std::vector<Texts> expected = fault.old.lists;
  Texts shown = fault.now.lists.at(frmQMK::open);
  if (fault.inReload()) {
    return shown.empty();
  }
  if (fault.now.lists == expected) {
    return true;
  }
  Texts& items = expected.at(frmQMK::open);
  for (std::wstring& item : items) {
    if (item.starts_with(oldName + L"|")) {
      item.replace(0, oldName.size(), newName);
    }
  }
  std::sort(items.begin(), items.end());
  std::sort(shown.begin(), shown.end());
  return shown == items;
}

std::vector<Operation> operationsOnUnheldNames() {
  return {
      {.name = "add a file in its short form",
       .prepare = [](Rig& rig) { list(rig, "D:\\Another.fp3"); },
       .run = add,
       .told = problemWithSaving},
      {.name = "update a record with substitutes",
       .prepare = listWithSubstitutes,
       .run = add,
       .told = problemWithSaving},
      {.name = "remove a file behind substitutes",
       .prepare = listWithSubstitutes,
       .run =
           [](Rig& rig) {
             desktop().answers = {Answer::yes};
             rig.main().mnuDelete.fireClick();
           },
       .told =
           [](const Fault& fault) {
             return Texts{L"Are your sure you want to delete ???.FP3", untrapped(fault)};
           }},
      {.name = "rename a file to a name that has a short form",
       .prepare =
           [](Rig& rig) {
             desktop().giveShortNames(L"D:");
             rig.select(frmQMK::open, L"One.fp3");
           },
       .run = [](Rig& rig) { renameTo(rig, beetle); },
       .told = problemWithSaving,
       .listsAreRight =
           [](const Fault& fault) { return listsMayShow(fault, L"One.fp3", L"___~1.FP3"); }},
      {.name = "rename a file behind substitutes",
       .prepare = listWithSubstitutes,
       .run = [](Rig& rig) { renameTo(rig, L"Afar"); },
       .told = problemWithSaving,
       .listsAreRight =
           [](const Fault& fault) { return listsMayShow(fault, L"???.fp3", L"Afar.FP3"); }},
  };
}

class UnheldNamesFaults : public ::testing::TestWithParam<Operation> {};

TEST_P(UnheldNamesFaults, NoCallThatFailsLosesAnything) { sweepCalls(GetParam()); }

TEST_P(UnheldNamesFaults, NothingIsLostWhenASearchFindsNothingOrMemoryRunsOut) {
  sweepLooks(GetParam());
}

INSTANTIATE_TEST_SUITE_P(Each, UnheldNamesFaults, ::testing::ValuesIn(operationsOnUnheldNames()),
                         nameOfTest);

}  // namespace
}  // namespace faults
