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

static void AppendHeader(const Span& s, std::string& out) {
  char text[24];
  if (s.srcCount == 0) {
    snprintf(text, sizeof text, "%lda", s.srcBegin);
    out += text;
    AppendRange(s.tgtBegin, s.tgtCount, out);
  } else if (s.tgtCount == 0) {
    AppendRange(s.srcBegin, s.srcCount, out);
    snprintf(text, sizeof text, "d%ld", s.tgtBegin);
    out += text;
  } else {
    AppendRange(s.srcBegin, s.srcCount, out);
    out += 'c';
    AppendRange(s.tgtBegin, s.tgtCount, out);
  }
  out += '\n';
}

void WriteNormal(const InputText& src, const InputText& tgt, const std::vector<Span>& spans, std::FILE* out) {
  std::string buf;
  for (const Span& s : spans) {
    AppendHeader(s, buf);
    for (long i = 0; i < s.srcCount; ++i)
      AppendLineWithEnd(src, static_cast<int>(s.srcBegin + i), buf, "< ");
    if (s.srcCount && s.tgtCount)
      buf += "---\n";
    for (long i = 0; i < s.tgtCount; ++i)
      AppendLineWithEnd(tgt, static_cast<int>(s.tgtBegin + i), buf, "> ");
    if (buf.size() > (1 << 16)) {
      fwrite(buf.data(), 1, buf.size(), out);
      buf.clear();
    }
  }
  fwrite(buf.data(), 1, buf.size(), out);
}

}  // namespace vndiff
