// Which steps can be taken back.
#include "undo/history.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

#include "platform/desktop_test.h"
#include "platform/run_time_error.h"

namespace undo {
namespace {

using memory::desktop;

class UndoHistory : public memory::DesktopTest {
 protected:
  /// A step that has written a file with so many bytes.
  Step written(std::size_t bytes) {
    Step step{L"Write " + std::to_wstring(++number_), 0, std::nullopt, {}};
    const std::wstring path = L"C:\\App\\" + std::to_wstring(number_) + L".lnk";
    writeFile(path, &step.changes, [&] { desktop().putFile(path, std::string(bytes, 'x')); });
    return step;
  }
  std::wstring backNames() {
    std::wstring names;
    for (; history_.canGo(Way::back); history_.go(Way::back)) {
      names += history_.what(Way::back) + L";";
    }
    return names;
  }
  int number_ = 0;
  History history_{100};
};

TEST_F(UndoHistory, KeepsOnlyTheLastStepsWhenTheyAreLarge) {
  history_.add(written(40));
  history_.add(written(40));
  history_.add(written(20));
  EXPECT_EQ(backNames(), L"Write 3;Write 2;Write 1;");
  history_.add(written(60));
  history_.add(written(60));
  EXPECT_EQ(backNames(), L"Write 5;");
}

TEST_F(UndoHistory, KeepsTheLastStepHoweverLargeItIs) {
  history_.add(written(10));
  history_.add(written(1000));
  EXPECT_EQ(backNames(), L"Write 2;");
}

TEST_F(UndoHistory, ForgetsWhatChangedNothing) {
  history_.add(Step{L"Nothing", 0, std::nullopt, {}});
  EXPECT_FALSE(history_.canGo(Way::back));
  EXPECT_EQ(history_.what(Way::back), L"");
  EXPECT_FALSE(history_.go(Way::back).done);
}

TEST_F(UndoHistory, ForgetsWhatIsFinal) {
  Step step = written(1);
  step.changes.setFinal();
  history_.add(std::move(step));
  EXPECT_FALSE(history_.canGo(Way::back));
}

TEST_F(UndoHistory, RecordsAnOperationThatFailed) {
  try {
    Recording recording(&history_, L"Fail", 2);
    recording.changes()->add(RenamePart{L"C:\\App\\a", L"C:\\App\\b"});
    throw platform::RunTimeError(platform::error::permissionDenied);
  } catch (const platform::RunTimeError& failure) {
    EXPECT_EQ(failure.number(), platform::error::permissionDenied);
  }
  EXPECT_EQ(history_.what(Way::back), L"Fail");
  const Outcome outcome = history_.go(Way::back);
  EXPECT_FALSE(outcome.done);
  EXPECT_EQ(outcome.tab, 2);
  EXPECT_EQ(outcome.text, L"b is no longer there, nothing changed");
}

TEST_F(UndoHistory, IsNotNeeded) {
  Recording recording(nullptr, L"Nobody", 0);
  EXPECT_EQ(recording.changes(), nullptr);
  writeFile(L"C:\\App\\a.lnk", recording.changes(),
            [] { desktop().putFile(L"C:\\App\\a.lnk", ""); });
  EXPECT_TRUE(desktop().has(L"C:\\App\\a.lnk"));
}

TEST_F(UndoHistory, DoesNotOverwriteWhatAnotherProgramHasWritten) {
  history_.add(written(3));
  desktop().putFile(L"C:\\App\\1.lnk", "other");
  EXPECT_EQ(history_.go(Way::back).text, L"1.lnk was changed meanwhile, nothing changed");
  EXPECT_EQ(desktop().bytesOf(L"C:\\App\\1.lnk"), "other");
  desktop().putFile(L"C:\\App\\1.lnk", "xxx");
  EXPECT_TRUE(history_.go(Way::back).done);
  EXPECT_FALSE(desktop().has(L"C:\\App\\1.lnk"));
  EXPECT_TRUE(history_.go(Way::again).done);
  EXPECT_EQ(desktop().bytesOf(L"C:\\App\\1.lnk"), "xxx");
}

}  // namespace
}  // namespace undo
