#include "listfile/list_exchange.h"

#include <cstdint>
#include <unordered_map>
#include <utility>

namespace list_file {

Merged merged(std::string content, std::string_view more, const KeyOf& keyOf) {
  Merged result;
  struct Arrival {
    std::string_view line;
    bool present = false;
  };
  // The list that is added is the smaller one of the two as a rule, so its entries are kept.
  std::vector<Arrival> arrivals;
  std::unordered_map<std::wstring, std::size_t> places;
  Reader reader(more);
  for (Record record; reader.next(record);) {
    if (record.fieldCount == 0) {
      continue;
    }
    std::optional<std::wstring> key = keyOf(record);
    if (!key) {
      ++result.withoutKey;
    } else if (places.try_emplace(std::move(*key), arrivals.size()).second) {
      arrivals.push_back({record.line});
    } else {
      ++result.present;
    }
  }
  Reader present(content);
  for (Record record; present.next(record);) {
    if (const std::optional<std::wstring> key = keyOf(record)) {
      if (const auto place = places.find(*key); place != places.end()) {
        arrivals[place->second].present = true;
      }
    }
  }
  result.content = std::move(content);
  for (const Arrival& arrival : arrivals) {
    if (arrival.present) {
      ++result.present;
    } else {
      ++result.added;
      append(result.content, arrival.line);
    }
  }
  return result;
}

namespace {

constexpr char32_t unreadable = 0xFFFD;

bool isHigh(char32_t unit) { return unit >= 0xD800 && unit < 0xDC00; }
bool isLow(char32_t unit) { return unit >= 0xDC00 && unit < 0xE000; }

/// The character that begins at `place`, which moves behind it.
char32_t characterAt(std::wstring_view text, std::size_t& place) {
  const auto unit = static_cast<char32_t>(text[place++]);
  if (isHigh(unit) && place < text.size()) {
    if (const auto next = static_cast<char32_t>(text[place]); isLow(next)) {
      ++place;
      return 0x10000 + ((unit - 0xD800) << 10U) + (next - 0xDC00);
    }
  }
  return isHigh(unit) || isLow(unit) ? unreadable : unit;
}

void appendUtf8(std::string& bytes, char32_t character) {
  const auto tail = [&](unsigned shift) {
    bytes += static_cast<char>(0x80U | ((character >> shift) & 0x3FU));
  };
  if (character < 0x80) {
    bytes += static_cast<char>(character);
  } else if (character < 0x800) {
    bytes += static_cast<char>(0xC0U | (character >> 6U));
    tail(0);
  } else if (character < 0x10000) {
    bytes += static_cast<char>(0xE0U | (character >> 12U));
    tail(6);
    tail(0);
  } else {
    bytes += static_cast<char>(0xF0U | (character >> 18U));
    tail(12);
    tail(6);
    tail(0);
  }
}

void appendField(std::string& bytes, std::wstring_view text) {
  const bool quoted = text.find_first_of(L"\",\r\n") != std::wstring_view::npos;
  bytes += quoted ? "\"" : "";
  for (std::size_t place = 0; place < text.size();) {
    const char32_t character = characterAt(text, place);
    appendUtf8(bytes, character);
    if (character == U'"') {
      bytes += '"';
    }
  }
  bytes += quoted ? "\"" : "";
}

}  // namespace

std::string csv(const std::vector<std::vector<std::wstring>>& rows) {
  std::string bytes = "\xEF\xBB\xBF";
  for (const std::vector<std::wstring>& row : rows) {
    bool first = true;
    for (const std::wstring& field : row) {
      bytes += first ? "" : ",";
      first = false;
      appendField(bytes, field);
    }
    bytes += "\r\n";
  }
  return bytes;
}

}  // namespace list_file
