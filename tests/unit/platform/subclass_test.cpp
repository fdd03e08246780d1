#include "platform/subclass.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "flatlook/flat_test.h"
#include "platform/run_time_error.h"

namespace platform::subclass {
namespace {

using memory::screen;
using Events = std::vector<std::string>;

constexpr unsigned first = 100;
constexpr unsigned second = 200;

/// Records its calls in a journal that it shares with others.
class Listener : public ISubclass {
 public:
  Listener(std::string name, Events& events, int response = response::before)
      : name_(std::move(name)), events_(events), response_(response) {}

  [[nodiscard]] int MsgResponse() const override {
    asked = currentMessage();
    return response_;
  }
  void setMsgResponse(int response) override { response_ = response; }
  std::int32_t WindowProc(WindowHandle window, unsigned message, std::uintptr_t low,
                          std::intptr_t high) override {
    events_.push_back(name_ + " " + std::to_string(message));
    seen = currentMessage();
    parameters = {low, high};
    lastWindow = window;
    if (onMessage) {
      // A copy: the handler may destroy this object.
      const auto handler = onMessage;
      handler();
    }
    return 77;
  }
  void windowGone(WindowHandle /*window*/) override {
    events_.push_back(name_ + " gone");
    if (onGone) {
      onGone();
    }
  }

  std::function<void()> onMessage;
  std::function<void()> onGone;
  mutable unsigned asked = 0;
  unsigned seen = 0;
  WindowHandle lastWindow = WindowHandle::none;
  std::pair<std::uintptr_t, std::intptr_t> parameters;

 private:
  std::string name_;
  Events& events_;
  int response_;
};

class SubclassTest : public flatlook::test::FlatTest {
 protected:
  SubclassTest() {
    window = addControl(L"Edit", {0, 0, 10, 10});
    screen().at(window).procedure = [this](unsigned message, std::uintptr_t, std::intptr_t) {
      events.push_back("own " + std::to_string(message));
      if (own) {
        own();
      }
      return 42;
    };
  }
  ~SubclassTest() override {
    EXPECT_EQ(attachedMessages(), 0U);
    EXPECT_EQ(screen().watched(), 0U);
    EXPECT_EQ(currentMessage(), 0U);
  }
  Events take() { return std::exchange(events, {}); }

  WindowHandle window = WindowHandle::none;
  std::function<void()> own;
  Events events;
};

TEST_F(SubclassTest, TheHandlerComesBeforeOrAfterTheWindowsOwnHandling) {
  Listener before("before", events);
  Listener after("after", events, response::after);
  attachMessage(after, window, first);
  attachMessage(before, window, first);
  EXPECT_EQ(screen().send(window, first, 5, -6), 42) << "The result is the window's own";
  EXPECT_EQ(take(), (Events{"before 100", "own 100", "after 100"}));
  EXPECT_EQ(after.parameters, (std::pair<std::uintptr_t, std::intptr_t>{5, -6}));
  EXPECT_EQ(after.lastWindow, window);
  detachMessage(after, window, first);
  detachMessage(before, window, first);
}

TEST_F(SubclassTest, OtherMessagesAndOtherWindowsAreLeftAlone) {
  const WindowHandle other = addControl(L"Edit", {0, 0, 10, 10});
  Listener listener("it", events);
  attachMessage(listener, window, first);
  screen().send(window, second);
  screen().send(other, first);
  EXPECT_EQ(take(), Events{"own 200"});
  EXPECT_EQ(screen().watched(), 1U);
  detachMessage(listener, window, first);
}

TEST_F(SubclassTest, AnObjectGetsAMessageOnceHoweverOftenItAsks) {
  Listener listener("it", events);
  attachMessage(listener, window, first);
  attachMessage(listener, window, first);
  screen().send(window, first);
  EXPECT_EQ(take(), (Events{"it 100", "own 100"}));
  detachMessage(listener, window, first);
  screen().send(window, first);
  EXPECT_EQ(take(), Events{"own 100"});
}

TEST_F(SubclassTest, TheWindowIsWatchedUntilTheLastMessageIsDetachedInAnyOrder) {
  Listener one("one", events);
  Listener two("two", events);
  attachMessage(one, window, first);
  attachMessage(two, window, first);
  attachMessage(one, window, second);
  detachMessage(one, window, first);
  EXPECT_EQ(screen().watched(), 1U);
  screen().send(window, first);
  EXPECT_EQ(take(), (Events{"two 100", "own 100"}));
  detachMessage(two, window, first);
  EXPECT_EQ(screen().watched(), 1U);
  detachMessage(one, window, second);
  EXPECT_EQ(screen().watched(), 0U);
  detachMessage(one, window, second);
}

TEST_F(SubclassTest, TheCurrentMessageIsKnownWhileItIsBrought) {
  Listener listener("it", events, response::after);
  attachMessage(listener, window, first);
  attachMessage(listener, window, second);
  listener.onMessage = [&] {
    if (currentMessage() == first) {
      screen().send(window, second);
      EXPECT_EQ(listener.asked, second);
      EXPECT_EQ(currentMessage(), first) << "A nested message has ended";
    }
  };
  screen().send(window, first);
  EXPECT_EQ(take(), (Events{"own 100", "it 100", "own 200", "it 200"}));
  detachMessage(listener, window, first);
  detachMessage(listener, window, second);
}

TEST_F(SubclassTest, AnObjectThatDetachesItselfWhileItIsCalledIsNotCalledAgain) {
  Listener listener("it", events);
  attachMessage(listener, window, first);
  listener.onMessage = [&] { detachMessage(listener, window, first); };
  screen().send(window, first);
  screen().send(window, first);
  EXPECT_EQ(take(), (Events{"it 100", "own 100", "own 100"}));
}

TEST_F(SubclassTest, AnObjectThatAnEarlierOneDestroysIsNotCalled) {
  Listener killer("killer", events);
  auto before = std::make_unique<Listener>("before", events);
  auto after = std::make_unique<Listener>("after", events, response::after);
  attachMessage(killer, window, first);
  attachMessage(*before, window, first);
  attachMessage(*after, window, first);
  killer.onMessage = [&] {
    for (auto* const victim : {&before, &after}) {
      detachMessage(**victim, window, first);
      victim->reset();
    }
  };
  screen().send(window, first);
  EXPECT_EQ(take(), (Events{"killer 100", "own 100"}));
  detachMessage(killer, window, first);
}

TEST_F(SubclassTest, AnObjectThatTheWindowsOwnHandlingDestroysIsNotCalled) {
  auto after = std::make_unique<Listener>("after", events, response::after);
  attachMessage(*after, window, first);
  own = [&] {
    detachMessage(*after, window, first);
    after.reset();
  };
  screen().send(window, first);
  EXPECT_EQ(take(), Events{"own 100"});
}

TEST_F(SubclassTest, AnObjectAttachedDuringAMessageGetsTheNextOne) {
  Listener one("one", events);
  Listener late("late", events);
  attachMessage(one, window, first);
  one.onMessage = [&] { attachMessage(late, window, first); };
  screen().send(window, first);
  EXPECT_EQ(take(), (Events{"one 100", "own 100"}));
  screen().send(window, first);
  EXPECT_EQ(take(), (Events{"one 100", "late 100", "own 100"}));
  detachMessage(one, window, first);
  detachMessage(late, window, first);
}

TEST_F(SubclassTest, AWindowThatGoesDetachesEverythingAndTellsEachObjectOnce) {
  Listener one("one", events);
  Listener two("two", events);
  attachMessage(one, window, first);
  attachMessage(two, window, first);
  attachMessage(one, window, second);
  screen().destroy(window);
  EXPECT_EQ(take(), (Events{"one gone", "two gone"}));
  EXPECT_EQ(attachedMessages(), 0U);
  detachMessage(one, window, first);
}

TEST_F(SubclassTest, AWindowThatGoesIsNoLongerWatchedWhenTheLastObjectHearsOfIt) {
  Listener one("one", events);
  Listener two("two", events);
  attachMessage(one, window, first);
  attachMessage(two, window, first);
  std::vector<bool> watched;
  one.onGone = two.onGone = [&] { watched.push_back(screen().at(window).watched); };
  screen().destroy(window);
  EXPECT_EQ(watched, (std::vector<bool>{true, false}));
  EXPECT_EQ(take(), (Events{"one gone", "two gone"}));
}

TEST_F(SubclassTest, AnObjectThatAnotherDestroysWhenTheWindowGoesIsNotTold) {
  Listener one("one", events);
  auto two = std::make_unique<Listener>("two", events);
  attachMessage(one, window, first);
  attachMessage(*two, window, first);
  one.onGone = [&] {
    detachMessage(*two, window, first);
    two.reset();
  };
  screen().destroy(window);
  EXPECT_EQ(take(), Events{"one gone"});
}

TEST_F(SubclassTest, AWindowDestroyedByItsOwnHandlingIsNotHeardOfAgain) {
  Listener after("after", events, response::after);
  attachMessage(after, window, first);
  // The procedure is destroyed with the window, so it runs as a copy.
  const WindowHandle going = window;
  Events& journal = events;
  screen().at(window).procedure = nullptr;
  const auto result =
      deliver(window, first, 0, 0, [going, &journal](unsigned, std::uintptr_t, std::intptr_t) {
        journal.emplace_back("own");
        screen().destroy(going);
        return std::intptr_t{9};
      });
  EXPECT_EQ(result, 9);
  EXPECT_EQ(take(), (Events{"own", "after gone"}));
}

TEST_F(SubclassTest, AttachingToAWindowThatIsGoneDoesNothing) {
  Listener listener("it", events);
  screen().destroy(window);
  attachMessage(listener, window, first);
  attachMessage(listener, WindowHandle::none, first);
  EXPECT_EQ(attachedMessages(), 0U);
}

TEST_F(SubclassTest, AFailingHandlerIsReportedAndTheMessageGoesOn) {
  Listener listener("it", events);
  attachMessage(listener, window, first);
  listener.onMessage = [] { throw RunTimeError(error::overflow); };
  EXPECT_EQ(screen().send(window, first), 42);
  EXPECT_EQ(memory::desktop().errorReports, std::vector<int>{6});
  EXPECT_EQ(take(), (Events{"it 100", "own 100"}));
  detachMessage(listener, window, first);
}

}  // namespace
}  // namespace platform::subclass
