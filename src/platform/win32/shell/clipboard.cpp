#include "platform/clipboard.h"

#include <windows.h>

#include <algorithm>
#include <vector>

#include "platform/win32/modality.h"
#include "platform/win32/shell/transfer.h"

namespace platform::clipboard {
namespace {

namespace transfer = platform::win32::transfer;

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

/// Puts bytes there. If that succeeds, the system owns the copy.
bool putFormat(const transfer::Format& format) {
  win32::GlobalMemory memory = transfer::memoryWith(format.bytes);
  if (!memory || SetClipboardData(format.number, memory.get()) == nullptr) return false;
  static_cast<void>(memory.release());
  return true;
}

}  // namespace

bool put(const Content& content) {
  const Open open;
  if (!open || EmptyClipboard() == 0) return false;
  const std::vector<transfer::Format> formats = transfer::formatsOf(content);
  return std::all_of(formats.begin(), formats.end(), putFormat);
}

Content content() {
  const Open open;
  if (!open) return {};
  return transfer::contentFrom(
      [](CLIPFORMAT number) { return transfer::bytesIn(GetClipboardData(number)); });
}

}  // namespace platform::clipboard
