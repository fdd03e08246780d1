// The main job and one change to the list, in short. ./test runs it again for each older Windows
// that Wine can act as.
#include <algorithm>
#include <array>

#include "gateway_test.h"

namespace desktop_tests {
namespace {

std::wstring variable(const wchar_t* name) {
  std::array<wchar_t, MAX_PATH> value{};
  GetEnvironmentVariableW(name, value.data(), static_cast<DWORD>(value.size()));
  return value.data();
}

/// Version of the system, as "6.1.7601".
std::wstring systemVersion() {
  using GetVersion = LONG WINAPI(OSVERSIONINFOW*);
  auto* const get = reinterpret_cast<GetVersion*>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion")));
  OSVERSIONINFOW facts{};
  facts.dwOSVersionInfoSize = sizeof(facts);
  get(&facts);
  return std::to_wstring(facts.dwMajorVersion) + L"." + std::to_wstring(facts.dwMinorVersion) +
         L"." + std::to_wstring(facts.dwBuildNumber);
}

class Smoke : public GatewayTest {};

TEST_F(Smoke, AFileIsOpenedInItsToolAndAnEntryIsDeleted) {
  GatewayApp::skipExample();
  app->addAllTools();
  const std::wstring plot = app->addFileElsewhere(L"Plot 3.fp3");
  const std::wstring transect = app->addFileElsewhere(L"Transect 7.bi3");
  app->writeCatalogue(record(L"FP3", plot) + record(L"BI3", transect));
  const std::wstring withheld = app->testFolder() + L"\\withheld.txt";
  SetEnvironmentVariableW(L"QMK_WITHHELD", withheld.c_str());
  app->startToMain();
  SetEnvironmentVariableW(L"QMK_WITHHELD", nullptr);
  app->selectTab(Tab::open);
  ASSERT_TRUE(eventually([&] { return app->list(Tab::open).count(); }, 2));

  app->doubleClickRow(Tab::open, L"Plot 3.fp3");
  EXPECT_EQ(app->waitForToolStart().commandLine,
            app->folder() + L"\\plv3.exe " + harness::encoded(plot));

  harness::clickAt(harness::centreOf(app->list(Tab::open).textOnScreen(1)), app->main());
  ASSERT_TRUE(eventually([&] { return app->list(Tab::open).selected(); }, 1));
  app->command(ids::mnuDelete);
  app->waitForMessage().answer(IDYES);
  EXPECT_TRUE(eventually([&] { return app->catalogue(); }, record(L"FP3", plot)));
  EXPECT_TRUE(eventually([&] { return harness::exists(transect); }, false)) << "after its entry";

  // Only a run for a certain version says which one it is, and uses the program that then finds
  // only that version's functions.
  if (const std::wstring expected = variable(L"QMK_EXPECTED_WINDOWS"); !expected.empty()) {
    EXPECT_EQ(systemVersion(), expected);
    const bool isOld = !expected.starts_with(L"10.");
    EXPECT_EQ(
        harness::readFile(withheld).value_or("").find("GetDpiForWindow\n") != std::string::npos,
        isOld)
        << "the way of older systems was taken";
  }
}

}  // namespace
}  // namespace desktop_tests
