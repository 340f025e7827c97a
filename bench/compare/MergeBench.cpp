// MergeBench.cpp - time of a three-way merge on generated triples.
//
// BASE is code-like lines (blank lines and lone braces in the share real
// sources have); LOCAL and REMOTE each replace, delete or insert at about 1%
// of its lines, apart from each other.  Each iteration opens the three texts
// from memory (outside the timing), then times Merge (two comparisons, the
// placement of their runs, the regions) and the merged text.
#include "compare/VnMerge.h"

#include <benchmark/benchmark.h>

#include <random>
#include <string>

namespace {

std::string CodeLine(std::mt19937& rng) {
  switch (rng() % 10) {
  case 0: return "\n";
  case 1: return "}\n";
  default: return "    value_" + std::to_string(rng() % 5000) + " = compute(" + std::to_string(rng() % 1000) + ");\n";
  }
}

// Edits at about two lines in a hundred, within one quarter of every
// hundred lines (offset picks which), so that the two sides never meet.
std::string Edited(std::mt19937& rng, const std::vector<std::string>& lines, size_t offset) {
  std::string out;
  for (size_t i = 0; i < lines.size(); ++i) {
    const unsigned r = rng() % 100;
    if ((i % 100) / 25 != 1 + 2 * offset || r >= 8) {
      out += lines[i];
    } else if (r < 4) {
      out += CodeLine(rng);
    } else {
      out += lines[i] + CodeLine(rng);
    }
  }
  return out;
}

void BM_MergeThreeWay(benchmark::State& state) {
  std::mt19937 rng(1);
  std::vector<std::string> lines(static_cast<size_t>(state.range(0)));
  std::string base;
  for (std::string& l : lines)
    base += l = CodeLine(rng);
  const std::string local = Edited(rng, lines, 0), remote = Edited(rng, lines, 1);
  for (auto _ : state) {
    state.PauseTiming();
    CVnMerge merge;
    merge.OpenBytes(CVnMerge::Local, local, _T("L"));
    merge.OpenBytes(CVnMerge::Base, base, _T("B"));
    merge.OpenBytes(CVnMerge::Remote, remote, _T("R"));
    state.ResumeTiming();
    CString why;
    if (!merge.Merge(why) || merge.GetConflictCount() != 0)
      state.SkipWithError("the sides met");
    benchmark::DoNotOptimize(merge.GetMergedText(CVnMergeMarkers()));
  }
}
BENCHMARK(BM_MergeThreeWay)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
