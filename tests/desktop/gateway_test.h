// The fixture of all tests that run the program.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>
// Needs <windows.h> first.
#include <commctrl.h>

#include <memory>
#include <string>
#include <vector>

#include "harness/eventually.h"
#include "harness/gateway_app.h"
#include "harness/input.h"
#include "harness/text.h"
#include "harness/wait.h"
#include "harness/windows_of_process.h"

namespace desktop_tests {

using harness::eventually;
using harness::GatewayApp;
using harness::happens;
using harness::NamedWindow;
using harness::stays;
using harness::Tab;
using ::testing::ElementsAre;
using ::testing::Ge;
using ::testing::Gt;
using ::testing::IsNull;
using ::testing::Ne;
using ::testing::NotNull;
using ::testing::UnorderedElementsAre;

// What message boxes show.
inline constexpr int noIcon = 0;
inline constexpr int criticalIcon = 32513;
inline constexpr int questionIcon = 32514;
inline constexpr int exclamationIcon = 32515;
inline const std::vector<int> okOnly{IDOK};
inline const std::vector<int> yesAndNo{IDYES, IDNO};

/// Prepares the program's surroundings before each test. Afterwards it closes the program like a
/// user, which must succeed: a crash, a dialog that nobody answered or a process that does not end
/// makes the test fail.
class GatewayTest : public ::testing::Test {
 protected:
  /// Replaces the application folder by a fresh one of another name.
  void useFolder(const std::wstring& name,
                 GatewayApp::Documents documents = GatewayApp::Documents::local);
  void TearDown() override;
  /// For tests that end while the program is still busy. An open message box fails even these.
  void endedOnPurpose() { endedOnPurpose_ = true; }

  /// A line of the catalogue file.
  static std::string record(const std::wstring& code, const std::wstring& path,
                            const std::wstring& date = L"11/20/2026 9:15:00 AM");

  /// The text of the report of an error that no routine traps; `path` of the file or folder
  /// concerned, "" for an error without one.
  static std::wstring runTimeError(int number, const std::wstring& description,
                                   const std::wstring& path = L"");

  /// Waits for a message box, checks everything on it and pushes a button.
  void expectMessage(const std::wstring& text, int icon, const std::vector<int>& buttons,
                     int answer, const std::wstring& title = L"Quillmark Suite 3 Gateway") const;

  std::unique_ptr<GatewayApp> app = std::make_unique<GatewayApp>();

 private:
  /// Makes the test fail for each message box of the program that is still open.
  void expectNoMessageLeft() const;
  bool endedOnPurpose_ = false;
};

}  // namespace desktop_tests
