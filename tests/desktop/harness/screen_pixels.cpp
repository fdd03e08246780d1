#include "harness/screen_pixels.h"

#include <cstddef>

#include "harness/wait.h"

namespace harness {

ScreenPixels screenPixels(const RECT& place) {
  ScreenPixels copied{
      static_cast<int>(place.right - place.left), static_cast<int>(place.bottom - place.top), {}};
  if (copied.width <= 0 || copied.height <= 0) {
    throw Failure("there is nothing to look at");
  }
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = copied.width;
  info.bmiHeader.biHeight = -copied.height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* bits = nullptr;
  HDC const screen = GetDC(nullptr);
  HDC const copy = CreateCompatibleDC(screen);
  HBITMAP const bitmap = CreateDIBSection(copy, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  HGDIOBJ const before = SelectObject(copy, bitmap);
  BitBlt(copy, 0, 0, copied.width, copied.height, screen, place.left, place.top, SRCCOPY);
  GdiFlush();
  const auto* const first = static_cast<const std::uint32_t*>(bits);
  copied.pixels.assign(first, first + static_cast<std::ptrdiff_t>(copied.width) * copied.height);
  SelectObject(copy, before);
  DeleteObject(bitmap);
  DeleteDC(copy);
  ReleaseDC(nullptr, screen);
  return copied;
}

}  // namespace harness
