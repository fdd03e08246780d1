// Dialogs and the shell of the in-memory desktop.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "platform/application.h"
#include "platform/browser.h"
#include "platform/controls/window.h"
#include "platform/desktop_test.h"
#include "platform/dialogs.h"
#include "platform/folders.h"
#include "platform/help.h"
#include "platform/pictures.h"
#include "platform/processes.h"
#include "platform/registry.h"
#include "platform/settings.h"
#include "platform/shell_links.h"
#include "unit/support/error_number.h"

namespace platform {
namespace {

using dialogs::Answer;
using dialogs::MessageStyle;
using memory::desktop;

class MemoryShellTest : public ::memory::DesktopTest {
 protected:
  /// Collects the reported mistakes, for tests that make them on purpose.
  void expectMistakes() {
    desktop().onMistake = [this](const std::string& what) { mistakes.push_back(what); };
  }
  std::vector<std::string> mistakes;
};

TEST_F(MemoryShellTest, AMessageIsRecordedUnderTheApplicationsTitle) {
  EXPECT_EQ(dialogs::showMessage(L"text"), Answer::ok);
  EXPECT_EQ(dialogs::showMessage(L"other", MessageStyle::critical, L"title"), Answer::ok);
  ASSERT_EQ(desktop().messages.size(), 2U);
  EXPECT_EQ(desktop().messages[0].text, L"text");
  EXPECT_EQ(desktop().messages[0].title, application::title);
  EXPECT_EQ(desktop().messages[0].style, MessageStyle::information);
  EXPECT_EQ(desktop().messages[1].title, L"title");
  EXPECT_EQ(desktop().messages[1].style, MessageStyle::critical);
}

TEST_F(MemoryShellTest, QuestionsTakeTheScriptedAnswers) {
  desktop().answers = {Answer::yes, Answer::no};
  EXPECT_EQ(dialogs::showMessage(L"1", MessageStyle::yesNoQuestion), Answer::yes);
  EXPECT_EQ(dialogs::showMessage(L"no question"), Answer::ok);
  EXPECT_EQ(dialogs::showMessage(L"2", MessageStyle::yesNoWarning), Answer::no);
  EXPECT_EQ(desktop().messages[0].answer, Answer::yes);
  EXPECT_TRUE(desktop().answers.empty());
}

TEST_F(MemoryShellTest, WhatIsUnscriptedIsAMistakeOfTheTest) {
  expectMistakes();
  EXPECT_EQ(dialogs::showMessage(L"?", MessageStyle::yesNoQuestion), Answer::no);
  EXPECT_EQ(dialogs::inputBox(L"prompt", L"title", L"default"), L"");
  EXPECT_EQ(errorNumberOf([] { static_cast<void>(dialogs::openFile({})); }), 32755);
  EXPECT_EQ(mistakes.size(), 3U);
}

TEST_F(MemoryShellTest, ThingsHappenWhileAMessageIsUp) {
  std::vector<std::wstring> seen;
  desktop().onMessage = [&seen](const ::memory::Message& message) { seen.push_back(message.text); };
  dialogs::showMessage(L"text");
  EXPECT_EQ(seen, std::vector<std::wstring>{L"text"});
  EXPECT_EQ(desktop().messages.size(), 1U);
}

TEST_F(MemoryShellTest, AMessageThatNobodyLooksAtWasNotExpected) {
  using Texts = std::vector<std::wstring>;
  dialogs::showMessage(L"one");
  EXPECT_EQ(desktop().unexpectedMessages(), Texts{L"one"});
  EXPECT_EQ(desktop().unexpectedMessages(), Texts{L"one"}) << "To ask is not to look";
  EXPECT_EQ(desktop().messages.back().text, L"one");
  EXPECT_EQ(desktop().unexpectedMessages(), Texts{});
  dialogs::showMessage(L"two");
  EXPECT_EQ(desktop().unexpectedMessages(), Texts{L"two"});
  desktop().messages.clear();
  EXPECT_EQ(desktop().unexpectedMessages(), Texts{});
  dialogs::showMessage(L"three");
  EXPECT_EQ(desktop().unexpectedMessages(), Texts{L"three"});
  EXPECT_FALSE(desktop().messages.empty());
}

TEST_F(MemoryShellTest, TheReportOfAnErrorIsLookedAtAsSuchOrAsAMessage) {
  using Texts = std::vector<std::wstring>;
  const std::wstring text = L"Run-time error '53':\r\n\r\nFile not found";
  EXPECT_TRUE(desktop().errorReports.empty());
  dialogs::reportRunTimeError(platform::RunTimeError(53));
  EXPECT_EQ(desktop().unexpectedMessages(), Texts{text});
  EXPECT_EQ(desktop().errorReports, std::vector<int>{53});
  EXPECT_EQ(desktop().unexpectedMessages(), Texts{});
  desktop().errorReports.clear();
  dialogs::showMessage(L"other");
  dialogs::reportRunTimeError(platform::RunTimeError(53));
  EXPECT_EQ(desktop().unexpectedMessages(), (Texts{L"other", text}));
  EXPECT_EQ(desktop().errorReports.size(), 1U);
  EXPECT_EQ(desktop().unexpectedMessages(), Texts{L"other"});
  EXPECT_EQ(desktop().messages.size(), 3U);
  EXPECT_EQ(desktop().unexpectedMessages(), Texts{});
}

TEST_F(MemoryShellTest, AQuestionThatHasItsAnswerIsExpected) {
  desktop().answers = {dialogs::Answer::yes};
  dialogs::showMessage(L"sure?", dialogs::MessageStyle::yesNoQuestion);
  EXPECT_TRUE(desktop().unexpectedMessages().empty());
}

TEST_F(MemoryShellTest, AnInputBoxGivesWhatIsTyped) {
  desktop().inputAnswers = {L"typed", std::nullopt, L""};
  EXPECT_EQ(dialogs::inputBox(L"prompt", L"title", L"default"), L"typed");
  EXPECT_EQ(dialogs::inputBox(L"prompt", L"title", L"default"), L"default");
  EXPECT_EQ(dialogs::inputBox(L"prompt", L"title", L"default"), L"");
  ASSERT_EQ(desktop().inputs.size(), 3U);
  EXPECT_EQ(desktop().inputs[0].prompt, L"prompt");
  EXPECT_EQ(desktop().inputs[0].title, L"title");
  EXPECT_EQ(desktop().inputs[0].defaultAnswer, L"default");
  EXPECT_EQ(desktop().inputs[0].answer, L"typed");
}

TEST_F(MemoryShellTest, StartsProgramsOnly) {
  desktop().putProgram(L"C:\\App\\tool.exe");
  desktop().putFile(L"C:\\App\\text.exe", "text");
  processes::start(L"c:\\app\\TOOL.exe", L"tool.exe C:\\My?Data");
  EXPECT_EQ(desktop().starts,
            (std::vector<::memory::Start>{{L"c:\\app\\TOOL.exe", L"tool.exe C:\\My?Data"}}));
  EXPECT_EQ(errorNumberOf([] { processes::start(L"C:\\App\\gone.exe", L""); }), 53);
  EXPECT_EQ(errorNumberOf([] { processes::start(L"C:\\Nowhere\\tool.exe", L""); }), 53);
  EXPECT_EQ(errorNumberOf([] { processes::start(L"C:\\App\\text.exe", L""); }), 5);
  EXPECT_EQ(errorNumberOf([] { processes::start(L"C:\\App", L""); }), 5);
  EXPECT_EQ(errorNumberOf([] { processes::start(L"", L"x"); }), 5);
  EXPECT_EQ(desktop().starts.size(), 1U);
}

TEST_F(MemoryShellTest, AShortcutGivesBackWhatWasWritten) {
  const std::wstring path = L"C:\\App\\Tool.lnk";
  const shell_links::Link link{
      L"arguments\r\n", L"\u017C\u00F3\u0142w", L"", L"icon", L"C:\\App\\tool.exe", 7, L"C:\\App"};
  shell_links::write(path, link);
  EXPECT_EQ(shell_links::targetOf(path), L"C:\\App\\tool.exe");
  const auto read = desktop().linkAt(path);
  ASSERT_TRUE(read);
  EXPECT_EQ(read->arguments, link.arguments);
  EXPECT_EQ(read->description, link.description);
  EXPECT_EQ(read->iconLocation, link.iconLocation);
  EXPECT_EQ(read->windowStyle, 7);
  EXPECT_EQ(read->workingDirectory, link.workingDirectory);
  ASSERT_EQ(desktop().linkWrites.size(), 1U);
  EXPECT_EQ(desktop().linkWrites.front().path, path);
}

TEST_F(MemoryShellTest, AFileThatIsNoShortcutHasNoTarget) {
  desktop().putFile(L"C:\\App\\broken.lnk", "anything");
  EXPECT_EQ(shell_links::targetOf(L"C:\\App\\broken.lnk"), L"");
  EXPECT_EQ(shell_links::targetOf(L"C:\\App\\missing.lnk"), L"");
  shell_links::Link link;
  link.targetPath = L"D:\\gone.exe";
  desktop().putLink(L"C:\\App\\dead.lnk", link);
  EXPECT_EQ(shell_links::targetOf(L"C:\\App\\dead.lnk"), L"D:\\gone.exe");
  EXPECT_TRUE(desktop().linkWrites.empty());
}

TEST_F(MemoryShellTest, AShortcutIsSavedLikeAnyFile) {
  const std::wstring path = L"C:\\App\\Tool.lnk";
  const auto number = [](const std::wstring& where) {
    return errorNumberOf([&where] { shell_links::write(where, {}); });
  };
  EXPECT_EQ(number(L"C:\\Nowhere\\Tool.lnk"), 76);
  EXPECT_EQ(number(path), 0);
  EXPECT_EQ(number(path), 0) << "An older one is overwritten";
  desktop().lock(path);
  EXPECT_EQ(number(path), 70);
  desktop().setReadOnly(path);
  EXPECT_EQ(number(path), 75);
  desktop().linkFailure = 429;
  EXPECT_EQ(number(L"C:\\App\\New.lnk"), 429);
  EXPECT_FALSE(desktop().has(L"C:\\App\\New.lnk"));
  EXPECT_EQ(desktop().linkWrites.size(), 2U);
}

TEST_F(MemoryShellTest, BrowsingAndHelpAreRecorded) {
  desktop().browserResult = 31;
  EXPECT_EQ(browser::open(L"http://example.com", 1), 31);
  help::showClassic(L"a.hlp", help::contents, [] { FAIL() << "nothing refused"; });
  EXPECT_TRUE(help::showCompiled(L"a.chm"));
  EXPECT_EQ(desktop().browsed.front().address, L"http://example.com");
  EXPECT_EQ(desktop().browsed.front().showCommand, 1);
  ASSERT_EQ(desktop().helpShown.size(), 2U);
  EXPECT_EQ(desktop().helpShown[0].command, 3);
  EXPECT_TRUE(desktop().helpShown[1].compiled);
}

TEST_F(MemoryShellTest, IconsAreSquaresOfTheirColour) {
  desktop().putProgram(L"C:\\App\\tool.exe");
  desktop().setIcon(L"C:\\APP\\Tool.exe", 0xFF112233);
  desktop().setIcon(L"C:\\App\\gone.exe", 0xFF112233);
  const pictures::Icons both{Picture{{2, 2}, std::vector<std::uint32_t>(4, 0xFF112233)},
                             Picture{{1, 1}, std::vector<std::uint32_t>(1, 0xFF112233)}};
  EXPECT_EQ(pictures::programIcons(L"C:\\App\\tool.exe", {2, 1}), both);
  EXPECT_EQ(pictures::programIcons(L"C:\\App\\gone.exe", {2, 1}), pictures::Icons{});
  EXPECT_EQ(pictures::programIcons(L"C:\\App", {2, 1}), pictures::Icons{});
  EXPECT_EQ(desktop().iconsAsked.size(), 6U);
}

TEST_F(MemoryShellTest, SettingsAreKeptWithoutRegardToCase) {
  EXPECT_EQ(settings::read(L"General", L"CWIExample", L"False"), L"False");
  settings::write(L"General", L"CWIExample", L"True");
  EXPECT_EQ(settings::read(L"general", L"cwiexample", L"False"), L"True");
  EXPECT_EQ(desktop().setting(L"GENERAL", L"CWIEXAMPLE"), L"True");
  EXPECT_EQ(settings::read(L"Other", L"CWIExample", L"False"), L"False");
}

TEST_F(MemoryShellTest, RegistryValuesHaveToFitTheBuffer) {
  using registry::Root;
  desktop().setRegistryText(Root::localMachine, L"Software\\Shared", L"Path", L"C:\\x");
  const auto value =
      registry::query(Root::localMachine, L"SOFTWARE\\shared", L"PATH", registry::allAccess, 10);
  ASSERT_TRUE(value);
  EXPECT_EQ(value->type, registry::typeString);
  EXPECT_EQ(value->bytes, (std::vector<std::uint8_t>{'C', 0, ':', 0, '\\', 0, 'x', 0, 0, 0}));
  EXPECT_FALSE(registry::query(Root::localMachine, L"Software\\Shared", L"Path", 0, 9));
  EXPECT_FALSE(registry::query(Root::currentUser, L"Software\\Shared", L"Path", 0, 10));
  EXPECT_FALSE(registry::query(Root::localMachine, L"Software\\Shared", L"", 0, 10));
  ASSERT_EQ(desktop().registryQueries.size(), 4U);
  EXPECT_EQ(desktop().registryQueries.front().access, registry::allAccess);
  EXPECT_EQ(desktop().registryQueries.front().bufferBytes, 10U);
}

TEST_F(MemoryShellTest, TheProgramsFactsCanBeSet) {
  EXPECT_EQ(application::folder(), L"C:\\App");
  EXPECT_EQ(application::version().major, 3);
  EXPECT_FALSE(application::previousInstance());
  EXPECT_NE(application::copyright(), L"");
  desktop().previousInstance = true;
  EXPECT_TRUE(application::previousInstance());
  EXPECT_THROW(application::end(), ::memory::ProgramEnded);
  EXPECT_TRUE(desktop().journalHas(L"end"));
}

TEST_F(MemoryShellTest, PumpingRunsTheHook) {
  int runs = 0;
  desktop().onPump = [&runs] { ++runs; };
  application::processPendingMessages();
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(desktop().pumps, 1);
  EXPECT_TRUE(desktop().journalHas(L"pump"));
}

TEST_F(MemoryShellTest, OnlyTheDocumentsFolderIsKnown) {
  const controls::Window owner(L"frmOwner", controls::WindowKind::hidden);
  EXPECT_EQ(folders::specialFolder(owner, folders::personal), L"C:\\Users\\Ann\\Documents");
  EXPECT_EQ(folders::specialFolder(owner, 0), std::nullopt);
  desktop().documents.reset();
  EXPECT_EQ(folders::specialFolder(owner, folders::personal), std::nullopt);
}

}  // namespace
}  // namespace platform
