// What programs give to each other, as the system passes it on.
#pragma once

#include <windows.h>
// Needs <windows.h> first.
#include <objidl.h>

#include "platform/clipboard.h"
#include "platform/win32/handles.h"

namespace platform::win32::transfer {

/// The files, the text and the address that an object offers; empty parts for everything else.
[[nodiscard]] clipboard::Content contentOf(IDataObject& data);

/// An object that offers them; null if there is no memory left.
[[nodiscard]] ComPointer<IDataObject> objectOf(const clipboard::Content& content);

}  // namespace platform::win32::transfer
