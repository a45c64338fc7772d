#pragma once

#include "bench/Ratios.hpp"

#include <benchmark/benchmark.h>

#include <string>
#include <utility>
#include <vector>

/// The groups of the table, a source each: a group registers what it measures, and yields the rows that are made of it.
namespace quorin::bench {

using Rows = std::vector<Row>;

Rows loadingRows();
Rows valueRows();
Rows accessorRows();
Rows requestRows();
Rows identityRows();
Rows transferRows();
Rows programRows();

/// Measures what the work takes, as seen by a clock on the wall.
template <class Work>
benchmark::internal::Benchmark* add(const std::string& name, Work work) {
    return benchmark::RegisterBenchmark(name.c_str(),
                                        [work = std::move(work)](benchmark::State& state) mutable {
                                            for ([[maybe_unused]] auto round : state) benchmark::DoNotOptimize(work());
                                        })
        ->UseRealTime();
}

}  // namespace quorin::bench
