#ifndef KELPLIB_BENCHMARKS_MEASURE_H
#define KELPLIB_BENCHMARKS_MEASURE_H

#include <benchmark/benchmark.h>

#include <chrono>
#include <memory>
#include <string>
#include <utility>

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

/// The same for work that consumes its input: work(prepare()). The time, wall clock, does not include prepare().
template <class Prepare, class Work, class IsRight>
benchmark::internal::Benchmark* measurePrepared(const std::string& name, std::size_t items, Prepare prepare, Work work,
                                                IsRight isRight) {
    const auto checked = std::make_shared<bool>(false);
    const auto run = [items, prepare, work, isRight, checked](benchmark::State& state) {
        if (!*checked && !isRight(work(prepare()))) {
            state.SkipWithError("wrong result");
            return;
        }
        *checked = true;
        for ([[maybe_unused]] auto turn : state) {
            auto input = prepare();
            const auto start = std::chrono::steady_clock::now();
            {
                auto result = work(std::move(input));
                benchmark::DoNotOptimize(result);
            }
            state.SetIterationTime(std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count());
        }
        state.counters["items"] = static_cast<double>(items);
    };
    return benchmark::RegisterBenchmark(name.c_str(), run)->UseManualTime();
}

#endif
