// VndiffLines.cpp - lines as printable bytes, and records as spans.
//
// A record of Compare names lines on one side only for Insert and Delete
// (the other side holds zeros).  A span places every record on both sides:
// an insertion sits before a source line, a deletion before a target line,
// found from the running difference between the two sides' positions.
#include "VndiffHost.h"

#include <cassert>

namespace vndiff {

//===-- Line text ----------------------------------------------------------===//

static void AppendUtf8(unsigned cp, std::string& out) {
  if (cp < 0x80) {
    out += static_cast<char>(cp);
  } else if (cp < 0x800) {
    out += static_cast<char>(0xC0 | (cp >> 6));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else if (cp < 0x10000) {
    out += static_cast<char>(0xE0 | (cp >> 12));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  } else {
    out += static_cast<char>(0xF0 | (cp >> 18));
    out += static_cast<char>(0x80 | ((cp >> 12) & 0x3F));
    out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
    out += static_cast<char>(0x80 | (cp & 0x3F));
  }
}

// UTF-16LE units to UTF-8; a lone surrogate becomes U+FFFD.
static void AppendUtf16(const unsigned char* p, uint32_t units, std::string& out) {
  for (uint32_t i = 0; i < units; ++i) {
    unsigned u = p[2 * i] | (p[2 * i + 1] << 8);
    if (u < 0x80) {
      out += static_cast<char>(u);
      continue;
    }
    if (u >= 0xD800 && u < 0xDC00 && i + 1 < units) {
      unsigned v = p[2 * i + 2] | (p[2 * i + 3] << 8);
      if (v >= 0xDC00 && v < 0xE000) {
        AppendUtf8(0x10000 + ((u - 0xD800) << 10) + (v - 0xDC00), out);
        ++i;
        continue;
      }
    }
    AppendUtf8(u >= 0xD800 && u < 0xE000 ? 0xFFFD : u, out);
  }
}

void AppendLine(const InputText& text, int i, std::string& out) {
  const CVnDiffLine* line = text.lines.GetLines()[i];
  if (!text.wide) {
    out.append(reinterpret_cast<const char*>(line->GetBytes()), line->GetLength());
    return;
  }
  uint32_t units = line->GetLength() / 2;
  // The intake ends every line in CR LF; the CR is not the line's own.
  if (text.ends[i] != LineEnd::None && units > 0 && line->GetBytes()[2 * units - 2] == 13 &&
      line->GetBytes()[2 * units - 1] == 0)
    --units;
  AppendUtf16(line->GetBytes(), units, out);
}

// How line i reads in the file's own bytes, split at LF as patch reads
// them: the intake takes LF CR as one line end, where a byte-wise reader
// gives the CR to the next line; and only CR LF and LF survive as ends (a
// lone CR ends no line for patch, so it is printed as LF).
struct ByteShape {
  bool leadingCR;  // the line before ended LF CR
  bool crlf;       // the line ends CR LF
  bool operator!=(const ByteShape& o) const { return leadingCR != o.leadingCR || crlf != o.crlf; }
};

static ByteShape ShapeOf(const InputText& text, size_t i) {
  if (!text.wide)
    return {false, false};
  return {i > 0 && text.ends[i - 1] == LineEnd::LFCR, text.ends[i] == LineEnd::CRLF};
}

void AppendLineWithEnd(const InputText& text, int i, std::string& out, const char* prefix) {
  const ByteShape shape = ShapeOf(text, static_cast<size_t>(i));
  out += prefix;
  if (shape.leadingCR)
    out += '\r';
  AppendLine(text, i, out);
  const bool last = i == text.lines.GetLineCount() - 1;
  if (last && !text.endsInNewline())
    out += "\n\\ No newline at end of file\n";
  else
    out += shape.crlf ? "\r\n" : "\n";
}

//===-- Spans --------------------------------------------------------------===//

std::vector<Span> ToSpans(const CVnDiffChangeList& changes, bool join) {
  std::vector<Span> spans;
  long offset = 0;  // target position minus source position between records
  for (INT_PTR k = 0; k < changes.GetSize(); ++k) {
    const CVnDiffChange& c = *changes[k];
    Span s = {0, 0, 0, 0};
    switch (c.GetAction()) {
    case CVnDiffChange::Insert:
      s.tgtBegin = c.StartTarget() - 1;
      s.tgtCount = c.TargetChangeLen();
      s.srcBegin = s.tgtBegin - offset;
      break;
    case CVnDiffChange::Delete:
      s.srcBegin = c.StartSource() - 1;
      s.srcCount = c.SourceChangeLen();
      s.tgtBegin = s.srcBegin + offset;
      break;
    case CVnDiffChange::Change:
      s.srcBegin = c.StartSource() - 1;
      s.srcCount = c.SourceChangeLen();
      s.tgtBegin = c.StartTarget() - 1;
      s.tgtCount = c.TargetChangeLen();
      break;
    default:
      continue;
    }
    offset += s.tgtCount - s.srcCount;
    if (join && !spans.empty()) {
      Span& p = spans.back();
      if (p.srcBegin + p.srcCount == s.srcBegin && p.tgtBegin + p.tgtCount == s.tgtBegin) {
        p.srcCount += s.srcCount;
        p.tgtCount += s.tgtCount;
        continue;
      }
    }
    spans.push_back(s);
  }
  return spans;
}

// The partner on the other side of line `line` (0-based, in no span) of
// the source (ofSource) or the target, and how many spans stand before it.
static long PartnerOf(const std::vector<Span>& spans, bool ofSource, long line, size_t& before) {
  long offset = 0;
  before = 0;
  for (const Span& s : spans) {
    if ((ofSource ? s.srcBegin : s.tgtBegin) > line)
      break;
    offset += ofSource ? s.tgtCount - s.srcCount : s.srcCount - s.tgtCount;
    ++before;
  }
  return line + offset;
}

// A line the two sides share unchanged must also agree on having a line end.
// Only a file's last line can lack one, so only the partner of either last
// line needs a look: when it disagrees, the pair becomes a Change.
void AddFinalNewlineChange(const InputText& source, const InputText& target, CVnDiffChangeList& changes) {
  const long n0 = source.lines.GetLineCount();
  const long n1 = target.lines.GetLineCount();
  if (n0 == 0 || n1 == 0)
    return;
  const bool sourceEnd = source.endsInNewline(), targetEnd = target.endsInNewline();
  const std::vector<Span> spans = ToSpans(changes, false);
  bool srcCovered = false, tgtCovered = false;
  for (const Span& s : spans) {
    srcCovered = srcCovered || (s.srcCount > 0 && s.srcBegin + s.srcCount == n0);
    tgtCovered = tgtCovered || (s.tgtCount > 0 && s.tgtBegin + s.tgtCount == n1);
  }
  size_t before = 0;
  CVnDiffChange* change = nullptr;
  if (!tgtCovered) {
    const long partner = PartnerOf(spans, false, n1 - 1, before);
    const bool partnerEnd = partner < n0 - 1 || sourceEnd;
    if (partnerEnd != targetEnd)
      change = new CVnDiffChange(CVnDiffChange::Change, partner + 1, partner + 1, n1, n1);
  } else if (!srcCovered) {
    const long partner = PartnerOf(spans, true, n0 - 1, before);
    const bool partnerEnd = partner < n1 - 1 || targetEnd;
    if (partnerEnd != sourceEnd)
      change = new CVnDiffChange(CVnDiffChange::Change, n0, n0, partner + 1, partner + 1);
  }
  if (!change)
    return;
  assert(before <= static_cast<size_t>(changes.GetSize()) && "spans and records correspond");
  changes.InsertAt(static_cast<INT_PTR>(before), change);
}

// Decoded text holds every line end as CR LF, so Compare pairs lines that
// read differently in the files' bytes ("a" LF against "a" CR LF) as
// unchanged.  Each such pair becomes a Change of its own, placed among the
// records in line order; contiguous records join into one span when printed.
void AddLineEndChanges(const InputText& source, const InputText& target, CVnDiffChangeList& changes) {
  if (source.ends.empty() || target.ends.empty())
    return;
  // Files with one and the same kind of line end throughout (the common
  // case) read alike around every pair.  LF CR is left out: there the first
  // line has no CR in front and the others have.
  if (source.uniformEnd != LineEnd::None && source.uniformEnd == target.uniformEnd &&
      source.uniformEnd != LineEnd::LFCR)
    return;
  const std::vector<Span> spans = ToSpans(changes, false);
  assert(spans.size() == static_cast<size_t>(changes.GetSize()) && "one span per record");
  struct Pair {
    long src, tgt;
    size_t before;  // records that precede it
  };
  std::vector<Pair> pairs;
  long i = 0, j = 0;  // the next lines on each side after the last span
  auto scanUpTo = [&](long srcEnd, size_t before) {
    for (; i < srcEnd; ++i, ++j)
      if (ShapeOf(source, static_cast<size_t>(i)) != ShapeOf(target, static_cast<size_t>(j)))
        pairs.push_back({i, j, before});
  };
  for (size_t k = 0; k < spans.size(); ++k) {
    scanUpTo(spans[k].srcBegin, k);
    i = spans[k].srcBegin + spans[k].srcCount;
    j = spans[k].tgtBegin + spans[k].tgtCount;
  }
  scanUpTo(static_cast<long>(source.ends.size()), spans.size());
  if (pairs.empty())
    return;

  std::vector<std::unique_ptr<CVnDiffChange>> fresh;
  fresh.reserve(pairs.size());
  for (const Pair& p : pairs)
    fresh.emplace_back(new CVnDiffChange(CVnDiffChange::Change, p.src + 1, p.src + 1, p.tgt + 1, p.tgt + 1));
  std::vector<CVnDiffChange*> order;
  order.reserve(spans.size() + pairs.size());
  size_t next = 0;
  for (size_t k = 0; k <= spans.size(); ++k) {
    for (; next < pairs.size() && pairs[next].before == k; ++next)
      order.push_back(fresh[next].get());
    if (k < spans.size())
      order.push_back(changes[static_cast<INT_PTR>(k)]);
  }
  changes.SetSize(static_cast<INT_PTR>(order.size()));  // the last step that may fail
  for (size_t k = 0; k < order.size(); ++k)
    changes.SetAt(static_cast<INT_PTR>(k), order[k]);
  for (std::unique_ptr<CVnDiffChange>& c : fresh)
    c.release();  // the list owns them now
}

}  // namespace vndiff
