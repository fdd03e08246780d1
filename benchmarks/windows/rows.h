// The rows of the table of ratios.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "windows/measure.h"

namespace bench {

/// How a row is compared with its limit.
enum class Limit { atMost, atLeast, none };

struct Row {
  std::string name;  ///< Must not change: documentation and other runs use it.
  double value = 0;  ///< The ratio, or the value itself if there is no other side.
  double limit = 0;
  Limit kind = Limit::none;
  double ours = 0;    ///< Median, milliseconds unless the name says otherwise; for information.
  double theirs = 0;  ///< The other side's; 0 without one.
  int runs = 0;
};

/// Collects rows and prints each at once, as one line of fields separated by tabs.
class Table {
 public:
  explicit Table(std::string filter, bool quick) : filter_(std::move(filter)), quick_(quick) {}

  /// Whether the command line selects the row.
  [[nodiscard]] bool wanted(const std::string& name) const;
  /// Fewer runs and smaller sizes, for a quick look.
  [[nodiscard]] bool quick() const { return quick_; }
  /// Number of runs for a measurement that has `full` runs in a full measurement.
  [[nodiscard]] int runs(int full) const { return quick_ ? 3 : full; }

  void print(const Row& row) const;
  /// Prints a row: our median divided by the other side's.
  void printRatio(const std::string& name, const Pair& pair, double limit,
                  Limit kind = Limit::atMost) const;
  /// Prints why a row has no value.
  static void printFailure(const std::string& name, const std::string& reason);

  /// Runs `measure` if one of `names` is selected. A failure is printed for the selected rows.
  void section(const std::vector<std::string>& names, const std::function<void()>& measure) const;

 private:
  std::string filter_;
  bool quick_;
};

}  // namespace bench
