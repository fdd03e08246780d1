// Where a list keeps the texts of its cells: packed one behind the other, because a list of a
// million rows would otherwise be millions of small allocations.
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
  /// Names a stored text; 0 is the empty one.
  using Ref = std::uint32_t;

  /// Stores a text. Raises 7 when there is no room for it.
  Ref add(std::wstring_view text);
  /// The same, but hands out an equal text that was stored by this call lately, if there is one:
  /// for columns in which few values come again and again.
  Ref addShared(std::wstring_view text);
  /// A stored text; valid until `clear`.
  [[nodiscard]] std::wstring_view at(Ref ref) const {
    if (ref == 0) return {};
    const wchar_t* const head = blocks_[ref >> offsetBits].units.get() + (ref & offsetMask);
    return {head + headUnits, lengthFrom(head)};
  }
  /// Forgets all texts and gives their memory back.
  void clear();

 private:
  static constexpr unsigned offsetBits = 18;
  static constexpr std::size_t largestBlock = std::size_t{1} << offsetBits;
  static constexpr Ref offsetMask = (Ref{1} << offsetBits) - 1;
  /// Characters in front of each text that hold its length.
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
  std::array<Ref, 64> recent_{};  // by a hash of the text
};

}  // namespace controls
