#include "platform/controls/text_store.h"

#include <algorithm>

#include "platform/run_time_error.h"

namespace controls {

TextStore::Block& TextStore::blockFor(std::size_t units) {
  if (!blocks_.empty() && blocks_.back().capacity - blocks_.back().used >= units) {
    return blocks_.back();
  }
  constexpr std::size_t mostBlocks = std::size_t{1} << (32 - offsetBits);
  constexpr std::size_t longestText = std::size_t{1} << 31U;
  if (blocks_.size() == mostBlocks || units > longestText) {
    throw platform::RunTimeError(platform::error::outOfMemory);
  }
  // Blocks grow from small to the full size, so a short list takes little memory. A text that is
  // longer than the full size gets a block of its own.
  constexpr std::size_t smallestBlock = 512;
  const std::size_t usual =
      blocks_.empty() ? smallestBlock : std::min(2 * blocks_.back().capacity, largestBlock);
  const std::size_t capacity = std::max(usual, units);
  Block block;
  // Not make_unique, which would clear memory that is about to be written.
  block.units.reset(new wchar_t[capacity]);  // NOLINT(modernize-avoid-c-arrays)
  block.capacity = capacity;
  blocks_.push_back(std::move(block));
  return blocks_.back();
}

TextStore::Ref TextStore::add(std::wstring_view text) {
  if (text.empty()) {
    return 0;
  }
  // Skips offset 0, because 0 is the reference of the empty text.
  const std::size_t gap = blocks_.empty() ? 1 : 0;
  Block& block = blockFor(gap + headUnits + text.size());
  const std::size_t offset = block.used + gap;
  wchar_t* const head = block.units.get() + offset;
  head[0] = static_cast<wchar_t>(text.size() >> halfBits);
  head[1] = static_cast<wchar_t>(text.size() & 0xFFFFU);
  std::copy(text.begin(), text.end(), head + headUnits);
  block.used = offset + headUnits + text.size();
  return static_cast<Ref>(((blocks_.size() - 1) << offsetBits) | offset);
}

TextStore::Ref TextStore::addShared(std::wstring_view text) {
  // The hash only has to be the same for equal texts. Most different texts differ in their ends.
  std::size_t hash = text.size();
  constexpr std::size_t most = 6;
  for (const wchar_t unit : text.substr(text.size() - std::min(text.size(), most))) {
    hash = hash * 31 + static_cast<std::size_t>(unit);
  }
  Ref& recent = recent_.at(hash % recent_.size());
  if (recent == 0 || at(recent) != text) {
    recent = add(text);
  }
  return recent;
}

void TextStore::clear() {
  blocks_.clear();
  recent_.fill(0);
}

}  // namespace controls
