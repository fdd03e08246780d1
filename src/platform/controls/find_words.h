// The words that a user looks for in the rows of a list.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace controls {

/// The blank-separated words of a text, compared without regard to case, in the user's language. A
/// letter without an accent finds the letter with any accent; one with an accent finds only itself.
class FindWords {
 public:
  FindWords() = default;
  explicit FindWords(std::wstring_view text);
  [[nodiscard]] std::size_t count() const { return words_.size(); }
  /// Whether word number `word` occurs in `text`.
  [[nodiscard]] bool finds(std::size_t word, std::wstring_view text) const;
  /// Whether rows that hold all these words hold all of `former`, too: each of those is the
  /// beginning of the word in its place.
  [[nodiscard]] bool refines(const FindWords& former) const;
  bool operator==(const FindWords& other) const;

 private:
  /// One way of writing a word.
  struct Form {
    std::wstring text;
    std::vector<char>
        starts;  ///< By unit, for the first units: whether the word can begin with it.
  };
  /// A word in each way of writing its accents; the first one as it was typed.
  using Word = std::vector<Form>;
  std::vector<Word> words_;
};

}  // namespace controls
