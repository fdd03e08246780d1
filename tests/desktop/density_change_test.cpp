// The program is moved to a screen with another dpi while it runs, and back again.
#include <array>
#include <ostream>

#include "gateway_test.h"
#include "harness/forms.h"
#include "harness/looks.h"
#include "harness/remote_memory.h"

namespace desktop_tests {
namespace {

/// Everything in the main window that depends on the dpi.
struct Facts {
  std::map<std::string, int> lengths;     ///< Pixels; proportional to the dpi.
  std::map<std::string, RECT> places;     ///< Relative to the client area.
  std::vector<std::vector<int>> columns;  ///< Widths, list by list.
};

constexpr int designDpi = 96;

int scaledTo(int length, int dpi) { return MulDiv(length, dpi, designDpi); }

class DensityChange : public GatewayTest, public ::testing::WithParamInterface<int> {
 protected:
  void SetUp() override { GatewayApp::skipExample(); }

  /// Notifies a window of the program that its screen has another dpi now, with the rectangle that
  /// the system suggests for it.
  static void carryTo(HWND window, int dpi, const RECT& place) {
    harness::RemoteMemory memory(window, sizeof(RECT));
    memory.put(place);
    harness::send(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), memory.parameter());
    // Also waits for what its controls ask of the window meanwhile.
    harness::send(window, WM_NULL);
  }

  [[nodiscard]] RECT within(HWND control) const {
    RECT place = harness::screenRect(control);
    MapWindowPoints(nullptr, app->main(), reinterpret_cast<POINT*>(&place), 2);
    return place;
  }

  [[nodiscard]] Facts facts() const {
    Facts found;
    const HWND bar = app->toolbar().window();
    const auto height = [](const RECT& rect) { return static_cast<int>(rect.bottom - rect.top); };
    const auto width = [](const RECT& rect) { return static_cast<int>(rect.right - rect.left); };
    for (const int list : {0, 1, 2, 3}) {
      // A list shows the widths of its columns only when it shows the columns.
      app->selectTab(list);
      app->command(ids::mnuList);
      harness::waitUntil("the report is shown",
                         [&] { return app->list(list).view() == LV_VIEW_DETAILS; });
      const HWND window = app->list(list).window();
      const std::string name = "list " + std::to_string(list);
      found.lengths["font of " + name] = harness::fontHeight(window);
      const SIZE large = harness::imageSize(window, LVM_GETIMAGELIST, LVSIL_NORMAL);
      const SIZE small = harness::imageSize(window, LVM_GETIMAGELIST, LVSIL_SMALL);
      found.lengths["large pictures of " + name] = large.cx;
      found.lengths["small pictures of " + name] = small.cx;
      EXPECT_EQ(large.cx, large.cy);
      EXPECT_EQ(small.cx, small.cy);
      found.places[name] = within(window);
      found.columns.emplace_back();
      for (const auto& column : app->list(list).columns()) {
        found.columns.back().push_back(column.width);
      }
      if (list != Tab::open && list != Tab::web) {
        app->command(ids::mnuIcon);
        harness::waitUntil("the icons are shown",
                           [&] { return app->list(list).view() == LV_VIEW_ICON; });
      }
    }
    app->selectTab(Tab::open);
    const SIZE pictures = harness::imageSize(bar, TB_GETIMAGELIST, 0);
    found.lengths["pictures of the toolbar"] = pictures.cx;
    EXPECT_EQ(pictures.cx, pictures.cy);
    for (const auto& [name, control] : {std::pair{"toolbar", bar},
                                        {"tabs", app->tabs().window()},
                                        {"browse button", app->browseButton()}}) {
      found.lengths[std::string("font of ") + name] = harness::fontHeight(control);
      found.places[name] = within(control);
    }
    found.lengths["height of a tab"] = height(app->tabs().tabOnScreen(0));
    found.lengths["height of a toolbar button"] =
        height(app->toolbar().buttonOnScreen(ids::buttonList));
    // A button that is too narrow would cut off its caption.
    found.lengths["width of a toolbar button"] =
        width(app->toolbar().buttonOnScreen(ids::buttonRename));
    found.lengths["width of the browse button"] = width(found.places["browse button"]);
    found.lengths["height of the browse button"] = height(found.places["browse button"]);
    found.lengths["margin left of the tabs"] = static_cast<int>(found.places["tabs"].left);
    return found;
  }

  /// Checks that no part lies outside or over another part.
  void expectInOrder() const {
    const RECT client = harness::clientOnScreen(app->main());
    const RECT bar = harness::screenRect(app->toolbar().window());
    const RECT tabs = harness::screenRect(app->tabs().window());
    EXPECT_EQ(bar.top, client.top);
    EXPECT_EQ(bar.right, client.right);
    EXPECT_GE(tabs.top, bar.bottom);
    EXPECT_LE(tabs.bottom, client.bottom);
    for (const int button : {ids::buttonDelete, ids::buttonHelp}) {
      const RECT place = app->toolbar().buttonOnScreen(button);
      EXPECT_LE(place.bottom, bar.bottom) << "a toolbar button is cut off";
      EXPECT_LE(place.right, bar.right);
    }
    const RECT list = harness::screenRect(app->list(Tab::open).window());
    const RECT browse = harness::screenRect(app->browseButton());
    EXPECT_GE(list.top, app->tabs().tabOnScreen(0).bottom) << "the list covers the tabs";
    EXPECT_GE(browse.top, list.bottom);
    EXPECT_EQ(browse.right, list.right);
    EXPECT_LE(browse.bottom, tabs.bottom);
  }
};

TEST_P(DensityChange, TheMainWindowFollowsAndComesBack) {
  app->addAllTools();
  app->writeCatalogue(record(L"FP3", app->addFileElsewhere(L"north.fp3")));
  app->startToMain();
  app->selectTab(Tab::open);
  const RECT home = harness::screenRect(app->main());
  const Facts before = facts();
  EXPECT_EQ(before.lengths.at("pictures of the toolbar"), 24);
  EXPECT_EQ(before.lengths.at("small pictures of list 1"), 16);
  EXPECT_EQ(before.lengths.at("large pictures of list 0"), 32);

  const int dpi = GetParam();
  // The size differs from the program's own choice, because the system decides it.
  const RECT suggested{20, 30, 20 + scaledTo(620, dpi), 30 + scaledTo(400, dpi)};
  carryTo(app->main(), dpi, suggested);
  const RECT there = harness::screenRect(app->main());
  EXPECT_NE(EqualRect(&there, &suggested), FALSE) << "not where the system wants it";
  const Facts carried = facts();
  for (const auto& [what, length] : before.lengths) {
    // For the rounding of fonts, and for the system's lines of one pixel.
    const int slack = what.find("pictures") != std::string::npos ? 0 : 1 + length / 7;
    EXPECT_NEAR(carried.lengths.at(what), scaledTo(length, dpi), slack) << what;
  }
  for (std::size_t list = 0; list < before.columns.size(); ++list) {
    ASSERT_EQ(carried.columns[list].size(), before.columns[list].size());
    for (std::size_t column = 0; column < before.columns[list].size(); ++column) {
      EXPECT_NEAR(carried.columns[list][column], scaledTo(before.columns[list][column], dpi), 1)
          << "column " << column << " of list " << list;
    }
  }
  expectInOrder();

  carryTo(app->main(), designDpi, home);
  const Facts back = facts();
  EXPECT_EQ(back.lengths, before.lengths);
  EXPECT_EQ(back.columns, before.columns);
  for (const auto& [what, place] : before.places) {
    EXPECT_NE(EqualRect(&back.places.at(what), &place), FALSE) << what;
  }
  expectInOrder();
}

INSTANTIATE_TEST_SUITE_P(To, DensityChange, ::testing::Values(120, 144, 168, 192),
                         [](const auto& dpi) { return std::to_string(dpi.param) + "Dpi"; });

class DialogDensity : public DensityChange {
 protected:
  /// Moves a dialog to twice the dpi and back. Every control must grow with it and stay inside.
  static void expectFollows(HWND dialog) {
    struct Part {
      RECT place;
      int font;
    };
    const auto parts = [dialog] {
      std::map<HWND, Part> found;
      for (HWND const control : harness::children(dialog)) {
        // A picture shows no text.
        const bool picture = GetDlgCtrlID(control) == ids::Image1;
        RECT place = harness::screenRect(control);
        MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
        found[control] = {place, picture ? 0 : harness::fontHeight(control)};
      }
      return found;
    };
    const auto before = parts();
    ASSERT_FALSE(before.empty());
    const RECT home = harness::screenRect(dialog);
    constexpr int dpi = 192;
    carryTo(dialog, dpi,
            {10, 10, 10 + 2 * (home.right - home.left), 10 + 2 * (home.bottom - home.top)});
    RECT client{};
    GetClientRect(dialog, &client);
    for (const auto& [control, part] : parts()) {
      const Part& former = before.at(control);
      const int id = GetDlgCtrlID(control);
      EXPECT_NEAR(part.font, 2 * former.font, 1) << id;
      EXPECT_NEAR(part.place.left, 2 * former.place.left, 4) << id;
      EXPECT_NEAR(part.place.bottom - part.place.top, 2 * (former.place.bottom - former.place.top),
                  6)
          << id;
      EXPECT_LE(part.place.right, client.right) << id;
      EXPECT_LE(part.place.bottom, client.bottom) << id;
    }
    carryTo(dialog, designDpi, home);
    const RECT again = harness::screenRect(dialog);
    EXPECT_NE(EqualRect(&again, &home), FALSE);
    for (const auto& [control, part] : parts()) {
      EXPECT_EQ(part.font, before.at(control).font) << GetDlgCtrlID(control);
      EXPECT_NE(EqualRect(&part.place, &before.at(control).place), FALSE) << GetDlgCtrlID(control);
    }
  }
};

TEST_F(DialogDensity, TheWebDialogFollows) {
  app->startToMain();
  app->selectTab(Tab::web);
  app->command(ids::mnuCreate);
  const harness::FormReader form = harness::waitForWebDialog(*app);
  expectFollows(form.window());
  form.pushAndWait(ids::webCancel);
}

TEST_F(DialogDensity, TheAboutBoxFollows) {
  app->startToMain();
  app->command(ids::mnuAbout);
  const harness::FormReader form = harness::waitForAboutBox(*app);
  expectFollows(form.window());
  form.pushAndWait(ids::aboutOK);
}

TEST_F(DialogDensity, TheInputBoxFollows) {
  app->writeCatalogue(record(L"FP3", app->addFileElsewhere(L"north.fp3")));
  app->startToMain();
  app->selectTab(Tab::open);
  app->command(ids::mnuRename);
  const harness::InputBoxReader box = app->waitForInputBox();
  expectFollows(box.window());
  box.cancel();
}

}  // namespace
}  // namespace desktop_tests
