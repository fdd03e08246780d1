// Sort keys made by the system or, for many texts of plain characters, from a table learned from
// the system.
//
// The system weighs most characters independently: the key of a text is the weights of its
// characters, one after the other. For such characters the rank of the weight sorts like the weight
// itself, and a rank is only a table look-up. This does not hold for hyphen and apostrophe, and in
// some languages not for pairs of letters that sort as one; the table leaves these out. If a batch
// has a character that is not in the table, the texts of plain characters get the weights
// themselves, which are equal to the system's own keys. The other texts get the system's keys.
#include "platform/win32/system/sort_keys.h"

#include <algorithm>
#include <array>
#include <limits>
#include <set>
#include <vector>

#include "platform/run_time_error.h"

namespace platform::win32 {

namespace {

constexpr DWORD keyFlags = LCMAP_SORTKEY | NORM_IGNORECASE;

class RankTable {
 public:
  RankTable() = default;
  explicit RankTable(const wchar_t* locale) { learn(locale); }
  /// Rank of a character in the table, from 1; 0 when the table does not have it.
  [[nodiscard]] unsigned char operator[](wchar_t unit) const {
    const auto index = static_cast<std::size_t>(unit);
    return index < ranks_.size() ? ranks_[index] : 0;
  }
  /// Appends the system's key of a text whose characters are all in the table. When one is not,
  /// returns false and appends nothing.
  bool appendWeights(std::wstring_view text, std::string& keys) const;

 private:
  static constexpr wchar_t first = L' ';
  static constexpr wchar_t last = L'~';
  /// What follows the weights in the key of a text of independent characters: three empty levels
  /// and their separators.
  static constexpr std::string_view emptyLevels{"\x01\x01\x01\x01", 4};
  static constexpr std::size_t weightBytes = 2;

  static std::string keyOf(const wchar_t* locale, const std::wstring& text) {
    std::string key;
    appendSortKey(locale, text, key);
    return key;
  }
  void learn(const wchar_t* locale);
  void leaveOutPairs(const wchar_t* locale);
  [[nodiscard]] static bool weighsByItself(const std::string& key) {
    return key.size() == weightBytes + emptyLevels.size() && key.ends_with(emptyLevels) &&
           static_cast<unsigned char>(key.front()) > 1;
  }
  /// Whether the system's key of the text equals the one made of the single weights.
  [[nodiscard]] bool holdsFor(const wchar_t* locale, const std::wstring& text) const;

  std::array<std::string, last + 1> weights_;  // "" for a character that the table does not have
  std::array<unsigned char, last + 1> ranks_{};
};

bool RankTable::appendWeights(std::wstring_view text, std::string& keys) const {
  const std::size_t before = keys.size();
  if (text.empty()) return true;
  keys.resize(before + text.size() * weightBytes + emptyLevels.size());
  char* to = keys.data() + before;
  for (const wchar_t unit : text) {
    if ((*this)[unit] == 0) {
      keys.resize(before);
      return false;
    }
    to = std::copy_n(weights_[unit].data(), weightBytes, to);
  }
  std::copy(emptyLevels.begin(), emptyLevels.end(), to);
  return true;
}

bool RankTable::holdsFor(const wchar_t* locale, const std::wstring& text) const {
  std::string expected;
  for (const wchar_t unit : text) {
    expected += weights_.at(static_cast<std::size_t>(unit));
  }
  return keyOf(locale, text) == expected.append(emptyLevels);
}

void RankTable::leaveOutPairs(const wchar_t* locale) {
  // Every pair of letters in each letter case. Longer units begin with a pair that is a unit.
  std::vector<wchar_t> letters;
  for (wchar_t letter = L'A'; letter <= L'Z'; ++letter) {
    letters.push_back(letter);
    letters.push_back(static_cast<wchar_t>(letter + (L'a' - L'A')));
  }
  std::set<wchar_t> paired;
  for (const wchar_t one : letters) {
    for (const wchar_t other : letters) {
      if (!weights_.at(static_cast<std::size_t>(one)).empty() &&
          !weights_.at(static_cast<std::size_t>(other)).empty() &&
          !holdsFor(locale, {one, other})) {
        paired.insert({one, other});
      }
    }
  }
  for (const wchar_t letter : paired) {
    weights_.at(static_cast<std::size_t>(letter)).clear();
  }
}

void RankTable::learn(const wchar_t* locale) {
  for (wchar_t unit = first; unit <= last; ++unit) {
    const std::string key = keyOf(locale, std::wstring(1, unit));
    if (weighsByItself(key)) {
      weights_.at(static_cast<std::size_t>(unit)) = key.substr(0, weightBytes);
    }
  }
  leaveOutPairs(locale);
  // Checks the whole table in one text, forwards and backwards: any further rule would show up
  // here.
  std::wstring all;
  std::set<std::string> distinct;
  for (wchar_t unit = first; unit <= last; ++unit) {
    if (const std::string& weight = weights_.at(static_cast<std::size_t>(unit)); !weight.empty()) {
      all += unit;
      distinct.insert(weight);
    }
  }
  if (!holdsFor(locale, all) || !holdsFor(locale, {all.rbegin(), all.rend()})) return;
  for (const wchar_t unit : all) {
    const auto place = distinct.find(weights_.at(static_cast<std::size_t>(unit)));
    ranks_.at(static_cast<std::size_t>(unit)) =
        static_cast<unsigned char>(1 + std::distance(distinct.begin(), place));
  }
}

/// The table of a language; learned again when the language changes.
const RankTable& tableOf(const wchar_t* locale) {
  // Kept for the life of the process: it is small, and learning it takes thousands of calls.
  static std::wstring learnedFor;
  static RankTable table;
  std::array<wchar_t, LOCALE_NAME_MAX_LENGTH> name{};
  std::wstring wanted;
  if (locale != nullptr) {
    wanted = locale;
  } else if (GetUserDefaultLocaleName(name.data(), static_cast<int>(name.size())) > 0) {
    wanted = name.data();
  }
  if (wanted != learnedFor) {
    table = RankTable(locale);
    learnedFor = wanted;
  }
  return table;
}

/// Appends keys of ranks. Returns false when a text has a character that is not in the table.
bool appendRanks(const RankTable& table, std::size_t count,
                 const std::function<std::wstring_view(std::size_t)>& textAt,
                 text::SortKeys& keys) {
  // The memory is allocated beforehand: a million names have about twenty million characters.
  std::size_t used = 0;
  for (std::size_t n = 0; n < count; ++n) {
    const std::wstring_view text = textAt(n);
    if (keys.bytes.size() - used < text.size()) {
      constexpr std::size_t usualLength = 16;
      keys.bytes.resize(std::max({2 * keys.bytes.size(), used + text.size(), count * usualLength}));
    }
    char* to = keys.bytes.data() + used;
    bool known = true;
    for (const wchar_t unit : text) {
      const unsigned char rank = table[unit];
      known = known && rank != 0;
      *to++ = static_cast<char>(rank);
    }
    if (!known) return false;
    used += text.size();
    keys.ends.push_back(used);
  }
  keys.bytes.resize(used);
  return true;
}

}  // namespace

void appendSortKey(const wchar_t* locale, std::wstring_view text, std::string& keys) {
  if (text.empty()) return;
  // A key needs several bytes per character, and its length must fit into an int too.
  constexpr std::size_t bytesPerUnit = 8;
  if (text.size() > std::numeric_limits<int>::max() / bytesPerUnit) {
    throw RunTimeError(error::outOfMemory);
  }
  const auto length = static_cast<int>(text.size());
  const std::size_t before = keys.size();
  const auto map = [&](int room) {
    // For a sort key the "wide" buffer receives bytes, and its size is given in bytes.
    return LCMapStringEx(locale, keyFlags, text.data(), length,
                         room == 0 ? nullptr : reinterpret_cast<wchar_t*>(keys.data() + before),
                         room, nullptr, nullptr, 0);
  };
  // Enough for nearly every text, so that no extra call for the size is needed.
  constexpr std::size_t overhead = 16;
  keys.resize(before + text.size() * bytesPerUnit + overhead);
  int size = map(static_cast<int>(keys.size() - before));
  if (size <= 0 && GetLastError() == ERROR_INSUFFICIENT_BUFFER) {
    const int needed = map(0);
    keys.resize(before + static_cast<std::size_t>(std::max(needed, 0)));
    size = map(needed);
  }
  if (size <= 0) throw RunTimeError(errorNumberFromSystem(GetLastError()));
  keys.resize(before + static_cast<std::size_t>(size));
  if (keys.back() == '\0') keys.pop_back();
}

text::SortKeys sortKeys(const wchar_t* locale, std::size_t count,
                        const std::function<std::wstring_view(std::size_t)>& textAt) {
  text::SortKeys keys;
  keys.ends.reserve(count);
  // With fewer texts the system's keys cost less than learning the table.
  constexpr std::size_t worthATable = 2000;
  const RankTable* const table = count >= worthATable ? &tableOf(locale) : nullptr;
  if (table != nullptr && appendRanks(*table, count, textAt, keys)) return keys;
  keys.bytes.clear();
  keys.ends.clear();
  for (std::size_t n = 0; n < count; ++n) {
    const std::wstring_view text = textAt(n);
    if (table == nullptr || !table->appendWeights(text, keys.bytes)) {
      appendSortKey(locale, text, keys.bytes);
    }
    keys.ends.push_back(keys.bytes.size());
  }
  return keys;
}

}  // namespace platform::win32
