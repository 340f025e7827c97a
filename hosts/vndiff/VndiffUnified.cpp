// VndiffUnified.cpp - the unified form: "---"/"+++" labels, "@@" hunks.
//
// Changes closer than twice the context join into one hunk.  A range of one
// line is written as its line alone; an empty range as the line before it
// and ",0".  Labels carry the file's modification time in local time, with
// the zone's offset.
#include "VndiffHost.h"

#include <algorithm>
#include <cmath>

namespace vndiff {

static std::string Label(const InputText& text) {
  const CVnTime utc = text.modified;
  const CVnTime local = utc.GetAdjustedLocalTime();
  const long minutes = std::lround((local.m_dt - utc.m_dt) * 1440.0);
  char zone[48];
  snprintf(zone, sizeof zone, " %c%02ld%02ld", minutes < 0 ? '-' : '+', std::labs(minutes) / 60,
           std::labs(minutes) % 60);
  std::string when = Narrow(local.Format(_T("%Y-%m-%d %H:%M:%S")));
  return text.name + "\t" + when + ".000000000" + zone;
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
static void AppendHunk(const InputText& src, const InputText& tgt, const std::vector<Span>& spans, size_t first,
                       size_t last, long context, std::string& out) {
  const long n0 = src.lines.GetLineCount();
  const Span& a = spans[first];
  const Span& z = spans[last];
  const long sStart = std::max(0L, a.srcBegin - context);
  const long sEnd = std::min(n0, z.srcBegin + z.srcCount + context);
  const long tStart = a.tgtBegin - (a.srcBegin - sStart);
  const long tEnd = z.tgtBegin + z.tgtCount + (sEnd - (z.srcBegin + z.srcCount));
  out += "@@ -";
  AppendRange(sStart, sEnd - sStart, out);
  out += " +";
  AppendRange(tStart, tEnd - tStart, out);
  out += " @@\n";
  long pos = sStart;
  for (size_t k = first; k <= last; ++k) {
    const Span& s = spans[k];
    for (; pos < s.srcBegin; ++pos)
      AppendLineWithEnd(src, static_cast<int>(pos), out, " ");
    for (long i = 0; i < s.srcCount; ++i)
      AppendLineWithEnd(src, static_cast<int>(s.srcBegin + i), out, "-");
    for (long i = 0; i < s.tgtCount; ++i)
      AppendLineWithEnd(tgt, static_cast<int>(s.tgtBegin + i), out, "+");
    pos = s.srcBegin + s.srcCount;
  }
  for (; pos < sEnd; ++pos)
    AppendLineWithEnd(src, static_cast<int>(pos), out, " ");
}

void WriteUnified(const InputText& src, const InputText& tgt, const std::vector<Span>& spans, int context,
                  std::FILE* out) {
  if (spans.empty())
    return;
  std::string buf = "--- " + Label(src) + "\n+++ " + Label(tgt) + "\n";
  size_t first = 0;
  while (first < spans.size()) {
    size_t last = first;
    while (last + 1 < spans.size() &&
           spans[last + 1].srcBegin - (spans[last].srcBegin + spans[last].srcCount) <= 2L * context)
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
