// What a rewriting has changed in a list, kept so that it can be taken back.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "listfile/list_exchange.h"

namespace list_file {

/// The difference between two contents of a list file: the bytes of the lines that differ.
class Patch {
 public:
  Patch() = default;
  Patch(std::string_view before, std::string_view after);

  /// Whether nothing was changed.
  [[nodiscard]] bool empty() const { return before_ == after_; }
  /// Bytes that it keeps.
  [[nodiscard]] std::size_t size() const { return before_.size() + after_.size(); }

  /// The contents with the change taken back, byte for byte where nobody has changed these lines
  /// since. Otherwise only the records concerned are changed: those that were added go, those that
  /// were removed stand behind the record that they followed, and changed ones have their former
  /// bytes in their present place. A record whose entry is there already is not put back again.
  [[nodiscard]] std::string takenBack(std::string content, const KeyOf& keyOf) const;
  /// The contents with the change made again, in the same way.
  [[nodiscard]] std::string madeAgain(std::string content, const KeyOf& keyOf) const;

 private:
  [[nodiscard]] std::string changed(std::string content, const std::string& from,
                                    const std::string& to, const KeyOf& keyOf) const;

  std::size_t inFront_ = 0;  // bytes before the lines that differ
  std::size_t behind_ = 0;   // and after them
  std::string head_;         // the line before them, "" for none
  std::string tail_;         // the line behind them, "" for none
  std::string before_;       // the lines themselves
  std::string after_;
};

}  // namespace list_file
