// VnLineEndChanges.cpp - records for lines that differ only in their line end.
//
// Compare sees the lines, not the bytes around them: raw lines hold no
// terminator (only the last line can lack one), decoded lines all end in
// CR LF.  Output that must rebuild the target byte for byte needs the pairs
// that read differently in the files turned into changes.  How a line reads
// is taken as a byte-wise reader splitting at LF takes it: the intake reads
// LF CR as one line end, where such a reader gives the CR to the next line;
// and only CR LF and LF end lines (a lone CR ends none, so it reads as LF).
#include "compare/VnLineEndChanges.h"

#include <cassert>
#include <memory>

namespace {

struct ByteShape {
  bool leadingCR;  // the line before ended LF CR
  bool crlf;       // the line ends CR LF
  bool operator!=(const ByteShape& o) const { return leadingCR != o.leadingCR || crlf != o.crlf; }
};

ByteShape ShapeOf(const CVnComparedFile& file, long i) {
  if (!file.IsWide())
    return {false, false};
  return {i > 0 && file.GetLineEnd(i - 1) == VnLineEnd::LFCR, file.GetLineEnd(i) == VnLineEnd::CRLF};
}

// The partner on the other side of `line` (0-based, in no span) of the
// source (ofSource) or the target, and how many spans stand before it.
long PartnerOf(const std::vector<CVnChangeSpan>& spans, bool ofSource, long line, size_t& before) {
  long offset = 0;
  before = 0;
  for (const CVnChangeSpan& s : spans) {
    if ((ofSource ? s.m_nSourceBegin : s.m_nTargetBegin) > line)
      break;
    offset += ofSource ? s.m_nTargetCount - s.m_nSourceCount : s.m_nSourceCount - s.m_nTargetCount;
    ++before;
  }
  return line + offset;
}

// Files with one and the same kind of line end throughout read alike around
// every pair.  LF CR is left out: there the first line has no CR in front
// and the others have.
bool ReadAlike(const CVnComparedFile& source, const CVnComparedFile& target) {
  const VnLineEnd style = source.GetFacts().m_nLineEnds;
  return style == target.GetFacts().m_nLineEnds && style != VnLineEnd::Mixed && style != VnLineEnd::LFCR;
}

// Puts each fresh one-line record before the record its `before` names.
struct Pair {
  long src, tgt;
  size_t before;  // records that precede it
};

void Merge(const std::vector<Pair>& pairs, CVnDiffChangeList& changes) {
  std::vector<std::unique_ptr<CVnDiffChange>> fresh;
  fresh.reserve(pairs.size());
  for (const Pair& p : pairs)
    fresh.emplace_back(new CVnDiffChange(CVnDiffChange::Change, p.src + 1, p.src + 1, p.tgt + 1, p.tgt + 1));
  const size_t count = static_cast<size_t>(changes.GetSize());
  std::vector<CVnDiffChange*> order;
  order.reserve(count + pairs.size());
  size_t next = 0;
  for (size_t k = 0; k <= count; ++k) {
    for (; next < pairs.size() && pairs[next].before == k; ++next)
      order.push_back(fresh[next].get());
    if (k < count)
      order.push_back(changes[static_cast<INT_PTR>(k)]);
  }
  changes.SetSize(static_cast<INT_PTR>(order.size()));  // the last step that may fail
  for (size_t k = 0; k < order.size(); ++k)
    changes.SetAt(static_cast<INT_PTR>(k), order[k]);
  for (std::unique_ptr<CVnDiffChange>& c : fresh)
    c.release();  // the list owns them now
}

}  // namespace

// Only a file's last line can lack a line end, so only the partner of either
// last line needs a look: when it disagrees, the pair becomes a Change.
void VnAddFinalNewlineChange(const CVnComparedFile& source, const CVnComparedFile& target,
                             CVnDiffChangeList& changes) {
  const long n0 = source.GetLineCount(), n1 = target.GetLineCount();
  if (n0 == 0 || n1 == 0)
    return;
  const bool sourceEnd = source.GetFacts().m_bFinalNewline, targetEnd = target.GetFacts().m_bFinalNewline;
  const std::vector<CVnChangeSpan> spans = VnChangeSpans(changes, false);
  bool srcCovered = false, tgtCovered = false;
  for (const CVnChangeSpan& s : spans) {
    srcCovered = srcCovered || (s.m_nSourceCount > 0 && s.m_nSourceBegin + s.m_nSourceCount == n0);
    tgtCovered = tgtCovered || (s.m_nTargetCount > 0 && s.m_nTargetBegin + s.m_nTargetCount == n1);
  }
  size_t before = 0;
  std::unique_ptr<CVnDiffChange> change;
  if (!tgtCovered) {
    const long partner = PartnerOf(spans, false, n1 - 1, before);
    if ((partner < n0 - 1 || sourceEnd) != targetEnd)
      change.reset(new CVnDiffChange(CVnDiffChange::Change, partner + 1, partner + 1, n1, n1));
  } else if (!srcCovered) {
    const long partner = PartnerOf(spans, true, n0 - 1, before);
    if ((partner < n1 - 1 || targetEnd) != sourceEnd)
      change.reset(new CVnDiffChange(CVnDiffChange::Change, n0, n0, partner + 1, partner + 1));
  }
  if (!change)
    return;
  assert(before <= static_cast<size_t>(changes.GetSize()) && "spans and records correspond");
  changes.InsertAt(static_cast<INT_PTR>(before), change.get());
  change.release();
}

void VnAddLineEndChanges(const CVnComparedFile& source, const CVnComparedFile& target,
                         CVnDiffChangeList& changes) {
  if (!source.IsWide() || !target.IsWide() || ReadAlike(source, target))
    return;
  const std::vector<CVnChangeSpan> spans = VnChangeSpans(changes, false);
  assert(spans.size() == static_cast<size_t>(changes.GetSize()) && "one span per record");
  std::vector<Pair> pairs;
  long i = 0, j = 0;  // the next lines on each side after the last span
  auto scanUpTo = [&](long srcEnd, size_t before) {
    for (; i < srcEnd; ++i, ++j)
      if (ShapeOf(source, i) != ShapeOf(target, j))
        pairs.push_back({i, j, before});
  };
  for (size_t k = 0; k < spans.size(); ++k) {
    scanUpTo(spans[k].m_nSourceBegin, k);
    i = spans[k].m_nSourceBegin + spans[k].m_nSourceCount;
    j = spans[k].m_nTargetBegin + spans[k].m_nTargetCount;
  }
  scanUpTo(source.GetLineCount(), spans.size());
  if (!pairs.empty())
    Merge(pairs, changes);
}
