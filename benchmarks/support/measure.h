#ifndef KELPLIB_BENCHMARKS_MEASURE_H
#define KELPLIB_BENCHMARKS_MEASURE_H

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

/// Registers `work` as a benchmark. Its result is checked once before the measurement; a wrong result is an error. The time
/// includes destroying the result.
/// \param items  the number of tokens, values or redraws in one call of `work`; reported with the times
template <class Work, class IsRight>
benchmark::internal::Benchmark* measure(const std::string& name, std::size_t items, Work work, IsRight isRight) {
    const auto checked = std::make_shared<bool>(false);
    return benchmark::RegisterBenchmark(name.c_str(), [items, work, isRight, checked](benchmark::State& state) {
        if (!*checked && !isRight(work())) {
            state.SkipWithError("wrong result");
            return;
        }
        *checked = true;
        for ([[maybe_unused]] auto turn : state) {
            auto result = work();
            benchmark::DoNotOptimize(result);
        }
        state.counters["items"] = static_cast<double>(items);
    });
}

#endif
