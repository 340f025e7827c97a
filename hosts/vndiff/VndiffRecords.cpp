// VndiffRecords.cpp - the records of Compare, one a line: ACTION S0 E0 S1 E1.
#include "VndiffHost.h"

namespace vndiff {

static const char* ActionName(CVnDiffChange::Action action) {
  switch (action) {
  case CVnDiffChange::Insert: return "Insert";
  case CVnDiffChange::Delete: return "Delete";
  case CVnDiffChange::Change: return "Change";
  case CVnDiffChange::FullFile: return "FullFile";
  }
  return "Unknown";
}

void WriteRecords(const CVnDiffChangeList& changes, std::FILE* out) {
  for (INT_PTR k = 0; k < changes.GetSize(); ++k) {
    const CVnDiffChange& c = *changes[k];
    fprintf(out, "%s %ld %ld %ld %ld\n", ActionName(c.GetAction()), c.StartSource(), c.EndSource(),
            c.StartTarget(), c.EndTarget());
  }
}

}  // namespace vndiff
