#include "platform/processes.h"

#include <gtest/gtest.h>

#include <vector>

#include "platform/desktop_test.h"
#include "platform/run_time_error.h"
#include "unit/support/error_number.h"

namespace {

using memory::desktop;
using platform::processes::start;

const std::wstring tool = L"C:\\My App\\plv3.exe";

class Processes : public memory::DesktopTest {
 protected:
  Processes() { desktop().putProgram(tool); }
};

TEST_F(Processes, AProgramOfTheUsersOwnRightsIsStartedDirectly) {
  start(tool, tool + L" C:\\a?b.fp3");
  EXPECT_EQ(desktop().starts, (std::vector<memory::Start>{{tool, tool + L" C:\\a?b.fp3"}}));
  EXPECT_TRUE(desktop().elevatedStarts.empty());
}

TEST_F(Processes, AProgramThatNeedsAnAdministratorIsStartedByTheShellWithTheSameArguments) {
  desktop().elevated[tool] = true;
  start(tool, tool + L" bpi C:\\a?b.bi3");
  EXPECT_TRUE(desktop().starts.empty());
  EXPECT_EQ(desktop().elevatedStarts, (std::vector<memory::Start>{{tool, L"bpi C:\\a?b.bi3"}}));
}

TEST_F(Processes, WithoutArgumentsTheShellGetsNone) {
  desktop().elevated[tool] = true;
  start(tool, tool);
  start(tool, tool + L"  ");
  EXPECT_EQ(desktop().elevatedStarts, (std::vector<memory::Start>{{tool, L""}, {tool, L""}}));
}

TEST_F(Processes, ACommandLineThatDoesNotBeginWithTheProgramIsAllArguments) {
  desktop().elevated[tool] = true;
  start(tool, L"plv3 x");
  EXPECT_EQ(desktop().elevatedStarts, (std::vector<memory::Start>{{tool, L"plv3 x"}}));
}

TEST_F(Processes, AUserWhoRefusesTheRightsGetsTheErrorOfAProgramThatCannotBeStarted) {
  desktop().elevated[tool] = false;
  try {
    start(tool, tool);
    FAIL() << "it was started";
  } catch (const platform::RunTimeError& failure) {
    EXPECT_EQ(failure.number(), 5);
    EXPECT_EQ(failure.path(), tool);
  }
  EXPECT_TRUE(desktop().elevatedStarts.empty());
  EXPECT_TRUE(desktop().journalHas(L"start elevated " + tool));
}

TEST_F(Processes, TheShellIsNotAskedForAProgramThatIsMissing) {
  EXPECT_EQ(errorNumberOf([] { start(L"C:\\gone.exe", L"C:\\gone.exe"); }), 53);
  EXPECT_FALSE(desktop().journalHas(L"start elevated C:\\gone.exe"));
}

}  // namespace
