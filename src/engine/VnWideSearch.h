// VnWideSearch.h - the edit-script search on wide registers.  Internal to
// the comparison.
//
// Gives exactly the marks of VnSearchBox over the whole kept box; only how
// each cost's diagonals are computed differs (VnWideSearch.cpp says why).
#ifndef VN_ENGINE_VNWIDESEARCH_H
#define VN_ENGINE_VNWIDESEARCH_H

#include "engine/VnCompareState.h"

// Whether this processor runs the wide search; decided once, at load.
bool VnWideSearchAvailable();

// Marks changed every kept line that the search of the box (0, K0, 0, K1)
// leaves unmatched, as VnSearchBox does.  Only where the processor runs it.
// Makes its own diagonal arrays, and releases the kept classes once it has
// packed them.  Gives false, and changes nothing, when the classes found
// on both sides are too many to pack: the portable search has to run.
bool VnWideSearch(CVnCompareState& state);

#endif  // VN_ENGINE_VNWIDESEARCH_H
