// The fixture of the sweeps: the window and the disk, and the checks after each run.
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <iostream>
#include <set>
#include <utility>

#include "catalogue/catalogue_file.h"
#include "faults/sweep.h"
#include "platform/dispatcher.h"
#include "platform/run_time_error.h"
#include "platform/text.h"
#include "shortcuts/shortcut_list.h"
#include "startup/paths.h"
#include "web/web_list.h"

namespace faults {

using memory::desktop;

std::string record(const std::string& first, const std::string& second) {
  return '"' + first + "\",\"" + second + "\"\r\n";
}

std::string record(const std::string& first, const std::string& second, const std::string& third) {
  return '"' + first + "\",\"" + second + "\",\"" + third + "\"\r\n";
}

namespace {

const std::array<std::wstring, 6> folders{L"C:\\App",      L"C:\\App\\data", L"C:\\App\\shortcuts",
                                          shortcutsFolder, L"C:\\Tools",     L"D:"};

}  // namespace

void layOutDisk() {
  constexpr platform::files::FileTime second = 10'000'000;
  desktop().putFile(L"C:\\App\\data\\Ridge.fp3", "profile", platform::files::normal, second);
  desktop().putFile(L"D:\\One.fp3", "one");
  desktop().putFile(L"D:\\Two.bi3", "two");
  desktop().putFile(catalogueFile, "odd, line\n" + record("fp3", "D:\\One.fp3", "1/1/2001") +
                                       record("bi3", "D:\\Two.bi3", "2/2/2002") +
                                       record("fp3", "D:\\Gone.fp3", "3/3/2003"));
  desktop().putFile(webListFile, record("Weather", "http://weather.example") +
                                     record("News", "http://news.example"));
  desktop().putProgram(L"C:\\App\\plv3.exe");
  desktop().putProgram(L"C:\\App\\brtpc3.exe");
  desktop().putProgram(L"C:\\Tools\\calc.exe");
  desktop().putProgram(L"C:\\Windows\\explorer.exe");
  desktop().setIcon(L"C:\\Tools\\calc.exe", 0xFF00FF00);
  desktop().putFolder(L"C:\\App\\shortcuts");
  platform::shell_links::Link link;
  link.targetPath = L"C:\\Tools\\calc.exe";
  desktop().putLink(shortcutsFolder + L"\\Calc.lnk", link);
  desktop().putLink(shortcutsFolder + L"\\Notes.lnk", link);
}

namespace {

std::map<std::string, std::pair<int, int>>& figures() {
  static std::map<std::string, std::pair<int, int>> theFigures;
  return theFigures;
}

/// Prints the figures after all tests.
class Figures : public ::testing::Environment {
 public:
  void TearDown() override {
    for (const auto& [kind, figure] : figures()) {
      std::cout << "figure: faults, " << kind << ": " << figure.first << " operations, "
                << figure.second << " cases\n";
    }
  }
};

const ::testing::Environment* const printsFigures =
    ::testing::AddGlobalTestEnvironment(new Figures);  // GoogleTest deletes it

}  // namespace

Rig::Rig(const std::function<void()>& prepare) {
  desktop().reset();
  desktop().onMistake = [](const std::string& what) { ADD_FAILURE() << what; };
  if (prepare) {
    prepare();
  }
  modQMKGeneral::InitUserFolders();
  main_ = std::make_unique<frmQMK>();
  // There are no lists yet, so the copies of this day are done. What fails while copies are made
  // has tests of its own.
  main_->keeper.beforeChange();
  layOutDisk();
  main_->tmrFileUpdate.setEnabled(false);
  main_->load();
  main_->SetupMainWindow();
  main_->show();
  settle();
}

void Rig::settle() {
  modQMKGeneral::LoadCatalogueView(main_->catalogue);
  modSC::LoadShortcutList(main_->shortcuts);
  modQMKGeneral::LoadWebList(main_->webList);
  desktop().messages.clear();
  desktop().errorReports.clear();
}

void Rig::select(frmQMK::Tab tab, const std::wstring& text) {
  main_->TabMain.fireSwitch(tab);
  controls::ListView& list = main_->lstQMK.at(tab);
  for (std::size_t i = 0; i < list.count(); ++i) {
    if (list.text(i) == text) {
      list.select(i);
      return;
    }
  }
  ADD_FAILURE() << "no such item";
}

void Rig::finishBackground() {
  // No idle moment comes, which would look for other things.
  main_->tmrIdle.setEnabled(false);
  desktop().advance(desktop().backgroundMilliseconds);
}

void Rig::handle(const std::function<void()>& step) { platform::dispatch(step); }

std::string State::file(const std::wstring& path) const {
  const auto found = files.find(path);
  return found == files.end() ? "(none)" : found->second;
}

State stateOf(const frmQMK& main) {
  State state;
  for (const std::wstring& folder : folders) {
    if (!desktop().has(folder + L"\\")) {
      continue;
    }
    for (const std::wstring& name : desktop().namesIn(folder)) {
      std::wstring path = folder;
      path += L'\\';
      path += name;
      if (const auto bytes = desktop().bytesOf(path); bytes && name != L"qmklist.tmp") {
        state.files[path] = *bytes;
      }
    }
  }
  for (const controls::ListView& list : main.lstQMK) {
    Texts items;
    for (std::size_t i = 0; i < list.count(); ++i) {
      std::wstring item = list.text(i);
      for (std::size_t n = 1; n <= 4; ++n) {
        item += L'|' + list.subItem(i, n);
      }
      items.push_back(item);
    }
    state.lists.push_back(items);
  }
  for (const memory::Message& message : desktop().messages) {
    state.messages.push_back(message.text);
  }
  if (!main.news().empty()) {
    state.messages.push_back(L"status: " + main.news());
  }
  const frmWeb* const dialog = main.webDialog();
  state.dialogOpen = dialog != nullptr && dialog->loaded();
  return state;
}

bool Fault::followed(const std::wstring& beginning, const std::wstring& end) const {
  return std::any_of(before.begin(), before.end(), [&](const std::wstring& line) {
    return line.starts_with(beginning) && line.ends_with(end);
  });
}

std::wstring Fault::reason() const { return platform::RunTimeError(number).numberAndDescription(); }

bool Fault::inReload() const {
  return (was(L"read " + catalogueFile) && followed(L"replace ", catalogueFile)) ||
         (was(L"read " + webListFile) && followed(L"replace ", webListFile));
}

std::wstring errorReport(const Fault& fault) {
  const std::wstring paragraph = L"\r\n\r\n";
  return L"Run-time error '" + std::to_wstring(fault.number) + L"':" + paragraph +
         platform::RunTimeError(fault.number).description() +
         (fault.path.empty() ? L"" : paragraph + fault.path);
}

std::wstring savingProblem(const Fault& fault) {
  return L"Problem saving to QMK list\r" + fault.reason();
}

std::wstring catalogueProblem(const Fault& fault) {
  return L"Problem building QMK file list\rLocation: 2\r" + fault.reason();
}

std::wstring webListProblem(const Fault& fault) {
  return L"Problem reading Web file list\r" + fault.reason();
}

std::wstring untrapped(const Fault& fault) {
  if (fault.inReload()) {
    return fault.was(L"read " + webListFile) ? webListProblem(fault) : catalogueProblem(fault);
  }
  return errorReport(fault);
}

std::wstring trapped(const Fault& fault) {
  return fault.inReload() ? untrapped(fault) : savingProblem(fault);
}

std::vector<int> errorsOf(const std::wstring& call) {
  // By how a call's line in the journal begins: what the contract of the call names, and what any
  // disk can do. The first row that fits counts.
  static const std::vector<std::pair<std::wstring, std::vector<int>>> known{
      {L"short name of new ", {58, 75, 76, 52, 61, 57}},
      {L"make folder ", {75, 76, 70, 61, 57}},
      {L"remove ", {53, 75, 70, 57}},
      {L"recycle ", {53, 75, 70, 57}},
      {L"restore ", {53, 58, 76, 57}},
      {L"rename ", {53, 58, 76, 70, 74, 75, 57}},
      {L"copy ", {53, 76, 75, 70, 61, 57}},
      {L"read to append ", {75, 76, 70, 67, 57}},
      {L"read ", {53, 76, 70, 75, 67, 57}},
      {L"create C:", {70, 75, 76, 61, 67, 57}},
      {L"create D:", {70, 75, 76, 61, 67, 57}},
      {L"create F:", {70, 75, 76, 61, 67, 57}},
      {L"create frm", {7}},
      {L"write ", {61, 57, 70, 75, 76}},
      {L"hold ", {53, 75, 70, 57}},
      {L"replace ", {53, 75, 70, 57}},
      {L"append ", {53, 70, 75, 61, 57}},
      {L"put back ", {53, 75, 70, 57}},
      {L"show ", {7}},
      {L"open file dialog", {32755, 20477, 7}},
      {L"save file dialog", {32755, 20477, 7}},
      {L"folder dialog", {32755, 57, 429, 7}},
      {L"start ", {53, 5, 70, 75, 57}},  // "start elevated " too
      {L"link ", {429, 70, 75, 76, 61, 57}},
      {L"setting ", {75}},
  };
  for (const auto& [beginning, numbers] : known) {
    if (call.starts_with(beginning)) {
      return numbers;
    }
  }
  ADD_FAILURE() << "the table of errors does not know the call \""
                << platform::text::toCodePage(call)
                << "\": give it a row with the numbers that its contract names";
  return {};
}

void expectWholeFiles(const Fault& fault,
                      const std::function<bool(const std::wstring&)>& mayBeGone) {
  std::set<std::wstring> paths;
  for (const State* const state : {&fault.old, &fault.clean, &fault.now}) {
    for (const auto& [path, bytes] : state->files) {
      paths.insert(path);
    }
  }
  for (const std::wstring& path : paths) {
    const std::string bytes = fault.now.file(path);
    if (bytes == "(none)" && mayBeGone && mayBeGone(path)) {
      continue;
    }
    EXPECT_TRUE(isOneOf(bytes, {fault.old.file(path), fault.clean.file(path)}))
        << "in " << ::testing::PrintToString(path);
  }
}

void expectNextOperationsWork(frmQMK& main) {
  desktop().messages.clear();
  const std::string catalogue = desktop().bytesOf(catalogueFile).value_or("");
  modQMKGeneral::AddOrUpdateCatalogueEntry(L"D:\\Next.cw3", L"CW3");
  EXPECT_EQ(desktop().bytesOf(catalogueFile).value_or("(none)"),
            catalogue + record("CW3", "D:\\Next.cw3", "11/20/2026"));
  const std::string webList = desktop().bytesOf(webListFile).value_or("");
  Rig::handle([&] { modQMKGeneral::AppendWebEntry(main.webList, L"Next", L"http://next"); });
  EXPECT_EQ(desktop().bytesOf(webListFile).value_or("(none)"),
            webList + record("Next", "http://next"));
  EXPECT_FALSE(desktop().has(temporaryFile));
  Rig::handle([&] { modQMKGeneral::LoadCatalogueView(main.catalogue); });
  Rig::handle([&] { modSC::LoadShortcutList(main.shortcuts); });
  const auto shows = [](const controls::ListView& list, const std::wstring& text) {
    for (std::size_t i = 0; i < list.count(); ++i) {
      if (list.text(i) == text) {
        return true;
      }
    }
    return false;
  };
  EXPECT_TRUE(shows(main.lstQMK[frmQMK::open], L"Next.cw3"));
  EXPECT_TRUE(shows(main.lstQMK[frmQMK::web], L"Next"));
  EXPECT_TRUE(shows(main.lstQMK[frmQMK::tools], L"Notes"));
  EXPECT_TRUE(desktop().messages.empty());
}

void countCases(const std::string& kind, const std::string& operation, int cases) {
  std::cout << operation << ": " << cases << " cases, " << kind << '\n';
  auto& figure = figures()[kind];
  figure.first += cases > 0 ? 1 : 0;
  figure.second += cases;
}

}  // namespace faults
