// Shared code of the proofs: their length, their random numbers, their figures.
//
// Environment: QMK_PROOF=short|long (short when it is not set), QMK_SEED=<number> replays a run.
#pragma once

#include <cstdint>
#include <string>

namespace proofs {

/// Whether the long form was requested.
[[nodiscard]] bool isLong();

/// Number of repetitions in the requested form.
[[nodiscard]] int amount(int shortForm, int longForm);

/// QMK_SEED. Without it: 1 in the short form, and a different number in each run in the long form.
/// Printed with the figures of the proofs that use it.
[[nodiscard]] std::uint64_t seed();

/// Prints one line of the table of figures.
void figure(const std::string& name, const std::string& value);
void figure(const std::string& name, std::int64_t value);

/// Pseudo-random numbers, the same for the same seed with every compiler.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}
  [[nodiscard]] std::uint64_t next();
  /// From 0 to `bound` - 1.
  [[nodiscard]] int below(int bound);
  /// True with a chance of one in `times`.
  [[nodiscard]] bool oneIn(int times) { return below(times) == 0; }

 private:
  std::uint64_t state_;
};

}  // namespace proofs
