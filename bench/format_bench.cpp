#include <benchmark/benchmark.h>

#include "base/format.h"

static void BM_Format(benchmark::State& state) {
    double x = 1234.5678;
    for (auto _ : state) benchmark::DoNotOptimize(norvo::Format(x, "#,##0.00"));
}
BENCHMARK(BM_Format);
