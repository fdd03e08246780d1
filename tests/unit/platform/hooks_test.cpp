// Hooks on windows of the in-memory screen, alone and together with objects.
#include <gtest/gtest.h>

#include <bit>
#include <functional>
#include <string>
#include <utility>

#include "flatlook/flat_test.h"
#include "platform/subclass.h"

namespace platform::subclass {
namespace {

using memory::screen;

constexpr unsigned number = 100;

/// What one hook does with `number`; it notes its name first.
struct Noted {
  std::string name;
  std::string* log = nullptr;
  std::function<void()> also;
  bool stops = false;
};

std::intptr_t run(WindowHandle window, unsigned code, std::uintptr_t first, std::intptr_t second,
                  std::uintptr_t data) {
  const Noted& noted = *std::bit_cast<const Noted*>(data);
  *noted.log += noted.name;
  if (noted.also) {
    noted.also();
  }
  return noted.stops ? 7 : passOn(window, code, first, second + 1);
}

class Object : public ISubclass {
 public:
  Object(std::string name, std::string& log, int order)
      : name_(std::move(name)), log_(log), order_(order) {}
  [[nodiscard]] int MsgResponse() const override { return order_; }
  void setMsgResponse(int response) override { order_ = response; }
  std::int32_t WindowProc(WindowHandle /*window*/, unsigned /*message*/, std::uintptr_t /*first*/,
                          std::intptr_t /*second*/) override {
    log_ += name_;
    return 0;
  }
  void windowGone(WindowHandle /*window*/) override { log_ += name_ + "gone "; }

 private:
  std::string name_;
  std::string& log_;
  int order_;
};

class HooksTest : public flatlook::test::FlatTest {
 protected:
  HooksTest() {
    window = addControl(L"Edit", {0, 0, 10, 10});
    screen().at(window).procedure = [this](unsigned, std::uintptr_t, std::intptr_t second) {
      log += "window";
      last = second;
      return 42;
    };
  }
  ~HooksTest() override { screen().destroy(window); }
  [[nodiscard]] bool add(const Noted& noted, std::uintptr_t id) const {
    return addHook(window, run, id, std::bit_cast<std::uintptr_t>(&noted));
  }
  std::intptr_t send() const { return screen().send(window, number, 0, 0); }

  WindowHandle window = WindowHandle::none;
  std::string log;
  std::intptr_t last = 0;
  Noted one{.name = "1 ", .log = &log, .also = {}};
  Noted two{.name = "2 ", .log = &log, .also = {}};
  Noted three{.name = "3 ", .log = &log, .also = {}};
};

TEST_F(HooksTest, TheNewestComesFirstAndMayChangeWhatIsPassedOn) {
  ASSERT_TRUE(add(one, 1) && add(two, 2));
  EXPECT_EQ(send(), 42);
  EXPECT_EQ(log, "2 1 window");
  EXPECT_EQ(last, 2) << "each of them added one";
}

TEST_F(HooksTest, OneThatDoesNotPassOnHasTheLastWord) {
  two.stops = true;
  ASSERT_TRUE(add(one, 1) && add(two, 2));
  EXPECT_EQ(send(), 7);
  EXPECT_EQ(log, "2 ");
}

TEST_F(HooksTest, TheyGoInAnyOrderAndWithTheLastTheWatch) {
  ASSERT_TRUE(add(one, 1) && add(two, 2) && add(three, 3));
  removeHook(window, run, 2);
  send();
  EXPECT_EQ(log, "3 1 window");
  removeHook(window, run, 1);
  EXPECT_EQ(screen().watched(), 1U);
  removeHook(window, run, 3);
  removeHook(window, run, 3);
  EXPECT_EQ(screen().watched(), 0U);
  log.clear();
  EXPECT_EQ(send(), 42);
  EXPECT_EQ(log, "window");
}

TEST_F(HooksTest, OneThatIsThereOnlyGetsOtherData) {
  ASSERT_TRUE(add(one, 1) && add(two, 2) && add(three, 1));
  send();
  EXPECT_EQ(log, "2 3 window");
}

TEST_F(HooksTest, TheyCanGoWhileAMessageIsOnItsWay) {
  two.also = [this] {
    removeHook(window, run, 2);
    removeHook(window, run, 1);
  };
  ASSERT_TRUE(add(one, 1) && add(two, 2) && add(three, 3));
  send();
  send();
  EXPECT_EQ(log, "3 2 window3 window");
}

TEST_F(HooksTest, OneThatComesWhileAMessageIsOnItsWayWaitsForTheNext) {
  bool added = false;
  one.also = [&] { added = added || add(two, 2); };
  ASSERT_TRUE(add(one, 1));
  send();
  send();
  EXPECT_EQ(log, "1 window2 1 window");
}

TEST_F(HooksTest, MessagesCanBeNested) {
  bool nested = false;
  two.also = [&] {
    if (!std::exchange(nested, true)) {
      send();
    }
  };
  ASSERT_TRUE(add(one, 1) && add(two, 2));
  EXPECT_EQ(send(), 42);
  EXPECT_EQ(log, "2 2 1 window1 window");
}

TEST_F(HooksTest, TheWindowCanGoInTheMiddleOfItsMessage) {
  two.also = [this] { screen().destroy(window); };
  ASSERT_TRUE(add(one, 1) && add(two, 2));
  EXPECT_EQ(send(), 0);
  EXPECT_EQ(log, "2 ") << "nobody else hears of it";
  EXPECT_FALSE(add(three, 3));
}

TEST_F(HooksTest, ObjectsComeBeforeAndAfterAllHooks) {
  Object before("before ", log, response::before);
  Object after("after ", log, response::after);
  attachMessage(before, window, number);
  attachMessage(after, window, number);
  ASSERT_TRUE(add(one, 1) && add(two, 2));
  EXPECT_EQ(send(), 42);
  EXPECT_EQ(log, "before 2 1 windowafter ");
  log.clear();
  EXPECT_EQ(attachedMessages(), 2U) << "hooks are no attached messages";
  screen().destroy(window);
  EXPECT_EQ(log, "before gone after gone ");
  EXPECT_EQ(attachedMessages(), 0U);
}

TEST_F(HooksTest, PassingOnOutsideAMessageReachesNobody) {
  ASSERT_TRUE(add(one, 1));
  EXPECT_EQ(passOn(window, number, 0, 0), 0);
  EXPECT_EQ(passOn(WindowHandle::none, number, 0, 0), 0);
  EXPECT_EQ(log, "");
  removeHook(window, run, 1);
}

}  // namespace
}  // namespace platform::subclass
