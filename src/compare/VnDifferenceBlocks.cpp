// VnDifferenceBlocks.cpp - runs of changed rows and the step between them.
#include "compare/VnDifferenceBlocks.h"

#include <algorithm>

std::vector<CVnRowBlock> VnDifferenceBlocks(const std::vector<CVnAlignedRow>& rows) {
  std::vector<CVnRowBlock> blocks;
  long count = static_cast<long>(rows.size());
  for (long row = 0; row < count; ++row) {
    if (rows[row].m_nKind == VnRowKind::Same)
      continue;
    if (!blocks.empty() && blocks.back().m_nLast == row - 1)
      blocks.back().m_nLast = row;
    else
      blocks.push_back({row, row});
  }
  return blocks;
}

int VnNextBlock(const std::vector<CVnRowBlock>& blocks, long row) {
  auto it = std::upper_bound(blocks.begin(), blocks.end(), row,
                             [](long r, const CVnRowBlock& block) { return r < block.m_nFirst; });
  return it == blocks.end() ? -1 : static_cast<int>(it - blocks.begin());
}

int VnPreviousBlock(const std::vector<CVnRowBlock>& blocks, long row) {
  auto it = std::lower_bound(blocks.begin(), blocks.end(), row,
                             [](const CVnRowBlock& block, long r) { return block.m_nFirst < r; });
  return it == blocks.begin() ? -1 : static_cast<int>(it - blocks.begin()) - 1;
}
