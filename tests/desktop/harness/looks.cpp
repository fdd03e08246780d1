#include "harness/looks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>

#include "harness/wait.h"

namespace harness {
namespace {

double luminance(COLORREF colour) {
  const auto linear = [](int part) {
    const double share = part / 255.0;
    return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(GetRValue(colour)) + 0.7152 * linear(GetGValue(colour)) +
         0.0722 * linear(GetBValue(colour));
}

/// How often each colour occurs.
std::map<COLORREF, std::size_t> coloursAt(const RECT& place) {
  const int width = place.right - place.left;
  const int height = place.bottom - place.top;
  if (width <= 0 || height <= 0) {
    throw Failure("there is nothing to look at");
  }
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof(info.bmiHeader);
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  void* bits = nullptr;
  HDC const screen = GetDC(nullptr);
  HDC const copy = CreateCompatibleDC(screen);
  HBITMAP const bitmap = CreateDIBSection(copy, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
  HGDIOBJ const before = SelectObject(copy, bitmap);
  BitBlt(copy, 0, 0, width, height, screen, place.left, place.top, SRCCOPY);
  GdiFlush();
  std::map<COLORREF, std::size_t> counts;
  const auto* const pixels = static_cast<const std::uint32_t*>(bits);
  for (std::ptrdiff_t i = 0; i < static_cast<std::ptrdiff_t>(width) * height; ++i) {
    const std::uint32_t pixel = pixels[i];
    ++counts[RGB(pixel >> 16U & 0xFFU, pixel >> 8U & 0xFFU, pixel & 0xFFU)];
  }
  SelectObject(copy, before);
  DeleteObject(bitmap);
  DeleteDC(copy);
  ReleaseDC(nullptr, screen);
  return counts;
}

}  // namespace

void paint(HWND window) { RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN); }

double contrast(COLORREF a, COLORREF b) {
  const auto [low, high] = std::minmax({luminance(a), luminance(b)});
  return (high + 0.05) / (low + 0.05);
}

Writing writingAt(const RECT& place) {
  const std::map<COLORREF, std::size_t> counts = coloursAt(place);
  Writing writing;
  std::size_t most = 0;
  for (const auto& [colour, count] : counts) {
    if (count > most) {
      most = count;
      writing.background = colour;
    }
  }
  writing.text = writing.background;
  for (const auto& [colour, count] : counts) {
    if (colour != writing.background) {
      writing.pixels += count;
    }
    if (contrast(colour, writing.background) > writing.contrast()) {
      writing.text = colour;
    }
  }
  return writing;
}

std::size_t pixelsOf(COLORREF colour, const RECT& place) {
  const auto counts = coloursAt(place);
  const auto found = counts.find(colour);
  return found == counts.end() ? 0 : found->second;
}

std::string colourText(COLORREF colour) {
  std::array<char, 8> text{};
  std::snprintf(text.data(), text.size(), "#%02x%02x%02x", static_cast<unsigned>(GetRValue(colour)),
                static_cast<unsigned>(GetGValue(colour)), static_cast<unsigned>(GetBValue(colour)));
  return text.data();
}

}  // namespace harness
