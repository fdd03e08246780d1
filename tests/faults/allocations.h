// Counts allocations, and makes a chosen one fail.
#pragma once

namespace faults {

/// While an object of this class exists, allocations are counted, except those of the in-memory
/// desktop itself.
class CountedAllocations {
 public:
  CountedAllocations();
  CountedAllocations(const CountedAllocations&) = delete;
  CountedAllocations& operator=(const CountedAllocations&) = delete;
  ~CountedAllocations();
};

/// Makes the n-th counted allocation from now (1 is the next one) throw std::bad_alloc, and resets
/// the counter; 0 lets all of them succeed.
void failAllocation(int n);

/// Number of counted allocations since the last call of `failAllocation`.
[[nodiscard]] int allocations();

/// Whether one of them failed.
[[nodiscard]] bool allocationFailed();

}  // namespace faults
