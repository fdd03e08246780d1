// Clock and statistics of the measurements.
#pragma once

#include <windows.h>

#include <algorithm>
#include <cstdint>
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

/// The median; 0 for no values.
inline double median(std::vector<double> values) {
  if (values.empty()) {
    return 0;
  }
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  if (values.size() % 2 != 0) {
    return *middle;
  }
  return (*middle + *std::max_element(values.begin(), middle)) / 2;
}

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
};

}  // namespace bench
