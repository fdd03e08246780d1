#include "listfile/list_patch.h"

#include <algorithm>
#include <map>
#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "listfile/list_file.h"
#include "platform/bytes.h"

namespace list_file {

namespace bytes = platform::bytes;

namespace {

/// Whether a line begins at a place of the contents.
bool isLineStart(std::string_view content, std::size_t place) {
  return place == 0 || content[place - 1] == '\n' ||
         (content[place - 1] == '\r' && (place == content.size() || content[place] != '\n'));
}

std::string_view withoutLineEnd(std::string_view line) {
  while (line.ends_with('\n') || line.ends_with('\r')) {
    line.remove_suffix(1);
  }
  return line;
}

/// The line that ends at a place where another one begins; "" at the beginning.
std::string_view lineBefore(std::string_view content, std::size_t place) {
  std::size_t begin = place;
  while (begin > 0 && (begin == place || !isLineStart(content, begin))) {
    --begin;
  }
  return content.substr(begin, place - begin);
}

std::string_view lineAt(std::string_view content, std::size_t place) {
  Record record;
  Reader reader(content.substr(place));
  return reader.next(record) ? record.line : std::string_view();
}

/// A line of a list. Line ends do not count in comparisons, because the last line may lack its own.
struct Line {
  std::string_view whole;
  std::string_view text;
  std::optional<std::wstring> key;
};

std::vector<Line> linesOf(std::string_view content, const KeyOf& keyOf) {
  std::vector<Line> lines;
  Reader reader(content);
  for (Record record; reader.next(record);) {
    lines.push_back({record.line, withoutLineEnd(record.line), keyOf(record)});
  }
  return lines;
}

/// The lines that only one of two contents has.
std::vector<bool> onlyIn(const std::vector<Line>& lines, const std::vector<Line>& others) {
  std::unordered_map<std::string_view, std::size_t> count;
  for (const Line& line : others) {
    ++count[line.text];
  }
  std::vector<bool> only;
  for (const Line& line : lines) {
    std::size_t& left = count[line.text];
    only.push_back(left == 0);
    left -= left == 0 ? 0 : 1;
  }
  return only;
}

/// Changes single records of a list whose other records are not those that were expected.
class Mending {
 public:
  Mending(std::string_view content, const KeyOf& keyOf)
      : lines_(linesOf(content, keyOf)), taken_(lines_.size()), behind_(lines_.size() + 1) {
    for (std::size_t n = 0; n < lines_.size(); ++n) {
      byText_[lines_[n].text].push_back(n);
      if (lines_[n].key) {
        byKey_[*lines_[n].key].push_back(n);
      }
    }
  }

  /// Replaces the records that only `from` has by those that only `to` has.
  void change(const std::vector<Line>& from, const std::vector<Line>& to, std::string_view head,
              std::string_view tail) {
    pairUp(from, onlyIn(from, to), to, onlyIn(to, from));
    begin(head, tail);
    for (std::size_t n = 0; n < to.size(); ++n) {
      put(to[n], comes_[n]);
    }
  }

  [[nodiscard]] std::string result() const {
    std::string content;
    const auto add = [&content](std::string_view line) { append(content, line); };
    const auto addAll = [&add](const std::vector<std::string_view>& texts) {
      for (const std::string_view text : texts) {
        add(std::string(text).append(lineEnd));
      }
    };
    addAll(behind_.front());
    for (std::size_t n = 0; n < lines_.size(); ++n) {
      if (!taken_[n]) {
        add(lines_[n].whole);
      } else if (taken_[n]->data() != nullptr) {
        add(std::string(*taken_[n]).append(lineEnd));
      }
      addAll(behind_[n + 1]);
    }
    return content;
  }

 private:
  using Places = std::vector<std::size_t>;

  /// A line that is to be put into the list.
  struct Coming {
    bool isNew = false;                ///< It is not one of those that stay.
    std::optional<std::size_t> place;  ///< The record that it replaces.
  };

  static std::optional<std::size_t> firstOf(const std::map<std::wstring, Places>& places,
                                            const std::optional<std::wstring>& key) {
    const auto found = key ? places.find(*key) : places.end();
    return found == places.end() ? std::nullopt : std::optional(found->second.front());
  }

  std::optional<std::size_t> find(std::string_view text) const {
    const auto found = byText_.find(text);
    return found == byText_.end() ? std::nullopt : std::optional(found->second.front());
  }

  /// Takes a record out of the list: the same bytes if possible, else the same entry. Returns where
  /// it was.
  std::optional<std::size_t> takeOut(const Line& line) {
    const auto untaken = [this](const Places& places) -> std::optional<std::size_t> {
      const auto found =
          std::find_if(places.begin(), places.end(), [this](std::size_t n) { return !taken_[n]; });
      return found == places.end() ? std::nullopt : std::optional(*found);
    };
    std::optional<std::size_t> place;
    if (const auto same = byText_.find(line.text); same != byText_.end()) {
      place = untaken(same->second);
    }
    if (!place && line.key) {
      if (const auto same = byKey_.find(*line.key); same != byKey_.end()) {
        place = untaken(same->second);
      }
    }
    if (place) {
      taken_[*place] = std::string_view();
    }
    return place;
  }

  /// Takes out what goes, and gives its place to what comes instead: the record of the same entry,
  /// or else the next one that comes, if as many come as go.
  void pairUp(const std::vector<Line>& from, const std::vector<bool>& goes,
              const std::vector<Line>& to, const std::vector<bool>& isNew) {
    comes_.resize(to.size());
    std::map<std::wstring, Places> newByKey;
    for (std::size_t n = 0; n < to.size(); ++n) {
      comes_[n].isNew = isNew[n];
      if (isNew[n] && to[n].key) {
        newByKey[*to[n].key].push_back(n);
      }
    }
    std::vector<bool> hasPartner(to.size());
    std::vector<std::size_t> places;  // of records without a partner of the same entry
    std::size_t alone = 0;
    for (std::size_t n = 0; n < from.size(); ++n) {
      if (!goes[n]) {
        continue;
      }
      const auto place = takeOut(from[n]);
      const auto partner = firstOf(newByKey, from[n].key);
      if (partner && !hasPartner[*partner]) {
        hasPartner[*partner] = true;
        comes_[*partner].place = place;
      } else {
        ++alone;
        if (place) {
          places.push_back(*place);
        }
      }
    }
    std::vector<std::size_t> left;
    for (std::size_t n = 0; n < to.size(); ++n) {
      if (isNew[n] && !hasPartner[n]) {
        left.push_back(n);
      }
    }
    if (left.size() == alone && places.size() == alone) {
      for (std::size_t n = 0; n < alone; ++n) {
        comes_[left[n]].place = places[n];
      }
    }
  }

  /// Where the first line goes.
  void begin(std::string_view head, std::string_view tail) {
    place_ = lines_.size();
    if (head.empty()) {
      place_ = 0;
    } else if (const auto before = find(withoutLineEnd(head))) {
      place_ = *before + 1;
    } else if (const auto after = find(withoutLineEnd(tail)); after && !tail.empty()) {
      place_ = *after;
    }
  }

  /// Whether a record that stays has the entry of a line.
  bool isThere(const Line& line) const {
    const auto stays = [this](const Places& places) {
      return std::any_of(places.begin(), places.end(),
                         [this](std::size_t n) { return !taken_[n]; });
    };
    if (line.key) {
      const auto same = byKey_.find(*line.key);
      return same != byKey_.end() && stays(same->second);
    }
    const auto same = byText_.find(line.text);
    return same != byText_.end() && stays(same->second);
  }

  void put(const Line& line, const Coming& coming) {
    if (!coming.isNew) {
      if (const auto place = find(line.text)) {
        place_ = *place + 1;
      }
    } else if (isThere(line)) {
      return;
    } else if (coming.place) {
      taken_[*coming.place] = line.text;
      place_ = *coming.place + 1;
    } else {
      behind_[place_].push_back(line.text);
    }
  }

  std::vector<Line> lines_;
  /// Of each line: the text that stands in its place, a view without data for none; nothing while
  /// the line itself stays.
  std::vector<std::optional<std::string_view>> taken_;
  std::vector<std::vector<std::string_view>> behind_;  // [n]: what is inserted before line n
  std::unordered_map<std::string_view, Places> byText_;
  std::map<std::wstring, Places> byKey_;
  std::vector<Coming> comes_;
  std::size_t place_ = 0;  // the line before which the next one is inserted
};

}  // namespace

Patch::Patch(std::string_view before, std::string_view after)
    : inFront_(bytes::commonLength(before, after)) {
  while (!isLineStart(before, inFront_) || !isLineStart(after, inFront_)) {
    --inFront_;
  }
  behind_ = bytes::commonEnding(before.substr(inFront_), after.substr(inFront_));
  while (behind_ > 0 && (!isLineStart(before, before.size() - behind_) ||
                         !isLineStart(after, after.size() - behind_))) {
    --behind_;
  }
  head_ = lineBefore(before, inFront_);
  tail_ = lineAt(before, before.size() - behind_);
  before_ = before.substr(inFront_, before.size() - behind_ - inFront_);
  after_ = after.substr(inFront_, after.size() - behind_ - inFront_);
}

std::string Patch::takenBack(std::string content, const KeyOf& keyOf) const {
  return changed(std::move(content), after_, before_, keyOf);
}

std::string Patch::madeAgain(std::string content, const KeyOf& keyOf) const {
  return changed(std::move(content), before_, after_, keyOf);
}

std::string Patch::changed(std::string content, const std::string& from, const std::string& to,
                           const KeyOf& keyOf) const {
  const std::string_view whole = content;
  if (whole.size() == inFront_ + from.size() + behind_ &&
      whole.substr(inFront_, from.size()) == from && whole.substr(0, inFront_).ends_with(head_) &&
      whole.substr(inFront_ + from.size()).starts_with(tail_)) {
    content.replace(inFront_, from.size(), to);
    return content;
  }
  Mending mending(content, keyOf);
  mending.change(linesOf(from, keyOf), linesOf(to, keyOf), head_, tail_);
  return mending.result();
}

}  // namespace list_file
