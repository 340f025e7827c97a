// VndiffMerge.cpp - --merge LOCAL [BASE] REMOTE: the component's merge, printed or written.
//
// The argument order is the one merge tools share: LOCAL (ours) first,
// then BASE, then REMOTE (theirs); -L labels them in that order.  Without
// BASE every difference is a conflict.
#include "VndiffHost.h"

#include "compare/VnMerge.h"

#include <cerrno>
#include <cstring>

namespace vndiff {

namespace {

void OpenMergeSide(CVnMerge& merge, CVnMerge::Side side, const std::string& path) {
  CheckReadable(path);
  merge.GetFile(side).SetDisplayName(Wide(OperandLabel(path)));
  bool opened = false;
  try {
    opened = merge.Open(side, Wide(path));
  } catch (CException* e) {
    throw Failure(DescribeException(e, path));
  }
  if (!opened)
    throw Failure(path + ": binary file not merged (--binary=yes merges its bytes)");
}

}  // namespace

int RunMerge(const Options& o, std::FILE* out) {
  CVnMergeOptions options;
  options.m_nCodePage = o.sourceEncoding;
  options.m_bRaw = o.raw;
  options.m_bEncodingByContent = true;
  CVnMerge merge(options);
  const bool threeWay = o.files.size() == 3;
  const CVnMerge::Side order[] = {CVnMerge::Local, threeWay ? CVnMerge::Base : CVnMerge::Remote, CVnMerge::Remote};
  for (size_t k = 0; k < o.files.size(); ++k)
    OpenMergeSide(merge, order[k], o.files[k]);

  CString why;
  bool merged = false;
  try {
    merged = merge.Merge(why);
  } catch (CException* e) {
    throw Failure(DescribeException(e, ""));
  }
  if (!merged)
    throw Failure(Narrow(why) + (o.raw ? "" : " (--encoding=CP reads all files in one; --raw merges bytes as they stand)"));

  // Labels default to the operands as the user wrote them.
  CVnMergeMarkers markers;
  CString* labels[] = {&markers.m_strLocal, threeWay ? &markers.m_strBase : &markers.m_strRemote,
                       &markers.m_strRemote};
  for (size_t k = 0; k < o.files.size(); ++k)
    *labels[k] = Wide(k < o.labels.size() ? o.labels[k] : OperandLabel(o.files[k]));
  markers.m_bShowBase = o.showBase;

  if (!o.output.empty()) {
    try {
      merge.Save(Wide(o.output), markers);
    } catch (CException* e) {
      throw Failure(DescribeException(e, o.output));
    }
  } else {
    const std::string text = merge.GetMergedText(markers);
    fwrite(text.data(), 1, text.size(), out);
    if (fflush(out) != 0 || ferror(out))
      throw Failure(std::string("write error: ") + strerror(errno));
  }
  return merge.GetConflictCount() ? kExitDifferent : kExitSame;
}

}  // namespace vndiff
