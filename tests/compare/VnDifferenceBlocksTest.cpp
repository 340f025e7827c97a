// VnDifferenceBlocksTest.cpp - changed rows as blocks, and the step to the
// next and previous block from any row.
#include "compare/VnDifferenceBlocks.h"

#include <gtest/gtest.h>

namespace {

// 'S' same, 'I' inserted, 'D' deleted, 'C' changed; one letter a row.
std::vector<CVnAlignedRow> Rows(const char* kinds) {
  std::vector<CVnAlignedRow> rows;
  for (const char* k = kinds; *k; ++k) {
    VnRowKind kind = *k == 'I' ? VnRowKind::Inserted
                     : *k == 'D' ? VnRowKind::Deleted
                     : *k == 'C' ? VnRowKind::Changed
                                 : VnRowKind::Same;
    rows.push_back({0, 0, kind});
  }
  return rows;
}

std::string Blocks(const char* kinds) {
  std::string out;
  for (const CVnRowBlock& block : VnDifferenceBlocks(Rows(kinds)))
    out += std::to_string(block.m_nFirst) + "-" + std::to_string(block.m_nLast) + " ";
  return out;
}

}  // namespace

TEST(VnDifferenceBlocksTest, RunsOfChangedRowsAreBlocks) {
  EXPECT_EQ("", Blocks(""));
  EXPECT_EQ("", Blocks("SSS"));
  EXPECT_EQ("0-0 ", Blocks("I"));
  EXPECT_EQ("1-3 5-5 ", Blocks("SDCISIS"));  // touching changes of any kind: one block
  EXPECT_EQ("0-1 4-4 ", Blocks("CCSSD"));
}

TEST(VnDifferenceBlocksTest, StepsFromAnyRow) {
  auto blocks = VnDifferenceBlocks(Rows("SDDSSCSSI"));  // blocks 1-2, 5-5, 8-8
  struct {
    long row;
    int next, previous;
  } cases[] = {
      {-1, 0, -1}, {0, 0, -1}, {1, 1, -1}, {2, 1, 0}, {5, 2, 0}, {6, 2, 1}, {8, -1, 1}, {20, -1, 2},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.next, VnNextBlock(blocks, c.row)) << c.row;
    EXPECT_EQ(c.previous, VnPreviousBlock(blocks, c.row)) << c.row;
  }
  EXPECT_EQ(-1, VnNextBlock({}, 0));
  EXPECT_EQ(-1, VnPreviousBlock({}, 0));
}
