// Shortcuts through the system's scripting object. A test double replaces it and records each call.
#include "harness/scripting_registration.h"

#include "shortcut_test.h"
// The header of COM relies on that of Windows.
#include <objbase.h>

namespace desktop_tests {
namespace {

using harness::ScriptingRegistration;
using Log = std::vector<std::wstring>;

/// An interrupted run may have left the double, which would disturb all other tests.
class RealObjectBack : public ::testing::Environment {
 public:
  void SetUp() override { ScriptingRegistration::undo(); }
  void TearDown() override { ScriptingRegistration::undo(); }
};

[[maybe_unused]] const ::testing::Environment* const realObjectBack =
    ::testing::AddGlobalTestEnvironment(new RealObjectBack);

class ScriptingObject : public ShortcutTest {
 protected:
  void TearDown() override {
    ShortcutTest::TearDown();
    double_.reset();
  }

  void useDouble() {
    double_ = std::make_unique<ScriptingRegistration>(app->testFolder() + L"\\scripting.log");
  }

  /// Calls that write a shortcut.
  static Log written(const std::wstring& link, const std::wstring& description,
                     const std::wstring& target, const std::wstring& workingFolder) {
    return {L"createshortcut " + link,
            L"put Arguments=",
            L"put Description=" + description,
            L"put HotKey=",
            L"put IconLocation=" + target,
            L"put Targetpath=" + target,
            L"put WindowStyle=3",
            L"put WorkingDirectory=" + workingFolder,
            L"Save"};
  }
  /// Calls that read its target.
  static Log read(const std::wstring& link) {
    return {L"createshortcut " + link, L"get Targetpath"};
  }
  static Log joined(Log first, const Log& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
  }

  std::unique_ptr<ScriptingRegistration> double_;
};

TEST_F(ScriptingObject, AToolShortcutIsWrittenPropertyByProperty) {
  useDouble();
  app->addTool(L"CW3.EXE");
  app->startToMain();
  const std::wstring file = link(L"CanopyWeigh.lnk");
  const std::wstring target = app->folder() + L"\\CW3.EXE";
  const Log start = joined(written(file, file, target, app->folder()), read(file));
  EXPECT_TRUE(eventually([&] { return double_->log().size(); }, Ge(start.size())));
  EXPECT_EQ(double_->log(), start);
  EXPECT_TRUE(eventually([&] { return list().texts(); }, Log{L"CanopyWeigh"}));
  // What the double answers is what is started.
  app->doubleClickRow(Tab::tools, 0);
  EXPECT_EQ(app->waitForToolStart().commandLine, target);
}

TEST_F(ScriptingObject, TheNextStartReadsTheShortcutBeforeItWritesIt) {
  useDouble();
  app->addTool(L"CW3.EXE");
  app->startToMain();
  ASSERT_TRUE(eventually([&] { return double_->log().size(); }, 11U));
  ASSERT_EQ(app->close(), 0U);
  double_->clearLog();
  app->startToMain();
  const std::wstring file = link(L"CanopyWeigh.lnk");
  const Log writing = written(file, file, app->folder() + L"\\CW3.EXE", app->folder());
  const Log start = joined(joined(read(file), writing), read(file));
  EXPECT_TRUE(eventually([&] { return double_->log().size(); }, Ge(start.size())));
  EXPECT_EQ(double_->log(), start);
}

TEST_F(ScriptingObject, CreateWritesThroughItToo) {
  useDouble();
  app->startToMain();
  const std::wstring program = addProgram(L"My Calc.exe");
  app->command(ids::mnuCreate);
  app->waitForFileDialog().open(program);
  const std::wstring file = link(L"Shortcut to My Calc.exe.lnk");
  const Log calls =
      joined(written(file, L"My Calc.exe", program, app->folder() + L"\\"), read(file));
  EXPECT_TRUE(eventually([&] { return double_->log().size(); }, Ge(calls.size())));
  EXPECT_EQ(double_->log(), calls);
  EXPECT_TRUE(eventually([&] { return list().texts(); }, Log{L"Shortcut to My Calc"}));
}

TEST_F(ScriptingObject, WhereItRefusesAPropertyTheShortcutIsWrittenAllTheSame) {
  useDouble();
  ScriptingRegistration::refuse(L"WindowStyle");
  app->addTool(L"CW3.EXE");
  app->startToMain();
  ASSERT_TRUE(eventually([&] { return list().count(); }, 1));
  const Log log = double_->log();
  ASSERT_GE(log.size(), 7U);
  EXPECT_EQ(log[6], L"refused WindowStyle");
  EXPECT_THAT(log, ::testing::Not(::testing::Contains(L"Save")));
  const harness::LinkFile file = harness::readLink(link(L"CanopyWeigh.lnk"));
  EXPECT_EQ(file.target, app->folder() + L"\\CW3.EXE");
  EXPECT_EQ(file.description, link(L"CanopyWeigh.lnk"));
  EXPECT_EQ(file.workingFolder, app->folder());
  EXPECT_EQ(file.showCommand, 3U);
}

TEST_F(ScriptingObject, IsPutBackAfterATest) {
  CLSID real{};
  const HRESULT before = CLSIDFromProgID(L"WScript.Shell", &real);
  useDouble();
  CLSID doubled{};
  ASSERT_EQ(CLSIDFromProgID(L"WScript.Shell", &doubled), S_OK);
  EXPECT_NE(doubled, real);
  double_.reset();
  CLSID after{};
  EXPECT_EQ(CLSIDFromProgID(L"WScript.Shell", &after), before);
  EXPECT_EQ(after, real);
}

}  // namespace
}  // namespace desktop_tests
