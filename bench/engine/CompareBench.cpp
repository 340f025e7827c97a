// CompareBench.cpp - time and memory of Compare on generated pairs.
//
// Every case builds its two texts and line sets once, outside the timing,
// and then times Compare alone.  Memory is measured by counting the heap:
// this executable replaces operator new and delete, so each case reports the
// peak of heap bytes that Compare held above what was live before the call
// (peak_MB), and what the two line sets themselves cost (sets_MB, the line
// records' pool blocks included).  These are bytes allocated: the class
// table's block counts with the slack that puts it on a large-page boundary
// and its nodes that are never touched, neither of which is ever resident.
// Run one case per process under /usr/bin/time -v for the whole process's
// resident peak.
//
// Inputs: code-like lines ("    value_17 = compute(17, 42);"), with blank
// lines and lone braces in the share real sources have.
#include "engine/VnCompareState.h"
#include "engine/VnDiffArg.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <new>
#include <random>
#include <string>
#include <vector>

//===-- Heap accounting ----------------------------------------------------===//

namespace {
std::atomic<size_t> g_live{0};
std::atomic<size_t> g_peak{0};
}  // namespace

static void* CountedAlloc(size_t size) {
  void* block = std::malloc(size + 16);
  if (!block)
    throw std::bad_alloc();
  *static_cast<size_t*>(block) = size;
  size_t live = g_live.fetch_add(size) + size;
  size_t peak = g_peak.load();
  while (live > peak && !g_peak.compare_exchange_weak(peak, live)) {
  }
  return static_cast<char*>(block) + 16;
}

static void CountedFree(void* p) {
  if (!p)
    return;
  void* block = static_cast<char*>(p) - 16;
  g_live.fetch_sub(*static_cast<size_t*>(block));
  std::free(block);
}

void* operator new(size_t size) { return CountedAlloc(size); }
void* operator new[](size_t size) { return CountedAlloc(size); }
void operator delete(void* p) noexcept { CountedFree(p); }
void operator delete[](void* p) noexcept { CountedFree(p); }
void operator delete(void* p, size_t) noexcept { CountedFree(p); }
void operator delete[](void* p, size_t) noexcept { CountedFree(p); }

//===-- Inputs -------------------------------------------------------------===//

namespace {

std::string CodeLine(std::mt19937& rng, int serial) {
  switch (rng() % 10) {
  case 0: return "";
  case 1: return "{";
  case 2: return "}";
  default: return "    value_" + std::to_string(serial) + " = compute(" + std::to_string(rng() % 1000) + ", " +
                  std::to_string(serial % 97) + ");";
  }
}

std::vector<std::string> CodeFile(int lines, unsigned seed) {
  std::mt19937 rng(seed);
  std::vector<std::string> out(static_cast<size_t>(lines));
  for (int i = 0; i < lines; ++i)
    out[static_cast<size_t>(i)] = CodeLine(rng, i);
  return out;
}

// Replaces about `percent` of the lines, at scattered places, by new ones;
// half of the edits insert or delete instead, so the files drift.
std::vector<std::string> Edit(const std::vector<std::string>& lines, double percent, unsigned seed) {
  std::mt19937 rng(seed);
  std::uniform_real_distribution<double> coin(0, 100);
  std::vector<std::string> out;
  out.reserve(lines.size() + lines.size() / 50);
  for (size_t i = 0; i < lines.size(); ++i) {
    if (coin(rng) >= percent) {
      out.push_back(lines[i]);
      continue;
    }
    switch (rng() % 4) {
    case 0: break;  // deleted
    case 1: out.push_back(lines[i]); out.push_back("    inserted_" + std::to_string(i) + "();"); break;
    default: out.push_back("    changed_" + std::to_string(i) + "();"); break;
    }
  }
  return out;
}

std::string Join(const std::vector<std::string>& lines) {
  std::string text;
  for (const auto& line : lines) {
    text += line;
    text += '\n';
  }
  return text;
}

// One benchmark input: two texts and their line sets.
struct Pair {
  std::string sourceText, targetText;
  CVnDiffArg source{CVnFileInfo::Text8, 0};
  CVnDiffArg target{CVnFileInfo::Text8, 0};
  size_t setBytes = 0;

  Pair(std::string s, std::string t) : sourceText(std::move(s)), targetText(std::move(t)) {
    size_t before = g_live.load();
    source.Create(sourceText.data(), static_cast<unsigned long>(sourceText.size()));
    target.Create(targetText.data(), static_cast<unsigned long>(targetText.size()));
    // Line records come from the line pool's slabs, which the counted heap
    // doesn't see: add their share (blocks rounded to 8 bytes).
    const size_t lines = static_cast<size_t>(source.GetLineCount() + target.GetLineCount());
    setBytes = g_live.load() - before + lines * ((sizeof(CVnDiffLine) + 7) & ~static_cast<size_t>(7));
  }
};

void RunCompare(benchmark::State& state, Pair& pair) {
  size_t records = 0, peak = 0;
  for (auto _ : state) {
    CVnDiffChangeList changes;
    size_t base = g_live.load();
    g_peak.store(base);
    pair.source.Compare(0, 0, 0, pair.target, changes);
    peak = g_peak.load() - base;
    records = static_cast<size_t>(changes.GetSize());
  }
  const double lines = static_cast<double>(pair.source.GetLineCount() + pair.target.GetLineCount());
  state.counters["lines"] = lines;
  state.counters["records"] = static_cast<double>(records);
  state.counters["peak_MB"] = static_cast<double>(peak) / (1 << 20);
  state.counters["sets_MB"] = static_cast<double>(pair.setBytes) / (1 << 20);
  state.counters["ns_per_line"] = benchmark::Counter(lines, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
  state.SetComplexityN(static_cast<int64_t>(state.range(0)));
}

}  // namespace

//===-- Cases --------------------------------------------------------------===//

// 1% of the lines edited, scattered: the everyday case.  Run at several sizes
// to show the time per line stays flat.
static void BM_Scattered1Percent(benchmark::State& state) {
  auto source = CodeFile(static_cast<int>(state.range(0)), 1);
  Pair pair(Join(source), Join(Edit(source, 1.0, 2)));
  RunCompare(state, pair);
}
BENCHMARK(BM_Scattered1Percent)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond)->Complexity(benchmark::oN);

// Half of the lines changed.
static void BM_HalfChanged(benchmark::State& state) {
  auto source = CodeFile(static_cast<int>(state.range(0)), 3);
  Pair pair(Join(source), Join(Edit(source, 50.0, 4)));
  RunCompare(state, pair);
}
BENCHMARK(BM_HalfChanged)->Arg(100000)->Unit(benchmark::kMillisecond);

// Mostly blank lines and lone braces, which match thousands of lines each,
// with 1% real edits.
static void BM_RepeatedLines(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  std::vector<std::string> source(static_cast<size_t>(n));
  std::mt19937 rng(5);
  for (int i = 0; i < n; ++i)
    source[static_cast<size_t>(i)] = (i % 5 == 4) ? "x" + std::to_string(i) : (rng() % 3 == 0) ? "" : (rng() % 2 ? "{" : "}");
  Pair pair(Join(source), Join(Edit(source, 1.0, 6)));
  RunCompare(state, pair);
}
BENCHMARK(BM_RepeatedLines)->Arg(100000)->Unit(benchmark::kMillisecond);

// Two unrelated files: only blank lines and braces in common.
static void BM_Unrelated(benchmark::State& state) {
  const int n = static_cast<int>(state.range(0));
  auto a = CodeFile(n, 7);
  auto b = CodeFile(n, 8);
  for (auto& line : b)
    if (line.size() > 2)
      line += " // other";
  Pair pair(Join(a), Join(b));
  RunCompare(state, pair);
}
BENCHMARK(BM_Unrelated)->Arg(100000)->Unit(benchmark::kMillisecond);

// 100k lines drawn from eleven short ones against the same lines shuffled:
// the densest search, with the wide search on (range 0 = 1) and off, which
// shows what the wide form gains on this machine.
static void BM_ShuffledRepeats(benchmark::State& state) {
  static const char* const kShort[] = {"", "}", "{", "  }", "    break;", "  return 0;", "else", "  {", "    }", "#endif", "  i++;"};
  std::mt19937 rng(11);
  std::vector<std::string> source(100000);
  for (auto& line : source)
    line = kShort[rng() % 11];
  std::vector<std::string> target = source;
  std::shuffle(target.begin(), target.end(), rng);
  Pair pair(Join(source), Join(target));
  const CVnCompareHooks saved = VnGetCompareHooks();
  CVnCompareHooks hooks = saved;
  hooks.m_bWideSearch = state.range(0) != 0;
  VnSetCompareHooks(hooks);
  RunCompare(state, pair);
  VnSetCompareHooks(saved);
}
BENCHMARK(BM_ShuffledRepeats)->Arg(1)->Arg(0)->Unit(benchmark::kMillisecond)->Iterations(1);

// One line of range(0) bytes against the same line with one byte changed.
static void BM_OneLongLine(benchmark::State& state) {
  std::string line(static_cast<size_t>(state.range(0)), 'q');
  std::string other = line;
  other[other.size() / 2] = 'r';
  Pair pair(line, other);
  RunCompare(state, pair);
}
BENCHMARK(BM_OneLongLine)->Arg(16 << 20)->Unit(benchmark::kMillisecond);

// Cutting a 1M-line buffer into lines, for scale: what a host pays before Compare.
static void BM_CreateLineSet(benchmark::State& state) {
  std::string text = Join(CodeFile(static_cast<int>(state.range(0)), 9));
  for (auto _ : state) {
    CVnDiffArg set(CVnFileInfo::Text8, 0);
    set.Create(text.data(), static_cast<unsigned long>(text.size()));
    benchmark::DoNotOptimize(set.GetLineCount());
  }
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(BM_CreateLineSet)->Arg(1000000)->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
