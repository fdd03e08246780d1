// A question is open while another program changes the list that it is about.
#include "gateway_test.h"
#include "harness/input.h"
#include "web_test.h"

namespace desktop_tests {
namespace {

class Questions : public GatewayTest {
 protected:
  void SetUp() override {
    GatewayApp::skipExample();
    alder_ = app->addFileElsewhere(L"Alder.bi3");
    birch_ = app->addFileElsewhere(L"Birch.bi3");
    cedar_ = app->addFileElsewhere(L"Cedar.bi3");
    app->writeCatalogue(alder() + birch() + cedar());
    app->startToMain();
    app->selectTab(Tab::open);
    expectNames({L"Alder.bi3", L"Birch.bi3", L"Cedar.bi3"});
    harness::clickAt(harness::centreOf(list().textOnScreen(1)), app->main());
    ASSERT_TRUE(eventually([this] { return list().selected(); }, 1));
  }

  [[nodiscard]] std::string alder() const { return record(L"bi3", alder_); }
  [[nodiscard]] std::string birch() const { return record(L"bi3", birch_); }
  [[nodiscard]] std::string cedar() const { return record(L"bi3", cedar_); }
  [[nodiscard]] harness::ListViewReader list() const { return app->list(Tab::open); }
  void expectNames(const std::vector<std::wstring>& names) const {
    EXPECT_TRUE(eventually([&] { return list().texts(); }, names, 5000));
    EXPECT_EQ(list().texts(), names);
  }
  void expectGone(const std::wstring& name) const {
    expectMessage(name + L" is no longer in the list", noIcon, okOnly, IDOK);
  }

  std::wstring alder_;
  std::wstring birch_;
  std::wstring cedar_;
};

TEST_F(Questions, ARenameWhoseEntryIsTakenFromTheListRenamesNothing) {
  app->command(ids::mnuRename);
  const harness::InputBoxReader box = app->waitForInputBox();
  app->writeCatalogue(alder() + cedar());
  expectNames({L"Alder.bi3", L"Cedar.bi3"});
  box.type(L"Beech");
  box.ok();
  expectGone(L"Birch.bi3");
  for (const std::wstring& file : {alder_, birch_, cedar_}) {
    EXPECT_TRUE(harness::exists(file));
  }
  EXPECT_EQ(app->catalogue(), alder() + cedar());
}

TEST_F(Questions, ARenameFindsItsEntryWhereverItIsByThen) {
  app->command(ids::mnuRename);
  const harness::InputBoxReader box = app->waitForInputBox();
  const std::wstring aaa = app->addFileElsewhere(L"Aaa.bi3");
  app->writeCatalogue(record(L"bi3", aaa) + cedar() + birch());
  expectNames({L"Aaa.bi3", L"Birch.bi3", L"Cedar.bi3"});
  box.type(L"Beech");
  box.ok();
  expectNames({L"Aaa.bi3", L"Beech.BI3", L"Cedar.bi3"});
  EXPECT_FALSE(harness::exists(birch_));
  EXPECT_TRUE(harness::exists(aaa));
}

TEST_F(Questions, ADeletionWhoseEntryIsTakenFromTheListDeletesNothing) {
  app->command(ids::mnuDelete);
  const harness::MessageBoxReader box = app->waitForMessage();
  app->writeCatalogue(alder() + cedar());
  expectNames({L"Alder.bi3", L"Cedar.bi3"});
  box.answer(IDYES);
  expectGone(L"Birch.bi3");
  for (const std::wstring& file : {alder_, birch_, cedar_}) {
    EXPECT_TRUE(harness::exists(file));
  }
}

TEST_F(Questions, AFileThatIsBackBeforeTheAnswerIsNotDeleted) {
  harness::removeFile(birch_);
  app->doubleClickRow(Tab::open, L"Birch.bi3");
  const harness::MessageBoxReader box = app->waitForMessage();
  harness::writeFile(birch_, "the work of a summer");
  box.answer(IDNO);
  expectNames({L"Alder.bi3", L"Cedar.bi3"});
  EXPECT_EQ(harness::readFile(birch_), "the work of a summer");
  EXPECT_EQ(app->catalogue(), alder() + cedar());
}

class WebQuestions : public WebTest {};

TEST_F(WebQuestions, EqualEntriesAreToldApartByTheirOrder) {
  const std::string clock = entry(L"Clock", L"http://clock");
  writeWebList(entry(L"Atlas", L"http://atlas") + clock + clock);
  startOnWebTab(3);
  selectRow(2);
  const harness::FormReader dialog = askToRename();
  SendMessageW(list().window(), WM_KEYDOWN, VK_F5, 0);
  EXPECT_EQ(list().selected(), 2);
  fillAndAccept(dialog, L"Sundial", L"http://clock");
  expectWebList(entry(L"Atlas", L"http://atlas") + clock + entry(L"Sundial", L"http://clock"));
}

TEST_F(WebQuestions, ARenameWhoseEntryIsGoneSaysSoAndKeepsWhatWasTyped) {
  const std::string atlas = entry(L"Atlas", L"http://atlas");
  writeWebList(atlas + entry(L"Clock", L"http://clock"));
  startOnWebTab(2);
  selectRow(1);
  const harness::FormReader dialog = askToRename();
  dialog.fill(ids::txtName, L"Sundial");
  writeWebList(atlas);
  SendMessageW(list().window(), WM_KEYDOWN, VK_F5, 0);
  expectRows({{L"Atlas", L"http://atlas"}});
  harness::pushButton(dialog.window(), ids::webOK);
  expectMessage(L"Clock is no longer in the list", noIcon, okOnly, IDOK);
  EXPECT_EQ(dialog.textOf(ids::txtName), L"Sundial");
  EXPECT_EQ(webList(), atlas);
  // A click on the remaining entry chooses it. It is selected already, so only a key sent after the
  // click shows that the click has been processed; the message of the button would overtake it.
  selectRow(0);
  const auto focus = [&] { return harness::focusIn(app->main()); };
  EXPECT_TRUE(eventually(focus, list().window()));
  harness::pressKey(VK_TAB);
  EXPECT_TRUE(eventually(focus, ::testing::Ne(list().window())));
  dialog.pushAndWait(ids::webOK);
  expectWebList(entry(L"Sundial", L"http://clock"));
}

}  // namespace
}  // namespace desktop_tests
