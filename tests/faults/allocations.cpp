#include "faults/allocations.h"

#include <cstdlib>
#include <new>

#include "platform/unfailing.h"

namespace faults {
namespace {

struct Count {
  int counting = 0;  // open scopes
  int done = 0;
  int failAt = 0;
  bool failed = false;
};

Count& count() {
  static Count theCount;
  return theCount;
}

/// Whether the allocation that is requested now must fail.
bool refused() {
  Count& state = count();
  if (state.counting == 0 || memory::Unfailing::active()) {
    return false;
  }
  if (++state.done != state.failAt) {
    return false;
  }
  state.failed = true;
  return true;
}

void* allocate(std::size_t size) noexcept {
  // The C library's allocator, because the sanitizers watch it.
  return refused() ? nullptr : std::malloc(size == 0 ? 1 : size);
}

void* allocateOrThrow(std::size_t size) {
  void* const memory = allocate(size);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  return memory;
}

}  // namespace

CountedAllocations::CountedAllocations() { ++count().counting; }

CountedAllocations::~CountedAllocations() { --count().counting; }

void failAllocation(int n) {
  Count& state = count();
  state.done = 0;
  state.failAt = n;
  state.failed = false;
}

int allocations() { return count().done; }

bool allocationFailed() { return count().failed; }

}  // namespace faults

// These replace the language's own operators in the whole program.
void* operator new(std::size_t size) { return faults::allocateOrThrow(size); }
void* operator new[](std::size_t size) { return faults::allocateOrThrow(size); }
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return faults::allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
  return faults::allocate(size);
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete[](void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
void operator delete[](void* memory, std::size_t /*size*/) noexcept { std::free(memory); }
void operator delete(void* memory, const std::nothrow_t& /*tag*/) noexcept { std::free(memory); }
void operator delete[](void* memory, const std::nothrow_t& /*tag*/) noexcept { std::free(memory); }
