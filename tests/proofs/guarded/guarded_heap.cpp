// Linked into the guarded build of the program: a heap on which every misuse faults at once.
//
// Each block ends at the end of a page, and the next page is not mapped. The pages of a freed block
// stay unmapped for a long time. A normal heap allows such accesses; their damage makes the program
// fail later, in code that is not at fault.
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
/// 16 GB of address space. Only blocks in use take memory.
constexpr std::size_t allPages = std::size_t{1} << 22U;
/// Sizes of slots: 1, 2, 4 ... pages. Larger blocks go to the normal heap.
constexpr std::size_t kinds = 7;
/// A slot is used again only after this many pages have been freed.
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

/// The slot's pages and the unmapped one after it.
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
    // Zero: freed before, or never allocated.
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

  /// Free slots of one size, the one that was freed first at the front.
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
  /// For the first page of a block: one more than its size in bytes; 0 where no block begins.
  std::size_t* sizes_ = lasting<std::size_t>(allPages, MEM_RESERVE | MEM_COMMIT);
  std::array<Resting, kinds> resting_;
  std::size_t usedPages_ = 0;
};

GuardedHeap& heap() {
  // Never destroyed, because other objects free memory here until the very end.
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
