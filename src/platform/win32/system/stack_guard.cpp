// What the compiler's stack protector needs at run time.
//
// GCC's own part asks the system's cryptography for the guard's value before the first line of the
// program. That loads libraries (cryptsp.dll and those that it needs) by their bare names, when the
// program's own folder is still searched first: whoever can write there would run code in this
// program. Here the value comes from what needs no library, the same sources from which the
// compiler of the system's vendor makes its guard. That compiler needs none of this.
#ifndef _MSC_VER

#include <windows.h>

#include <cstdint>

namespace {

/// Spreads every bit of `value` over all others (the finishing step of a common hash function).
__attribute__((no_stack_protector)) std::uint64_t mixed(std::uint64_t value) {
  value = (value ^ (value >> 33U)) * 0xFF51AFD7ED558CCDU;
  value = (value ^ (value >> 33U)) * 0xC4CEB9FE1A85EC53U;
  return value ^ (value >> 33U);
}

}  // namespace

extern "C" {

// The compiler refers to both names in every function that it guards.
// NOLINTBEGIN(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-identifier-naming)
std::uintptr_t __stack_chk_guard = 0;

[[noreturn]] void __stack_chk_fail() {
  OutputDebugStringA("*** stack smashing detected ***");
  constexpr UINT stackBufferOverrun = 0xC0000409U;
  TerminateProcess(GetCurrentProcess(), stackBufferOverrun);
  __builtin_unreachable();
}
// NOLINTEND(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp,readability-identifier-naming)

/// Runs before all other constructors. Must not be guarded itself: the value changes in it.
__attribute__((constructor(101), no_stack_protector)) static void chooseGuard() {
  FILETIME now{};
  GetSystemTimeAsFileTime(&now);
  LARGE_INTEGER counter{};
  QueryPerformanceCounter(&counter);
  std::uint64_t value = mixed((std::uint64_t{now.dwHighDateTime} << 32U) | now.dwLowDateTime);
  value = mixed(value ^ static_cast<std::uint64_t>(counter.QuadPart));
  value = mixed(value ^ GetCurrentProcessId() ^ (std::uint64_t{GetCurrentThreadId()} << 32U));
  // The system chooses these addresses anew for every process.
  value = mixed(value ^ reinterpret_cast<std::uintptr_t>(&now));
  value = mixed(value ^ reinterpret_cast<std::uintptr_t>(&__stack_chk_guard));
  // A zero byte ends a copy of text that overruns its buffer.
  __stack_chk_guard = static_cast<std::uintptr_t>(value) & ~std::uintptr_t{0xFF};
}
}

#endif
