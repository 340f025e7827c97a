// VnLineEndChanges.h - records for lines that differ only in their line end.
// Internal to the comparison.
#ifndef VN_COMPARE_VNLINEENDCHANGES_H
#define VN_COMPARE_VNLINEENDCHANGES_H

#include "compare/VnComparison.h"

// Raw bytes: the lines hold no terminator, so a last line that differs only
// in having one is a change Compare can't see.  Adds a Change for it.
void VnAddFinalNewlineChange(const CVnComparedFile& source, const CVnComparedFile& target,
                             CVnDiffChangeList& changes);
// Decoded text: lines Compare pairs as unchanged that read differently in
// the files' bytes (LF against CR LF) become Change records of one line
// each, placed among the records in line order.
void VnAddLineEndChanges(const CVnComparedFile& source, const CVnComparedFile& target,
                         CVnDiffChangeList& changes);

#endif  // VN_COMPARE_VNLINEENDCHANGES_H
