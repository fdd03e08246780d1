#include "platform/controls/simple_controls.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

#include "platform/desktop_test.h"
#include "platform/run_time_error.h"
#include "unit/support/recording_peer.h"

namespace controls {
namespace {

using memory::desktop;

class SmallControlsTest : public ::memory::DesktopTest {};

TEST_F(SmallControlsTest, EveryPropertyTellsThePeerOnce) {
  Label label(L"lblTest", 7);
  RecordingPeer peer(label);
  const auto twice = [](const auto& set) {
    set();
    set();
  };
  twice([&] { label.setCaption(L"caption"); });
  EXPECT_EQ(peer.take(), std::vector{Change::caption});
  twice([&] { label.setEnabled(false); });
  EXPECT_EQ(peer.take(), std::vector{Change::enabled});
  twice([&] { label.setVisible(false); });
  EXPECT_EQ(peer.take(), std::vector{Change::visible});
  twice([&] { label.setToolTip(L"tip"); });
  EXPECT_EQ(peer.take(), std::vector{Change::toolTip});
  twice([&] { label.setBounds({1, 2, 3, 4}); });
  EXPECT_EQ(peer.take(), std::vector{Change::bounds});
  twice([&] { label.setFont({12, true}); });
  EXPECT_EQ(peer.take(), std::vector{Change::font});
  twice([&] { label.setTextColour(0xFF0000); });
  EXPECT_EQ(peer.take(), std::vector{Change::colours});
  twice([&] { label.setPathEllipsis(true); });
  EXPECT_EQ(peer.take(), std::vector{Change::appearance});
  label.setTag(L"tag");
  EXPECT_TRUE(peer.take().empty());
  label.setFocus();
  EXPECT_EQ(peer.take(), std::vector{Change::focus});

  EXPECT_EQ(label.caption(), L"caption");
  EXPECT_FALSE(label.enabled());
  EXPECT_FALSE(label.visible());
  EXPECT_EQ(label.tag(), L"tag");
  EXPECT_EQ(label.name(), L"lblTest");
  EXPECT_EQ(label.id(), 7);
}

TEST_F(SmallControlsTest, TypedTextIsNotSentBack) {
  TextBox box(L"txtTest", 1);
  RecordingPeer peer(box);
  box.acceptTyped(L"typed");
  EXPECT_EQ(box.text(), L"typed");
  EXPECT_TRUE(peer.take().empty());
  box.setText(L"typed");
  EXPECT_TRUE(peer.take().empty());
  box.setText(L"set");
  EXPECT_EQ(peer.take(), std::vector{Change::value});
}

TEST_F(SmallControlsTest, ADisabledButtonIsNotClicked) {
  CommandButton button(L"cmdTest", 1);
  int clicks = 0;
  button.fireClick();
  button.onClick = [&clicks] { ++clicks; };
  button.fireClick();
  button.setEnabled(false);
  button.fireClick();
  EXPECT_EQ(clicks, 1);
}

TEST_F(SmallControlsTest, AnErrorOfAClickIsReported) {
  CommandButton button(L"cmdTest", 1);
  button.onClick = [] { throw platform::RunTimeError(13); };
  button.fireClick();
  EXPECT_EQ(desktop().errorReports, std::vector<int>{13});
}

TEST_F(SmallControlsTest, ACoolButtonTellsWhenThePointerComesAndGoes) {
  CoolButton button(L"cmdBrowse", 1);
  std::vector<int> events;
  button.firePointerEnter();
  button.onPointerEnter = [&events] { events.push_back(1); };
  button.onPointerLeave = [&events] { events.push_back(2); };
  button.firePointerEnter();
  button.firePointerLeave();
  EXPECT_EQ(events, (std::vector<int>{1, 2}));

  RecordingPeer peer(button);
  button.setBackColor(1);
  button.setColorDarkShadow(2);
  button.setColorHighlight(3);
  button.setColorLightShadow(4);
  EXPECT_EQ(peer.take(), (std::vector<Change>(4, Change::colours)));
  EXPECT_EQ(button.backColor(), 1U);
  EXPECT_EQ(button.colorDarkShadow(), 2U);
  EXPECT_EQ(button.colorHighlight(), 3U);
  EXPECT_EQ(button.colorLightShadow(), 4U);
}

TEST_F(SmallControlsTest, ADisabledTimerDoesNotTick) {
  Timer timer(L"tmrTest", 1, 1000, false);
  int ticks = 0;
  timer.onTimer = [&ticks] { ++ticks; };
  timer.fireTimer();
  EXPECT_EQ(ticks, 0);
  timer.setEnabled(true);
  timer.fireTimer();
  EXPECT_EQ(ticks, 1);
}

TEST_F(SmallControlsTest, ATimerTellsItsPeerOfItsIntervalAndState) {
  Timer timer(L"tmrTest", 1, 1000, true);
  RecordingPeer peer(timer);
  timer.setInterval(1000);
  timer.setEnabled(true);
  EXPECT_TRUE(peer.take().empty());
  timer.setInterval(25);
  timer.setEnabled(false);
  EXPECT_EQ(peer.take(), (std::vector{Change::timer, Change::enabled}));
}

/// Counts the controls that were destroyed while it was attached to them.
class MourningPeer : public Peer {
 public:
  void changed(Change /*change*/) override {}
  void orphaned() override { ++losses; }
  int losses = 0;
};

TEST_F(SmallControlsTest, AControlThatGoesTellsItsPeer) {
  MourningPeer peer;
  auto image = std::make_unique<Image>(L"Image1", 1);
  image->attach(&peer);
  image.reset();
  EXPECT_EQ(peer.losses, 1);

  image = std::make_unique<Image>(L"Image1", 1);
  image->attach(&peer);
  image->attach(nullptr);
  image.reset();
  EXPECT_EQ(peer.losses, 1);
}

}  // namespace
}  // namespace controls
