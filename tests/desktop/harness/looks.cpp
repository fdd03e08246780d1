#include "harness/looks.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>

#include "harness/screen_pixels.h"

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
  std::map<COLORREF, std::size_t> counts;
  for (const std::uint32_t pixel : screenPixels(place).pixels) {
    ++counts[RGB(pixel >> 16U & 0xFFU, pixel >> 8U & 0xFFU, pixel & 0xFFU)];
  }
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
