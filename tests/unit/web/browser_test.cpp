#include "web/browser.h"

#include <gtest/gtest.h>

#include "configuration.h"
#include "unit/support/web_test.h"

namespace {

using memory::desktop;
using smodBrowser::OpenURL;
using unit::record;

class Browser : public unit::WebTest {};

TEST_F(Browser, HandsTheAddressAndTheShowCommandToTheShell) {
  OpenURL(L"http://x/a b?c=\u00E9", 5);
  ASSERT_EQ(desktop().browsed.size(), 1U);
  EXPECT_EQ(desktop().browsed[0].address, L"http://x/a b?c=\u00E9");
  EXPECT_EQ(desktop().browsed[0].showCommand, 5);
}

TEST_F(Browser, HandsBackTheShellsResult) {
  desktop().browserResult = 42;
  EXPECT_EQ(OpenURL(L"http://x/", 0), 42);
  desktop().browserResult = 2;
  EXPECT_EQ(OpenURL(L"http://x/", 0), 2);
}

TEST_F(Browser, AWebEntryIsOpenedByItsAddressWithShowCommandZero) {
  putWebList(record({"One", "http://one/"}) + record({"Two", "http://two/"}));
  modQMKGeneral::LoadWebList(web);
  list.select(1);
  list.fireDoubleClick();
  ASSERT_EQ(desktop().browsed.size(), 1U);
  EXPECT_EQ(desktop().browsed[0].address, L"http://two/");
  EXPECT_EQ(desktop().browsed[0].showCommand, 0);
}

TEST_F(Browser, AnEmptyWebListOpensNothing) {
  list.fireDoubleClick();
  EXPECT_TRUE(desktop().browsed.empty());
  EXPECT_TRUE(messages().empty());
}

TEST_F(Browser, WebBasedSupportOpensTheHomePageWithShowCommandZero) {
  main.mnuWeb.fireClick();
  ASSERT_EQ(desktop().browsed.size(), 1U);
  EXPECT_EQ(desktop().browsed[0].address, configuration::homePage);
  EXPECT_EQ(desktop().browsed[0].showCommand, 0);
}

TEST_F(Browser, AFailureShowsNothingInEitherPlace) {
  desktop().browserResult = 31;
  putWebList(record({"One", "nonsense"}));
  modQMKGeneral::LoadWebList(web);
  list.fireDoubleClick();
  main.mnuWeb.fireClick();
  EXPECT_EQ(desktop().browsed.size(), 2U);
  EXPECT_TRUE(messages().empty());
}

TEST_F(Browser, AnAddressThatNamesAProgramGoesToTheShellAsItStandsAndIsNeverStarted) {
  putWebList(record({"Odd", "C:\\Windows\\cmd.exe /c echo & x"}));
  modQMKGeneral::LoadWebList(web);
  list.fireDoubleClick();
  ASSERT_EQ(desktop().browsed.size(), 1U);
  EXPECT_EQ(desktop().browsed[0].address, L"C:\\Windows\\cmd.exe /c echo & x");
  EXPECT_TRUE(desktop().starts.empty());
}

}  // namespace
