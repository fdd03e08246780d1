// The queue of those who want to make the same file.
#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/draft_steps.h"
#include "platform/win32/handles.h"

namespace {

using platform::files::steps::Turn;
using platform::win32::KernelHandle;

constexpr std::uint64_t longMs = 10'000;
constexpr std::uint64_t shortMs = 50;
/// The clock goes in steps.
constexpr std::uint64_t leastMs = shortMs - 20;

/// Does something as another copy of the program would do it; its end waits for that.
class Elsewhere {
 public:
  explicit Elsewhere(std::function<void()> work) : work_(std::move(work)) {
    thread_.reset(CreateThread(nullptr, 0, run, &work_, 0, nullptr));
  }
  Elsewhere(const Elsewhere&) = delete;
  Elsewhere& operator=(const Elsewhere&) = delete;
  ~Elsewhere() {
    EXPECT_EQ(WaitForSingleObject(thread_.get(), INFINITE), static_cast<DWORD>(WAIT_OBJECT_0));
  }

 private:
  static DWORD WINAPI run(void* work) {
    (*static_cast<std::function<void()>*>(work))();
    return 0;
  }

  std::function<void()> work_;
  KernelHandle thread_;
};

/// Milliseconds for which somebody else waits who wants the file of that path.
ULONGLONG waitOf(const std::wstring& path) {
  ULONGLONG waited = 0;
  {
    const Elsewhere copy([&] {
      const ULONGLONG begin = GetTickCount64();
      Turn turn(path);
      EXPECT_FALSE(turn.comes(shortMs));
      waited = GetTickCount64() - begin;
    });
  }
  return waited;
}

TEST(Turns, OfSeveralAreNeverAtTheSameTime) {
  constexpr int many = 5;
  constexpr int often = 50;
  std::atomic<int> inside = 0;
  std::atomic<int> turns = 0;
  {
    std::vector<std::unique_ptr<Elsewhere>> copies;
    copies.reserve(many);
    for (int n = 0; n < many; ++n) {
      copies.push_back(std::make_unique<Elsewhere>([&] {
        for (int i = 0; i < often; ++i) {
          Turn turn(L"C:\\App\\list.tmp");
          EXPECT_TRUE(turn.comes(longMs));
          EXPECT_EQ(++inside, 1);
          ++turns;
          --inside;
        }
      }));
    }
  }
  EXPECT_EQ(turns, many * often);
}

TEST(Turns, AreOfOneFileHoweverItIsSpelled) {
  Turn first(L"C:\\App\\list.tmp");
  EXPECT_TRUE(first.comes(longMs));
  EXPECT_GE(waitOf(L"C:\\App\\list.tmp"), leastMs);
  EXPECT_GE(waitOf(L"c:\\APP\\List.tmp"), leastMs);
}

TEST(Turns, OfOtherFilesAreOthers) {
  Turn first(L"C:\\App\\list.tmp");
  EXPECT_TRUE(first.comes(longMs));
  const ULONGLONG begin = GetTickCount64();
  {
    const Elsewhere copy([] { EXPECT_TRUE(Turn(L"C:\\Other\\list.tmp").comes(longMs)); });
  }
  EXPECT_LT(GetTickCount64() - begin, longMs / 2);
}

TEST(Turns, AreOnlyACourtesyAndGoOnAfterTheirTime) {
  Turn first(L"C:\\App\\list.tmp");
  EXPECT_TRUE(first.comes(longMs));
  EXPECT_LT(waitOf(L"C:\\App\\list.tmp"), longMs / 2);
}

TEST(Turns, OfACopyThatEndedInTheMiddleGoToTheNext) {
  std::unique_ptr<Turn> left;
  {
    const Elsewhere copy([&left] {
      left = std::make_unique<Turn>(L"C:\\App\\list.tmp");
      EXPECT_TRUE(left->comes(longMs));
    });
  }
  const ULONGLONG begin = GetTickCount64();
  {
    const Elsewhere copy([] { EXPECT_TRUE(Turn(L"C:\\App\\list.tmp").comes(longMs)); });
  }
  EXPECT_LT(GetTickCount64() - begin, longMs / 2);
}

}  // namespace
