#include "web/web_dialog.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "unit/support/places.h"
#include "unit/support/web_test.h"

namespace {

using memory::desktop;
using unit::record;
using unit::Texts;

class WebDialog : public unit::WebTest {
 protected:
  WebDialog() {
    putWebList(one + two);
    modQMKGeneral::LoadWebList(web);
  }
  /// The dialog as the Create command or the Rename command shows it.
  frmWeb& showForCreate() {
    main.mnuCreate.fireClick();
    return *main.webDialog();
  }
  frmWeb& showForRename() {
    main.mnuRename.fireClick();
    return *main.webDialog();
  }
  const std::string one = record({"One", "http://one/"});
  const std::string two = record({"Two", "http://two/"});
};

TEST_F(WebDialog, AsLoadedHasItsInitialTexts) {
  frmWeb dialog(web);
  dialog.load();
  EXPECT_EQ(dialog.caption(), L"Create a Web Short Cut");
  EXPECT_EQ(dialog.Label1.caption(), L"Name");
  EXPECT_EQ(dialog.txtName.text(), L"New Web Short Cut");
  EXPECT_EQ(dialog.Label2.caption(), L"URL");
  EXPECT_EQ(dialog.txtUrl.text(), L"http://");
  EXPECT_EQ(dialog.cmdOK.caption(), L"");
  EXPECT_EQ(dialog.cmdCancel.caption(), L"Cancel");
}

TEST_F(WebDialog, EnterIsOkAndEscIsCancel) {
  const frmWeb dialog(web);
  EXPECT_TRUE(dialog.cmdOK.isDefault);
  EXPECT_FALSE(dialog.cmdOK.isCancel);
  EXPECT_TRUE(dialog.cmdCancel.isCancel);
  EXPECT_FALSE(dialog.cmdCancel.isDefault);
}

TEST_F(WebDialog, ReadsInTabOrderAndEveryFieldHasAName) {
  frmWeb dialog(web);
  const std::vector<controls::Control*> expected{&dialog.Label1, &dialog.txtName,
                                                 &dialog.Label2, &dialog.txtUrl,
                                                 &dialog.cmdOK,  &dialog.cmdCancel};
  EXPECT_EQ(dialog.controls(), expected);
  EXPECT_EQ(dialog.txtName.accessibleName(), L"Name");
  EXPECT_EQ(dialog.txtUrl.accessibleName(), L"URL");
}

TEST_F(WebDialog, ForCreateOnlyTheButtonGetsACaptionAndTheMainWindowStaysUsable) {
  const frmWeb& dialog = showForCreate();
  EXPECT_TRUE(dialog.visible());
  EXPECT_EQ(dialog.caption(), L"Create a Web Short Cut");
  EXPECT_EQ(dialog.cmdOK.caption(), L"Create");
  EXPECT_EQ(dialog.txtName.text(), L"New Web Short Cut");
  EXPECT_EQ(dialog.txtUrl.text(), L"http://");
  EXPECT_FALSE(desktop().journalHas(L"modal frmWeb"));
}

TEST_F(WebDialog, ForRenameShowsTheSelectedEntry) {
  list.select(1);
  const frmWeb& dialog = showForRename();
  EXPECT_TRUE(dialog.visible());
  EXPECT_EQ(dialog.caption(), L"Rename Web Shortcut");
  EXPECT_EQ(dialog.cmdOK.caption(), L"Rename");
  EXPECT_EQ(dialog.txtName.text(), L"Two");
  EXPECT_EQ(dialog.txtUrl.text(), L"http://two/");
  EXPECT_FALSE(desktop().journalHas(L"modal frmWeb"));
}

TEST_F(WebDialog, CreateAndOkWithoutEditsAddsTheInitialTexts) {
  frmWeb& dialog = showForCreate();
  dialog.cmdOK.fireClick();
  EXPECT_EQ(webList(), one + two + record({"New Web Short Cut", "http://"}));
  EXPECT_EQ(names(), (Texts{L"One", L"Two", L"New Web Short Cut"}));
  EXPECT_FALSE(dialog.loaded());
}

TEST_F(WebDialog, CreateAddsWhatWasTyped) {
  frmWeb& dialog = showForCreate();
  dialog.txtName.acceptTyped(L" \u00E9, b ");
  dialog.txtUrl.acceptTyped(L"not an address");
  dialog.cmdOK.fireClick();
  EXPECT_EQ(webList(), one + two + record({" \xE9, b ", "not an address"}));
}

TEST_F(WebDialog, RenameChangesTheSelectedEntry) {
  list.select(0);
  frmWeb& dialog = showForRename();
  dialog.txtName.acceptTyped(L"Uno");
  dialog.txtUrl.acceptTyped(L"http://uno/");
  dialog.cmdOK.fireClick();
  EXPECT_EQ(webList(), record({"Uno", "http://uno/"}) + two);
  EXPECT_FALSE(dialog.loaded());
}

TEST_F(WebDialog, RenameWithTheNameClearedStoresAnEmptyName) {
  list.select(0);
  frmWeb& dialog = showForRename();
  dialog.txtName.acceptTyped(L"");
  dialog.cmdOK.fireClick();
  EXPECT_EQ(webList(), record({"", "http://one/"}) + two);
  EXPECT_EQ(names(), (Texts{L"", L"Two"}));
}

TEST_F(WebDialog, RenameChangesWhateverIsSelectedWhenOkIsPressed) {
  list.select(0);
  frmWeb& dialog = showForRename();
  list.select(1);
  dialog.cmdOK.fireClick();
  EXPECT_EQ(webList(), one + record({"One", "http://one/"}));
}

TEST_F(WebDialog, RenameWritesTheListOfTheTabThatIsInFrontWhenOkIsPressed) {
  frmWeb& dialog = showForRename();
  modQMKGeneral::AddNewFileItems(main.catalogue);
  main.TabMain.setCurrent(frmQMK::newFiles);
  main.lstQMK[frmQMK::newFiles].select(1);
  dialog.cmdOK.fireClick();
  EXPECT_EQ(webList(), record({"New Fuel Profile", "FP3"}) + record({"One", "http://one/"}) +
                           record({"New Plotview Inventory", "BS3"}) +
                           record({"New Canopy Weigh Inventory", "CW3"}));
}

TEST_F(WebDialog, AnyOtherCaptionDoesNothingAndTheDialogStays) {
  frmWeb dialog(web);
  dialog.show();
  for (const wchar_t* const caption : {L"", L"create", L"RENAME", L"OK"}) {
    dialog.cmdOK.setCaption(caption);
    dialog.cmdOK.fireClick();
  }
  EXPECT_TRUE(dialog.loaded());
  EXPECT_EQ(webList(), one + two);
  EXPECT_TRUE(messages().empty());
}

TEST_F(WebDialog, CancelChangesNothingAndTheNextShowingStartsAfresh) {
  frmWeb& dialog = showForCreate();
  dialog.txtName.acceptTyped(L"typed");
  dialog.txtUrl.acceptTyped(L"typed");
  dialog.cmdCancel.fireClick();
  EXPECT_FALSE(dialog.loaded());
  EXPECT_EQ(webList(), one + two);
  const frmWeb& next = showForCreate();
  EXPECT_EQ(next.txtName.text(), L"New Web Short Cut");
  EXPECT_EQ(next.txtUrl.text(), L"http://");
}

TEST_F(WebDialog, ClosingItChangesNothingAndTheNextShowingStartsAfresh) {
  frmWeb& dialog = showForRename();
  dialog.txtName.acceptTyped(L"typed");
  EXPECT_TRUE(dialog.fireClose(controls::UnloadMode::user));
  EXPECT_EQ(webList(), one + two);
  const frmWeb& next = showForCreate();
  EXPECT_EQ(next.caption(), L"Create a Web Short Cut");
  EXPECT_EQ(next.txtName.text(), L"New Web Short Cut");
}

TEST_F(WebDialog, AskingAgainWhileItIsOpenBringsItForwardWithItsNewRole) {
  frmWeb& dialog = showForCreate();
  dialog.txtName.acceptTyped(L"typed");
  list.select(1);
  EXPECT_EQ(&showForRename(), &dialog);
  EXPECT_EQ(dialog.cmdOK.caption(), L"Rename");
  EXPECT_EQ(dialog.txtName.text(), L"Two");
  EXPECT_EQ(&showForCreate(), &dialog);
  EXPECT_EQ(dialog.cmdOK.caption(), L"Create");
  EXPECT_EQ(dialog.caption(), L"Create a Web Short Cut");
  EXPECT_EQ(desktop().activated(L"frmWeb"), 2);
  const auto open = desktop().windows();
  EXPECT_EQ(std::count_if(open.begin(), open.end(),
                          [](const auto* opened) { return opened->name() == L"frmWeb"; }),
            1);
}

TEST_F(WebDialog, AnErrorOfTheAppendIsReportedAndTheDialogStays) {
  frmWeb& dialog = showForCreate();
  desktop().setReadOnly(unit::webListFile);
  dialog.cmdOK.fireClick();
  EXPECT_EQ(desktop().errorReports, std::vector<int>{75});
  EXPECT_TRUE(dialog.loaded());
  EXPECT_EQ(webList(), one + two);
}

TEST_F(WebDialog, ASaveReportsItsErrorItselfAndTheDialogGoes) {
  frmWeb& dialog = showForRename();
  desktop().setReadOnly(unit::webListFile);
  dialog.cmdOK.fireClick();
  EXPECT_TRUE(desktop().errorReports.empty());
  EXPECT_EQ(messages(), Texts{L"Problem saving to QMK list\r75-Path/File access error"});
  EXPECT_FALSE(dialog.loaded());
}

TEST_F(WebDialog, StaysOpenAcrossTabSwitches) {
  const frmWeb& dialog = showForCreate();
  for (const int tab : {frmQMK::tools, frmQMK::open, frmQMK::web}) {
    main.TabMain.setCurrent(tab);
    EXPECT_TRUE(dialog.visible());
  }
}

TEST_F(WebDialog, ItsPartsLieApartAndInsideAtEveryDensity) {
  for (const int dpi : {96, 120, 144, 192, 240, 288, 384}) {
    SCOPED_TRACE(dpi);
    frmWeb dialog(web);
    const platform::Size client{platform::scaled(dialog.designSize().width, dpi),
                                platform::scaled(dialog.designSize().height, dpi)};
    dialog.fireLayout(client, dpi);
    const auto& controls = dialog.controls();
    for (std::size_t i = 0; i < controls.size(); ++i) {
      const platform::Rect& a = controls[i]->bounds();
      EXPECT_GE(a.left, 0);
      EXPECT_GE(a.top, 0);
      EXPECT_GT(a.width, 0);
      EXPECT_GT(a.height, 0);
      EXPECT_LE(a.right(), client.width);
      EXPECT_LE(a.bottom(), client.height);
      for (std::size_t j = i + 1; j < controls.size(); ++j) {
        const platform::Rect& b = controls[j]->bounds();
        EXPECT_PRED_FORMAT2(unit::apart, a, b) << i << " and " << j;
      }
    }
  }
}

}  // namespace
