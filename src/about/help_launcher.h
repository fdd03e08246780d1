// The program's help.
#pragma once

#include "platform/controls/common_dialog.h"

namespace modQMKGeneral {

/// Opens the classic help file of the "help" folder at its contents, or the compiled one when there
/// is no classic file. When both are missing, nothing is shown.
void showHelpContents(controls::CommonDialog& dialog);

}  // namespace modQMKGeneral
