// The floor for loading a catalogue: reads the file, splits its records and sorts the names in the
// order of the list. It shows nothing and stores nothing.
//
//   floor CATALOGUE    prints the time in milliseconds
#include <windows.h>

#include <bit>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <vector>

#include "windows/measure.h"
#include "windows/whole_file.h"

namespace {

/// A name in the order: the first bytes of its key as a number decide most comparisons.
struct Key {
  std::uint64_t front;
  std::uint32_t offset;  // of the key in the memory of all keys
  std::uint32_t length;
  std::uint32_t record;
};

class KeyMaker {
 public:
  explicit KeyMaker(std::size_t expected) { bytes_.reserve(expected); }

  Key make(std::string_view name, std::uint32_t record) {
    wide_.resize(std::max(wide_.size(), name.size()));
    const int length =
        name.empty() ? 0
                     : MultiByteToWideChar(CP_ACP, 0, name.data(), static_cast<int>(name.size()),
                                           wide_.data(), static_cast<int>(wide_.size()));
    constexpr std::size_t mostPerCharacter = 16;
    constexpr std::size_t mostBesides = 16;
    const std::size_t offset = bytes_.size();
    bytes_.resize(offset + static_cast<std::size_t>(length) * mostPerCharacter + mostBesides);
    const int made =
        length == 0
            ? 0
            : LCMapStringEx(LOCALE_NAME_USER_DEFAULT, LCMAP_SORTKEY | NORM_IGNORECASE, wide_.data(),
                            length, reinterpret_cast<wchar_t*>(bytes_.data() + offset),
                            static_cast<int>(bytes_.size() - offset), nullptr, nullptr, 0);
    bytes_.resize(offset + static_cast<std::size_t>(made));
    std::uint64_t front = 0;
    std::memcpy(&front, bytes_.data() + offset,
                std::min<std::size_t>(sizeof(front), static_cast<std::size_t>(made)));
    return {__builtin_bswap64(front), static_cast<std::uint32_t>(offset),
            static_cast<std::uint32_t>(made), record};
  }

  [[nodiscard]] bool less(const Key& a, const Key& b) const {
    if (a.front != b.front) {
      return a.front < b.front;
    }
    const int order = std::memcmp(bytes_.data() + a.offset, bytes_.data() + b.offset,
                                  std::min(a.length, b.length));
    if (order != 0) {
      return order < 0;
    }
    return a.length != b.length ? a.length < b.length : a.record < b.record;
  }

 private:
  std::vector<wchar_t> wide_;
  std::vector<char> bytes_;
};

}  // namespace

int wmain(int argumentCount, wchar_t** arguments) {
  if (argumentCount != 2) {
    return 2;
  }
  // The first call of the text functions loads their tables, which is not part of the load.
  KeyMaker(64).make("warm", 0);

  const std::int64_t begin = bench::now();
  const bench::Bytes file = bench::readFile(arguments[1]);
  constexpr std::size_t shortestRecord = 64;
  std::vector<bench::PlainRecord> records;
  records.reserve(file.size / shortestRecord);
  std::string_view left = file.view();
  for (bench::PlainRecord record; bench::nextRecord(left, record);) {
    records.push_back(record);
  }
  KeyMaker maker(file.size);
  std::vector<Key> keys;
  keys.reserve(records.size());
  for (const bench::PlainRecord& record : records) {
    keys.push_back(maker.make(record.name, static_cast<std::uint32_t>(keys.size())));
  }
  std::sort(keys.begin(), keys.end(),
            [&maker](const Key& a, const Key& b) { return maker.less(a, b); });
  const double took = bench::milliseconds(begin, bench::now());

  std::printf("%.4f\n", took);
  if (!keys.empty()) {
    const std::string_view first = records[keys.front().record].name;
    const std::string_view last = records[keys.back().record].name;
    std::printf("%zu records, from %.*s to %.*s\n", records.size(), static_cast<int>(first.size()),
                first.data(), static_cast<int>(last.size()), last.data());
  }
  return 0;
}
