#ifndef KELPLIB_BENCHMARKS_MEASURE_H
#define KELPLIB_BENCHMARKS_MEASURE_H

#include <benchmark/benchmark.h>

#include <memory>
#include <string>

/// Registers `work` as a measurement. Its result is looked at once, before the clock runs; a wrong one is an error and no
/// figure. What the work returns is destroyed while the clock runs.
/// \param items  how many tokens, values or redraws the work handles; written beside the times
template <class Work, class IsRight>
benchmark::internal::Benchmark* measure(const std::string& name, std::size_t items, Work work, IsRight isRight) {
    const auto looked = std::make_shared<bool>(false);
    return benchmark::RegisterBenchmark(name.c_str(), [items, work, isRight, looked](benchmark::State& state) {
        if (!*looked && !isRight(work())) {
            state.SkipWithError("wrong result");
            return;
        }
        *looked = true;
        for ([[maybe_unused]] auto turn : state) {
            auto result = work();
            benchmark::DoNotOptimize(result);
        }
        state.counters["items"] = static_cast<double>(items);
    });
}

#endif
