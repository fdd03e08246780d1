// The shortcuts of the suite's own tools.
#pragma once

namespace modSC {

/// Makes sure that every suite tool in the application folder has a fresh shortcut in the
/// shortcuts folder, and that obsolete and misdirected ones go. Shortcuts to other programs are
/// never touched. Errors of saving, and of deleting anything but an obsolete one, go to the caller.
void ProvisionToolShortcuts();

}  // namespace modSC
