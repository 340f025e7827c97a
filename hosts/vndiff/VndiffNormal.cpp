// VndiffNormal.cpp - the classic form: "2,3c2,4", "< " lines, "---", "> " lines.
//
// A deletion names the target line after which the lines would have stood
// ("5,6d4"), an insertion the source line after which they go ("3a4,5").
#include "VndiffHost.h"

namespace vndiff {

static void AppendRange(long begin, long count, std::string& out) {
  char text[48];
  if (count == 1)
    snprintf(text, sizeof text, "%ld", begin + 1);
  else
    snprintf(text, sizeof text, "%ld,%ld", begin + 1, begin + count);
  out += text;
}

static void AppendHeader(const CVnChangeSpan& s, std::string& out) {
  char text[24];
  if (s.m_nSourceCount == 0) {
    snprintf(text, sizeof text, "%lda", s.m_nSourceBegin);
    out += text;
    AppendRange(s.m_nTargetBegin, s.m_nTargetCount, out);
  } else if (s.m_nTargetCount == 0) {
    AppendRange(s.m_nSourceBegin, s.m_nSourceCount, out);
    snprintf(text, sizeof text, "d%ld", s.m_nTargetBegin);
    out += text;
  } else {
    AppendRange(s.m_nSourceBegin, s.m_nSourceCount, out);
    out += 'c';
    AppendRange(s.m_nTargetBegin, s.m_nTargetCount, out);
  }
  out += '\n';
}

void WriteNormal(const CVnComparison& comparison, std::FILE* out) {
  const CVnComparedFile& src = comparison.GetFile(CVnComparison::Source);
  const CVnComparedFile& tgt = comparison.GetFile(CVnComparison::Target);
  std::string buf;
  for (const CVnChangeSpan& s : comparison.GetSpans(true)) {
    AppendHeader(s, buf);
    for (long i = 0; i < s.m_nSourceCount; ++i)
      AppendLineWithEnd(src, s.m_nSourceBegin + i, buf, "< ");
    if (s.m_nSourceCount && s.m_nTargetCount)
      buf += "---\n";
    for (long i = 0; i < s.m_nTargetCount; ++i)
      AppendLineWithEnd(tgt, s.m_nTargetBegin + i, buf, "> ");
    if (buf.size() > (1 << 16)) {
      fwrite(buf.data(), 1, buf.size(), out);
      buf.clear();
    }
  }
  fwrite(buf.data(), 1, buf.size(), out);
}

}  // namespace vndiff
