#include "platform/clipboard.h"

#include <windows.h>
// Needs <windows.h> first.
#include <shellapi.h>
#include <shlobj.h>

#include <algorithm>
#include <cstring>
#include <utility>

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

/// Puts bytes there, which then belong to the system.
bool putBytes(UINT format, const void* bytes, std::size_t size) {
  HGLOBAL const memory = GlobalAlloc(GMEM_MOVEABLE, size);
  if (memory == nullptr) return false;
  if (void* const place = GlobalLock(memory); place != nullptr) {
    std::memcpy(place, bytes, size);
    GlobalUnlock(memory);
    if (SetClipboardData(format, memory) != nullptr) return true;
  }
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

std::wstring textThere() {
  HANDLE const memory = GetClipboardData(CF_UNICODETEXT);
  const auto* const text = memory == nullptr ? nullptr : static_cast<wchar_t*>(GlobalLock(memory));
  if (text == nullptr) return {};
  // Another program may have forgotten the final NUL.
  const std::size_t most = GlobalSize(memory) / sizeof(wchar_t);
  std::wstring copied(text, std::find(text, text + most, L'\0'));
  GlobalUnlock(memory);
  return copied;
}

std::vector<std::wstring> filesThere() {
  const auto drop = static_cast<HDROP>(GetClipboardData(CF_HDROP));
  if (drop == nullptr) return {};
  std::vector<std::wstring> files;
  constexpr UINT all = 0xFFFFFFFF;
  const UINT count = DragQueryFileW(drop, all, nullptr, 0);
  for (UINT n = 0; n < count; ++n) {
    std::wstring path(DragQueryFileW(drop, n, nullptr, 0), L'\0');
    DragQueryFileW(drop, n, path.data(), static_cast<UINT>(path.size()) + 1);
    files.push_back(std::move(path));
  }
  return files;
}

}  // namespace

bool put(const Content& content) {
  const Open open;
  if (!open || EmptyClipboard() == 0) return false;
  return (content.text.empty() || putText(content.text)) &&
         (content.files.empty() || putFiles(content.files));
}

Content content() {
  const Open open;
  return open ? Content{textThere(), filesThere()} : Content{};
}

}  // namespace platform::clipboard
