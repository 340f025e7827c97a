// VnEditSearch.h - the shortest edit script between the kept lines of the
// two sides.  Internal to the comparison.
#ifndef VN_ENGINE_VNEDITSEARCH_H
#define VN_ENGINE_VNEDITSEARCH_H

#include "engine/VnCompareState.h"

// Searches the whole kept box (0, K0, 0, K1), marking changed lines: on
// wide registers where the processor allows (VnWideSearch.h) and the test
// switch leaves it on, else through VnSearchBox.  The marks are the same.
void VnSearchKeptLines(CVnCompareState& state);

// Marks changed, through the kept index, every kept line in the box
// [xlo, xhi) x [ylo, yhi) that a shortest script between the two kept
// subsequences leaves unmatched.  Needs the diagonal buffers.
void VnSearchBox(CVnCompareState& state, int32_t xlo, int32_t xhi, int32_t ylo, int32_t yhi);

// The diagonal through which a shortest path of the box passes at half its
// cost; the ends of the box must differ.  Sets state.m_nCost.
int32_t VnMiddleDiagonal(CVnCompareState& state, int32_t xlo, int32_t xhi, int32_t ylo, int32_t yhi);

// Marks kept lines lo to hi - 1 of the side as changed.
void VnMarkKept(const CVnCompareSide& side, int32_t lo, int32_t hi);

#endif  // VN_ENGINE_VNEDITSEARCH_H
