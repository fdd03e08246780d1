// Every icon is in the built program file at every screen density up to 400 %, so that none has to
// be stretched; the two large pictures are drawings.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <bit>
#include <cstddef>
#include <cstring>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "harness/paths.h"
#include "harness/text.h"
#include "program_resources.h"

namespace desktop_tests {
namespace {

constexpr std::array percents{100, 125, 150, 175, 200, 250, 300, 400};
constexpr int largestInAnIcon = 256;

// A named function: on 32-bit Windows a lambda does not have the calling convention of a callback.
// NOLINTNEXTLINE(readability-non-const-parameter): the system defines the parameters.
BOOL CALLBACK takeName(HMODULE /*module*/, const wchar_t* /*type*/, wchar_t* name, LONG_PTR into) {
  std::bit_cast<std::vector<std::wstring>*>(into)->push_back(IS_INTRESOURCE(name) ? L"(a number)"
                                                                                  : name);
  return TRUE;
}

class PicturesInExe : public ProgramResources {
 protected:
  /// A number of two or four bytes, lowest byte first.
  template <class T>
  static T number(std::string_view from, std::size_t place) {
    T value{};
    EXPECT_LE(place + sizeof value, from.size());
    if (place + sizeof value <= from.size()) {
      std::memcpy(&value, from.data() + place, sizeof value);
    }
    return value;
  }

  /// Side of an icon's image by its own head, packed or not.
  static int sideOf(std::string_view image) {
    constexpr std::string_view packedMark = "\x89PNG\r\n\x1A\n";
    constexpr std::size_t packedWidth = 16;  // highest byte first
    if (!image.starts_with(packedMark)) {
      return static_cast<int>(number<DWORD>(image, 4));
    }
    DWORD width = 0;
    for (std::size_t i = 0; i < sizeof width; ++i) {
      width = width << 8U | number<BYTE>(image, packedWidth + i);
    }
    return static_cast<int>(width);
  }

  /// The sides of an icon's images, in pixels.
  [[nodiscard]] std::set<int> sidesOf(const wchar_t* name) const {
    constexpr std::size_t head = 6;
    constexpr std::size_t entry = 14;
    const std::string_view directory = resource(name, MAKEINTRESOURCEW(14));
    std::set<int> sides;
    for (std::size_t i = 0; i < number<WORD>(directory, 4); ++i) {
      const std::size_t place = head + i * entry;
      const auto image =
          resource(MAKEINTRESOURCEW(number<WORD>(directory, place + 12)), MAKEINTRESOURCEW(3));
      EXPECT_EQ(sideOf(image) % largestInAnIcon, number<BYTE>(directory, place));
      sides.insert(sideOf(image));
    }
    return sides;
  }

  /// The names of all icons of the program, in their order.
  [[nodiscard]] std::vector<std::wstring> icons() const {
    std::vector<std::wstring> names;
    EnumResourceNamesW(module_, MAKEINTRESOURCEW(14), takeName, std::bit_cast<LONG_PTR>(&names));
    return names;
  }
};

/// Where an icon is shown, as its sides in pixels at 96 dpi.
std::set<int> shownAt(const std::wstring& icon) {
  if (icon.starts_with(L"TB_")) {
    return {24};
  }
  return {16, 32};
}

TEST_F(PicturesInExe, EveryIconIsDrawnForEveryDensity) {
  const std::vector<std::wstring> all = icons();
  EXPECT_THAT(all, ::testing::IsSupersetOf(
                       {L"AA_PROGRAM", L"PV3", L"BW3", L"CW3", L"WEB", L"TB_HELP", L"TB_CREATE"}));
  for (const std::wstring& icon : all) {
    if (icon == L"MISSING") {
      continue;  // a mark on other icons, which has its own sizes
    }
    for (const int side : shownAt(icon)) {
      for (const int percent : percents) {
        EXPECT_THAT(sidesOf(icon.c_str()), ::testing::Contains(side * percent / 100))
            << harness::utf8(icon) << " at " << percent << " %";
      }
    }
  }
}

TEST_F(PicturesInExe, TheFirstOneIsTheProgramsOwn) {
  // The system shows it in folders, in the Start menu and in shortcuts.
  const std::vector<std::wstring> all = icons();
  ASSERT_FALSE(all.empty());
  EXPECT_EQ(all.front(), L"AA_PROGRAM");
}

TEST_F(PicturesInExe, TheTaskBarHasItsOwnSizes) {
  for (const int percent : percents) {
    EXPECT_THAT(sidesOf(L"AA_PROGRAM"), ::testing::Contains(24 * percent / 100));
  }
}

TEST_F(PicturesInExe, TheMarkOfAMissingFileHasItsOwnSizes) {
  // It covers a part of an icon, so its sizes do not grow in the steps of the densities.
  EXPECT_THAT(sidesOf(L"MISSING"),
              ::testing::ElementsAre(9, 11, 12, 14, 16, 18, 20, 22, 24, 28, 32, 36, 40, 48, 56));
}

TEST_F(PicturesInExe, TheLargeOnesAreDrawings) {
  for (const wchar_t* const name : {L"SPLASH", L"ABOUT"}) {
    EXPECT_TRUE(resource(name, MAKEINTRESOURCEW(10)).starts_with("size ")) << harness::utf8(name);
  }
}

}  // namespace
}  // namespace desktop_tests
