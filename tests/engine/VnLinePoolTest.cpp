// VnLinePoolTest.cpp - line records from the slab pool: distinct blocks,
// slabs freed in any order and from any thread, records that outlive the
// thread that made them.
#include "engine/VnDiffArg.h"
#include "engine/VnLinePool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <set>
#include <thread>
#include <vector>

namespace {

// Enough records to fill several 2 MiB slabs.
const int kMany = 100000;

std::vector<CVnDiffLine*> MakeRecords(int count) {
  static const unsigned char text[] = "abc";
  std::vector<CVnDiffLine*> records;
  for (int i = 0; i < count; ++i)
    records.push_back(new CVnDiffLine(text, static_cast<uint32_t>(i), i % 2 == 0));
  return records;
}

}  // namespace

TEST(VnLinePoolTest, RecordsAreDistinctAlignedAndKeepTheirValues) {
  std::vector<CVnDiffLine*> records = MakeRecords(kMany);
  std::set<uintptr_t> seen;
  for (int i = 0; i < kMany; ++i) {
    const uintptr_t address = reinterpret_cast<uintptr_t>(records[i]);
    EXPECT_EQ(0u, address % alignof(CVnDiffLine)) << i;
    EXPECT_TRUE(seen.insert(address).second) << "record " << i << " shares its block";
  }
  for (int i = 0; i < kMany; ++i) {
    ASSERT_EQ(static_cast<uint32_t>(i), records[i]->GetLength()) << "a later record overwrote it";
    ASSERT_EQ(i % 2 == 0, records[i]->IsWide());
  }
  for (CVnDiffLine* r : records)
    delete r;
}

// Freeing front to back, back to front and interleaved releases every slab
// exactly once; the sanitizer build and valgrind catch a double or missed one.
TEST(VnLinePoolTest, FreeingInAnyOrderReleasesEverySlab) {
  for (int order = 0; order < 3; ++order) {
    std::vector<CVnDiffLine*> records = MakeRecords(kMany);
    if (order == 1)
      std::reverse(records.begin(), records.end());
    if (order == 2)
      std::stable_partition(records.begin(), records.end(),
                            [&](CVnDiffLine* r) { return r->GetLength() % 3 == 0; });
    for (CVnDiffLine* r : records)
      delete r;
  }
  // Blocks handed out after that still work.
  std::vector<CVnDiffLine*> again = MakeRecords(10);
  EXPECT_EQ(9u, again[9]->GetLength());
  for (CVnDiffLine* r : again)
    delete r;
}

TEST(VnLinePoolTest, RecordsOutliveTheThreadThatMadeThem) {
  std::vector<CVnDiffLine*> records;
  std::thread maker([&] { records = MakeRecords(kMany); });
  maker.join();
  ASSERT_EQ(static_cast<size_t>(kMany), records.size());
  EXPECT_EQ(static_cast<uint32_t>(kMany - 1), records.back()->GetLength());
  std::thread freer([&] {
    for (size_t i = 0; i < records.size(); i += 2)
      delete records[i];
  });
  for (size_t i = 1; i < records.size(); i += 2)
    delete records[i];
  freer.join();
}

// A run never crosses a slab: it stops where the slab ends, and the next
// run or single block starts a new one.  Every block is distinct however
// runs and single blocks mix.
TEST(VnLinePoolTest, RunsStopAtTheSlabEndAndMixWithSingleBlocks) {
  const size_t stride = VnLinePoolStride(sizeof(CVnDiffLine));
  std::vector<unsigned char*> blocks;
  size_t total = 0, runs = 0;
  while (total < 3 * static_cast<size_t>(kMany)) {
    size_t got = 0;
    unsigned char* run = static_cast<unsigned char*>(VnLinePoolAllocRun(sizeof(CVnDiffLine), kMany, got));
    ASSERT_GE(got, 1u);
    ASSERT_LE(got, static_cast<size_t>(kMany));
    for (size_t k = 0; k < got; ++k)
      blocks.push_back(run + k * stride);
    blocks.push_back(static_cast<unsigned char*>(VnLinePoolAlloc(sizeof(CVnDiffLine))));
    total += got + 1;
    ++runs;
  }
  EXPECT_GT(runs, 3u) << "runs as long as a slab allows, no longer";
  std::set<unsigned char*> distinct(blocks.begin(), blocks.end());
  EXPECT_EQ(blocks.size(), distinct.size());
  for (unsigned char* b : blocks)
    VnLinePoolFree(b, sizeof(CVnDiffLine));
}

TEST(VnLinePoolTest, LineSetsDeleteTheirPooledRecords) {
  std::string text;
  for (int i = 0; i < kMany; ++i)
    text += "line\n";
  for (int round = 0; round < 3; ++round) {
    CVnDiffArg arg(CVnFileInfo::Text8, 0);
    arg.Create(text.data(), static_cast<unsigned long>(text.size()));
    ASSERT_EQ(kMany, arg.GetLineCount());
    arg.Create(text.data(), 5);  // the second Create deletes the first lines
    EXPECT_EQ(1, arg.GetLineCount());
  }
}
