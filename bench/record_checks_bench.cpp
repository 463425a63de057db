// Speed of the checks a table of growth increments or of means passes before it is saved or
// imported: every row's cells, dates and order, on tables of 100 to 10000 rows.
#include <benchmark/benchmark.h>

#include "data/record_checks.h"

namespace {

// Tag-recapture rows a few months apart, lengths growing, all of them valid.
std::vector<norvo::GridRow> GrowthRows(int n) {
    std::vector<norvo::GridRow> rows;
    for (int i = 0; i < n; ++i) {
        const double day = 1 + i % 28, month = 1 + i % 6, year = 1990 + i % 20;
        rows.push_back({day, month, year, 10.0 + i % 7, day, month + 5, year, 12.0 + i % 7});
    }
    return rows;
}

std::vector<norvo::GridRow> MeanRows(int n) {
    std::vector<norvo::GridRow> rows;
    for (int i = 0; i < n; ++i)
        rows.push_back({1.0 + i % 28, 1.0 + i % 12, 1990.0 + i % 20, 10.0 + i % 30, 1.5});
    return rows;
}

void BM_CheckGrowthIncrements(benchmark::State& state) {
    const auto rows = GrowthRows(static_cast<int>(state.range(0)));
    const norvo::RecordKind& kind = *norvo::FindRecordKind("GIN");
    for (auto _ : state) benchmark::DoNotOptimize(norvo::CheckRecordRows(kind, rows));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_CheckGrowthIncrements)->Arg(100)->Arg(1000)->Arg(10000);

void BM_CheckMeanDates(benchmark::State& state) {
    const auto rows = MeanRows(static_cast<int>(state.range(0)));
    const norvo::RecordKind& kind = *norvo::FindRecordKind("MSD");
    for (auto _ : state) benchmark::DoNotOptimize(norvo::CheckRecordRows(kind, rows));
    state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_CheckMeanDates)->Arg(100)->Arg(1000)->Arg(10000);

}  // namespace
