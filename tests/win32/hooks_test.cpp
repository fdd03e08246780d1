// Hooks on windows of the system.
#include "platform/subclass.h"

#include <gtest/gtest.h>

#include <bit>
#include <functional>
#include <string>

#include "platform/win32/native_handle.h"
#include "test_window.h"

namespace {

namespace subclass = platform::subclass;
using platform::native::WindowHandle;
using platform::win32::handleFrom;
using platform::win32::windowFrom;

constexpr UINT message = WM_APP + 1;

/// What one hook does with `message`; it notes its name first.
struct Hook {
  std::string name;
  std::string* log = nullptr;
  std::function<void(HWND)> also;
  bool stops = false;
};

std::intptr_t run(WindowHandle window, unsigned code, std::uintptr_t first, std::intptr_t second,
                  std::uintptr_t data) {
  const Hook& hook = *std::bit_cast<const Hook*>(data);
  if (code != message) {
    return subclass::passOn(window, code, first, second);
  }
  *hook.log += hook.name;
  if (hook.also) {
    hook.also(windowFrom(window));
  }
  return hook.stops ? 7 : subclass::passOn(window, code, first, second);
}

LRESULT CALLBACK windowItself(HWND window, UINT code, WPARAM first, LPARAM second) {
  if (code == message) {
    auto* const log = std::bit_cast<std::string*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    *log += "window";
    return 42;
  }
  return DefWindowProcW(window, code, first, second);
}

class Hooks : public testing::Test {
 protected:
  Hooks() {
    window = makeTestWindow(L"HooksTest", windowItself, 10);
    SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(&log));
  }
  ~Hooks() override { DestroyWindow(window); }

  [[nodiscard]] bool add(const Hook& hook, UINT_PTR id) const {
    return subclass::addHook(handleFrom(window), run, id, reinterpret_cast<std::uintptr_t>(&hook));
  }
  LRESULT send() const { return SendMessageW(window, message, 0, 0); }

  HWND window = nullptr;
  std::string log;
  Hook one{.name = "1 ", .log = &log, .also = {}};
  Hook two{.name = "2 ", .log = &log, .also = {}};
  Hook three{.name = "3 ", .log = &log, .also = {}};
};

TEST_F(Hooks, TheNewestHookComesFirstAndTheWindowLast) {
  ASSERT_TRUE(add(one, 1) && add(two, 2));
  EXPECT_EQ(send(), 42);
  EXPECT_EQ(log, "2 1 window");
}

TEST_F(Hooks, AHookThatDoesNotPassOnHasTheLastWord) {
  two.stops = true;
  ASSERT_TRUE(add(one, 1) && add(two, 2));
  EXPECT_EQ(send(), 7);
  EXPECT_EQ(log, "2 ");
}

TEST_F(Hooks, HooksGoInAnyOrder) {
  ASSERT_TRUE(add(one, 1) && add(two, 2) && add(three, 3));
  subclass::removeHook(handleFrom(window), run, 2);
  send();
  EXPECT_EQ(log, "3 1 window");
  subclass::removeHook(handleFrom(window), run, 1);
  subclass::removeHook(handleFrom(window), run, 3);
  subclass::removeHook(handleFrom(window), run, 3);
  log.clear();
  EXPECT_EQ(send(), 42);
  EXPECT_EQ(log, "window");
}

TEST_F(Hooks, AHookThatIsThereOnlyGetsOtherData) {
  ASSERT_TRUE(add(one, 1) && add(two, 2) && add(three, 1));
  send();
  EXPECT_EQ(log, "2 3 window");
}

TEST_F(Hooks, HooksCanGoWhileAMessageIsOnItsWay) {
  two.also = [](HWND self) {
    subclass::removeHook(handleFrom(self), run, 2);
    subclass::removeHook(handleFrom(self), run, 1);
  };
  ASSERT_TRUE(add(one, 1) && add(two, 2) && add(three, 3));
  send();
  send();
  EXPECT_EQ(log, "3 2 window3 window");
}

TEST_F(Hooks, AHookThatComesWhileAMessageIsOnItsWayWaitsForTheNext) {
  bool added = false;
  one.also = [&](HWND /*self*/) { added = added || add(two, 2); };
  ASSERT_TRUE(add(one, 1));
  send();
  send();
  EXPECT_EQ(log, "1 window2 1 window");
}

TEST_F(Hooks, MessagesCanBeNested) {
  bool nested = false;
  two.also = [&](HWND self) {
    if (!nested) {
      nested = true;
      SendMessageW(self, message, 0, 0);
    }
  };
  ASSERT_TRUE(add(one, 1) && add(two, 2));
  EXPECT_EQ(send(), 42);
  EXPECT_EQ(log, "2 2 1 window1 window");
}

TEST_F(Hooks, TheWindowCanGoInTheMiddleOfItsMessage) {
  two.also = [](HWND self) { DestroyWindow(self); };
  ASSERT_TRUE(add(one, 1) && add(two, 2));
  send();
  EXPECT_EQ(log, "2 ") << "Nobody else hears of it: the window is gone";
  EXPECT_EQ(IsWindow(window), FALSE);
  EXPECT_FALSE(add(three, 3));
}

DWORD WINAPI makeWindow(void* place) {
  HWND const made = CreateWindowExW(0, L"HooksTest", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr,
                                    GetModuleHandleW(nullptr), nullptr);
  *static_cast<HWND*>(place) = made;
  MSG pending{};
  while (GetMessageW(&pending, nullptr, 0, 0) > 0 && pending.message != WM_QUIT) {
    DispatchMessageW(&pending);
  }
  DestroyWindow(made);
  return 0;
}

TEST_F(Hooks, AWindowOfAnotherThreadIsRefused) {
  HWND volatile other = nullptr;
  DWORD id = 0;
  HANDLE const thread = CreateThread(nullptr, 0, makeWindow, const_cast<HWND*>(&other), 0, &id);
  ASSERT_NE(thread, nullptr);
  while (other == nullptr && WaitForSingleObject(thread, 1) == WAIT_TIMEOUT) {
  }
  EXPECT_FALSE(
      subclass::addHook(handleFrom(other), run, 1, reinterpret_cast<std::uintptr_t>(&one)));
  PostThreadMessageW(id, WM_QUIT, 0, 0);
  EXPECT_EQ(WaitForSingleObject(thread, 10000), WAIT_OBJECT_0);
  CloseHandle(thread);
}

}  // namespace
