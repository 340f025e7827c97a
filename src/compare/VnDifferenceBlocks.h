// VnDifferenceBlocks.h - the differences of a comparison as blocks of rows,
// and moving from one to the next.
//
// A block is a run of consecutive aligned rows that are not Same: what a
// user steps through with Next and Previous Difference.  Two changes with no
// equal line between them are one block, as the user sees one coloured run.
#ifndef VN_COMPARE_VNDIFFERENCEBLOCKS_H
#define VN_COMPARE_VNDIFFERENCEBLOCKS_H

#include "compare/VnComparison.h"

#include <vector>

// Rows first..last, 0-based and inclusive.
struct CVnRowBlock {
  long m_nFirst;
  long m_nLast;
};

VN_API std::vector<CVnRowBlock> VnDifferenceBlocks(const std::vector<CVnAlignedRow>& rows);

// Which block to go to from row: the first one that starts below it (next),
// the last one that starts above it (previous); -1 when there is none.
VN_API int VnNextBlock(const std::vector<CVnRowBlock>& blocks, long row);
VN_API int VnPreviousBlock(const std::vector<CVnRowBlock>& blocks, long row);

#endif  // VN_COMPARE_VNDIFFERENCEBLOCKS_H
