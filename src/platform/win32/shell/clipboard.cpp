#include "platform/clipboard.h"

#include <windows.h>
// Needs <windows.h> first.
#include <shlobj.h>

#include <cstring>
#include <string>
#include <string_view>

#include "platform/transfer_format.h"
#include "platform/win32/modality.h"

namespace platform::clipboard {
namespace {

namespace format = platform::transfer_format;

/// The open clipboard. Another program may have it open for a moment.
class Open {
 public:
  Open() {
    constexpr int mostTries = 10;
    constexpr DWORD pauseMs = 20;
    HWND const owner = win32::dialogOwner();
    for (int tries = 0; !open_ && tries < mostTries; ++tries) {
      if (tries > 0) Sleep(pauseMs);
      open_ = OpenClipboard(owner) != 0;
    }
  }
  Open(const Open&) = delete;
  Open& operator=(const Open&) = delete;
  ~Open() {
    if (open_) CloseClipboard();
  }
  [[nodiscard]] explicit operator bool() const { return open_; }

 private:
  bool open_ = false;
};

/// A copy of the bytes in memory of the kind that the clipboard takes; null when there is none
/// left.
HGLOBAL copyOf(std::string_view bytes) {
  HGLOBAL const memory = GlobalAlloc(GMEM_MOVEABLE, bytes.size());
  if (memory != nullptr) {
    std::memcpy(GlobalLock(memory), bytes.data(), bytes.size());
    GlobalUnlock(memory);
  }
  return memory;
}

/// Puts bytes there. If that succeeds, the system owns the copy.
bool putBytes(UINT format, std::string_view bytes) {
  HGLOBAL const memory = copyOf(bytes);
  if (memory == nullptr) return false;
  if (SetClipboardData(format, memory) != nullptr) return true;
  GlobalFree(memory);
  return false;
}

/// The bytes of a format that is there; "" for none.
std::string bytesThere(UINT format) {
  HANDLE const memory = GetClipboardData(format);
  const auto* const place =
      memory == nullptr ? nullptr : static_cast<const char*>(GlobalLock(memory));
  if (place == nullptr) return {};
  // Other programs give the memory, so what is in it must not decide how far it is read.
  std::string bytes(place, GlobalSize(memory));
  GlobalUnlock(memory);
  return bytes;
}

}  // namespace

bool put(const Content& content) {
  const Open open;
  if (!open || EmptyClipboard() == 0) return false;
  return (content.text.empty() || putBytes(CF_UNICODETEXT, format::fromText(content.text))) &&
         (content.files.empty() || putBytes(CF_HDROP, format::fromFiles(content.files)));
}

Content content() {
  const Open open;
  if (!open) return {};
  return {.text = format::textIn(bytesThere(CF_UNICODETEXT)),
          .files = format::filesIn(bytesThere(CF_HDROP)),
          .address = format::textIn(bytesThere(RegisterClipboardFormatW(CFSTR_INETURLW)))};
}

}  // namespace platform::clipboard
