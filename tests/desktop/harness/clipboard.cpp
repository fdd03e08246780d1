#include "harness/clipboard.h"

#include <windows.h>
// Needs <windows.h> first.
#include <shlobj.h>

#include <cstring>

#include "harness/wait.h"

namespace harness {

namespace {

void openBoard() {
  waitUntil("the clipboard is free", [] { return OpenClipboard(nullptr) != FALSE; });
}

void put(UINT format, const void* bytes, std::size_t size) {
  openBoard();
  EmptyClipboard();
  HGLOBAL const memory = GlobalAlloc(GMEM_MOVEABLE, size);
  std::memcpy(GlobalLock(memory), bytes, size);
  GlobalUnlock(memory);
  const bool done = SetClipboardData(format, memory) != nullptr;
  CloseClipboard();
  if (!done) {
    throw Failure("nothing can be put on the clipboard");
  }
}

}  // namespace

std::wstring clipboardText() {
  // Whoever has the clipboard open keeps others from copying, and a text box does not try again. So
  // it is opened only when something has been copied since.
  static DWORD lastRead = 0;
  static std::wstring text;
  const DWORD number = GetClipboardSequenceNumber();
  if (number != lastRead && OpenClipboard(nullptr) != 0) {
    text.clear();
    lastRead = number;
    if (HANDLE const memory = GetClipboardData(CF_UNICODETEXT); memory != nullptr) {
      text = static_cast<const wchar_t*>(GlobalLock(memory));
      GlobalUnlock(memory);
    }
    CloseClipboard();
  }
  return text;
}

std::vector<std::wstring> clipboardFiles() {
  std::vector<std::wstring> files;
  if (OpenClipboard(nullptr) != 0) {
    if (auto* const drop = static_cast<HDROP>(GetClipboardData(CF_HDROP)); drop != nullptr) {
      files = filesOf(drop);
    }
    CloseClipboard();
  }
  return files;
}

std::vector<std::wstring> filesOf(HDROP drop) {
  std::vector<std::wstring> files;
  const UINT count = DragQueryFileW(drop, 0xFFFFFFFF, nullptr, 0);
  for (UINT n = 0; n < count; ++n) {
    std::wstring path(DragQueryFileW(drop, n, nullptr, 0), L'\0');
    DragQueryFileW(drop, n, path.data(), static_cast<UINT>(path.size()) + 1);
    files.push_back(path);
  }
  return files;
}

void copyFiles(const std::vector<std::wstring>& files) {
  DROPFILES header{};
  header.pFiles = sizeof header;
  header.fWide = TRUE;
  std::string bytes(reinterpret_cast<const char*>(&header), sizeof header);
  for (const std::wstring& file : files) {
    bytes.append(reinterpret_cast<const char*>(file.c_str()), (file.size() + 1) * sizeof(wchar_t));
  }
  bytes.append(sizeof(wchar_t), '\0');
  put(CF_HDROP, bytes.data(), bytes.size());
}

void copyText(const std::wstring& text) {
  put(CF_UNICODETEXT, text.c_str(), (text.size() + 1) * sizeof(wchar_t));
}

}  // namespace harness
