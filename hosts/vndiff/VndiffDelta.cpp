// VndiffDelta.cpp - --save-delta and --apply-delta: the component's delta
// store (VnDeltaStore.h), with failures named for the user.
#include "VndiffHost.h"

#include "compare/VnDeltaStore.h"

namespace vndiff {

void SaveDelta(const std::string& dir, const std::string& source, const std::string& target) {
  try {
    VnSaveDelta(Wide(dir), Wide(source), Wide(target));
  } catch (CException* e) {
    throw Failure(DescribeException(e, ""));
  }
}

void ApplyDelta(const std::string& dir, const std::string& source, const std::string& output) {
  CheckReadable(source);
  CString why;
  try {
    if (VnRebuildFromDelta(Wide(dir), Wide(source), Wide(output), why))
      return;
  } catch (CException* e) {
    throw Failure(DescribeException(e, ""));
  }
  throw Failure(dir + ": damaged delta: " + Narrow(why));
}

}  // namespace vndiff
