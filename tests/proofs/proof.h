// What all proofs share: how long they are, the random numbers they draw, the figures they print.
//
// Environment: QMK_PROOF=short|long (short when it is not set), QMK_SEED=<number> replays a run.
#pragma once

#include <cstdint>
#include <string>

namespace proofs {

/// Whether the long form was asked for.
[[nodiscard]] bool isLong();

/// How often something is done in the form that was asked for.
[[nodiscard]] int amount(int shortForm, int longForm);

/// QMK_SEED; without it, 1 in the short form and a number that differs from run to run in the long
/// one. Printed with the figures of the proofs that use it.
[[nodiscard]] std::uint64_t seed();

/// Prints one line of the table of figures.
void figure(const std::string& name, const std::string& value);
void figure(const std::string& name, std::int64_t value);

/// Numbers that look random and are the same ones for the same seed, on every compiler.
class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}
  [[nodiscard]] std::uint64_t next();
  /// From 0 to `bound` - 1.
  [[nodiscard]] int below(int bound);
  /// Whether one of `times` equal chances came.
  [[nodiscard]] bool oneIn(int times) { return below(times) == 0; }

 private:
  std::uint64_t state_;
};

}  // namespace proofs
