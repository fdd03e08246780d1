// The program's help.
#pragma once

#include "platform/controls/common_dialog.h"

namespace modQMKGeneral {

/// Opens the classic help file of the "help" folder at its contents, or the compiled one when there
/// is no classic file or the system has no viewer for it any more. When the compiled one is not
/// shown either, the installed handbook is opened. When all are missing, nothing is shown.
void showHelpContents(controls::CommonDialog& dialog);

}  // namespace modQMKGeneral
