// Reads icons from arbitrary bytes as a program file.
#include <string>

#include "fuzz/support/fuzz.h"
#include "icons/icon_images.h"

using fuzz::require;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  constexpr platform::pictures::Sizes sides{8, 4};
  const std::string file(reinterpret_cast<const char*>(bytes), size);
  // More than a few dozen reads would make a damaged file slow.
  constexpr std::size_t mostReads = 64;
  std::size_t reads = 0;
  const auto pictures = icons::unpackedIcons(
      [&](std::uint64_t place, std::size_t wanted) {
        ++reads;
        return place >= file.size() ? std::string()
                                    : file.substr(static_cast<std::size_t>(place), wanted);
      },
      sides);
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
