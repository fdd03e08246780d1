// Clock and statistics of the measurements.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace bench {

/// The system-wide clock, the same in all processes.
inline std::int64_t now() {
  LARGE_INTEGER ticks{};
  QueryPerformanceCounter(&ticks);
  return ticks.QuadPart;
}

inline double milliseconds(std::int64_t from, std::int64_t to) {
  LARGE_INTEGER frequency{};
  QueryPerformanceFrequency(&frequency);
  return static_cast<double>(to - from) * 1000.0 / static_cast<double>(frequency.QuadPart);
}

/// Time of `work` in milliseconds.
template <class Work>
double timed(Work work) {
  const std::int64_t begin = now();
  work();
  return milliseconds(begin, now());
}

/// The value below which such a part of the values lies, 0 to 1; between two values in proportion.
/// 0 for no values.
inline double quantile(std::vector<double> values, double part) {
  if (values.empty()) {
    return 0;
  }
  std::sort(values.begin(), values.end());
  const double place = part * static_cast<double>(values.size() - 1);
  const auto below = static_cast<std::size_t>(place);
  const std::size_t above = std::min(below + 1, values.size() - 1);
  return values[below] + (values[above] - values[below]) * (place - static_cast<double>(below));
}

/// The median; 0 for no values.
inline double median(std::vector<double> values) { return quantile(std::move(values), 0.5); }

/// Runs two sides in turns, so that any disturbance by the machine affects both.
struct Pair {
  std::vector<double> ours;
  std::vector<double> theirs;

  template <class Ours, class Theirs>
  static Pair inTurns(int runs, Ours runOurs, Theirs runTheirs) {
    Pair pair;
    for (int run = 0; run < runs; ++run) {
      // The sides take turns in going first.
      if (run % 2 == 0) {
        pair.theirs.push_back(runTheirs());
        pair.ours.push_back(runOurs());
      } else {
        pair.ours.push_back(runOurs());
        pair.theirs.push_back(runTheirs());
      }
    }
    return pair;
  }

  /// Our time divided by the other side's of the same turn, for each turn. A disturbance that lasts
  /// longer than a turn changes both and hardly the ratio.
  [[nodiscard]] std::vector<double> ratios() const {
    std::vector<double> result;
    for (std::size_t turn = 0; turn < std::min(ours.size(), theirs.size()); ++turn) {
      result.push_back(ours[turn] / theirs[turn]);
    }
    return result;
  }
};

}  // namespace bench
