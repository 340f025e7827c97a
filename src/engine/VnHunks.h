// VnHunks.h - gathering changed lines into hunks and hunks into records.
// Internal to the comparison.
#ifndef VN_ENGINE_VNHUNKS_H
#define VN_ENGINE_VNHUNKS_H

#include "afx/afx.h"
#include "engine/VnCompareState.h"

// One stretch of changes: deleted source lines from m_nFirstSource and
// inserted target lines from m_nFirstTarget (0-based; both meaningful even
// when that side's count is 0).
struct CVnHunk {
  CVnHunk* m_pNext;
  int32_t m_nInserted;
  int32_t m_nDeleted;
  int32_t m_nFirstSource;
  int32_t m_nFirstTarget;
};

// The hunks of the two changed arrays, in order, as a list the caller
// releases with VnFreeHunks.
CVnHunk* VnBuildHunks(const CVnCompareState& state);
void VnFreeHunks(CVnHunk* hunks);

// Appends the records of one hunk: a Change of the paired-off lines, then a
// Delete or Insert for the rest, or a single record when one side is empty.
void VnAppendRecords(const CVnHunk& hunk, CPtrArray& changes);

#endif  // VN_ENGINE_VNHUNKS_H
