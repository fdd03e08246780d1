#include "icons/icon_images.h"

#include <algorithm>
#include <array>
#include <utility>

#include "icons/scaling.h"

namespace icons {

using platform::Size;

namespace {

constexpr std::uint32_t alphaMask = 0xFF000000U;

/// A number of `bytes` bytes at `place`, lowest byte first; nothing past the end.
std::optional<std::uint32_t> number(std::string_view from, std::uint64_t place, std::size_t bytes) {
  if (place > from.size() || from.size() - place < bytes) {
    return std::nullopt;
  }
  std::uint32_t value = 0;
  for (std::size_t i = bytes; i-- > 0;) {
    value = value << 8U | static_cast<unsigned char>(from[static_cast<std::size_t>(place) + i]);
  }
  return value;
}

std::optional<std::uint32_t> word(std::string_view from, std::uint64_t place) {
  return number(from, place, 2);
}

std::optional<std::uint32_t> doubleWord(std::string_view from, std::uint64_t place) {
  return number(from, place, 4);
}

// Images.

/// The header of a bitmap.
struct BitmapHead {
  std::uint32_t side;
  std::uint32_t bits;     // per pixel
  std::uint32_t colours;  // in the palette
};

constexpr std::uint32_t headSize = 40;
constexpr std::uint32_t largestSide = 256;

std::optional<BitmapHead> headOf(std::string_view image) {
  const auto size = doubleWord(image, 0);
  const auto width = doubleWord(image, 4);
  const auto height = doubleWord(image, 8);  // of the colours and the mask together
  const auto bits = word(image, 14);
  const auto packing = doubleWord(image, 16);
  const auto used = doubleWord(image, 32);
  if (!used || *size != headSize || *width == 0 || *width > largestSide || *height != 2 * *width ||
      *packing != 0) {
    return std::nullopt;
  }
  constexpr std::array known{1U, 4U, 8U, 24U, 32U};
  if (std::find(known.begin(), known.end(), *bits) == known.end()) {
    return std::nullopt;
  }
  constexpr std::uint32_t mostIndexed = 8;
  std::uint32_t colours = 0;
  if (*bits <= mostIndexed) {
    const std::uint32_t all = 1U << *bits;
    colours = *used == 0 ? all : *used;
    if (colours > all) {
      return std::nullopt;
    }
  }
  return BitmapHead{*width, *bits, colours};
}

/// Bytes per row of pixels; rows are padded to 32 bits.
std::size_t rowSize(std::uint32_t side, std::uint32_t bits) {
  return (static_cast<std::size_t>(side) * bits + 31) / 32 * 4;
}

/// Value of pixel `x` of a row with up to eight bits per pixel. The first pixel is in the highest
/// bits.
std::uint32_t valueAt(std::string_view row, std::uint32_t x, std::uint32_t bits) {
  const auto byte = static_cast<unsigned char>(row[static_cast<std::size_t>(x) * bits / 8]);
  return byte >> (8 - bits - x * bits % 8) & ((1U << bits) - 1);
}

/// One pixel as it is stored. An index outside the palette gives black, as in the system.
std::uint32_t storedPixel(std::string_view row, std::uint32_t x, const BitmapHead& head,
                          std::string_view palette) {
  constexpr std::uint32_t colourMask = 0x00FFFFFFU;
  if (head.bits == 32) {
    return doubleWord(row, static_cast<std::uint64_t>(x) * 4).value_or(0);
  }
  if (head.bits == 24) {
    return number(row, static_cast<std::uint64_t>(x) * 3, 3).value_or(0);
  }
  const std::uint32_t index = valueAt(row, x, head.bits);
  return doubleWord(palette, static_cast<std::uint64_t>(index) * 4).value_or(0) & colourMask;
}

// Resources.

/// The resource tree of a program file.
class Resources {
 public:
  /// A branch or a leaf of the tree: the offset of its table from the root.
  struct Node {
    std::uint32_t place;
    bool branch;
  };

  static std::optional<Resources> of(const ReadAt& file);

  [[nodiscard]] std::optional<Node> child(std::uint32_t table, std::uint32_t id) const;
  [[nodiscard]] std::optional<Node> firstChild(std::uint32_t table) const;
  /// The bytes under a table that has exactly one language.
  [[nodiscard]] std::optional<std::string> bytes(const Node& table) const;

 private:
  Resources(const ReadAt& file, std::uint64_t place, std::uint32_t address)
      : file_(&file), place_(place), address_(address) {}

  [[nodiscard]] std::uint32_t children(std::uint32_t table) const;
  [[nodiscard]] std::string entry(std::uint32_t table, std::uint32_t index) const;
  static std::optional<Node> nodeOf(const std::string& entry);

  const ReadAt* file_;
  std::uint64_t place_;    // of the root in the file
  std::uint32_t address_;  // of the root in the loaded program
};

constexpr std::uint32_t highBit = 0x80000000U;
constexpr std::uint32_t tableHead = 16;
constexpr std::uint32_t entrySize = 8;

std::optional<Resources> Resources::of(const ReadAt& file) {
  constexpr std::uint32_t programMark = 0x00004550;  // "PE"
  constexpr std::size_t fileHead = 24;
  constexpr std::size_t sectionHead = 40;
  const auto start = doubleWord(file(0x3C, 4), 0);
  if (!start) {
    return std::nullopt;
  }
  const std::string head = file(*start, fileHead);
  const auto mark = doubleWord(head, 0);
  const auto sections = word(head, 6);
  const auto optionalSize = word(head, 20);
  if (!optionalSize || *mark != programMark) {
    return std::nullopt;
  }
  const std::string rest =
      file(static_cast<std::uint64_t>(*start) + fileHead, *optionalSize + *sections * sectionHead);
  // The fields before the table of directories have different widths in 32-bit and 64-bit programs.
  // The third directory is the one of the resources.
  const auto kind = word(rest, 0);
  constexpr std::uint32_t narrow = 0x10B;
  constexpr std::uint32_t wide = 0x20B;
  if (!kind || (*kind != narrow && *kind != wide)) {
    return std::nullopt;
  }
  const std::uint32_t directories = *kind == narrow ? 92 : 108;
  constexpr std::uint32_t throughThird = 3;
  if (doubleWord(rest, directories).value_or(0) < throughThird) {
    return std::nullopt;
  }
  const auto address = doubleWord(rest, directories + 4 + 2 * 8);
  if (!address || *address == 0) {
    return std::nullopt;
  }
  for (std::uint32_t i = 0; i < *sections; ++i) {
    const std::uint64_t section = *optionalSize + i * sectionHead;
    const auto loaded = doubleWord(rest, section + 12);
    const auto size = doubleWord(rest, section + 16);
    const auto stored = doubleWord(rest, section + 20);
    if (stored && *address >= *loaded && *address - *loaded < *size) {
      return Resources(file, static_cast<std::uint64_t>(*stored) + (*address - *loaded), *address);
    }
  }
  return std::nullopt;
}

std::uint32_t Resources::children(std::uint32_t table) const {
  const std::string counts = (*file_)(place_ + table + 12, 4);
  return word(counts, 0).value_or(0) + word(counts, 2).value_or(0);
}

std::string Resources::entry(std::uint32_t table, std::uint32_t index) const {
  return (*file_)(place_ + table + tableHead + static_cast<std::uint64_t>(index) * entrySize,
                  entrySize);
}

std::optional<Resources::Node> Resources::nodeOf(const std::string& entry) {
  const auto place = doubleWord(entry, 4);
  if (!place) {
    return std::nullopt;
  }
  return Node{*place & ~highBit, (*place & highBit) != 0};
}

std::optional<Resources::Node> Resources::child(std::uint32_t table, std::uint32_t id) const {
  const std::uint32_t count = children(table);
  const std::string entries =
      (*file_)(place_ + table + tableHead, static_cast<std::size_t>(count) * entrySize);
  for (std::uint32_t i = 0; i < count; ++i) {
    if (doubleWord(entries, static_cast<std::uint64_t>(i) * entrySize) == id) {
      return nodeOf(entries.substr(static_cast<std::size_t>(i) * entrySize, entrySize));
    }
  }
  return std::nullopt;
}

std::optional<Resources::Node> Resources::firstChild(std::uint32_t table) const {
  return children(table) == 0 ? std::nullopt : nodeOf(entry(table, 0));
}

std::optional<std::string> Resources::bytes(const Node& table) const {
  constexpr std::uint32_t largest = 1U << 20U;
  if (!table.branch || children(table.place) != 1) {
    return std::nullopt;
  }
  const auto leaf = firstChild(table.place);
  if (!leaf || leaf->branch) {
    return std::nullopt;
  }
  const std::string description = (*file_)(place_ + leaf->place, entrySize);
  const auto address = doubleWord(description, 0);
  const auto size = doubleWord(description, 4);
  if (!size || *address < address_ || *size > largest) {
    return std::nullopt;
  }
  return (*file_)(place_ + (*address - address_), *size);
}

}  // namespace

void completeTransparency(Picture& picture, const std::vector<bool>& clear) {
  if (std::any_of(picture.pixels.begin(), picture.pixels.end(),
                  [](std::uint32_t pixel) { return (pixel & alphaMask) != 0; })) {
    return;
  }
  for (std::size_t i = 0; i < picture.pixels.size(); ++i) {
    const bool leftOut = i >= clear.size() || clear[i];
    picture.pixels[i] = leftOut ? 0 : picture.pixels[i] | alphaMask;
  }
}

std::optional<StoredImage> imageFor(std::string_view directory, int side) {
  constexpr std::uint32_t iconMark = 0x00010000;  // two bytes of nothing, then the type 1
  constexpr std::size_t head = 6;
  constexpr std::size_t size = 14;
  const auto count = word(directory, 4);
  if (!count || doubleWord(directory, 0) != iconMark) {
    return std::nullopt;
  }
  std::optional<StoredImage> best;
  std::uint32_t mostBits = 0;
  for (std::size_t i = 0; i < *count; ++i) {
    const std::string_view image = directory.substr(std::min(directory.size(), head + i * size));
    const auto name = word(image, 12);
    if (!name) {
      return std::nullopt;
    }
    // One byte holds sides up to 255; 0 means 256.
    const int width = image[0] == 0 ? static_cast<int>(largestSide)
                                    : static_cast<int>(static_cast<unsigned char>(image[0]));
    const std::uint32_t bits = *word(image, 6);
    if (image[0] != image[1] || width < side) {
      continue;
    }
    if (!best || width < best->side || (width == best->side && bits > mostBits)) {
      best = StoredImage{static_cast<std::uint16_t>(*name), width};
      mostBits = bits;
    }
  }
  return best;
}

std::optional<Picture> unpackedImage(std::string_view image) {
  const auto head = headOf(image);
  if (!head) {
    return std::nullopt;
  }
  const std::size_t paletteSize = static_cast<std::size_t>(head->colours) * 4;
  const std::size_t colourRow = rowSize(head->side, head->bits);
  const std::size_t maskRow = rowSize(head->side, 1);
  if (image.size() < headSize + paletteSize + (colourRow + maskRow) * head->side) {
    return std::nullopt;
  }
  const std::string_view palette = image.substr(headSize, paletteSize);
  const std::string_view colours = image.substr(headSize + paletteSize, colourRow * head->side);
  const std::string_view mask =
      image.substr(headSize + paletteSize + colours.size(), maskRow * head->side);
  Picture picture;
  picture.size = {static_cast<int>(head->side), static_cast<int>(head->side)};
  std::vector<bool> clear;
  // Rows are stored from bottom to top.
  for (std::uint32_t y = head->side; y-- > 0;) {
    for (std::uint32_t x = 0; x < head->side; ++x) {
      picture.pixels.push_back(
          storedPixel(colours.substr(y * colourRow, colourRow), x, *head, palette));
      clear.push_back(valueAt(mask.substr(y * maskRow, maskRow), x, 1) != 0);
    }
  }
  completeTransparency(picture, clear);
  return picture;
}

std::optional<std::array<Picture, 2>> storedIcons(const ReadAt& file, const Sizes& sides,
                                                  const Unpack& unpack) {
  constexpr std::uint32_t root = 0;
  constexpr std::uint32_t imageType = 3;
  constexpr std::uint32_t directoryType = 14;
  const auto resources = Resources::of(file);
  if (!resources) {
    return std::nullopt;
  }
  const auto images = resources->child(root, imageType);
  const auto icons = resources->child(root, directoryType);
  if (!images || !images->branch || !icons || !icons->branch) {
    return std::nullopt;
  }
  const auto first = resources->firstChild(icons->place);
  const auto directory = first ? resources->bytes(*first) : std::nullopt;
  if (!directory) {
    return std::nullopt;
  }
  std::array<Picture, 2> pictures;
  for (std::size_t i = 0; i < sides.size(); ++i) {
    const auto stored = imageFor(*directory, sides.at(i));
    const auto image = stored ? resources->child(images->place, stored->number) : std::nullopt;
    const auto bytes = image ? resources->bytes(*image) : std::nullopt;
    auto picture = bytes ? unpackedImage(*bytes) : std::nullopt;
    if (bytes && !picture) {
      picture = unpack(*bytes, stored->side);
    }
    if (!picture || picture->size != Size{stored->side, stored->side}) {
      return std::nullopt;
    }
    pictures.at(i) = scaledDown(*picture, sides.at(i));
  }
  return pictures;
}

}  // namespace icons
