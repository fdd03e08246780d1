// Stable native ids of all controls and commands. Outside tests and assistive tools rely on them:
// numbers are never reused.
#pragma once

namespace controls::ids {

// frmQMK
inline constexpr int TabMain = 1000;
inline constexpr int lstQMK0 = 1010;  ///< lstQMK(i) is lstQMK0 + i.
inline constexpr int barMain = 1020;
inline constexpr int cmdBrowse = 1030;
inline constexpr int tmrFileUpdate = 1040;

// frmSplash
inline constexpr int splashTitle = 1100;
inline constexpr int splashTM = 1101;
inline constexpr int splashApp = 1102;
inline constexpr int splashCopyRight = 1103;
inline constexpr int splashSuite = 1104;
inline constexpr int Timer1 = 1110;
inline constexpr int Timer2 = 1111;

// frmWeb; its buttons have the ids by which a dialog answers Enter and Esc
inline constexpr int webOK = 1;
inline constexpr int webCancel = 2;
inline constexpr int webLabel1 = 1200;
inline constexpr int txtName = 1201;
inline constexpr int webLabel2 = 1202;
inline constexpr int txtUrl = 1203;

// frmAbout
inline constexpr int aboutOK = 1;
inline constexpr int aboutLabel1 = 1300;
inline constexpr int lblTitle = 1301;
inline constexpr int aboutTM = 1302;
inline constexpr int lblVersion = 1303;
inline constexpr int lblPath = 1304;
inline constexpr int Image1 = 1305;

// Input box
inline constexpr int inputPrompt = 1400;
inline constexpr int inputEdit = 1401;

// Menus
inline constexpr int mnuFile = 2000;
inline constexpr int mnuExit = 2001;
inline constexpr int mnuEdit = 2010;
inline constexpr int mnuCreate = 2011;
inline constexpr int mnuRename = 2012;
inline constexpr int mnuDelete = 2013;
inline constexpr int mnuView = 2020;
inline constexpr int mnuList = 2021;
inline constexpr int mnuIcon = 2022;
inline constexpr int mnuHelp = 2030;
inline constexpr int mnuHelpContents = 2031;
inline constexpr int mnuWeb = 2032;
inline constexpr int mnuAbout = 2033;

// Toolbar buttons
inline constexpr int buttonDelete = 2100;
inline constexpr int buttonRename = 2101;
inline constexpr int buttonCreate = 2102;
inline constexpr int buttonIcon = 2103;
inline constexpr int buttonList = 2104;
inline constexpr int buttonExit = 2105;
inline constexpr int buttonHelp = 2106;

}  // namespace controls::ids
