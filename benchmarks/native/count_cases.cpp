// Instruction counts of the portable hot code. Runs under callgrind with --instr-atstart=no. Each
// case gets a dump of its own, named "case NAME RECORDS".
#include <valgrind/callgrind.h>

#include <string>

#include "native/cases.h"

int main() {
  constexpr std::size_t records = 10000;
  for (const bench::Case& one : bench::cases()) {
    const auto work = one.prepare(records);
    // A first pass, so that memory is already allocated when counting starts.
    work();
    const std::string name = "case " + std::string(one.name) + " " + std::to_string(records);
    CALLGRIND_START_INSTRUMENTATION;
    CALLGRIND_ZERO_STATS;
    work();
    CALLGRIND_DUMP_STATS_AT(name.c_str());
    CALLGRIND_STOP_INSTRUMENTATION;
  }
  return 0;
}
