// Reads icons from arbitrary bytes as a program file.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/support/fuzz.h"
#include "icons/icon_images.h"

using fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  constexpr platform::pictures::Sizes sides{8, 4};
  const std::string file(reinterpret_cast<const char*>(bytes), size);
  // More than a few dozen reads would make a damaged file slow.
  constexpr std::size_t mostReads = 64;
  std::size_t reads = 0;
  const auto pictures = icons::storedIcons(
      [&](std::uint64_t place, std::size_t wanted) {
        ++reads;
        return place >= file.size() ? std::string()
                                    : file.substr(static_cast<std::size_t>(place), wanted);
      },
      sides,
      // What the system makes of a packed image: a picture of the right size, or of another one.
      [](std::string_view image, int side) -> std::optional<platform::Picture> {
        if (image.empty()) {
          return std::nullopt;
        }
        const int made = side + image.front() % 2;
        const auto pixels = static_cast<std::size_t>(made) * static_cast<std::size_t>(made);
        return platform::Picture{.size = {made, made},
                                 .pixels = std::vector<std::uint32_t>(pixels, 0x80ABCDEFU)};
      });
  require(reads <= mostReads, "few looks at the file");
  if (pictures) {
    for (std::size_t i = 0; i < sides.size(); ++i) {
      const platform::Picture& picture = pictures->at(i);
      require(picture.size == platform::Size{sides.at(i), sides.at(i)}, "a picture is of its size");
      require(picture.pixels.size() == static_cast<std::size_t>(sides.at(i)) * sides.at(i),
              "every pixel is there");
    }
  }
  return 0;
}
