// Memory for the texts of a list's cells.
//
// The texts are packed into large blocks, one after the other. Otherwise a list of a million rows
// would need millions of small allocations. A text is referred to by 32 bits (block and offset)
// instead of by a pointer and a length, and repeated texts are stored once. Rows of ./bench:
// `load.1m.memory`, `load.1m.peak`, `load.100k` and `load.1m`. It matters on Windows and under Wine
// alike.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace controls {

class TextStore {
 public:
  /// Refers to a stored text; 0 is the empty text.
  using Ref = std::uint32_t;

  /// Stores a text. Raises `error::outOfMemory` when the store is full.
  Ref add(std::wstring_view text);
  /// The same, but returns an equal text that this call stored recently, if there is one. For
  /// columns with few different values.
  Ref addShared(std::wstring_view text);
  /// A stored text; valid until `clear`.
  [[nodiscard]] std::wstring_view at(Ref ref) const {
    if (ref == 0) return {};
    const wchar_t* const head = blocks_[ref >> offsetBits].units.get() + (ref & offsetMask);
    return {head + headUnits, lengthFrom(head)};
  }
  /// Removes all texts and frees their memory.
  void clear();

 private:
  static constexpr unsigned offsetBits = 18;
  static constexpr std::size_t largestBlock = std::size_t{1} << offsetBits;
  static constexpr Ref offsetMask = (Ref{1} << offsetBits) - 1;
  /// Number of characters before each text that hold its length.
  static constexpr std::size_t headUnits = 2;
  static constexpr unsigned halfBits = 16;

  struct Block {
    std::unique_ptr<wchar_t[]> units;  // NOLINT(modernize-avoid-c-arrays): owned and uninitialised
    std::size_t used = 0;
    std::size_t capacity = 0;
  };
  [[nodiscard]] static std::size_t lengthFrom(const wchar_t* head) {
    return (static_cast<std::size_t>(head[0]) << halfBits) | static_cast<std::size_t>(head[1]);
  }
  Block& blockFor(std::size_t units);

  std::vector<Block> blocks_;
  std::array<Ref, 4096> recent_{};  // by a hash of the text
};

}  // namespace controls
