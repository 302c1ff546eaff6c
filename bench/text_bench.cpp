/// What text costs: the formatter, a message of the catalog, an operation that nobody observes.

#include <benchmark/benchmark.h>

#include "runtime/base/CString.h"
#include "runtime/base/QVPath.h"
#include "runtime/base/QVString.h"

namespace {

void formatThreeTexts(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(formatText(L"%s\\%s: %s\n", L"CORP", L"alice", L"500 MB"));
}
BENCHMARK(formatThreeTexts);

/// The measure for the one above: the same text put together by hand.
void concatenateThreeTexts(benchmark::State& state) {
    for (auto _ : state) {
        std::wstring text(L"CORP");
        text += L"\\";
        text += L"alice";
        text += L": ";
        text += L"500 MB";
        text += L"\n";
        benchmark::DoNotOptimize(text);
    }
}
BENCHMARK(concatenateThreeTexts);

void messageOfTheCatalog(benchmark::State& state) {
    for (auto _ : state)
        benchmark::DoNotOptimize(CString(QVString(3330, L"kvxbase.dll")));
}
BENCHMARK(messageOfTheCatalog);

void operationUnobserved(benchmark::State& state) {
    const CString path(L"C:\\Windows");
    for (auto _ : state)
        benchmark::DoNotOptimize(QVPath::mf_isAbsolutePathName(path));
}
BENCHMARK(operationUnobserved);

}  // namespace
