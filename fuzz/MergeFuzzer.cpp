// MergeFuzzer.cpp - three arbitrary texts merged as bytes.  Beyond not
// crashing: the regions tile every side, what each region's kind says of
// its lines holds (unchanged lines are BASE's on all sides, a one-sided
// region leaves the other side as BASE has it, Both means equal sides, a
// Conflict unequal ones), swapping LOCAL and REMOTE gives the same text
// with the halves of every conflict swapped, and a side equal to BASE
// gives the other side back byte for byte.
#include "FuzzSupport.h"

#include "compare/VnMerge.h"

#include <string>

namespace {

std::string LinesOf(const CVnComparedFile& file, CVnLineRange r) {
  std::string out;
  for (long i = r.m_nBegin; i < r.End(); ++i)
    file.AppendLineAsRead(i, out);
  return out;
}

void Open(CVnMerge& merge, const std::string& local, const std::string& base, const std::string& remote) {
  merge.OpenBytes(CVnMerge::Local, local, _T("L"));
  merge.OpenBytes(CVnMerge::Base, base, _T("B"));
  merge.OpenBytes(CVnMerge::Remote, remote, _T("R"));
  CString why;
  FUZZ_CHECK(merge.Merge(why));
}

std::string Resolved(CVnMerge& merge, VnMergeChoice choice) {
  for (size_t k = 0; k < merge.GetRegions().size(); ++k)
    if (merge.GetRegions()[k].m_nKind == VnMergeKind::Conflict)
      merge.Resolve(k, choice);
  return merge.GetMergedText(CVnMergeMarkers());
}

void CheckRegions(const CVnMerge& merge) {
  long next[3] = {0, 0, 0};
  for (const CVnMergeRegion& r : merge.GetRegions()) {
    const CVnLineRange ranges[3] = {r.m_local, r.m_base, r.m_remote};
    for (int s = 0; s < 3; ++s) {
      FUZZ_CHECK(ranges[s].m_nBegin == next[s] && ranges[s].m_nCount >= 0);
      next[s] = ranges[s].End();
    }
    const std::string l = LinesOf(merge.GetFile(CVnMerge::Local), r.m_local);
    const std::string b = LinesOf(merge.GetFile(CVnMerge::Base), r.m_base);
    const std::string t = LinesOf(merge.GetFile(CVnMerge::Remote), r.m_remote);
    switch (r.m_nKind) {
    case VnMergeKind::Unchanged: FUZZ_CHECK(l == b && t == b); break;
    case VnMergeKind::Local: FUZZ_CHECK(t == b); break;
    case VnMergeKind::Remote: FUZZ_CHECK(l == b); break;
    case VnMergeKind::Both: FUZZ_CHECK(l == t); break;
    case VnMergeKind::Conflict: FUZZ_CHECK(l != t); break;
    }
  }
  for (int s = 0; s < 3; ++s)
    FUZZ_CHECK(next[s] == merge.GetFile(static_cast<CVnMerge::Side>(s)).GetLineCount());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  VnFuzzInit();
  FuzzInput in(data, size);
  const size_t n0 = in.Below(size), n1 = in.Below(size);
  const std::vector<uint8_t> a = in.Take(n0), b = in.Take(n1), c = in.Rest();
  const std::string local(a.begin(), a.end()), base(b.begin(), b.end()), remote(c.begin(), c.end());

  CVnMerge merge, swapped;
  Open(merge, local, base, remote);
  Open(swapped, remote, base, local);
  CheckRegions(merge);
  FUZZ_CHECK(merge.GetConflictCount() == swapped.GetConflictCount());
  FUZZ_CHECK(Resolved(merge, VnMergeChoice::LocalThenRemote) == Resolved(swapped, VnMergeChoice::RemoteThenLocal));

  CVnMerge same;
  Open(same, local, base, base);
  FUZZ_CHECK(same.GetConflictCount() == 0 && same.GetMergedText(CVnMergeMarkers()) == local);
  return 0;
}
