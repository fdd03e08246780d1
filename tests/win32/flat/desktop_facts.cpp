#include "desktop_facts.h"

#include <bit>
#include <cstdint>
#include <sstream>

#include "harness/gdi_table.h"
#include "platform/win32/handles.h"

namespace flat_tests {

namespace {

using harness::GdiTable;
using platform::win32::BitmapHandle;
using platform::win32::MemoryDc;
using platform::win32::Selection;
using platform::win32::WindowDc;

constexpr std::array<int, 4> colourNumbers{COLOR_WINDOW, COLOR_BTNFACE, COLOR_BTNSHADOW,
                                           COLOR_BTNHIGHLIGHT};

/// The value of type `Value` at an address.
template <class Value>
Value valueAt(std::uintptr_t address) {
  return *std::bit_cast<const Value*>(address);
}

/// The GDI table, found through the blocks that describe the thread and the process.
const GdiTable* gdiTable() {
  constexpr std::uintptr_t processInThread = 0x60;
#ifdef _WIN64
  const std::uintptr_t process = __readgsqword(processInThread);
  return valueAt<const GdiTable*>(process + harness::gdiTableInBlock);
#else
  // For a 32-bit program on a 64-bit system, the table is in the blocks of the 64-bit side. Their
  // addresses fit into 32 bits.
  constexpr unsigned long otherThreadInThread = 0xF70;
  if (const std::uintptr_t thread = __readfsdword(otherThreadInThread); thread != 0) {
    const auto process = valueAt<std::uintptr_t>(thread + processInThread);
    return valueAt<const GdiTable*>(process + harness::gdiTableInBlock);
  }
  constexpr unsigned long narrowProcessInThread = 0x30;
  constexpr std::uintptr_t narrowTableInProcess = 0x94;
  return valueAt<const GdiTable*>(__readfsdword(narrowProcessInThread) + narrowTableInProcess);
#endif
}

BOOL CALLBACK countOne(HWND /*window*/, LPARAM count) {
  ++*std::bit_cast<int*>(count);
  return TRUE;
}

BOOL CALLBACK countWithChildren(HWND window, LPARAM count) {
  countOne(window, count);
  EnumChildWindows(window, countOne, count);
  return TRUE;
}

}  // namespace

DistinctColours::DistinctColours() {
  for (std::size_t i = 0; i < count; ++i) {
    former_.at(i) = GetSysColor(colourNumbers.at(i));
  }
  constexpr std::array<COLORREF, count> wanted{background, face, shadow, highlight};
  SetSysColors(static_cast<int>(count), colourNumbers.data(), wanted.data());
}

DistinctColours::~DistinctColours() {
  SetSysColors(static_cast<int>(count), colourNumbers.data(), former_.data());
}

int gdiObjects() {
  if (const DWORD counted = GetGuiResources(GetCurrentProcess(), GR_GDIOBJECTS); counted != 0) {
    return static_cast<int>(counted);
  }
  return static_cast<int>(harness::objectsIn(*gdiTable()));
}

int windowCount() {
  int count = 0;
  EnumThreadWindows(GetCurrentThreadId(), countWithChildren, std::bit_cast<LPARAM>(&count));
  return count;
}

void pump() {
  MSG message{};
  while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
    TranslateMessage(&message);
    DispatchMessageW(&message);
    if (message.message == WM_TIMER) {
      // On a busy machine there is always a timer message waiting.
      return;
    }
  }
}

Pixels pixelsAt(HWND window, const Pixels& wanted) {
  RECT client{};
  GetClientRect(window, &client);
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = client.right;
  info.bmiHeader.biHeight = -client.bottom;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* bits = nullptr;
  const WindowDc source(window);
  const MemoryDc copy(CreateCompatibleDC(source.get()));
  const BitmapHandle bitmap(CreateDIBSection(copy.get(), &info, DIB_RGB_COLORS, &bits, nullptr, 0));
  const Selection selected(copy.get(), bitmap.get());
  BitBlt(copy.get(), 0, 0, client.right, client.bottom, source.get(), 0, 0, SRCCOPY);
  GdiFlush();
  const auto* const rows = static_cast<const std::uint32_t*>(bits);
  Pixels found;
  for (const auto& [place, colour] : wanted) {
    const auto& [x, y] = place;
    if (x < 0 || y < 0 || x >= client.right || y >= client.bottom) {
      continue;
    }
    const std::uint32_t pixel = rows[static_cast<std::ptrdiff_t>(y) * client.right + x];
    found[place] = RGB((pixel >> 16U) & 0xFFU, (pixel >> 8U) & 0xFFU, pixel & 0xFFU);
  }
  return found;
}

std::string difference(const Pixels& found, const Pixels& wanted) {
  constexpr int some = 6;
  int differing = 0;
  std::ostringstream text;
  text << std::hex;
  for (const auto& [place, colour] : wanted) {
    const auto at = found.find(place);
    if (at != found.end() && at->second == colour) {
      continue;
    }
    if (++differing <= some) {
      text << "; (" << std::dec << place.first << ", " << place.second << ") is " << std::hex
           << (at == found.end() ? CLR_INVALID : at->second) << ", expected " << colour;
    }
  }
  return std::to_string(differing) + " of " + std::to_string(wanted.size()) + " pixels differ" +
         text.str();
}

void Pointer::park() {
  place_ = {2, 2};
  hold();
}

void Pointer::moveTo(HWND window) {
  RECT client{};
  GetClientRect(window, &client);
  place_ = {client.right / 2, client.bottom / 2};
  ClientToScreen(window, &place_);
  hold();
}

void Pointer::hold() {
  beside_ = !beside_;
  SetCursorPos(place_.x + (beside_ ? 1 : 0), place_.y);
}

void clickAt(HWND window, int x, int y) {
  POINT place{x, y};
  ClientToScreen(window, &place);
  SetCursorPos(place.x, place.y);
  std::array<INPUT, 2> inputs{};
  inputs[0].type = INPUT_MOUSE;
  inputs[0].mi.dwFlags = MOUSEEVENTF_LEFTDOWN;
  inputs[1].type = INPUT_MOUSE;
  inputs[1].mi.dwFlags = MOUSEEVENTF_LEFTUP;
  SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

}  // namespace flat_tests
