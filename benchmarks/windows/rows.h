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
  double low = 0;   ///< A quarter of the turns has a lower ratio; 0 where there are no turns.
  double high = 0;  ///< A quarter has a higher one.
};

/// Collects rows and prints each as one line of fields separated by tabs.
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
  /// Prints a row: the median of the turns' ratios, and their quartiles.
  void printRatio(const std::string& name, const Pair& pair, double limit,
                  Limit kind = Limit::atMost) const;
  /// Prints why a row has no value.
  static void printFailure(const std::string& name, const std::string& reason);

  /// Runs `measure` if one of `names` is selected. Its rows are printed when it has come to its
  /// end. A failure is told at once and tried again; after the second one it is printed for the
  /// selected rows.
  void section(const std::vector<std::string>& names, const std::function<void()>& measure) const;

 private:
  std::string filter_;
  bool quick_;
  /// The rows of the section so far.
  mutable std::vector<std::string> lines_;
};

}  // namespace bench
