// The rows of the table of ratios.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "windows/measure.h"

namespace bench {

/// What a row is held against.
enum class Limit { atMost, atLeast, none };

struct Row {
  std::string name;  ///< Stable: the documentation and other runs are compared by it.
  double value = 0;  ///< The ratio, or the figure itself where there is no other side.
  double limit = 0;
  Limit kind = Limit::none;
  double ours = 0;    ///< Median, milliseconds unless the name says otherwise; context only.
  double theirs = 0;  ///< The other side's; 0 without one.
  int runs = 0;
};

/// Collects rows and prints each at once, as one line of fields parted by tabs.
class Table {
 public:
  explicit Table(std::string filter, bool quick) : filter_(std::move(filter)), quick_(quick) {}

  /// Whether a row is asked for by its name.
  [[nodiscard]] bool wanted(const std::string& name) const;
  /// Fewer runs and smaller sizes: for a look in passing.
  [[nodiscard]] bool quick() const { return quick_; }
  /// How many runs a measurement of `full` runs has.
  [[nodiscard]] int runs(int full) const { return quick_ ? 3 : full; }

  void print(const Row& row) const;
  /// A row of our side's median over the other side's.
  void printRatio(const std::string& name, const Pair& pair, double limit,
                  Limit kind = Limit::atMost) const;
  /// Says why a row has no value.
  static void printFailure(const std::string& name, const std::string& reason);

  /// Runs `measure` if one of `names` is wanted; a failure becomes that of the wanted rows.
  void section(const std::vector<std::string>& names, const std::function<void()>& measure) const;

 private:
  std::string filter_;
  bool quick_;
};

}  // namespace bench
