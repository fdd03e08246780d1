// Stable native ids of the main window's controls and commands. External tests and assistive tools
// rely on them. A number is never used again, in any window of the program.
#pragma once

namespace ids {

inline constexpr int TabMain = 1000;
inline constexpr int lstQMK0 = 1010;  ///< lstQMK(i) is lstQMK0 + i.
inline constexpr int barMain = 1020;
inline constexpr int cmdBrowse = 1030;
inline constexpr int tmrFileUpdate = 1040;
inline constexpr int txtFind = 1050;
inline constexpr int cmdClearFind = 1051;
inline constexpr int lblFind = 1052;
inline constexpr int barStatus = 1060;
inline constexpr int tmrIdle = 1070;
inline constexpr int tmrNews = 1071;
inline constexpr int tmrSearch = 1072;

// Menus
inline constexpr int mnuFile = 2000;
inline constexpr int mnuExit = 2001;
inline constexpr int mnuEdit = 2010;
inline constexpr int mnuCreate = 2011;
inline constexpr int mnuRename = 2012;
inline constexpr int mnuDelete = 2013;
inline constexpr int mnuEditName = 2014;
inline constexpr int mnuCopy = 2015;
inline constexpr int mnuCopyPath = 2016;
inline constexpr int mnuOpenFolder = 2017;
inline constexpr int mnuRemoveFromList = 2018;
inline constexpr int mnuView = 2020;
inline constexpr int mnuList = 2021;
inline constexpr int mnuIcon = 2022;
inline constexpr int mnuReload = 2023;
inline constexpr int mnuFind = 2024;
inline constexpr int mnuNewestFirst = 2025;
inline constexpr int mnuFitColumns = 2026;
inline constexpr int mnuHelp = 2030;
inline constexpr int mnuHelpContents = 2031;
inline constexpr int mnuWeb = 2032;
inline constexpr int mnuAbout = 2033;
inline constexpr int mnuAddList = 2040;
inline constexpr int mnuSaveListAs = 2041;
inline constexpr int mnuAddFiles = 2042;
inline constexpr int mnuFindMoved = 2043;
inline constexpr int mnuPaste = 2044;
inline constexpr int mnuUndo = 2045;
inline constexpr int mnuRedo = 2046;
inline constexpr int mnuEarlierLists = 2047;

// Toolbar buttons
inline constexpr int buttonDelete = 2100;
inline constexpr int buttonRename = 2101;
inline constexpr int buttonCreate = 2102;
inline constexpr int buttonIcon = 2103;
inline constexpr int buttonList = 2104;
inline constexpr int buttonExit = 2105;
inline constexpr int buttonHelp = 2106;

}  // namespace ids
