/// How collected lines grow: the running text of a listing, as slices of one buffer.

#include <benchmark/benchmark.h>

#include "checker/ReportLines.h"

namespace {

void collectRunningText(benchmark::State& state) {
    const CString group(L"        CORP\\Group");
    for (auto _ : state) {
        ReportLines lines;
        for (int64_t i = 0; i < state.range(0); ++i) {
            lines.appendToRunningText(group);
            lines.addRunningText();
        }
        benchmark::DoNotOptimize(lines.size());
    }
    state.SetComplexityN(state.range(0));
}
BENCHMARK(collectRunningText)->RangeMultiplier(8)->Range(64, 32768)->Complexity();

}  // namespace
