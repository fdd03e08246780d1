// Missing folders, long paths, a drive's root, changing clocks and formats: the program reports
// what is wrong, loses nothing and keeps answering.
#include "surroundings_test.h"

#include <optional>

namespace proofs {
namespace {

using ::testing::HasSubstr;

TEST_F(Surroundings, TheDocumentsFolderIsMissing) {
  harness::removeTree(app_.documents());
  app_.start();
  const harness::MessageBoxReader box = app_.waitForMessage();
  // The shell decides which path it reports for a missing documents folder.
  EXPECT_THAT(harness::utf8(box.text()),
              ::testing::StartsWith("Run-time error '76':\r\n\r\nPath not found\r\n\r\n"));
  EXPECT_THAT(harness::utf8(box.text()), ::testing::EndsWith("\\My QMKExtra3"));
  report("missing documents folder", {harness::utf8(box.text())});
  box.answer(IDOK);
  app_.waitForExit();
}

TEST_F(Surroundings, TheDocumentsFolderIsADrivesRoot) {
  const std::wstring below = pathBelow(app_.documents());
  const std::wstring drives = pathBelow(L"C:\\") + L"../dosdevices/";
  if (!hasMachineBelow() || !runBelow(L"ln -sfn '" + below + L"' '" + drives + L"q:'")) {
    GTEST_SKIP() << "no drive can be made here";
  }
  const harness::TestProfile profile(L"Q:\\");
  GatewayApp::skipExample();
  EXPECT_TRUE(startThroughMessages(false).empty());
  EXPECT_TRUE(harness::isFolder(app_.shortCutsFolder()));
  EXPECT_TRUE(closeThroughMessages().empty());
  EXPECT_TRUE(runBelow(L"rm '" + drives + L"q:'"));
  figure("surroundings, documents folder on a drive's root", "works");
}

/// Six nested folders with names of 44 characters.
std::wstring longName() {
  std::wstring name;
  for (int n = 0; n < 6; ++n) {
    name += (n == 0 ? L"" : L"\\") + std::wstring(44, static_cast<wchar_t>(L'a' + n));
  }
  return name;
}

TEST_F(Surroundings, AnApplicationFolderOfThreeHundredCharacters) {
  app_.kill();
  GatewayApp deep(longName());
  GatewayApp::skipExample();
  ASSERT_GE(deep.folder().size(), 300U);
  const std::wstring plot = deep.addDataFile(L"Plot 1.fp3");
  try {
    deep.startToMain();
  } catch (const harness::Failure& failure) {
    deep.kill();
    // The program cannot help: the system does not start a program with such a long path.
    ASSERT_THAT(failure.what(), HasSubstr("cannot start"));
    figure("surroundings, application folder of 300 characters",
           "the system starts no program there");
    GTEST_SKIP() << failure.what();
  }
  harness::waitUntil("the data folder is catalogued",
                     [&] { return deep.list(Tab::open).count() == 1; });
  EXPECT_NE(deep.catalogue()->find(harness::codePageBytes(plot)), std::string::npos);
  EXPECT_EQ(deep.close(), 0U);
  figure("surroundings, application folder of 300 characters", "works");
}

TEST_F(Surroundings, ADataFileInAFolderOfThreeHundredCharacters) {
  app_.addTool(L"plv3.exe");
  const std::wstring path = app_.addFileElsewhere(longName() + L"\\Plot 1.fp3");
  ASSERT_GE(path.size(), 300U);
  app_.writeCatalogue(record(path));
  app_.startToMain();
  app_.selectTab(Tab::open);
  app_.doubleClickRow(Tab::open, L"Plot 1.fp3");
  EXPECT_THAT(app_.waitForToolStart().commandLine,
              ::testing::EndsWith(L" " + harness::encoded(path)));
  // Its name can be changed, and it can be deleted.
  app_.command(ids::mnuRename);
  const harness::InputBoxReader box = app_.waitForInputBox();
  box.type(L"Plot 2");
  box.ok();
  harness::waitUntil("the new name is shown",
                     [&] { return app_.list(Tab::open).find(L"Plot 2.FP3").has_value(); });
  EXPECT_FALSE(harness::exists(path));
  app_.command(ids::mnuDelete);
  app_.waitForMessage().answer(IDYES);
  harness::waitUntil("the entry goes", [&] { return app_.list(Tab::open).count() == 0; });
  EXPECT_TRUE(harness::namesIn(path.substr(0, path.rfind(L'\\'))).empty());
  EXPECT_EQ(app_.close(), 0U);
  figure("surroundings, data file in a folder of 300 characters", "opened, renamed, deleted");
}

TEST_F(Surroundings, TheClockIsSetBack) {
  app_.startToMain();
  constexpr std::uint64_t hour = 36'000'000'000;
  std::uint64_t time = harness::changeTime(app_.cataloguePath());
  int rows = 0;
  std::string bytes;
  // Ahead by years, back, back to before the first time, and the earliest possible time.
  for (const std::int64_t hours : {100'000, -150'000, -3, 1, -1'000'000}) {
    bytes += record(L"C:\\a\\" + std::to_wstring(rows) + L".fp3");
    ++rows;
    app_.writeCatalogue(bytes);
    time += static_cast<std::uint64_t>(hours) * hour;
    harness::setChangeTime(app_.cataloguePath(), time);
    EXPECT_TRUE(harness::eventually([&] { return app_.list(Tab::open).count(); }, rows))
        << "after " << hours << " hours";
  }
  EXPECT_EQ(app_.close(), 0U);
  figure("surroundings, changes of the file's time, back and forth",
         "all " + std::to_string(rows) + " seen");
}

/// Changes the user's formats while a program runs.
class Format {
 public:
  Format(const wchar_t* name, const std::wstring& value) : name_(name) {
    std::array<wchar_t, 100> former{};
    auto size = static_cast<DWORD>(sizeof(former));
    if (RegGetValueW(HKEY_CURRENT_USER, key(), name, RRF_RT_REG_SZ, nullptr, former.data(),
                     &size) == ERROR_SUCCESS) {
      former_ = former.data();
    }
    set(value);
  }
  Format(const Format&) = delete;
  Format& operator=(const Format&) = delete;
  ~Format() {
    if (former_) {
      set(*former_);
    } else {
      RegDeleteKeyValueW(HKEY_CURRENT_USER, key(), name_);
    }
  }

 private:
  static const wchar_t* key() { return L"Control Panel\\International"; }
  void set(const std::wstring& value) {
    RegSetKeyValueW(HKEY_CURRENT_USER, key(), name_, REG_SZ, value.c_str(),
                    static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
  }
  const wchar_t* name_;
  std::optional<std::wstring> former_;
};

/// Dates are written in the user's present format, and read as plain text: a change of the format
/// changes no existing record.
TEST_F(Surroundings, DateFormsAndDecimalCommasChange) {
  const std::string kept = record(L"C:\\a\\1.fp3");
  app_.addDataFile(L"Plot.fp3");
  int forms = 0;
  for (const std::array<const wchar_t*, 3>& form :
       {std::array{L"dd.MM.yyyy", L"HH:mm:ss", L","}, std::array{L"yyyy-MM-dd", L"HH.mm.ss", L"."},
        std::array{L"d. MMMM yyyy", L"h:mm:ss tt", L","},
        std::array{L"'\"'dd','MM','yyyy'\"'", L"HH:mm:ss", L","}}) {
    const Format date(L"sShortDate", form[0]);
    const Format clock(L"sTimeFormat", form[1]);
    const Format decimal(L"sDecimal", form[2]);
    app_.writeCatalogue(kept);
    app_.startToMain();
    harness::waitUntil("the data folder is catalogued",
                       [&] { return app_.list(Tab::open).count() == 2; });
    const std::string bytes = *app_.catalogue();
    EXPECT_TRUE(bytes.starts_with(kept)) << bytes;
    EXPECT_TRUE(bytes.ends_with("\"\r\n")) << bytes;
    EXPECT_EQ(app_.list(Tab::open).cell(0, 0), L"1.fp3");
    EXPECT_EQ(app_.list(Tab::open).cell(1, 0), L"Plot.fp3");
    EXPECT_EQ(app_.close(), 0U);
    ++forms;
  }
  figure("surroundings, forms of dates and numbers", forms);
}

/// Name of a file as a list in the run's code page has it: its own name or the short one.
std::wstring listedName(const std::wstring& path, const std::wstring& name) {
  if (harness::fromCodePage(harness::codePageBytes(name)) == name) {
    return name;
  }
  WIN32_FIND_DATAW found{};
  HANDLE const search = FindFirstFileW(path.c_str(), &found);
  EXPECT_NE(search, INVALID_HANDLE_VALUE);
  FindClose(search);
  return found.cAlternateFileName;
}

/// Everything that the run's code page can hold is written to the files and read back. A name that
/// it cannot hold is listed by its short name, and no other record changes.
TEST_F(Surroundings, TheCodePageOfThisRun) {
  const std::wstring all = L"A\u00E4\u0159\u0416\u65E5\u672C\uFF76\u20AC";
  const std::wstring listed = listedName(app_.addDataFile(all + L".fp3"), all + L".fp3");
  const std::string kept = record(L"C:\\a\\1.fp3");
  app_.writeCatalogue(kept);
  app_.startToMain();
  harness::waitUntil("the data folder is catalogued",
                     [&] { return app_.list(Tab::open).count() == 2; });
  ASSERT_NE(listed, L"");
  EXPECT_TRUE(app_.list(Tab::open).find(listed).has_value())
      << harness::utf8(listed + L" among " + app_.list(Tab::open).cell(0, 0) + L", " +
                       app_.list(Tab::open).cell(1, 0));
  EXPECT_TRUE(app_.catalogue()->starts_with(kept));
  EXPECT_EQ(app_.close(), 0U);
  figure("surroundings, code page of this run", static_cast<std::int64_t>(GetACP()));
}

}  // namespace
}  // namespace proofs
