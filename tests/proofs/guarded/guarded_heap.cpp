// Linked into the guarded build of the program: a heap on which every misuse faults where it
// happens.
//
// Each block ends at the end of a page, the page behind it does not exist, and the pages of a block
// that is given back do not exist any more for a long time. An ordinary heap lets such accesses
// pass, and what they have damaged makes the program fail later, in code that is not at fault.
#include <windows.h>

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>

namespace {

constexpr std::size_t pageBytes = 4096;
constexpr std::size_t alignment = 16;
/// 16 GB of addresses. Only the blocks that are in use take memory.
constexpr std::size_t allPages = std::size_t{1} << 22U;
/// Blocks have room in places of 1, 2, 4 ... pages; longer ones go to the ordinary heap.
constexpr std::size_t kinds = 7;
/// As many pages have been given back after a place before it is used again.
constexpr std::size_t restingPages = std::size_t{1} << 17U;
constexpr int fresh = 0xA5;
constexpr int beyond = 0xEE;

template <class T>
T* lasting(std::size_t count, DWORD how) {
  void* const memory = VirtualAlloc(nullptr, count * sizeof(T), how, PAGE_READWRITE);
  if (memory == nullptr) {
    std::abort();
  }
  return static_cast<T*>(memory);
}

std::size_t rounded(std::size_t bytes) {
  return std::max((bytes + alignment - 1) / alignment * alignment, alignment);
}

std::size_t pagesFor(std::size_t bytes) { return (rounded(bytes) + pageBytes - 1) / pageBytes; }

std::size_t kindFor(std::size_t bytes) {
  return static_cast<std::size_t>(std::bit_width(pagesFor(bytes) - 1));
}

/// Its own and the one that is missing behind it.
std::size_t pagesOf(std::size_t kind) { return (std::size_t{1} << kind) + 1; }

class GuardedHeap {
 public:
  void* take(std::size_t bytes) {
    const std::size_t kind = kindFor(bytes);
    if (kind >= kinds) {
      return std::malloc(bytes);
    }
    AcquireSRWLockExclusive(&lock_);
    const std::size_t page = placeOf(kind);
    char* const begin = base_ + page * pageBytes;
    const bool given = page != noPlace && VirtualAlloc(begin, pagesFor(bytes) * pageBytes,
                                                       MEM_COMMIT, PAGE_READWRITE) != nullptr;
    if (given) {
      sizes_[page] = bytes + 1;
    }
    ReleaseSRWLockExclusive(&lock_);
    if (!given) {
      return nullptr;
    }
    char* const block = begin + pagesFor(bytes) * pageBytes - rounded(bytes);
    std::memset(block, fresh, bytes);
    std::memset(block + bytes, beyond, rounded(bytes) - bytes);
    return block;
  }

  void giveBack(void* memory) {
    char* const block = static_cast<char*>(memory);
    if (block < base_ || block >= base_ + allPages * pageBytes) {
      std::free(memory);
      return;
    }
    const auto page = static_cast<std::size_t>(block - base_) / pageBytes;
    AcquireSRWLockExclusive(&lock_);
    // Zero: given back before, or never given out.
    if (sizes_[page] == 0) {
      std::abort();
    }
    const std::size_t bytes = sizes_[page] - 1;
    const bool whole = std::all_of(block + bytes, block + rounded(bytes),
                                   [](char c) { return static_cast<unsigned char>(c) == beyond; });
    if (!whole) {
      std::abort();
    }
    sizes_[page] = 0;
    VirtualFree(base_ + page * pageBytes, pagesFor(bytes) * pageBytes, MEM_DECOMMIT);
    Resting& resting = resting_.at(kindFor(bytes));
    resting.places[resting.end++ % allPages] = static_cast<std::uint32_t>(page);
    ReleaseSRWLockExclusive(&lock_);
  }

 private:
  static constexpr std::size_t noPlace = allPages;

  /// Places of one kind that have been given back, the one that rests longest first.
  struct Resting {
    std::uint32_t* places = lasting<std::uint32_t>(allPages, MEM_RESERVE | MEM_COMMIT);
    std::size_t begin = 0;
    std::size_t end = 0;
  };

  std::size_t placeOf(std::size_t kind) {
    Resting& resting = resting_.at(kind);
    const bool rested = (resting.end - resting.begin) * pagesOf(kind) > restingPages;
    const bool full = usedPages_ + pagesOf(kind) > allPages;
    if (rested || (full && resting.end != resting.begin)) {
      return resting.places[resting.begin++ % allPages];
    }
    if (full) {
      return noPlace;
    }
    const std::size_t page = usedPages_;
    usedPages_ += pagesOf(kind);
    return page;
  }

  SRWLOCK lock_ = SRWLOCK_INIT;
  char* base_ = lasting<char>(allPages * pageBytes, MEM_RESERVE);
  /// By a block's first page: one more than its bytes, or 0 where no block begins.
  std::size_t* sizes_ = lasting<std::size_t>(allPages, MEM_RESERVE | MEM_COMMIT);
  std::array<Resting, kinds> resting_;
  std::size_t usedPages_ = 0;
};

GuardedHeap& heap() {
  // Never destroyed: what other objects give back at the very end comes here too.
  alignas(GuardedHeap) static std::array<std::byte, sizeof(GuardedHeap)> place;
  static GuardedHeap* const only = new (place.data()) GuardedHeap;
  return *only;
}

}  // namespace

void* operator new(std::size_t bytes) {
  void* const memory = heap().take(bytes);
  if (memory == nullptr) {
    throw std::bad_alloc();
  }
  return memory;
}

void operator delete(void* memory) noexcept {
  if (memory != nullptr) {
    heap().giveBack(memory);
  }
}

void operator delete(void* memory, std::size_t /*bytes*/) noexcept { operator delete(memory); }
