// Nothing that somebody has planted is started or loaded. Names, addresses and records are only
// shown, and start only what they name.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>
// Needs <windows.h> first.
#include <psapi.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <cwctype>
#include <set>
#include <string>
#include <vector>

#include "harness/files.h"
#include "harness/forms.h"
#include "harness/gateway_app.h"
#include "harness/input.h"
#include "harness/link_file.h"
#include "harness/paths.h"
#include "harness/text.h"
#include "harness/url_scheme.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"
#include "proof.h"

namespace proofs {
namespace {

using harness::GatewayApp;
using harness::Tab;

std::wstring lower(std::wstring text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](wchar_t c) { return static_cast<wchar_t>(std::towlower(c)); });
  return text;
}

/// Names of the libraries that a process has loaded, in lower case.
std::set<std::wstring> modulesOf(HANDLE process) {
  std::array<HMODULE, 1024> modules{};
  DWORD bytes = 0;
  EnumProcessModules(process, modules.data(), static_cast<DWORD>(sizeof(modules)), &bytes);
  std::set<std::wstring> names;
  for (std::size_t index = 0; index < bytes / sizeof(HMODULE); ++index) {
    std::array<wchar_t, MAX_PATH> name{};
    GetModuleBaseNameW(process, modules.at(index), name.data(), static_cast<DWORD>(name.size()));
    names.insert(lower(name.data()));
  }
  return names;
}

/// Windows maps these libraries from a list of known ones and never searches folders for them, so
/// they cannot be planted. (Wine has no such list.)
const std::set<std::wstring>& neverLookedFor() {
  static const std::set<std::wstring> names{
      L"advapi32.dll", L"clbcatq.dll",   L"combase.dll", L"comdlg32.dll", L"coml2.dll",
      L"gdi32.dll",    L"gdi32full.dll", L"imm32.dll",   L"kernel32.dll", L"kernelbase.dll",
      L"msctf.dll",    L"msvcrt.dll",    L"ntdll.dll",   L"nsi.dll",      L"ole32.dll",
      L"oleaut32.dll", L"psapi.dll",     L"rpcrt4.dll",  L"sechost.dll",  L"setupapi.dll",
      L"shcore.dll",   L"shell32.dll",   L"shlwapi.dll", L"ucrtbase.dll", L"user32.dll",
      L"win32u.dll",   L"ws2_32.dll",    L"gateway3.exe"};
  return names;
}

/// Uses everything that makes the program, or the system for it, load libraries or start programs;
/// `starts` counts the started programs.
void visitEverything(GatewayApp& app, std::size_t& starts) {
  const auto waitForStart = [&] { static_cast<void>(app.waitForToolStart(++starts)); };
  app.startToMain();
  app.command(ids::mnuAbout);
  harness::waitForAboutBox(app).pushAndWait(ids::aboutOK);
  app.command(ids::mnuHelpContents);
  app.selectTab(Tab::web);
  app.command(ids::mnuCreate);
  const harness::FormReader web = harness::waitForWebDialog(app);
  web.fill(ids::txtUrl, L"qmkproof:page");
  web.pushAndWait(ids::webOK);
  app.doubleClickRow(Tab::web, 0);
  waitForStart();
  app.selectTab(Tab::open);
  app.doubleClickRow(Tab::open, L"Plot.fp3");
  waitForStart();
  harness::post(app.browseButton(), BM_CLICK);
  app.waitForFileDialog().cancel();
  app.selectTab(Tab::tools);
  app.doubleClickRow(Tab::tools, L"CanopyWeigh");
  waitForStart();
  app.selectTab(Tab::newFile);
  app.doubleClickRow(Tab::newFile, L"New Plotview Inventory");
  waitForStart();
}

std::vector<std::wstring> linesOf(const std::wstring& log) {
  const std::string bytes = harness::readFile(log).value_or("");
  std::wstring text(bytes.size() / sizeof(wchar_t), L'\0');
  std::memcpy(text.data(), bytes.data(), text.size() * sizeof(wchar_t));
  std::vector<std::wstring> lines;
  for (std::size_t begin = 0, end = text.find(L'\n'); end != std::wstring::npos;
       begin = end + 1, end = text.find(L'\n', begin)) {
    lines.push_back(text.substr(begin, end - begin));
  }
  return lines;
}

class Security : public ::testing::Test {
 protected:
  Security() { GatewayApp::skipExample(); }
  void TearDown() override {
    if (app_.started() && app_.running()) {
      EXPECT_FALSE(app_.dialogShown());
      EXPECT_EQ(app_.close(), 0U);
    }
    app_.kill();
  }
  GatewayApp app_{L"Suite of tools"};
};

/// Planted programs are at every path that results from cutting a path at a blank, and in the
/// current folder under the tools' names.
TEST_F(Security, NoPlantedProgramIsStarted) {
  app_.addAllTools();
  app_.addDataFile(L"Plot.fp3");
  const std::wstring root = app_.testFolder();
  const std::wstring marker = root + L"\\standin.log";  // written by a planted program
  std::vector<std::wstring> planted{L"Suite.exe", L"Suite.com",  L"Suite",   L"Suite of.exe",
                                    L"plv3.exe",  L"brtpc3.exe", L"cw3.exe", L"viewer.exe"};
  for (const std::wstring& name : planted) {
    harness::copyFile(harness::standInExecutable(), root + L"\\" + name);
  }
  for (const wchar_t* const name : {L"plv3.com", L"plv3.exe.exe", L"cw3.com", L"CW3.bat"}) {
    harness::copyFile(harness::standInExecutable(), app_.folder() + L"\\" + name);
  }
  const harness::UrlScheme scheme(L"qmkproof", L"\"" + app_.folder() + L"\\imgkeep3.exe\" \"%1\"");
  std::size_t starts = 0;
  visitEverything(app_, starts);
  EXPECT_FALSE(harness::exists(marker)) << *harness::readFile(marker);
  // A tool that does not exist is reported as missing, and is not searched for elsewhere.
  harness::waitUntil("the tool has ended and can be removed", [&] {
    return DeleteFileW((app_.folder() + L"\\brtpc3.exe").c_str()) != FALSE;
  });
  app_.doubleClickRow(Tab::newFile, L"New Plotview Inventory");
  const harness::MessageBoxReader box = app_.waitForMessage();
  EXPECT_TRUE(box.text().starts_with(L"Can't start application\r")) << harness::utf8(box.text());
  box.answer(IDOK);
  EXPECT_FALSE(harness::exists(marker)) << *harness::readFile(marker);
  figure("security, planted programs", static_cast<std::int64_t>(planted.size() + 4));
  figure("security, planted programs started", harness::exists(marker) ? 1 : 0);
  // Checks the trap itself: a program that is started from there writes the file.
  const harness::Job job;
  const harness::Process trap(root + L"\\Suite.exe", root, job);
  harness::waitUntil("the planted program writes", [&] { return harness::exists(marker); });
}

TEST_F(Security, NoPlantedLibraryIsLoaded) {
  app_.addAllTools();
  app_.addDataFile(L"Plot.fp3");
  const harness::UrlScheme scheme(L"qmkproof", L"\"" + app_.folder() + L"\\imgkeep3.exe\" \"%1\"");
  // Libraries that the program loads when nothing is planted.
  std::size_t starts = 0;
  visitEverything(app_, starts);
  std::set<std::wstring> names = modulesOf(app_.process().handle());
  ASSERT_GT(names.size(), 10U);
  EXPECT_EQ(app_.close(), 0U);
  // Libraries that the program or the system might search for.
  names.insert({L"version.dll", L"uxtheme.dll", L"dwmapi.dll", L"hhctrl.ocx", L"propsys.dll",
                L"comctl32.dll", L"cryptbase.dll", L"profapi.dll", L"netapi32.dll", L"mpr.dll",
                L"wshom.ocx", L"scrrun.dll", L"apphelp.dll", L"ntmarta.dll", L"edputil.dll",
                L"urlmon.dll", L"wininet.dll", L"mscoree.dll", L"shdocvw.dll", L"browseui.dll",
                L"explorerframe.dll", L"windowscodecs.dll", L"linkinfo.dll", L"winspool.drv",
                // What the system loads for whoever asks it for random numbers.
                L"cryptsp.dll", L"rsaenh.dll", L"bcrypt.dll", L"bcryptprimitives.dll"});
  std::erase_if(names, [](const std::wstring& name) { return neverLookedFor().contains(name); });
  int planted = 0;
  const std::wstring log = app_.testFolder() + L"\\planted.log";
  for (const std::wstring& name : names) {
    for (const std::wstring& folder :
         {app_.folder(), app_.folder() + L"\\data", app_.testFolder(), app_.documents()}) {
      harness::copyFile(harness::buildFolder() + L"\\proof_planted.dll", folder + L"\\" + name);
      ++planted;
    }
  }
  SetEnvironmentVariableW(L"QMK_PLANTED", log.c_str());
  visitEverything(app_, starts);
  EXPECT_EQ(app_.close(), 0U);
  SetEnvironmentVariableW(L"QMK_PLANTED", nullptr);
  const std::vector<std::wstring> loaded = linesOf(log);
  EXPECT_THAT(loaded, ::testing::IsEmpty());
  figure("security, planted libraries", planted);
  figure("security, planted libraries loaded", static_cast<std::int64_t>(loaded.size()));
}

/// Checks the trap of the test above.
TEST_F(Security, APlantedLibraryWritesDownThatItWasLoaded) {
  const std::wstring log = app_.testFolder() + L"\\planted.log";
  SetEnvironmentVariableW(L"QMK_PLANTED", log.c_str());
  HMODULE const library = LoadLibraryW((harness::buildFolder() + L"\\proof_planted.dll").c_str());
  SetEnvironmentVariableW(L"QMK_PLANTED", nullptr);
  ASSERT_NE(library, nullptr);
  FreeLibrary(library);
  EXPECT_EQ(linesOf(log).size(), 1U);
}

/// Checks the headers of the program file.
TEST_F(Security, TheProgramFileIsHardened) {
  const std::string bytes = *harness::readFile(harness::gatewayExecutable());
  const auto read = [&bytes]<class T>(std::size_t offset, T value) {
    std::memcpy(&value, bytes.data() + offset, sizeof(T));
    return value;
  };
  const auto start = static_cast<std::size_t>(read(0, IMAGE_DOS_HEADER{}).e_lfanew);
  const auto headers = read(start, IMAGE_NT_HEADERS64{});
  const WORD flags = headers.OptionalHeader.DllCharacteristics;
  EXPECT_NE(flags & IMAGE_DLLCHARACTERISTICS_HIGH_ENTROPY_VA, 0);
  EXPECT_NE(flags & IMAGE_DLLCHARACTERISTICS_DYNAMIC_BASE, 0);
  EXPECT_NE(flags & IMAGE_DLLCHARACTERISTICS_NX_COMPAT, 0);
  EXPECT_NE(headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_BASERELOC].Size, 0U);
  const std::size_t first = start + offsetof(IMAGE_NT_HEADERS64, OptionalHeader) +
                            headers.FileHeader.SizeOfOptionalHeader;
  int executable = 0;
  for (std::size_t n = 0; n < headers.FileHeader.NumberOfSections; ++n) {
    const auto section = read(first + n * sizeof(IMAGE_SECTION_HEADER), IMAGE_SECTION_HEADER{});
    const DWORD kind = section.Characteristics;
    executable += (kind & IMAGE_SCN_MEM_EXECUTE) != 0 ? 1 : 0;
    constexpr DWORD writtenAndRun = IMAGE_SCN_MEM_EXECUTE | IMAGE_SCN_MEM_WRITE;
    EXPECT_NE(kind & writtenAndRun, writtenAndRun) << "section " << n << " can be written and run";
  }
  EXPECT_EQ(executable, 1);
  // Imported libraries are searched for before the program can restrict the search to the system's
  // folder. Side-by-side assemblies, which the manifest names, are not searched for at all.
  const auto offsetOf = [&](DWORD address) {
    for (std::size_t n = 0; n < headers.FileHeader.NumberOfSections; ++n) {
      const auto section = read(first + n * sizeof(IMAGE_SECTION_HEADER), IMAGE_SECTION_HEADER{});
      if (address >= section.VirtualAddress &&
          address < section.VirtualAddress + section.SizeOfRawData) {
        return std::size_t{address - section.VirtualAddress + section.PointerToRawData};
      }
    }
    return std::size_t{0};
  };
  std::size_t entry =
      offsetOf(headers.OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress);
  int imported = 0;
  for (auto import = read(entry, IMAGE_IMPORT_DESCRIPTOR{}); import.Name != 0;
       import = read(entry += sizeof(import), IMAGE_IMPORT_DESCRIPTOR{})) {
    const std::wstring name = lower(harness::fromUtf8(bytes.c_str() + offsetOf(import.Name)));
    EXPECT_TRUE(neverLookedFor().contains(name) || name == L"comctl32.dll")
        << harness::utf8(name) << " can be planted";
    ++imported;
  }
  EXPECT_GE(imported, 3);
  // The text that the guarded functions print when their stack has been overrun.
  EXPECT_NE(bytes.find("stack smashing detected"), std::string::npos);
  figure("security, program file",
         "address randomised (64 bit), data not executable, no section both writable and "
         "executable, stack guarded; control flow guard is not offered by this compiler");
}

/// Characters that have a special meaning for command interpreters, the shell or lists.
std::vector<std::wstring> oddNames() {
  return {L"a & b.fp3",           L"%TEMP%.fp3",
          L"%COMSPEC% ^& x.fp3",  L"caret ^ bar.fp3",
          L"$(x) `y`.fp3",        L"semi;colon,x.fp3",
          L"(paren) 'quote'.fp3", L"--switch.fp3",
          L"100% # @ ! ~.fp3",    L"\u00E4\u00F6\u00FC.fp3",
          L"name.exe.fp3"};
}

TEST_F(Security, OddNamesOfDataFilesReachTheToolAsTheyAre) {
  app_.addAllTools();
  for (const std::wstring& name : oddNames()) {
    app_.addDataFile(name);
  }
  app_.startToMain();
  app_.selectTab(Tab::open);
  std::size_t starts = 0;
  for (const std::wstring& name : oddNames()) {
    app_.doubleClickRow(Tab::open, name);
    const harness::ToolStart start = app_.waitForToolStart(++starts);
    EXPECT_TRUE(
        start.commandLine.ends_with(L" " + harness::encoded(app_.folder() + L"\\data\\" + name)))
        << harness::utf8(start.commandLine);
  }
  figure("security, data files with odd names opened", static_cast<std::int64_t>(starts));
}

/// Records and web entries that no program would write: the program shows them, reports what is
/// missing, and goes on.
TEST_F(Security, HostileRecordsAreOnlyShown) {
  app_.addAllTools();
  const std::string longest(32'767, 'x');
  std::vector<std::string> paths{"C:\\a\\\"quoted\".fp3",
                                 "C:\\a\\%COMSPEC%.fp3",
                                 "C:\\a\\x & calc.fp3",
                                 "C:\\a\\x^|y.fp3",
                                 std::string("C:\\a\\n\0l.fp3", 11),
                                 "C:\\a\\\xE2\x80\xAE"
                                 "3pf.exe",
                                 "C:\\a\\" + longest + ".fp3",
                                 "\\\\?\\C:\\a\\b.fp3",
                                 "C:\\a\\con.fp3",
                                 "\\\\.\\pipe\\x.fp3",
                                 "C:\\a\\..\\..\\..\\b.fp3",
                                 "C:\\a\\*.fp3"};
  std::string catalogue;
  std::string webList;
  for (const std::string& path : paths) {
    catalogue += "\"FP3\",\"" + path + "\",\"1/2/2003\"\r\n";
    webList += "\"" + path + "\",\"" + path + "\"\r\n";
  }
  app_.writeCatalogue(catalogue);
  harness::writeFile(app_.folder() + L"\\QMKWebList.txt", webList);
  const harness::UrlScheme scheme(L"qmkproof", L"\"" + app_.folder() + L"\\imgkeep3.exe\" \"%1\"");
  app_.startToMain();
  app_.selectTab(Tab::open);
  const int shown = app_.list(Tab::open).count();
  EXPECT_GE(shown, static_cast<int>(paths.size()) - 1);
  int asked = 0;
  for (int row = 0; row < shown; ++row) {
    app_.doubleClickRow(Tab::open, row);
    const harness::MessageBoxReader box = app_.waitForMessage();
    EXPECT_TRUE(box.text().starts_with(L"File does not exist: "))
        << harness::utf8(box.text().substr(0, 200));
    ++asked;
    box.answer(IDYES);
    app_.waitForFileDialog().cancel();
  }
  app_.selectTab(Tab::web);
  for (int row = 0; row < app_.list(Tab::web).count(); ++row) {
    app_.doubleClickRow(Tab::web, row);
  }
  // A long valid address is opened, and it is the first one that starts anything.
  const std::wstring address = L"qmkproof:" + std::wstring(200, L'x');
  harness::writeFile(app_.folder() + L"\\QMKWebList.txt",
                     harness::codePageBytes(L"\"Long\",\"" + address + L"\"\r\n"));
  harness::send(app_.list(Tab::web).window(), WM_KEYDOWN, VK_F5);
  harness::waitUntil("the list is reloaded", [&] { return app_.list(Tab::web).count() == 1; });
  app_.doubleClickRow(Tab::web, 0);
  EXPECT_THAT(app_.waitForToolStart().commandLine, ::testing::EndsWith(address + L"\""));
  EXPECT_EQ(*app_.catalogue(), catalogue);
  figure("security, hostile records shown and tried", asked);
}

/// Shortcut files with unusual names and with targets that are not paths.
TEST_F(Security, ShortcutsStartTheirTargetAndNothingElse) {
  const std::vector<std::wstring> names{L"a & b",         L"%TEMP%",    L"^ caret",
                                        L"\u202Eexe.txt", L"'quote' ;", std::wstring(180, L'n')};
  app_.addTool(L"target tool.exe");
  for (const std::wstring& name : names) {
    harness::LinkFile link;
    link.target = app_.folder() + L"\\target tool.exe";
    link.arguments = L"& calc.exe \" %COMSPEC%";
    harness::writeLink(app_.shortCutsFolder() + L"\\" + name + L".lnk", link);
  }
  app_.startToMain();
  harness::waitUntil("the shortcuts are listed", [&] {
    return app_.list(Tab::tools).count() == static_cast<int>(names.size());
  });
  std::size_t starts = 0;
  for (int row = 0; row < static_cast<int>(names.size()); ++row) {
    app_.doubleClickRow(Tab::tools, row);
    const harness::ToolStart start = app_.waitForToolStart(++starts);
    EXPECT_EQ(start.commandLine.find(L"calc"), std::wstring::npos)
        << harness::utf8(start.commandLine);
  }
  figure("security, shortcuts with odd names started", static_cast<std::int64_t>(starts));
}

}  // namespace
}  // namespace proofs
