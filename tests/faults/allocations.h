// The memory that the program asks for, counted, and refused at a chosen time.
#pragma once

namespace faults {

/// While one lives, allocations count, but for those of the desktop itself.
class CountedAllocations {
 public:
  CountedAllocations();
  CountedAllocations(const CountedAllocations&) = delete;
  CountedAllocations& operator=(const CountedAllocations&) = delete;
  ~CountedAllocations();
};

/// Makes the n-th counted allocation from now (1 is the next one) throw std::bad_alloc, and sets
/// the count back; 0 lets all of them succeed.
void failAllocation(int n);

/// Counted allocations since `failAllocation` was last called.
[[nodiscard]] int allocations();

/// Whether one of them failed.
[[nodiscard]] bool allocationFailed();

}  // namespace faults
