// VnChangedWords.cpp - pairing the lines of a replaced block and marking
// what changed inside each pair.
//
// Phases, as the header tells them:
//   1. tokens: a line cut into words, white-space runs and single others
//      (Tokenize), each with a hash of its folded units;
//   2. pairing: a signature per line (its non-blank tokens, sorted), the
//      likeness of two signatures, and an order-keeping alignment that
//      maximises the sum of likeness, piece by piece (PairPiece);
//   3. marking: the shortest edit script between the middles of two token
//      lists (Myers' greedy search, its frontier kept per step so the path
//      can be walked back), turned into unit ranges;
//   4. rows: pairs level, the unpaired lines between them facing each other.
// Everything is written once over a unit type: WCHAR for decoded text,
// unsigned char for bytes.
#include "compare/VnChangedWords.h"

#include <algorithm>
#include <cassert>
#include <cstdint>
#include <utility>

namespace {

//===-- 1. Tokens ----------------------------------------------------------===//

enum class Kind : unsigned char { Word, Space, Other };

Kind KindOf(unsigned u, bool wide) {
  if (u < 0x80) {
    if ((u >= '0' && u <= '9') || (u >= 'A' && u <= 'Z') || (u >= 'a' && u <= 'z') || u == '_')
      return Kind::Word;
    if (u == ' ' || u == '\t' || u == '\v' || u == '\f' || u == '\r' || u == '\n')
      return Kind::Space;
    return Kind::Other;
  }
  // The blanks of Unicode; bytes beyond ASCII belong to UTF-8 sequences or
  // to letters of an 8-bit page, and so to words.
  if (wide && (u == 0xA0 || u == 0x1680 || (u >= 0x2000 && u <= 0x200A) || u == 0x202F || u == 0x205F ||
               u == 0x3000))
    return Kind::Space;
  return Kind::Word;
}

unsigned Fold(unsigned u, bool wide) {
  if (u >= 'A' && u <= 'Z')
    return u + ('a' - 'A');
  if (wide && u >= 0x80)
    return static_cast<uint16_t>(VnToLower(static_cast<WCHAR>(u)));
  return u;
}

struct Token {
  uint32_t m_nBegin;
  uint32_t m_nLength;
  uint32_t m_nHash;
  bool m_bSpace;
};

// Where the character that starts at i ends: a surrogate pair, or a UTF-8
// lead byte with its continuation bytes, is one character.
template <typename U>
size_t CharacterEnd(const U* s, size_t n, size_t i, bool wide) {
  size_t end = i + 1;
  if (wide) {
    if (s[i] >= 0xD800 && s[i] <= 0xDBFF && end < n && s[end] >= 0xDC00 && s[end] <= 0xDFFF)
      ++end;
  } else if (s[i] >= 0xC0) {
    while (end < n && (s[end] & 0xC0) == 0x80)
      ++end;
  }
  return end;
}

template <typename U>
std::vector<Token> Tokenize(const U* s, size_t n, bool wide, VnMarkUnit unit, bool fold) {
  std::vector<Token> tokens;
  for (size_t i = 0; i < n;) {
    const size_t begin = i;
    const Kind kind = KindOf(s[i], wide);
    if (unit == VnMarkUnit::Characters)
      i = CharacterEnd(s, n, i, wide);
    else if (kind == Kind::Other)
      ++i;
    else
      while (i < n && KindOf(s[i], wide) == kind)
        ++i;
    uint32_t hash = 2166136261u;  // FNV-1a
    for (size_t k = begin; k < i; ++k)
      hash = (hash ^ (fold ? Fold(s[k], wide) : s[k])) * 16777619u;
    tokens.push_back({static_cast<uint32_t>(begin), static_cast<uint32_t>(i - begin), hash, kind == Kind::Space});
  }
  return tokens;
}

// One line's tokens and units, as the comparison of tokens reads them.
template <typename U>
struct TokenLine {
  const U* m_pUnits;
  std::vector<Token> m_tokens;
};

template <typename U>
bool SameToken(const TokenLine<U>& a, const Token& x, const TokenLine<U>& b, const Token& y, bool fold, bool wide) {
  if (x.m_nLength != y.m_nLength || x.m_nHash != y.m_nHash)
    return false;
  for (uint32_t k = 0; k < x.m_nLength; ++k) {
    unsigned u = a.m_pUnits[x.m_nBegin + k], v = b.m_pUnits[y.m_nBegin + k];
    if (u != v && (!fold || Fold(u, wide) != Fold(v, wide)))
      return false;
  }
  return true;
}

//===-- 2. Pairing ---------------------------------------------------------===//

// The non-blank tokens of a line, by hash and length, sorted; and their units.
struct Signature {
  std::vector<std::pair<uint32_t, uint32_t>> m_tokens;
  uint32_t m_nUnits = 0;
};

template <typename U>
Signature SignatureOf(CVnLineUnits line, bool wide) {
  Signature sig;
  for (const Token& t : Tokenize(static_cast<const U*>(line.m_pUnits), line.m_nCount, wide, VnMarkUnit::Words, true)) {
    if (t.m_bSpace)
      continue;
    sig.m_tokens.push_back({t.m_nHash, t.m_nLength});
    sig.m_nUnits += t.m_nLength;
  }
  std::sort(sig.m_tokens.begin(), sig.m_tokens.end());
  return sig;
}

Signature SignatureOf(CVnLineUnits line, bool wide) {
  return wide ? SignatureOf<WCHAR>(line, wide) : SignatureOf<unsigned char>(line, wide);
}

// Units in tokens both signatures have, each token counted as often as the
// poorer side has it.
double Likeness(const Signature& a, const Signature& b) {
  const uint32_t total = a.m_nUnits + b.m_nUnits;
  if (total == 0)
    return 1.0;
  // Even a perfect overlap of the shorter line can't reach the threshold.
  if (2.0 * std::min(a.m_nUnits, b.m_nUnits) < kMinLikeness * total)
    return 0.0;
  uint32_t common = 0;
  for (size_t i = 0, j = 0; i < a.m_tokens.size() && j < b.m_tokens.size();) {
    if (a.m_tokens[i] == b.m_tokens[j]) {
      common += a.m_tokens[i].second;
      ++i, ++j;
    } else if (a.m_tokens[i] < b.m_tokens[j]) {
      ++i;
    } else {
      ++j;
    }
  }
  return 2.0 * common / total;
}

// An order-keeping alignment of source[s0, s1) with target[t0, t1) that
// maximises the summed likeness of its pairs (in thousandths).
void PairPiece(const std::vector<Signature>& source, long s0, long s1, const std::vector<Signature>& target, long t0,
               long t1, std::vector<CVnLinePair>& pairs) {
  const long m = s1 - s0, n = t1 - t0, width = n + 1;
  std::vector<long> best(static_cast<size_t>((m + 1) * width), 0);
  std::vector<unsigned char> step(best.size(), 0);  // 0 skip source, 1 skip target, 2 pair
  for (long i = 1; i <= m; ++i) {
    for (long j = 1; j <= n; ++j) {
      const size_t at = static_cast<size_t>(i * width + j);
      long value = best[at - width];
      unsigned char how = 0;
      if (best[at - 1] > value)
        value = best[at - 1], how = 1;
      const double like = Likeness(source[static_cast<size_t>(s0 + i - 1)], target[static_cast<size_t>(t0 + j - 1)]);
      if (like >= kMinLikeness) {
        const long paired = best[at - width - 1] + static_cast<long>(like * 1000.0 + 0.5);
        if (paired >= value)
          value = paired, how = 2;
      }
      best[at] = value;
      step[at] = how;
    }
  }
  std::vector<CVnLinePair> found;
  for (long i = m, j = n; i > 0 && j > 0;) {
    const unsigned char how = step[static_cast<size_t>(i * width + j)];
    if (how == 2)
      found.push_back({s0 + i - 1, t0 + j - 1});
    if (how != 1)
      --i;
    if (how != 0)
      --j;
  }
  pairs.insert(pairs.end(), found.rbegin(), found.rend());
}

//===-- 3. Marking ---------------------------------------------------------===//

// Myers' greedy search for the shortest edit script between a[a0, a1) and
// b[b0, b1); sets the flags of the tokens it deletes or inserts.  False,
// with no flag set, when the script needs more than kMaxEdits steps.
template <typename U>
bool EditScript(const TokenLine<U>& a, size_t a0, size_t a1, const TokenLine<U>& b, size_t b0, size_t b1, bool fold,
                bool wide, std::vector<char>& inA, std::vector<char>& inB) {
  const long n = static_cast<long>(a1 - a0), m = static_cast<long>(b1 - b0);
  const long most = std::min<long>(n + m, kMaxEdits);
  const long offset = most + 1;
  std::vector<long> v(static_cast<size_t>(2 * most + 3), 0);
  std::vector<long> trace;  // the frontier after step d: k = -d..d, at d * d
  auto same = [&](long x, long y) {
    return SameToken(a, a.m_tokens[a0 + static_cast<size_t>(x)], b, b.m_tokens[b0 + static_cast<size_t>(y)], fold,
                     wide);
  };
  long d = 0;
  for (bool done = false; !done; ++d) {
    if (d > most)
      return false;
    for (long k = -d; k <= d; k += 2) {
      long x = (k == -d || (k != d && v[offset + k - 1] < v[offset + k + 1])) ? v[offset + k + 1]
                                                                               : v[offset + k - 1] + 1;
      long y = x - k;
      while (x < n && y < m && same(x, y))
        ++x, ++y;
      v[offset + k] = x;
      if (x >= n && y >= m)
        done = true;
    }
    trace.insert(trace.end(), v.begin() + (offset - d), v.begin() + (offset + d + 1));
  }
  // Back from the end, one step a turn: the frontier before step d says
  // whether the step came down (an insertion) or across (a deletion).
  long x = n, y = m;
  for (long s = d - 1; s > 0; --s) {
    const long* before = &trace[static_cast<size_t>((s - 1) * (s - 1))] + (s - 1);  // index by k
    const long k = x - y;
    const bool down = k == -s || (k != s && before[k - 1] < before[k + 1]);
    const long pk = down ? k + 1 : k - 1;
    const long px = before[pk], py = px - pk;
    if (down)
      inB[b0 + static_cast<size_t>(py)] = 1;
    else
      inA[a0 + static_cast<size_t>(px)] = 1;
    x = px, y = py;
  }
  return true;
}

// Runs of flagged tokens as unit ranges; ranges with only blanks between
// them join.
template <typename U>
std::vector<CVnUnitRange> Ranges(const TokenLine<U>& line, const std::vector<char>& flags, bool wide) {
  std::vector<CVnUnitRange> out;
  for (size_t i = 0; i < flags.size(); ++i) {
    if (!flags[i])
      continue;
    const Token& t = line.m_tokens[i];
    CVnUnitRange r = {t.m_nBegin, static_cast<size_t>(t.m_nBegin) + t.m_nLength};
    if (!out.empty()) {
      size_t gap = out.back().m_nEnd;
      while (gap < r.m_nBegin && KindOf(line.m_pUnits[gap], wide) == Kind::Space)
        ++gap;
      if (gap == r.m_nBegin) {
        out.back().m_nEnd = r.m_nEnd;
        continue;
      }
    }
    out.push_back(r);
  }
  return out;
}

template <typename U>
void Mark(CVnLineUnits la, CVnLineUnits lb, bool wide, const CVnWordOptions& options, std::vector<CVnUnitRange>& inA,
          std::vector<CVnUnitRange>& inB) {
  const bool fold = options.m_bIgnoreCase;
  TokenLine<U> a = {static_cast<const U*>(la.m_pUnits),
                    Tokenize(static_cast<const U*>(la.m_pUnits), la.m_nCount, wide, options.m_nUnit, fold)};
  TokenLine<U> b = {static_cast<const U*>(lb.m_pUnits),
                    Tokenize(static_cast<const U*>(lb.m_pUnits), lb.m_nCount, wide, options.m_nUnit, fold)};
  if (options.m_bIgnoreWhitespace) {
    auto blank = [](const Token& t) { return t.m_bSpace; };
    a.m_tokens.erase(std::remove_if(a.m_tokens.begin(), a.m_tokens.end(), blank), a.m_tokens.end());
    b.m_tokens.erase(std::remove_if(b.m_tokens.begin(), b.m_tokens.end(), blank), b.m_tokens.end());
  }
  // The common head and tail never need the search.
  size_t a0 = 0, b0 = 0, a1 = a.m_tokens.size(), b1 = b.m_tokens.size();
  while (a0 < a1 && b0 < b1 && SameToken(a, a.m_tokens[a0], b, b.m_tokens[b0], fold, wide))
    ++a0, ++b0;
  while (a1 > a0 && b1 > b0 && SameToken(a, a.m_tokens[a1 - 1], b, b.m_tokens[b1 - 1], fold, wide))
    --a1, --b1;
  std::vector<char> flagsA(a.m_tokens.size(), 0), flagsB(b.m_tokens.size(), 0);
  if (!EditScript(a, a0, a1, b, b0, b1, fold, wide, flagsA, flagsB)) {
    std::fill(flagsA.begin() + static_cast<long>(a0), flagsA.begin() + static_cast<long>(a1), 1);
    std::fill(flagsB.begin() + static_cast<long>(b0), flagsB.begin() + static_cast<long>(b1), 1);
  }
  inA = Ranges(a, flagsA, wide);
  inB = Ranges(b, flagsB, wide);
}

//===-- 4. Rows ------------------------------------------------------------===//

std::vector<CVnUnitRange> Whole(CVnLineUnits line) {
  if (line.m_nCount == 0)
    return {};
  return {{0, line.m_nCount}};
}

CVnLineUnits UnitsOf(const CVnComparedFile& file, long line) {
  CVnLineUnits units = {nullptr, 0};
  units.m_pUnits = file.GetLineText(line, units.m_nCount);
  return units;
}

}  // namespace

double VnLineLikeness(CVnLineUnits a, CVnLineUnits b, bool wide) {
  return Likeness(SignatureOf(a, wide), SignatureOf(b, wide));
}

// Pieces of at most kChunkLines a side, cut in proportion, so that a long
// block costs its length times kChunkLines comparisons of signatures.
std::vector<CVnLinePair> VnPairLines(const std::vector<CVnLineUnits>& source, const std::vector<CVnLineUnits>& target,
                                     bool wide) {
  std::vector<CVnLinePair> pairs;
  const long m = static_cast<long>(source.size()), n = static_cast<long>(target.size());
  if (m == 0 || n == 0)
    return pairs;
  std::vector<Signature> s, t;
  s.reserve(source.size());
  t.reserve(target.size());
  for (const CVnLineUnits& line : source)
    s.push_back(SignatureOf(line, wide));
  for (const CVnLineUnits& line : target)
    t.push_back(SignatureOf(line, wide));
  const long pieces = (std::max(m, n) + kChunkLines - 1) / kChunkLines;
  for (long p = 0; p < pieces; ++p)
    PairPiece(s, m * p / pieces, m * (p + 1) / pieces, t, n * p / pieces, n * (p + 1) / pieces, pairs);
  return pairs;
}

void VnMarkChangedUnits(CVnLineUnits a, CVnLineUnits b, bool wide, const CVnWordOptions& options,
                        std::vector<CVnUnitRange>& inA, std::vector<CVnUnitRange>& inB) {
  if (wide)
    Mark<WCHAR>(a, b, wide, options, inA, inB);
  else
    Mark<unsigned char>(a, b, wide, options, inA, inB);
}

// Between one pair and the next (or the block's end) the unpaired lines
// face each other while both sides have one; the rest face a gap.
std::vector<CVnMarkedRow> VnBlockRows(const CVnComparedFile& source, const CVnComparedFile& target,
                                      const CVnChangeSpan& block, const CVnWordOptions& options) {
  assert(source.IsWide() == target.IsWide() && "both sides of one unit width");
  const bool wide = source.IsWide();
  std::vector<CVnLineUnits> s, t;
  for (long i = 0; i < block.m_nSourceCount; ++i)
    s.push_back(UnitsOf(source, block.m_nSourceBegin + i));
  for (long j = 0; j < block.m_nTargetCount; ++j)
    t.push_back(UnitsOf(target, block.m_nTargetBegin + j));
  std::vector<CVnLinePair> pairs = VnPairLines(s, t, wide);
  pairs.push_back({block.m_nSourceCount, block.m_nTargetCount});  // the end, paired with nothing

  std::vector<CVnMarkedRow> rows;
  long i = 0, j = 0;
  for (const CVnLinePair& pair : pairs) {
    for (; i < pair.m_nSource && j < pair.m_nTarget; ++i, ++j)
      rows.push_back({{block.m_nSourceBegin + i, block.m_nTargetBegin + j, VnRowKind::Changed},
                      Whole(s[static_cast<size_t>(i)]), Whole(t[static_cast<size_t>(j)])});
    for (; i < pair.m_nSource; ++i)
      rows.push_back({{block.m_nSourceBegin + i, -1, VnRowKind::Deleted}, {}, {}});
    for (; j < pair.m_nTarget; ++j)
      rows.push_back({{-1, block.m_nTargetBegin + j, VnRowKind::Inserted}, {}, {}});
    if (i == block.m_nSourceCount)
      break;
    CVnMarkedRow row = {{block.m_nSourceBegin + i, block.m_nTargetBegin + j, VnRowKind::Changed}, {}, {}};
    VnMarkChangedUnits(s[static_cast<size_t>(i)], t[static_cast<size_t>(j)], wide, options, row.m_source,
                       row.m_target);
    rows.push_back(std::move(row));
    ++i, ++j;
  }
  return rows;
}

//===-- A whole comparison -------------------------------------------------===//

// Records that touch form one block: a deletion beside a changed line may
// hold that line's partner.  Binary sides are lines of bytes with no words
// in them: their blocks keep the comparison's own rows and get no marks.
CVnChangedWords::CVnChangedWords(const CVnComparison& comparison, VnMarkUnit unit) {
  const CVnComparedFile& source = comparison.GetFile(CVnComparison::Source);
  const CVnComparedFile& target = comparison.GetFile(CVnComparison::Target);
  if (source.GetFacts().m_nFileType == CVnDiffFile::TypeBinary ||
      target.GetFacts().m_nFileType == CVnDiffFile::TypeBinary) {
    m_rows = comparison.GetRows();
    return;
  }
  CVnWordOptions options;
  options.m_nUnit = unit;
  options.m_bIgnoreCase = comparison.GetOptions().m_bIgnoreCase;
  options.m_bIgnoreWhitespace = comparison.GetOptions().m_bIgnoreWhitespace;
  const long n0 = source.GetLineCount(), n1 = target.GetLineCount();
  m_rows.reserve(static_cast<size_t>(std::max(n0, n1)));
  long s = 0, t = 0;
  for (const CVnChangeSpan& span : comparison.GetSpans(true)) {
    for (; s < span.m_nSourceBegin; ++s, ++t)
      m_rows.push_back({s, t, VnRowKind::Same});
    if (span.m_nSourceCount && span.m_nTargetCount) {
      for (CVnMarkedRow& row : VnBlockRows(source, target, span, options)) {
        m_rows.push_back(row.m_row);
        if (!row.m_source.empty())
          m_marks[0].push_back({row.m_row.m_nSource, std::move(row.m_source)});
        if (!row.m_target.empty())
          m_marks[1].push_back({row.m_row.m_nTarget, std::move(row.m_target)});
      }
    } else {
      for (long k = 0; k < span.m_nSourceCount; ++k)
        m_rows.push_back({span.m_nSourceBegin + k, -1, VnRowKind::Deleted});
      for (long k = 0; k < span.m_nTargetCount; ++k)
        m_rows.push_back({-1, span.m_nTargetBegin + k, VnRowKind::Inserted});
    }
    s = span.m_nSourceBegin + span.m_nSourceCount;
    t = span.m_nTargetBegin + span.m_nTargetCount;
  }
  for (; s < n0 && t < n1; ++s, ++t)
    m_rows.push_back({s, t, VnRowKind::Same});
}

const std::vector<CVnUnitRange>& CVnChangedWords::GetMarks(CVnComparison::Side side, long line) const {
  static const std::vector<CVnUnitRange> kNone;
  const std::vector<LineMarks>& marks = m_marks[side];
  auto at = std::lower_bound(marks.begin(), marks.end(), line,
                             [](const LineMarks& m, long l) { return m.m_nLine < l; });
  return at != marks.end() && at->m_nLine == line ? at->m_ranges : kNone;
}
