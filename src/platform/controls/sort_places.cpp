#include "platform/controls/sort_places.h"

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "platform/bytes.h"

namespace controls {

namespace {

/// A row number with the first distinguishing bytes of its key. They decide most comparisons, so
/// that the key itself is seldom read.
struct Entry {
  std::uint64_t head = 0;
  std::uint32_t place = 0;
  std::uint32_t former = 0;  // position before sorting
};

/// Length of the prefix that all keys share. Names of one survey often begin alike, and then the
/// first bytes distinguish nothing.
std::size_t commonLength(const platform::text::SortKeys& keys) {
  if (keys.ends.empty()) {
    return 0;
  }
  std::string_view common = keys.at(0);
  for (std::size_t n = 1; n < keys.ends.size() && !common.empty(); ++n) {
    const std::string_view key = keys.at(n);
    const auto [end, other] = std::mismatch(common.begin(), common.end(), key.begin(), key.end());
    common = common.substr(0, static_cast<std::size_t>(end - common.begin()));
  }
  return common.size();
}

/// The first bytes of a key as a number that compares like the bytes. A shorter key is padded with
/// zeros.
std::uint64_t headOf(std::string_view key) {
  constexpr std::size_t bytes = sizeof(std::uint64_t);
  constexpr unsigned bitsPerByte = 8;
  std::uint64_t head = 0;
  for (std::size_t i = 0; i < bytes; ++i) {
    head = (head << bitsPerByte) | (i < key.size() ? static_cast<unsigned char>(key[i]) : 0U);
  }
  return head;
}

}  // namespace

void sortPlaces(std::vector<std::uint32_t>& places, const platform::text::SortKeys& keys,
                bool backwards) {
  const std::size_t common = commonLength(keys);
  std::vector<Entry> entries;
  entries.reserve(places.size());
  for (const std::uint32_t place : places) {
    entries.push_back(
        {headOf(keys.at(place).substr(common)), place, static_cast<std::uint32_t>(entries.size())});
  }
  const auto precedes = [&keys, common, backwards](const Entry& a, const Entry& b) {
    if (a.head != b.head) {
      return backwards ? b.head < a.head : a.head < b.head;
    }
    const int order =
        platform::bytes::compare(keys.at(a.place).substr(common), keys.at(b.place).substr(common));
    if (order != 0) {
      return backwards ? order > 0 : order < 0;
    }
    return a.former < b.former;
  };
  if (!std::is_sorted(entries.begin(), entries.end(), precedes)) {
    std::sort(entries.begin(), entries.end(), precedes);
  }
  std::transform(entries.begin(), entries.end(), places.begin(),
                 [](const Entry& entry) { return entry.place; });
}

}  // namespace controls
