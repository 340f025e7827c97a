// vnreconcile/Compare.h - one comparison of two files as every host runs
// it: CVnComparison reads both through the intake, runs the engine and
// gives the records (GetChanges), their spans (GetSpans, VnChangeSpans)
// and the aligned rows (GetRows); the difference blocks a host steps
// through and the files' captions.
#ifndef VNRECONCILE_COMPARE_H
#define VNRECONCILE_COMPARE_H

#include "vnreconcile/Engine.h"
#include "vnreconcile/Intake.h"

#include "compare/VnComparison.h"
#include "compare/VnDifferenceBlocks.h"
#include "compare/VnFileCaption.h"

#endif  // VNRECONCILE_COMPARE_H
