// Adds one list to another, and writes the texts of both as a table, which a simple reader reads
// back. The input is one list, the character 1, and the other list.
#include "listfile/list_exchange.h"

#include <set>
#include <string>
#include <vector>

#include "fuzz/support/fuzz.h"

using fuzz::require;
using list_file::Merged;
using list_file::Reader;
using list_file::Record;

namespace {

std::optional<std::wstring> second(const Record& record) {
  return record.has(1) ? std::optional(record.text(1)) : std::nullopt;
}

struct Entries {
  std::set<std::wstring> keys;
  std::size_t records = 0;  // without the blank ones
};

Entries entriesOf(const std::string& bytes) {
  Entries entries;
  Reader reader(bytes);
  for (Record record; reader.next(record);) {
    entries.records += record.fieldCount > 0 ? 1 : 0;
    if (const auto key = second(record)) {
      entries.keys.insert(*key);
    }
  }
  return entries;
}

/// What a reader finds that knows only the rules of such tables.
std::vector<std::vector<std::string>> readTable(const std::string& bytes) {
  constexpr std::size_t mark = 3;
  std::vector<std::vector<std::string>> rows;
  std::vector<std::string> row;
  std::string field;
  bool quoted = false;
  for (std::size_t at = mark; at < bytes.size(); ++at) {
    const char c = bytes[at];
    if (quoted) {
      if (c != '"') {
        field += c;
      } else if (at + 1 < bytes.size() && bytes[at + 1] == '"') {
        field += c;
        ++at;
      } else {
        quoted = false;
      }
    } else if (c == '"') {
      quoted = true;
    } else if (c == ',' || c == '\n') {
      row.push_back(field);
      field.clear();
      if (c == '\n') {
        rows.push_back(row);
        row.clear();
      }
    } else if (c != '\r') {
      field += c;
    }
  }
  require(!quoted && row.empty() && field.empty(), "a table ends with the end of a row");
  return rows;
}

void checkTable(const std::string& bytes) {
  std::vector<std::vector<std::wstring>> rows;
  std::vector<std::vector<std::string>> expected;
  Reader reader(bytes);
  for (Record record; reader.next(record);) {
    rows.push_back({record.text(0), std::wstring(record.line.begin(), record.line.end())});
    for (wchar_t& unit : rows.back().back()) {
      unit &= 0x7F;  // so that each unit is one byte
    }
    expected.emplace_back();
    for (const std::wstring& field : rows.back()) {
      // In a table of its own, a text is what stands between the mark and the end of the row.
      const std::string alone = list_file::csv({{field}});
      expected.back().push_back(readTable(alone).at(0).at(0));
    }
    require(
        expected.back().back() == std::string(rows.back().back().begin(), rows.back().back().end()),
        "plain texts are their own bytes");
  }
  require(readTable(list_file::csv(rows)) == expected, "a table is read back");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  const std::string text(fuzz::Input(bytes, size).rest());
  const std::size_t border = text.find('\1');
  const std::string old = text.substr(0, border);
  const std::string more = border == std::string::npos ? "" : text.substr(border + 1);

  const Merged merged = list_file::merged(old, more, second);
  require(merged.content.starts_with(old), "what was there stays, byte for byte");
  require(merged.added > 0 || merged.content == old, "nothing new changes nothing");
  const Entries others = entriesOf(more);
  require(merged.added + merged.present + merged.withoutKey == others.records,
          "each record is counted once");
  Entries all = entriesOf(old);
  const std::size_t before = all.keys.size();
  all.keys.insert(others.keys.begin(), others.keys.end());
  require(all.keys.size() == before + merged.added, "each new entry is added once");
  require(entriesOf(merged.content).keys == all.keys, "all entries are there then");
  const Merged again = list_file::merged(merged.content, more, second);
  require(again.content == merged.content && again.added == 0, "adding twice is adding once");

  checkTable(text);
  return 0;
}
