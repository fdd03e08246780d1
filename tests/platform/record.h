// Records of the in-memory desktop that know how much of them a test has read.
#pragma once

#include <cstddef>
#include <utility>
#include <vector>

namespace memory {

/// Items in the order in which they were added. Reading them, or asking for their number, counts as
/// reading all items that exist at that moment.
template <typename Item>
class Record {
 public:
  using value_type = Item;
  using const_iterator = typename std::vector<Item>::const_iterator;

  // --- for the desktop ---

  void push_back(Item item) { items_.push_back(std::move(item)); }
  /// Number of items that were ever added, including the forgotten ones.
  [[nodiscard]] std::size_t total() const { return forgotten_ + items_.size(); }
  /// How many of them, the oldest ones, were read or forgotten.
  [[nodiscard]] std::size_t lookedAt() const { return lookedAt_; }
  /// The items, without marking them as read.
  [[nodiscard]] const std::vector<Item>& unseen() const { return items_; }

  // --- for tests ---

  /// Forgets all items, read or not.
  void clear() {
    lookedAt_ = forgotten_ = total();
    items_.clear();
  }
  [[nodiscard]] bool empty() const { return look().empty(); }
  [[nodiscard]] std::size_t size() const { return look().size(); }
  [[nodiscard]] const Item& front() const { return look().front(); }
  [[nodiscard]] const Item& back() const { return look().back(); }
  [[nodiscard]] const Item& operator[](std::size_t index) const { return look()[index]; }
  [[nodiscard]] const Item& at(std::size_t index) const { return look().at(index); }
  [[nodiscard]] const_iterator begin() const { return look().begin(); }
  [[nodiscard]] const_iterator end() const { return look().end(); }
  friend bool operator==(const Record& record, const std::vector<Item>& items) {
    return record.look() == items;
  }

 private:
  const std::vector<Item>& look() const {
    lookedAt_ = total();
    return items_;
  }
  std::vector<Item> items_;
  std::size_t forgotten_ = 0;
  mutable std::size_t lookedAt_ = 0;
};

}  // namespace memory
