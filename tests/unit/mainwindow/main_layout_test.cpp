#include "mainwindow/main_layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

#include "platform/desktop_test.h"
#include "unit/support/main_window_fixture.h"
#include "unit/support/places.h"

namespace {

using mainwindow::layOut;
using mainwindow::MainLayout;
using mainwindow::MeasuredParts;
using platform::Rect;
using platform::scaled;
using platform::Size;

/// The smallest client area that the window can have, at 96 dpi.
constexpr Size smallest{420, 300};
constexpr std::array dpis{96, 120, 144, 168, 192, 240, 288, 384};

/// Simulates a tab control: a row of tabs above, a thin frame around.
MeasuredParts partsAt(int dpi) {
  return {scaled(46, dpi), scaled(15, dpi), [dpi](const Rect& bounds) {
            const int frame = scaled(3, dpi);
            const int tabs = scaled(23, dpi);
            return Rect{bounds.left + frame, bounds.top + tabs,
                        std::max(0, bounds.width - 2 * frame),
                        std::max(0, bounds.height - tabs - frame)};
          }};
}

std::vector<Rect> allOf(const MainLayout& layout) {
  return {layout.toolbar, layout.tabs, layout.list, layout.listOnOpen, layout.browseButton};
}

/// Runs `check(client, dpi, layout)` for client areas from the smallest one up, at every dpi.
template <class Check>
void forSensibleSizes(const Check& check) {
  for (const int dpi : dpis) {
    for (int width = smallest.width; width <= 2600; width += 109) {
      for (int height = smallest.height; height <= 1500; height += 101) {
        const Size client{scaled(width, dpi), scaled(height, dpi)};
        SCOPED_TRACE(::testing::Message()
                     << client.width << " x " << client.height << " at " << dpi << " dpi");
        check(client, dpi, layOut(client, dpi, partsAt(dpi)));
        if (::testing::Test::HasFailure()) {
          return;
        }
      }
    }
  }
}

TEST(MainLayoutTest, EverythingStandsInsideTheClientArea) {
  forSensibleSizes([](Size client, int /*dpi*/, const MainLayout& layout) {
    for (const Rect& place : allOf(layout)) {
      EXPECT_PRED_FORMAT2(unit::inside, place, (Rect{0, 0, client.width, client.height}));
    }
  });
}

TEST(MainLayoutTest, EverythingHasRoom) {
  forSensibleSizes([](Size /*client*/, int dpi, const MainLayout& layout) {
    for (const Rect& place : allOf(layout)) {
      EXPECT_GT(place.width, scaled(40, dpi));
      EXPECT_GE(place.height, scaled(20, dpi));
    }
  });
}

TEST(MainLayoutTest, TheToolbarFillsTheTopAndTheTabsTheRest) {
  forSensibleSizes([](Size client, int dpi, const MainLayout& layout) {
    EXPECT_EQ(layout.toolbar, (Rect{0, 0, client.width, partsAt(dpi).toolbarHeight}));
    EXPECT_PRED_FORMAT2(unit::apart, layout.toolbar, layout.tabs);
    const int widestGap = scaled(8, dpi);
    EXPECT_LE(layout.tabs.top - layout.toolbar.bottom(), widestGap);
    EXPECT_LE(layout.tabs.left, widestGap);
    EXPECT_LE(client.width - layout.tabs.right(), widestGap);
    EXPECT_LE(layout.statusBar.top - layout.tabs.bottom(), widestGap);
    EXPECT_PRED_FORMAT2(unit::apart, layout.tabs, layout.statusBar);
    EXPECT_EQ(layout.statusBar.bottom(), client.height);
    EXPECT_EQ(layout.statusBar.left, 0);
    EXPECT_EQ(layout.statusBar.width, client.width);
  });
}

TEST(MainLayoutTest, TheListFillsItsTab) {
  forSensibleSizes([](Size /*client*/, int dpi, const MainLayout& layout) {
    const Rect area = partsAt(dpi).displayArea(layout.tabs);
    EXPECT_PRED_FORMAT2(unit::inside, layout.list, area);
    const int widestGap = scaled(6, dpi);
    EXPECT_LE(layout.list.left - area.left, widestGap);
    EXPECT_LE(layout.list.top - area.top, widestGap);
    EXPECT_LE(area.right() - layout.list.right(), widestGap);
    EXPECT_LE(area.bottom() - layout.list.bottom(), widestGap);
  });
}

TEST(MainLayoutTest, OnOpenTheListLeavesTheBottomRightToTheButton) {
  forSensibleSizes([](Size /*client*/, int dpi, const MainLayout& layout) {
    EXPECT_PRED_FORMAT2(unit::apart, layout.listOnOpen, layout.browseButton);
    EXPECT_EQ(layout.listOnOpen.left, layout.list.left);
    EXPECT_EQ(layout.listOnOpen.top, layout.list.top);
    EXPECT_EQ(layout.listOnOpen.width, layout.list.width);
    EXPECT_LE(layout.browseButton.top - layout.listOnOpen.bottom(), scaled(6, dpi));
    EXPECT_EQ(layout.browseButton.right(), layout.list.right());
    EXPECT_EQ(layout.browseButton.bottom(), layout.list.bottom());
  });
}

TEST(MainLayoutTest, TheFindBoxEndsWithTheListAboveIt) {
  forSensibleSizes([](Size /*client*/, int dpi, const MainLayout& layout) {
    EXPECT_EQ(layout.findBox.right(), layout.list.right());
    EXPECT_PRED_FORMAT2(unit::apart, layout.findBox, layout.list);
    EXPECT_PRED_FORMAT2(unit::apart, layout.findBox, layout.toolbar);
    EXPECT_GE(layout.findBox.width, scaled(120, dpi));
    EXPECT_LE(layout.findBox.width, scaled(200, dpi));
    // The row of tabs keeps the room that four captions need.
    EXPECT_GE(layout.findBox.left - layout.tabs.left, scaled(230, dpi));
    EXPECT_PRED_FORMAT2(unit::inside, layout.clearButton, layout.findBox);
  });
}

TEST(MainLayoutTest, TheFindBoxHasItsFullWidthWhereThereIsRoom) {
  EXPECT_EQ(layOut({780, 500}, 96, partsAt(96)).findBox.width, 200);
  EXPECT_GE(layOut(smallest, 96, partsAt(96)).findBox.width, 120);
}

TEST(MainLayoutTest, TheButtonGrowsWithTheDpiOnly) {
  forSensibleSizes([](Size /*client*/, int dpi, const MainLayout& layout) {
    EXPECT_EQ(layout.browseButton.width, scaled(96, dpi));
    EXPECT_EQ(layout.browseButton.height, scaled(28, dpi));
  });
}

TEST(MainLayoutTest, HasItsDesignedGaps) {
  const MainLayout layout = layOut({800, 600}, 96, partsAt(96));
  EXPECT_EQ(layout.toolbar, (Rect{0, 0, 800, 46}));
  EXPECT_EQ(layout.tabs, (Rect{8, 52, 784, 520}));
  EXPECT_EQ(layout.list, (Rect{17, 81, 766, 482}));
  EXPECT_EQ(layout.listOnOpen, (Rect{17, 81, 766, 448}));
  EXPECT_EQ(layout.browseButton, (Rect{687, 535, 96, 28}));
  EXPECT_EQ(layout.statusBar, (Rect{0, 578, 800, 22}));
  EXPECT_EQ(layout.findBox, (Rect{583, 51, 200, 19}));
  EXPECT_EQ(layout.clearButton, (Rect{766, 53, 15, 15}));
}

TEST(MainLayoutTest, ItsGapsGrowWithTheDpi) {
  const MainLayout layout = layOut({1200, 900}, 144, partsAt(144));
  EXPECT_EQ(layout.toolbar, (Rect{0, 0, 1200, 69}));
  EXPECT_EQ(layout.tabs, (Rect{12, 78, 1176, 779}));
  EXPECT_EQ(layout.list, (Rect{26, 122, 1148, 721}));
  EXPECT_EQ(layout.listOnOpen, (Rect{26, 122, 1148, 670}));
  EXPECT_EQ(layout.browseButton, (Rect{1030, 801, 144, 42}));
}

TEST(MainLayoutTest, NothingIsEverNegativeHoweverSmallTheWindow) {
  for (const int dpi : dpis) {
    for (int width = 0; width <= 500; width += 7) {
      for (int height = 0; height <= 400; height += 7) {
        for (const Rect& place : allOf(layOut({width, height}, dpi, partsAt(dpi)))) {
          ASSERT_GE(place.left, 0) << width << " x " << height << " at " << dpi;
          ASSERT_GE(place.top, 0) << width << " x " << height << " at " << dpi;
          ASSERT_GE(place.width, 0) << width << " x " << height << " at " << dpi;
          ASSERT_GE(place.height, 0) << width << " x " << height << " at " << dpi;
        }
      }
    }
  }
}

TEST(MainLayoutTest, AHigherToolbarPushesTheTabsDown) {
  MeasuredParts low = partsAt(96);
  MeasuredParts high = partsAt(96);
  high.toolbarHeight = low.toolbarHeight + 40;
  const MainLayout before = layOut({780, 500}, 96, low);
  const MainLayout after = layOut({780, 500}, 96, high);
  EXPECT_EQ(after.tabs.top, before.tabs.top + 40);
  EXPECT_EQ(after.tabs.bottom(), before.tabs.bottom());
  EXPECT_EQ(after.list.height, before.list.height - 40);
}

// --- the window uses it ---

TEST_F(MainWindowTest, TheControlsStandWhereTheLayoutPutsThem) {
  for (const int dpi : {96, 144}) {
    const Size client{scaled(800, dpi), scaled(600, dpi)};
    window.barMain.acceptMeasuredHeight(scaled(46, dpi));
    window.fireLayout(client, dpi);

    const MainLayout expected =
        layOut(client, dpi, {scaled(46, dpi), scaled(15, dpi), [&](const Rect& bounds) {
                               return window.TabMain.displayArea(bounds, dpi);
                             }});
    EXPECT_EQ(window.barMain.bounds(), expected.toolbar);
    EXPECT_EQ(window.TabMain.bounds(), expected.tabs);
    EXPECT_EQ(window.lstQMK[frmQMK::tools].bounds(), expected.list);
    EXPECT_EQ(window.lstQMK[frmQMK::open].bounds(), expected.listOnOpen);
    EXPECT_EQ(window.lstQMK[frmQMK::newFiles].bounds(), expected.list);
    EXPECT_EQ(window.lstQMK[frmQMK::web].bounds(), expected.list);
    EXPECT_EQ(window.cmdBrowse.bounds(), expected.browseButton);
    EXPECT_EQ(window.barStatus.bounds(), expected.statusBar);
    // A flat text box leaves free the ring around it.
    EXPECT_EQ(window.txtFind.bounds(), platform::inset(expected.findBox, window.txtFind.margin()));
    EXPECT_EQ(window.cmdClearFind.bounds(), expected.clearButton);
    EXPECT_EQ(window.TabMain.hole(), platform::inset(expected.findBox, -1));
  }
}

TEST_F(MainWindowTest, TheWindowCannotBecomeSmallerThanItsPartsNeed) {
  EXPECT_EQ(window.minimumSize(), smallest);
  EXPECT_EQ(window.designSize(), (Size{780, 500}));
  EXPECT_GE(window.designSize().width, window.minimumSize().width);
  EXPECT_GE(window.designSize().height, window.minimumSize().height);
}

}  // namespace
