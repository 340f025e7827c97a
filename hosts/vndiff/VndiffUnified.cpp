// VndiffUnified.cpp - the unified form: "---"/"+++" labels, "@@" hunks.
//
// Changes closer than twice the context join into one hunk.  A range of one
// line is written as its line alone; an empty range as the line before it
// and ",0".  Labels carry the file's modification time in local time, with
// the zone's offset.
#include "VndiffHost.h"

#include "foundation/VnTime.h"
#include "intake/VnFile.h"

#include <algorithm>
#include <cmath>

namespace vndiff {

static std::string Label(const CVnComparedFile& file) {
  CVnFile::FileStatus status;
  CVnTime utc;
  if (CVnFile::GetStatus(file.GetPath(), status, false))
    utc = status.m_mtime;
  const CVnTime local = utc.GetAdjustedLocalTime();
  const long minutes = std::lround((local.m_dt - utc.m_dt) * 1440.0);
  char zone[48];
  snprintf(zone, sizeof zone, " %c%02ld%02ld", minutes < 0 ? '-' : '+', std::labs(minutes) / 60,
           std::labs(minutes) % 60);
  std::string when = Narrow(local.Format(_T("%Y-%m-%d %H:%M:%S")));
  return Narrow(file.GetFacts().m_strDisplayName) + "\t" + when + ".000000000" + zone;
}

static void AppendRange(long begin, long count, std::string& out) {
  char text[48];
  if (count == 1)
    snprintf(text, sizeof text, "%ld", begin + 1);
  else if (count == 0)
    snprintf(text, sizeof text, "%ld,0", begin);
  else
    snprintf(text, sizeof text, "%ld,%ld", begin + 1, count);
  out += text;
}

// One hunk over spans[first, last].
static void AppendHunk(const CVnComparedFile& src, const CVnComparedFile& tgt, const std::vector<CVnChangeSpan>& spans,
                       size_t first, size_t last, long context, std::string& out) {
  const long n0 = src.GetLineCount();
  const CVnChangeSpan& a = spans[first];
  const CVnChangeSpan& z = spans[last];
  const long sStart = std::max(0L, a.m_nSourceBegin - context);
  const long sEnd = std::min(n0, z.m_nSourceBegin + z.m_nSourceCount + context);
  const long tStart = a.m_nTargetBegin - (a.m_nSourceBegin - sStart);
  const long tEnd = z.m_nTargetBegin + z.m_nTargetCount + (sEnd - (z.m_nSourceBegin + z.m_nSourceCount));
  out += "@@ -";
  AppendRange(sStart, sEnd - sStart, out);
  out += " +";
  AppendRange(tStart, tEnd - tStart, out);
  out += " @@\n";
  long pos = sStart;
  for (size_t k = first; k <= last; ++k) {
    const CVnChangeSpan& s = spans[k];
    for (; pos < s.m_nSourceBegin; ++pos)
      AppendLineWithEnd(src, pos, out, " ");
    for (long i = 0; i < s.m_nSourceCount; ++i)
      AppendLineWithEnd(src, s.m_nSourceBegin + i, out, "-");
    for (long i = 0; i < s.m_nTargetCount; ++i)
      AppendLineWithEnd(tgt, s.m_nTargetBegin + i, out, "+");
    pos = s.m_nSourceBegin + s.m_nSourceCount;
  }
  for (; pos < sEnd; ++pos)
    AppendLineWithEnd(src, pos, out, " ");
}

void WriteUnified(const CVnComparison& comparison, int context, std::FILE* out) {
  const CVnComparedFile& src = comparison.GetFile(CVnComparison::Source);
  const CVnComparedFile& tgt = comparison.GetFile(CVnComparison::Target);
  const std::vector<CVnChangeSpan> spans = comparison.GetSpans(true);
  if (spans.empty())
    return;
  std::string buf = "--- " + Label(src) + "\n+++ " + Label(tgt) + "\n";
  size_t first = 0;
  while (first < spans.size()) {
    size_t last = first;
    while (last + 1 < spans.size() &&
           spans[last + 1].m_nSourceBegin - (spans[last].m_nSourceBegin + spans[last].m_nSourceCount) <= 2L * context)
      ++last;
    AppendHunk(src, tgt, spans, first, last, context, buf);
    if (buf.size() > (1 << 16)) {
      fwrite(buf.data(), 1, buf.size(), out);
      buf.clear();
    }
    first = last + 1;
  }
  fwrite(buf.data(), 1, buf.size(), out);
}

}  // namespace vndiff
