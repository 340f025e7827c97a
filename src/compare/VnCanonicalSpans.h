// VnCanonicalSpans.h - one place for each run of changed lines.
// Internal to the merge.
//
// Where a changed run borders a line that repeats (a blank line, a closing
// brace), a comparison may show it one line earlier or later, or split in
// two around that line, and say the same.  The engine chooses by context,
// so BASE compared with LOCAL and BASE compared with REMOTE may put one and
// the same edit in two places; a merge would then take it twice, or see
// two edits touch that don't.  So each side's runs are placed by one rule:
// a run slides up while the line above it equals its last line, joining a
// run it reaches, then down while its first line equals the line below it,
// joining the runs it reaches, until it stops growing; then it goes back up
// to the last place where it met a run of the other side, if it met one,
// so that a deletion beside an insertion stays one change.  Sliding never
// changes which lines are unchanged, only which of two equal lines is, so
// the spans still lead from source to target.
#ifndef VN_COMPARE_VNCANONICALSPANS_H
#define VN_COMPARE_VNCANONICALSPANS_H

#include "compare/VnComparison.h"

#include <vector>

// Line i of a and line j of b read the same: the same units, and both
// with a line end or both without (raw lines hold none of their own).
bool VnSameLine(const CVnComparedFile& a, long i, const CVnComparedFile& b, long j);

// The spans from source to target (as VnChangeSpans gives them) with every
// run slid into its one place, and runs that touch joined.
std::vector<CVnChangeSpan> VnCanonicalSpans(const std::vector<CVnChangeSpan>& spans, const CVnComparedFile& source,
                                            const CVnComparedFile& target);

#endif  // VN_COMPARE_VNCANONICALSPANS_H
