#include "platform/clipboard.h"

#include <windows.h>
// Needs <windows.h> first.
#include <shlobj.h>

#include <cstring>
#include <vector>

#include "platform/win32/modality.h"

namespace platform::clipboard {
namespace {

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
HGLOBAL copyOf(const void* bytes, std::size_t size) {
  HGLOBAL const memory = GlobalAlloc(GMEM_MOVEABLE, size);
  if (memory != nullptr) {
    std::memcpy(GlobalLock(memory), bytes, size);
    GlobalUnlock(memory);
  }
  return memory;
}

/// Puts bytes there. If that succeeds, the system owns the copy.
bool putBytes(UINT format, const void* bytes, std::size_t size) {
  HGLOBAL const memory = copyOf(bytes, size);
  if (memory == nullptr) return false;
  if (SetClipboardData(format, memory) != nullptr) return true;
  GlobalFree(memory);
  return false;
}

bool putText(const std::wstring& text) {
  return putBytes(CF_UNICODETEXT, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

/// A header, then the paths, each with its final NUL, and another NUL.
bool putFiles(const std::vector<std::wstring>& files) {
  DROPFILES header{};
  header.pFiles = sizeof header;
  header.fWide = TRUE;
  std::wstring paths;
  for (const std::wstring& file : files) paths.append(file).push_back(L'\0');
  paths.push_back(L'\0');
  std::vector<char> bytes(sizeof header + paths.size() * sizeof(wchar_t));
  std::memcpy(bytes.data(), &header, sizeof header);
  std::memcpy(bytes.data() + sizeof header, paths.data(), paths.size() * sizeof(wchar_t));
  return putBytes(CF_HDROP, bytes.data(), bytes.size());
}

}  // namespace

bool put(const Content& content) {
  const Open open;
  if (!open || EmptyClipboard() == 0) return false;
  return (content.text.empty() || putText(content.text)) &&
         (content.files.empty() || putFiles(content.files));
}

}  // namespace platform::clipboard
