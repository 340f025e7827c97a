// ChangedWordsBench.cpp - the cost of marking changed words against the
// cost of the comparison it follows.
//
// A pair of code-like files of N lines, UTF-8 on disk, where the second
// replaces about one line in ten: runs of one to three lines, most of them
// edited in a word or two, one in eight rewritten whole.  Three timings:
//   BM_OpenAndCompare   both files read through the intake and compared:
//                       what a window pays before it shows anything;
//   BM_ChangedWords     pairing and marking every replaced block of that
//                       comparison (words, the default);
//   BM_ChangedCharacters the same at character granularity.
// The share of marking in the load time is BM_ChangedWords over
// BM_OpenAndCompare.
#include "compare/VnChangedWords.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <random>
#include <string>

namespace {

std::string CodeLine(std::mt19937& rng) {
  switch (rng() % 10) {
  case 0: return "";
  case 1: return "    }";
  case 2: return "    // keep the total of " + std::to_string(rng() % 500) + " items in step";
  default:
    return "    value_" + std::to_string(rng() % 5000) + " = compute(item_" + std::to_string(rng() % 1000) +
           ", limit, " + std::to_string(rng() % 100) + ");";
  }
}

// One or two words of the line changed, or the whole line rewritten.
std::string Edit(std::mt19937& rng, const std::string& line) {
  if (rng() % 8 == 0 || line.size() < 8)
    return CodeLine(rng) + " // rewritten";
  std::string out = line;
  const size_t at = out.find("limit");
  if (at != std::string::npos)
    out.replace(at, 5, "bound");
  return out + (rng() % 2 ? " // checked" : "");
}

struct Files {
  std::filesystem::path source, target;
  explicit Files(long lines) {
    const std::filesystem::path dir = std::filesystem::temp_directory_path();
    source = dir / ("vn-words-" + std::to_string(lines) + "-a.txt");
    target = dir / ("vn-words-" + std::to_string(lines) + "-b.txt");
    std::mt19937 rng(7);
    std::ofstream a(source, std::ios::binary), b(target, std::ios::binary);
    for (long i = 0; i < lines;) {
      const long run = 1 + static_cast<long>(rng() % 3);
      const bool replaced = rng() % 10 == 0;  // runs of two on average: a tenth of the lines
      for (long k = 0; k < run && i < lines; ++k, ++i) {
        const std::string line = CodeLine(rng);
        a << line << '\n';
        b << (replaced ? Edit(rng, line) : line) << '\n';
      }
    }
  }
  ~Files() {
    std::error_code ignored;
    std::filesystem::remove(source, ignored);
    std::filesystem::remove(target, ignored);
  }
};

std::unique_ptr<CVnComparison> Compared(const Files& files) {
  CVnCompareOptions options;
  options.m_bEncodingByContent = true;
  auto comparison = std::make_unique<CVnComparison>(options);
  comparison->Open(CVnComparison::Source, VnFromUtf8(files.source.string().c_str()));
  comparison->Open(CVnComparison::Target, VnFromUtf8(files.target.string().c_str()));
  comparison->Compare();
  return comparison;
}

void BM_OpenAndCompare(benchmark::State& state) {
  Files files(state.range(0));
  for (auto _ : state)
    benchmark::DoNotOptimize(Compared(files)->GetChanges().GetSize());
}

void Marking(benchmark::State& state, VnMarkUnit unit) {
  Files files(state.range(0));
  std::unique_ptr<CVnComparison> comparison = Compared(files);
  long replaced = 0;
  for (const CVnChangeSpan& span : comparison->GetSpans(true))
    replaced += span.m_nSourceCount && span.m_nTargetCount ? span.m_nSourceCount : 0;
  for (auto _ : state) {
    CVnChangedWords words(*comparison, unit);
    benchmark::DoNotOptimize(words.GetRows().size());
  }
  state.counters["replaced"] = static_cast<double>(replaced);
}

void BM_ChangedWords(benchmark::State& state) { Marking(state, VnMarkUnit::Words); }
void BM_ChangedCharacters(benchmark::State& state) { Marking(state, VnMarkUnit::Characters); }

}  // namespace

BENCHMARK(BM_OpenAndCompare)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ChangedWords)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_ChangedCharacters)->Arg(10000)->Arg(100000)->Unit(benchmark::kMillisecond);
