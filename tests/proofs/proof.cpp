#include "proof.h"

#include <windows.h>

#include <cstdio>
#include <cstdlib>

namespace proofs {
namespace {

std::string environment(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

std::uint64_t chosenSeed() {
  if (const std::string given = environment("QMK_SEED"); !given.empty()) {
    return std::strtoull(given.c_str(), nullptr, 10);
  }
  return isLong() ? GetTickCount64() : 1;
}

}  // namespace

bool isLong() { return environment("QMK_PROOF") == "long"; }

int amount(int shortForm, int longForm) { return isLong() ? longForm : shortForm; }

std::uint64_t seed() {
  static const std::uint64_t chosen = chosenSeed();
  return chosen;
}

void figure(const std::string& name, const std::string& value) {
  std::printf("figure: %s: %s\n", name.c_str(), value.c_str());
}

void figure(const std::string& name, std::int64_t value) { figure(name, std::to_string(value)); }

std::uint64_t Random::next() {
  state_ += 0x9E3779B97F4A7C15U;
  std::uint64_t mixed = state_;
  mixed = (mixed ^ (mixed >> 30U)) * 0xBF58476D1CE4E5B9U;
  mixed = (mixed ^ (mixed >> 27U)) * 0x94D049BB133111EBU;
  return mixed ^ (mixed >> 31U);
}

int Random::below(int bound) { return static_cast<int>(next() % static_cast<unsigned>(bound)); }

}  // namespace proofs
