// What programs give to each other, as the system passes it on.
#pragma once

#include <windows.h>
// Needs <windows.h> first.
#include <objidl.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/clipboard.h"
#include "platform/win32/handles.h"

namespace platform::win32::transfer {

/// The bytes of a content in a format of the system.
struct Format {
  CLIPFORMAT number = 0;
  std::string bytes;
};

/// A content in all formats that it has a part for.
[[nodiscard]] std::vector<Format> formatsOf(const clipboard::Content& content);
/// The content in such formats. `bytesOf` gives the bytes of one, "" for one that is not there.
[[nodiscard]] clipboard::Content contentFrom(const std::function<std::string(CLIPFORMAT)>& bytesOf);

/// Memory with these bytes, to be given away; empty when there is none left.
[[nodiscard]] GlobalMemory memoryWith(std::string_view bytes);
/// The bytes in such memory, which another program may have filled; "" for null.
[[nodiscard]] std::string bytesIn(HGLOBAL memory);

/// The files, the text and the address that an object offers; empty parts for everything else.
[[nodiscard]] clipboard::Content contentOf(IDataObject& data);

/// An object that offers them; null if there is no memory left.
[[nodiscard]] ComPointer<IDataObject> objectOf(const clipboard::Content& content);

}  // namespace platform::win32::transfer
