// Several machines that work on one folder of the in-memory disk. They take turns at the steps of
// the platform, in an order that a seed determines.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <exception>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <random>
#include <thread>
#include <vector>

namespace faults {

/// Runs the work of the machines, each on a thread of its own. Only one of the threads runs at a
/// time. The desktop's clock goes on by a millisecond every few steps.
class Machines {
 public:
  explicit Machines(std::uint64_t seed);
  Machines(const Machines&) = delete;
  Machines& operator=(const Machines&) = delete;
  ~Machines();

  /// Gives a new machine its work. Machines have the numbers 1, 2, 3 ...
  void add(std::function<void()> work);
  /// Ends a machine's program at its n-th step from the start (1 is the first), just before that
  /// step. Nothing that it would still do is done; the system closes its files.
  void endAt(int machine, int step);
  /// Lets all of them work until they have finished.
  void run();
  /// Whether a machine was ended by `endAt`.
  [[nodiscard]] bool ended(int machine) const;

 private:
  struct Machine {
    std::function<void()> work;
    std::thread thread;
    int steps = 0;
    std::optional<int> endAt;
    bool ended = false;
    bool finished = false;
    std::uint64_t waitsUntil = 0;
    std::exception_ptr failure;
  };

  void step();
  void wait(int milliseconds);
  /// Chooses the machine that goes on; nullptr when all have finished.
  [[nodiscard]] Machine* next();
  /// Lets another machine go on, and waits until it is the turn of `self` again.
  void passOn(Machine& self);
  void runOn(Machine& self);

  std::mutex mutex_;
  std::condition_variable turns_;
  std::mt19937_64 random_;
  std::vector<std::unique_ptr<Machine>> machines_;
  Machine* turn_ = nullptr;
  std::uint64_t stretch_ = 0;  ///< Steps for which the machine whose turn it is goes on.
  int stepsOfAll_ = 0;
};

}  // namespace faults
