// FoundationBench.cpp - time of the collection layer's sorted-array
// operations and of the path text functions on their costliest inputs.
//
// Inputs are built once per case, outside the timing.  Compare is timed on
// two sorted arrays of n longs that share about half their values;
// FindIndex and the sorted DWORD set on n values; the name pattern on many
// stars against a long text that nearly matches (the case a plain recursive
// matcher takes exponential time on).
#include "foundation/VnPath.h"
#include "foundation/collections/VnArray.h"
#include "foundation/collections/VnSortedDWordArray.h"

#include <benchmark/benchmark.h>

#include <random>

static void Fill(CVnSortableLongArray& a, int n, unsigned seed) {
  std::mt19937 rng(seed);
  a.SetSize(n);
  for (int i = 0; i < n; ++i)
    a[i] = static_cast<long>(rng() % (2u * static_cast<unsigned>(n)));
  a.Sort();
}

static void BM_SortedArrayCompare(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  CVnSortableLongArray a, b, common, onlyOther, onlyThis;
  Fill(a, n, 1);
  Fill(b, n, 2);
  for (auto _ : state)
    benchmark::DoNotOptimize(a.Compare(b, common, onlyOther, onlyThis));
  state.SetItemsProcessed(state.iterations() * 2 * n);
}
BENCHMARK(BM_SortedArrayCompare)->Arg(1000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMicrosecond);

static void BM_SortedArrayFindIndex(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  CVnSortableLongArray a;
  Fill(a, n, 3);
  std::mt19937 rng(4);
  int index = 0;
  for (auto _ : state)
    benchmark::DoNotOptimize(a.FindIndex(static_cast<long>(rng() % (2u * static_cast<unsigned>(n))), index));
}
BENCHMARK(BM_SortedArrayFindIndex)->Arg(1000)->Arg(1000000);

static void BM_SortedDWordInsert(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  std::mt19937 rng(5);
  for (auto _ : state) {
    CVnSortedDWordArray a;
    for (int i = 0; i < n; ++i)
      a.Insert(rng());
    benchmark::DoNotOptimize(a.GetSize());
  }
  state.SetItemsProcessed(state.iterations() * n);
}
BENCHMARK(BM_SortedDWordInsert)->Arg(1000)->Arg(10000)->Unit(benchmark::kMicrosecond);

static void BM_NamePatternManyStars(benchmark::State& state) {
  const int stars = static_cast<int>(state.range(0));
  CString pattern, text(_T('a'), 255);
  for (int i = 0; i < stars; ++i)
    pattern += _T("*a");
  pattern += _T("b");
  for (auto _ : state)
    benchmark::DoNotOptimize(MatchNamePattern(pattern, text));
}
BENCHMARK(BM_NamePatternManyStars)->Arg(4)->Arg(64)->Unit(benchmark::kMicrosecond);

static void BM_CanonicalPathName(benchmark::State& state) {
  const CString path(_T("C:/Program Files/./vendor/../app/sub//dir/./x/../file.TXT"));
  for (auto _ : state)
    benchmark::DoNotOptimize(GetCanonicalPathName(path, 0));
}
BENCHMARK(BM_CanonicalPathName);

BENCHMARK_MAIN();
