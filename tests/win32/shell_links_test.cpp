// Targets of shortcuts are those that the shell's own objects give, however they are read.
#include <gtest/gtest.h>
#include <windows.h>
// Needs <windows.h> first.
#include <objbase.h>

#include <string>
#include <utility>
#include <vector>

#include "harness/files.h"
#include "harness/link_file.h"
#include "platform/link_bytes.h"
#include "platform/shell_links.h"
#include "platform/text.h"
#include "platform/win32/shell/link_object.h"
#include "platform/win32/shell/script_link.h"

namespace {

namespace shell_links = platform::shell_links;

class ShellLinks : public testing::Test {
 protected:
  // It stays, because the program keeps an object.
  static void SetUpTestSuite() { CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); }
  [[nodiscard]] std::wstring path(const std::wstring& name) const {
    return folder_.path() + L"\\" + name;
  }
  /// What the scripting object gives, and what the shell's object gives where that cannot.
  static std::wstring asked(const std::wstring& link) {
    const std::wstring target = platform::win32::script_link::targetOf(link);
    return target.empty() || target.find(L'?') != std::wstring::npos
               ? platform::win32::link_object::targetOf(link)
               : target;
  }
  static bool isReadFromBytes(const std::wstring& link) {
    return platform::link_bytes::storedTarget(harness::readFile(link).value_or("")).has_value();
  }
  /// A link with all its properties, written by both objects.
  void expectSameTarget(const std::wstring& target, bool fromBytes) const {
    const std::wstring mine = path(L"Mine.lnk");
    shell_links::write(mine, {.arguments = L"\"a b\" c",
                              .description = L"What it does",
                              .hotKey = L"",
                              .iconLocation = LR"(C:\windows\notepad.exe)",
                              .targetPath = target,
                              .windowStyle = 3,
                              .workingDirectory = LR"(C:\windows)"});
    harness::LinkFile link;
    link.target = target;
    const std::wstring others = path(L"OTHERS.LNK");
    harness::writeLink(others, link);
    for (const std::wstring& file : {mine, others}) {
      EXPECT_EQ(shell_links::targetOf(file), asked(file)) << platform::text::toCodePage(file);
      EXPECT_EQ(isReadFromBytes(file), fromBytes) << platform::text::toCodePage(file);
    }
    EXPECT_FALSE(shell_links::targetOf(mine).empty());
  }
  harness::TestFolder folder_;
};

TEST_F(ShellLinks, OfProgramsAreReadFromTheirBytes) {
  harness::makeFolder(path(L"Suite with blanks"));
  harness::writeFile(path(L"Suite with blanks\\There.exe"), "x");
  harness::writeFile(path(L"A long name with H\u00F6he.program.exe"), "x");
  for (const std::wstring& target :
       {std::wstring(LR"(C:\windows\notepad.exe)"), path(L"Suite with blanks\\There.exe"),
        path(L"Suite with blanks"), path(L"A long name with H\u00F6he.program.exe"),
        path(L"Gone.exe"), std::wstring(LR"(C:\Gone folder\Gone.exe)")}) {
    SCOPED_TRACE(platform::text::toCodePage(target));
    expectSameTarget(target, true);
  }
}

TEST_F(ShellLinks, OfAnythingElseAreReadByTheShell) {
  harness::writeFile(path(L"\u4E2D.exe"), "x");
  for (const std::wstring& target :
       {path(L"\u4E2D.exe"), std::wstring(LR"(c:\windows\notepad.exe)"), std::wstring(LR"(C:\)"),
        std::wstring(LR"(\\server\share\tool.exe)"), std::wstring(LR"(%windir%\notepad.exe)")}) {
    SCOPED_TRACE(platform::text::toCodePage(target));
    expectSameTarget(target, false);
  }
}

TEST_F(ShellLinks, OfFilesThatAreNoneAreEmpty) {
  harness::writeLink(path(L"Tool.lnk"), [] {
    harness::LinkFile link;
    link.target = LR"(C:\windows\notepad.exe)";
    return link;
  }());
  const std::string whole = harness::readFile(path(L"Tool.lnk")).value_or("");
  for (const std::string& bytes : {std::string(), std::string("no link"), whole.substr(0, 60),
                                   whole.substr(0, 90), std::string(100'000, '\0')}) {
    harness::writeFile(path(L"Broken.lnk"), bytes);
    EXPECT_EQ(shell_links::targetOf(path(L"Broken.lnk")), asked(path(L"Broken.lnk")));
    EXPECT_EQ(shell_links::targetOf(path(L"Broken.lnk")), L"");
  }
  EXPECT_EQ(shell_links::targetOf(path(L"Missing.lnk")), L"");
  harness::makeFolder(path(L"Folder.lnk"));
  EXPECT_EQ(shell_links::targetOf(path(L"Folder.lnk")), L"");
  // To the scripting object a file without the ending is none, but the shell's object reads it.
  harness::copyFile(path(L"Tool.lnk"), path(L"Tool.other"));
  EXPECT_EQ(shell_links::targetOf(path(L"Tool.other")), asked(path(L"Tool.other")));
}

// Wine's shell is not asked for them: it goes by the lengths in a link, beyond the end of the
// bytes.
TEST_F(ShellLinks, ThatAreCutOffAnywhereAreLeftToTheShell) {
  harness::LinkFile link;
  link.target = LR"(C:\windows\notepad.exe)";
  link.description = L"Text";
  harness::writeLink(path(L"Tool.lnk"), link);
  const std::string whole = harness::readFile(path(L"Tool.lnk")).value_or("");
  ASSERT_TRUE(isReadFromBytes(path(L"Tool.lnk")));
  for (std::size_t size = 1; size < whole.size(); size += 7) {
    harness::writeFile(path(L"Cut.lnk"), whole.substr(0, size));
    EXPECT_FALSE(isReadFromBytes(path(L"Cut.lnk"))) << size;
  }
}

}  // namespace
