// Times of the portable hot code, by Google Benchmark: each case at two sizes.
#include <benchmark/benchmark.h>

#include <string>

#include "native/cases.h"

int main(int argumentCount, char** arguments) {
  for (const bench::Case& one : bench::cases()) {
    for (const std::size_t records : {std::size_t{1000}, std::size_t{100000}}) {
      benchmark::RegisterBenchmark(
          (std::string(one.name) + "/" + std::to_string(records)).c_str(),
          [&one, records](benchmark::State& state) {
            const auto work = one.prepare(records);
            work();
            for (auto pass : state) {
              static_cast<void>(pass);
              work();
            }
            state.SetItemsProcessed(state.iterations() * static_cast<std::int64_t>(records));
          })
          ->Unit(benchmark::kMillisecond);
    }
  }
  benchmark::Initialize(&argumentCount, arguments);
  benchmark::RunSpecifiedBenchmarks();
  return 0;
}
