// The shortcuts of the suite's own tools.
#pragma once

namespace modSC {

/// Gives every suite tool in the application folder a newly written shortcut in the shortcuts
/// folder, and deletes obsolete and misdirected shortcuts. Never changes shortcuts to other
/// programs. Errors of saving go to the caller, and errors of deleting anything but an obsolete
/// shortcut.
void ProvisionToolShortcuts();

}  // namespace modSC
