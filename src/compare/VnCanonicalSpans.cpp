// VnCanonicalSpans.cpp - sliding each side's changed runs into one place.
//
// The spans become one changed flag per line on each side; each side's runs
// slide in turn, source first (a slide swaps a changed line for an equal
// unchanged one, so the unchanged lines of the two sides still pair up in
// order), and the spans are read back from both flag arrays side by side.
#include "compare/VnCanonicalSpans.h"

#include <cstring>

bool VnSameLine(const CVnComparedFile& a, long i, const CVnComparedFile& b, long j) {
  const CVnDiffLine& x = *a.GetLines().GetLines()[i];
  const CVnDiffLine& y = *b.GetLines().GetLines()[j];
  return x.GetLength() == y.GetLength() && memcmp(x.GetBytes(), y.GetBytes(), x.GetLength()) == 0 &&
         (a.GetLineEnd(i) == VnLineEnd::None) == (b.GetLineEnd(j) == VnLineEnd::None);
}

namespace {

// One flag per line, with an unchanged line before the first and after the
// last, so that the scans stop without bounds checks.
struct Flags {
  std::vector<char> all;
  char* at;  // line 0
  long count;
  Flags(long n, const std::vector<CVnChangeSpan>& spans, bool source)
      : all(static_cast<size_t>(n) + 2, 0), at(all.data() + 1), count(n) {
    for (const CVnChangeSpan& s : spans)
      memset(at + (source ? s.m_nSourceBegin : s.m_nTargetBegin), 1,
             static_cast<size_t>(source ? s.m_nSourceCount : s.m_nTargetCount));
  }
};

// Slides the runs of one side.  j follows the line of the other side that
// pairs with the first unchanged line after the run, so that a run ends up,
// when it can, right behind a run of the other side: a deletion and an
// insertion at one place stay one change.
void Slide(Flags& side, const Flags& otherSide, const CVnComparedFile& file) {
  char* changed = side.at;
  const char* other = otherSide.at;
  const long end = side.count;
  auto same = [&](long a, long b) { return VnSameLine(file, a, file, b); };
  long i = 0, j = 0;
  for (;;) {
    for (; i < end && !changed[i]; ++i)
      while (other[j++]) {
      }
    if (i == end)
      return;
    long start = i;
    while (changed[++i]) {
    }
    while (other[j])
      ++j;
    long corresponding = end;  // where the run meets a run of the other side
    for (long length = -1; length != i - start;) {
      length = i - start;
      while (start > 0 && same(start - 1, i - 1)) {
        changed[--start] = 1;
        changed[--i] = 0;
        while (changed[start - 1])
          --start;
        while (other[--j]) {
        }
      }
      corresponding = other[j - 1] ? i : end;
      while (i != end && same(start, i)) {
        changed[start++] = 0;
        changed[i++] = 1;
        while (changed[i])
          ++i;
        while (other[++j])
          corresponding = i;
      }
    }
    while (corresponding < i) {
      changed[--start] = 1;
      changed[--i] = 0;
      while (other[--j]) {
      }
    }
  }
}

}  // namespace

std::vector<CVnChangeSpan> VnCanonicalSpans(const std::vector<CVnChangeSpan>& spans, const CVnComparedFile& source,
                                            const CVnComparedFile& target) {
  const long n0 = source.GetLineCount(), n1 = target.GetLineCount();
  Flags f0(n0, spans, true), f1(n1, spans, false);
  Slide(f0, f1, source);
  Slide(f1, f0, target);
  const char *c0 = f0.at, *c1 = f1.at;
  std::vector<CVnChangeSpan> out;
  long i = 0, j = 0;
  while (i < n0 || j < n1) {
    if (i < n0 && j < n1 && !c0[i] && !c1[j]) {
      ++i, ++j;
      continue;
    }
    CVnChangeSpan s = {i, 0, j, 0};
    for (; i < n0 && c0[i]; ++i)
      ++s.m_nSourceCount;
    for (; j < n1 && c1[j]; ++j)
      ++s.m_nTargetCount;
    out.push_back(s);
  }
  return out;
}
