// The fixture of the tests about web shortcuts.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "gateway_test.h"
#include "harness/forms.h"

namespace desktop_tests {

class WebTest : public GatewayTest {
 protected:
  using Rows = std::vector<std::vector<std::wstring>>;

  void SetUp() override { GatewayApp::skipExample(); }

  /// A line of the web list file.
  static std::string entry(const std::wstring& name, const std::wstring& url);

  [[nodiscard]] std::wstring webListPath() const { return app->folder() + L"\\QMKWebList.txt"; }
  /// Bytes of the web list file, nothing when it does not exist.
  [[nodiscard]] std::optional<std::string> webList() const {
    return harness::readFile(webListPath());
  }
  void writeWebList(const std::string& bytes) const { harness::writeFile(webListPath(), bytes); }
  [[nodiscard]] harness::ListViewReader list() const { return app->list(Tab::web); }

  /// Starts the program and makes the Web tab the current one, with that many rows.
  void startOnWebTab(int rows) const;
  /// Clicks a row of the Web tab.
  void selectRow(int row) const;
  /// The dialog after the Create command.
  [[nodiscard]] harness::FormReader askToCreate() const;
  /// The dialog after the Rename command.
  [[nodiscard]] harness::FormReader askToRename() const;
  /// Fills in both fields and presses OK.
  static void fillAndAccept(const harness::FormReader& dialog, const std::wstring& name,
                            const std::wstring& url);
  /// Waits until the file holds exactly these bytes.
  void expectWebList(const std::string& bytes) const;
  /// Waits until the Web tab lists exactly these rows.
  void expectRows(const Rows& rows) const;
};

}  // namespace desktop_tests
