// VnChangedWords.cpp - pairing the lines of a replaced block and marking
// what changed inside each pair.
//
// Phases, as the header tells them:
//   1. tokens: units classed by a table (ASCII) or a short test, runs cut
//      into tokens with a hash of their (folded) units;
//   2. pairing: a signature per line (the hashes and lengths of its
//      non-blank tokens, sorted), the likeness of two signatures, and an
//      order-keeping alignment that maximises the summed likeness, piece by
//      piece;
//   3. marking: the common head and tail of the two lines found unit by unit
//      and widened to whole tokens, only the middles cut into tokens, and the
//      shortest edit script between them (Myers' greedy search, its frontier
//      kept per step so that the path can be walked back) turned into ranges;
//   4. rows: pairs level, the unpaired lines between them facing each other.
//
// Most blocks are one line against one.  Such a pair is marked first, and
// its likeness is judged from what the marking saw (the head, the tail and
// the tokens the script keeps are common to both lines); only when that is
// too little are the signatures made.  All buffers live in one Marker that
// is used for every block of a comparison, so a line costs no allocation.
// The work is written once over a unit type: WCHAR for decoded text,
// unsigned char for bytes.
#include "compare/VnChangedWords.h"

#include <algorithm>
#include <cassert>
#include <cstdint>

namespace {

//===-- 1. Tokens ----------------------------------------------------------===//

enum class Kind : unsigned char { Word, Space, Other };

struct AsciiKinds {
  Kind m_kinds[128];
  AsciiKinds() {
    for (unsigned u = 0; u < 128; ++u) {
      const bool word = (u >= '0' && u <= '9') || (u >= 'A' && u <= 'Z') || (u >= 'a' && u <= 'z') || u == '_';
      const bool space = u == ' ' || u == '\t' || u == '\v' || u == '\f' || u == '\r' || u == '\n';
      m_kinds[u] = word ? Kind::Word : space ? Kind::Space : Kind::Other;
    }
  }
};
const AsciiKinds kAscii;

// The blanks of Unicode are blanks; any other unit beyond ASCII belongs to a
// word (a letter, a UTF-8 sequence, a letter of an 8-bit page).
inline Kind KindOf(unsigned u, bool wide) {
  if (u < 0x80)
    return kAscii.m_kinds[u];
  if (wide && (u == 0xA0 || u == 0x1680 || (u >= 0x2000 && u <= 0x200A) || u == 0x202F || u == 0x205F ||
               u == 0x3000))
    return Kind::Space;
  return Kind::Word;
}

inline unsigned Fold(unsigned u, bool wide) {
  if (u < 0x80)
    return u >= 'A' && u <= 'Z' ? u + ('a' - 'A') : u;
  return wide ? static_cast<unsigned>(static_cast<uint16_t>(VnToLower(static_cast<WCHAR>(u)))) : u;
}

// A unit that continues the character before it: the low half of a
// surrogate pair, a UTF-8 continuation byte.
inline bool Continues(unsigned u, bool wide) { return wide ? (u >= 0xDC00 && u <= 0xDFFF) : (u & 0xC0) == 0x80; }

// A token's hash is of its units lower-cased: what likeness needs, and a
// filter that letter case then decides on, unit by unit.
struct Token {
  uint32_t m_nBegin;
  uint32_t m_nLength;
  uint32_t m_nHash;
  bool m_bSpace;
};

//===-- 2-4. The marker ----------------------------------------------------===//

template <typename U>
class Marker {
public:
  Marker(bool wide, const CVnWordOptions& options) : m_bWide(wide), m_options(options) {}

  double Likeness(CVnLineUnits a, CVnLineUnits b);
  void Pairs(const CVnLineUnits* s, long m, const CVnLineUnits* t, long n, std::vector<CVnLinePair>& out);
  // Marks a pair into m_marks.  With judge, false (and no marks) when the
  // lines are too unlike to pair.
  bool MarkPair(CVnLineUnits a, CVnLineUnits b, bool judge);
  // The rows of one block; marks go to the stores by the files' lines.
  void Block(const CVnLineUnits* s, long m, long sBegin, const CVnLineUnits* t, long n, long tBegin,
             std::vector<CVnAlignedRow>& rows, CVnMarkStore& sourceMarks, CVnMarkStore& targetMarks);

  std::vector<CVnUnitRange> m_marks[2];

private:
  bool Same(unsigned u, unsigned v) const { return u == v || (m_options.m_bIgnoreCase && Fold(u, m_bWide) == Fold(v, m_bWide)); }
  bool InRun(const U* s, size_t n, size_t at) const;
  size_t NonBlank(const U* s, size_t begin, size_t end) const;
  uint32_t Cut(const U* s, size_t begin, size_t end, VnMarkUnit unit, std::vector<Token>& out) const;
  uint32_t Signature(CVnLineUnits line);
  double Likeness(size_t a0, size_t a1, uint32_t aUnits, size_t b0, size_t b1, uint32_t bUnits) const;
  uint32_t Common(size_t a0, size_t a1, size_t b0, size_t b1) const;
  double MiddleLikeness(uint32_t shared, uint32_t middleA, uint32_t middleB);
  void PairPiece(long s0, long s1, long t0, long t1, std::vector<CVnLinePair>& out);
  long InOrder(const CVnLineUnits* s, const CVnLineUnits* t, long m);
  bool SameToken(const U* a, const Token& x, const U* b, const Token& y) const;
  bool EditScript(const U* a, const U* b);
  void Ranges(const U* s, const std::vector<Token>& tokens, const std::vector<char>& flags,
              std::vector<CVnUnitRange>& out) const;

  bool m_bWide;
  CVnWordOptions m_options;
  std::vector<Token> m_tokens[2];
  std::vector<char> m_flags[2];
  std::vector<long> m_v, m_trace;
  std::vector<uint64_t> m_keys;        // signatures, one run of keys a line
  std::vector<size_t> m_keyStart;      // where each line's run starts; one more at the end
  std::vector<uint32_t> m_units;       // non-blank units of each line
  std::vector<long> m_best;
  std::vector<unsigned char> m_step;
  size_t m_nSources = 0;
  std::vector<CVnLinePair> m_pairs, m_found;
  std::vector<CVnUnitRange> m_blockRanges;
  std::vector<size_t> m_blockCounts;
};

// Whether the units before and at `at` belong to one run (of a word or of
// white space), or, by characters, `at` continues the character before.
template <typename U>
bool Marker<U>::InRun(const U* s, size_t n, size_t at) const {
  if (at == 0 || at >= n)
    return false;
  if (m_options.m_nUnit == VnMarkUnit::Characters)
    return Continues(s[at], m_bWide);
  const Kind k = KindOf(s[at], m_bWide);
  return k != Kind::Other && k == KindOf(s[at - 1], m_bWide);
}

template <typename U>
size_t Marker<U>::NonBlank(const U* s, size_t begin, size_t end) const {
  size_t count = 0;
  for (size_t i = begin; i < end; ++i)
    count += KindOf(s[i], m_bWide) != Kind::Space;
  return count;
}

// Cuts s[begin, end) into tokens (out is cleared); gives the non-blank units.
template <typename U>
uint32_t Marker<U>::Cut(const U* s, size_t begin, size_t end, VnMarkUnit unit, std::vector<Token>& out) const {
  out.clear();
  uint32_t nonBlank = 0;
  const bool runs = unit == VnMarkUnit::Words;
  for (size_t i = begin; i < end;) {
    const size_t start = i;
    const Kind kind = KindOf(s[i], m_bWide);
    uint32_t hash = Fold(s[i], m_bWide);
    if (runs && kind != Kind::Other) {
      for (++i; i < end && KindOf(s[i], m_bWide) == kind; ++i)
        hash = hash * 31 + Fold(s[i], m_bWide);
    } else {
      for (++i; !runs && i < end && Continues(s[i], m_bWide); ++i)
        hash = hash * 31 + s[i];
    }
    out.push_back({static_cast<uint32_t>(start), static_cast<uint32_t>(i - start), hash * 2654435761u,
                   kind == Kind::Space});
    if (kind != Kind::Space)
      nonBlank += static_cast<uint32_t>(i - start);
  }
  return nonBlank;
}

//===-- 2. Pairing ---------------------------------------------------------===//

// Appends the line's keys (hash and length of each non-blank token, letter
// case aside), sorted; gives its non-blank units.
template <typename U>
uint32_t Marker<U>::Signature(CVnLineUnits line) {
  const size_t first = m_keys.size();
  Cut(static_cast<const U*>(line.m_pUnits), 0, line.m_nCount, VnMarkUnit::Words, m_tokens[0]);
  uint32_t units = 0;
  for (const Token& t : m_tokens[0]) {
    if (t.m_bSpace)
      continue;
    m_keys.push_back(static_cast<uint64_t>(t.m_nHash) << 32 | t.m_nLength);
    units += t.m_nLength;
  }
  std::sort(m_keys.begin() + static_cast<long>(first), m_keys.end());
  return units;
}

// Units in tokens both runs of keys have, each token counted as often as
// the poorer run has it.
template <typename U>
uint32_t Marker<U>::Common(size_t a0, size_t a1, size_t b0, size_t b1) const {
  uint32_t common = 0;
  for (size_t i = a0, j = b0; i < a1 && j < b1;) {
    if (m_keys[i] == m_keys[j]) {
      common += static_cast<uint32_t>(m_keys[i] & 0xFFFFFFFFu);
      ++i, ++j;
    } else if (m_keys[i] < m_keys[j]) {
      ++i;
    } else {
      ++j;
    }
  }
  return common;
}

template <typename U>
double Marker<U>::Likeness(size_t a0, size_t a1, uint32_t aUnits, size_t b0, size_t b1, uint32_t bUnits) const {
  const uint32_t total = aUnits + bUnits;
  if (total == 0)
    return 1.0;
  // Even a perfect overlap of the shorter line can't reach the threshold.
  if (2.0 * std::min(aUnits, bUnits) < kMinLikeness * total)
    return 0.0;
  return 2.0 * Common(a0, a1, b0, b1) / total;
}

template <typename U>
double Marker<U>::Likeness(CVnLineUnits a, CVnLineUnits b) {
  m_keys.clear();
  const uint32_t aUnits = Signature(a);
  const size_t middle = m_keys.size();
  const uint32_t bUnits = Signature(b);
  return Likeness(0, middle, aUnits, middle, m_keys.size(), bUnits);
}

// The likeness of two lines that share `shared` non-blank units in head
// and tail, from the middles' tokens in m_tokens.
template <typename U>
double Marker<U>::MiddleLikeness(uint32_t shared, uint32_t middleA, uint32_t middleB) {
  const uint32_t total = 2 * shared + middleA + middleB;
  if (total == 0)
    return 1.0;
  if (2.0 * (shared + std::min(middleA, middleB)) < kMinLikeness * total)
    return 0.0;
  m_keys.clear();
  for (const Token& t : m_tokens[0])
    if (!t.m_bSpace)
      m_keys.push_back(static_cast<uint64_t>(t.m_nHash) << 32 | t.m_nLength);
  const size_t split = m_keys.size();
  for (const Token& t : m_tokens[1])
    if (!t.m_bSpace)
      m_keys.push_back(static_cast<uint64_t>(t.m_nHash) << 32 | t.m_nLength);
  std::sort(m_keys.begin(), m_keys.begin() + static_cast<long>(split));
  std::sort(m_keys.begin() + static_cast<long>(split), m_keys.end());
  return 2.0 * (shared + Common(0, split, split, m_keys.size())) / total;
}

// An order-keeping alignment of source lines [s0, s1) with target lines
// [t0, t1) (signatures: source line i is run i, target line j run
// m_nSources + j) that maximises the
// summed likeness of its pairs, in thousandths.
template <typename U>
void Marker<U>::PairPiece(long s0, long s1, long t0, long t1, std::vector<CVnLinePair>& out) {
  const long m = s1 - s0, n = t1 - t0, width = n + 1;
  m_best.assign(static_cast<size_t>((m + 1) * width), 0);
  m_step.assign(m_best.size(), 0);  // 0 skip a source line, 1 skip a target line, 2 pair
  for (long i = 1; i <= m; ++i) {
    const size_t a = static_cast<size_t>(s0 + i - 1);
    for (long j = 1; j <= n; ++j) {
      const size_t b = m_nSources + static_cast<size_t>(t0 + j - 1);
      const size_t at = static_cast<size_t>(i * width + j);
      long value = m_best[at - static_cast<size_t>(width)];
      unsigned char how = 0;
      if (m_best[at - 1] > value)
        value = m_best[at - 1], how = 1;
      const double like = Likeness(m_keyStart[a], m_keyStart[a + 1], m_units[a], m_keyStart[b], m_keyStart[b + 1],
                                   m_units[b]);
      if (like >= kMinLikeness) {
        const long paired = m_best[at - static_cast<size_t>(width) - 1] + static_cast<long>(like * 1000.0 + 0.5);
        if (paired > value)  // on a tie the earlier pair stays: rows keep their places
          value = paired, how = 2;
      }
      m_best[at] = value;
      m_step[at] = how;
    }
  }
  m_found.clear();
  for (long i = m, j = n; i > 0 && j > 0;) {
    const unsigned char how = m_step[static_cast<size_t>(i * width + j)];
    if (how == 2)
      m_found.push_back({s0 + i - 1, t0 + j - 1});
    if (how != 1)
      --i;
    if (how != 0)
      --j;
  }
  out.insert(out.end(), m_found.rbegin(), m_found.rend());
}

// Pieces of at most kChunkLines a side, cut in proportion, so that a long
// block costs its length times kChunkLines comparisons of signatures.
template <typename U>
void Marker<U>::Pairs(const CVnLineUnits* s, long m, const CVnLineUnits* t, long n, std::vector<CVnLinePair>& out) {
  out.clear();
  if (m == 0 || n == 0)
    return;
  m_keys.clear();
  m_keyStart.clear();
  m_units.clear();
  for (long k = 0; k < m + n; ++k) {
    m_keyStart.push_back(m_keys.size());
    m_units.push_back(Signature(k < m ? s[k] : t[k - m]));
  }
  m_keyStart.push_back(m_keys.size());
  m_nSources = static_cast<size_t>(m);
  const long pieces = (std::max(m, n) + kChunkLines - 1) / kChunkLines;
  for (long p = 0; p < pieces; ++p)
    PairPiece(m * p / pieces, m * (p + 1) / pieces, n * p / pieces, n * (p + 1) / pieces, out);
}

//===-- 3. Marking ---------------------------------------------------------===//

template <typename U>
bool Marker<U>::SameToken(const U* a, const Token& x, const U* b, const Token& y) const {
  if (x.m_nLength != y.m_nLength || x.m_nHash != y.m_nHash)
    return false;
  for (uint32_t k = 0; k < x.m_nLength; ++k)
    if (!Same(a[x.m_nBegin + k], b[y.m_nBegin + k]))
      return false;
  return true;
}

// Myers' greedy search for the shortest edit script between the token
// lists; sets the flags of the tokens it deletes or inserts.  False, with no
// flag set, when the script needs more than kMaxEdits steps.
template <typename U>
bool Marker<U>::EditScript(const U* a, const U* b) {
  const std::vector<Token>&ta = m_tokens[0], &tb = m_tokens[1];
  const long n = static_cast<long>(ta.size()), m = static_cast<long>(tb.size());
  const long most = std::min<long>(n + m, kMaxEdits), offset = most + 1;
  m_v.assign(static_cast<size_t>(2 * most + 3), 0);
  m_trace.clear();  // the frontier after step d: k = -d..d, from d * d on
  long d = 0;
  for (bool done = false; !done; ++d) {
    if (d > most)
      return false;
    for (long k = -d; k <= d; k += 2) {
      long x = (k == -d || (k != d && m_v[offset + k - 1] < m_v[offset + k + 1])) ? m_v[offset + k + 1]
                                                                                   : m_v[offset + k - 1] + 1;
      long y = x - k;
      while (x < n && y < m && SameToken(a, ta[static_cast<size_t>(x)], b, tb[static_cast<size_t>(y)]))
        ++x, ++y;
      m_v[offset + k] = x;
      if (x >= n && y >= m)
        done = true;
    }
    m_trace.insert(m_trace.end(), m_v.begin() + (offset - d), m_v.begin() + (offset + d + 1));
  }
  // Back from the end, one step a turn: the frontier before step s says
  // whether the step came down (an insertion) or across (a deletion).
  long x = n, y = m;
  for (long s = d - 1; s > 0; --s) {
    const long* before = &m_trace[static_cast<size_t>((s - 1) * (s - 1))] + (s - 1);  // indexed by k
    const long k = x - y;
    const bool down = k == -s || (k != s && before[k - 1] < before[k + 1]);
    const long pk = down ? k + 1 : k - 1;
    const long px = before[pk], py = px - pk;
    if (down)
      m_flags[1][static_cast<size_t>(py)] = 1;
    else
      m_flags[0][static_cast<size_t>(px)] = 1;
    x = px, y = py;
  }
  return true;
}

// Runs of flagged tokens as unit ranges; ranges with only blanks between
// them join.
template <typename U>
void Marker<U>::Ranges(const U* s, const std::vector<Token>& tokens, const std::vector<char>& flags,
                       std::vector<CVnUnitRange>& out) const {
  out.clear();
  for (size_t i = 0; i < flags.size(); ++i) {
    if (!flags[i])
      continue;
    const CVnUnitRange r = {tokens[i].m_nBegin, static_cast<size_t>(tokens[i].m_nBegin) + tokens[i].m_nLength};
    if (!out.empty()) {
      size_t gap = out.back().m_nEnd;
      while (gap < r.m_nBegin && KindOf(s[gap], m_bWide) == Kind::Space)
        ++gap;
      if (gap == r.m_nBegin) {
        out.back().m_nEnd = r.m_nEnd;
        continue;
      }
    }
    out.push_back(r);
  }
}

// The head and tail the two lines share, unit by unit, end on token
// boundaries of both lines; only the middles are cut and compared.  Cut at
// word boundaries, the lines' tokens are the head's, the middle's and the
// tail's, and what they have in common is the head, the tail and what the
// middles have in common: the likeness needs the middles only.  Cut by
// characters, the signatures of the whole lines decide.
template <typename U>
bool Marker<U>::MarkPair(CVnLineUnits la, CVnLineUnits lb, bool judge) {
  const U *a = static_cast<const U*>(la.m_pUnits), *b = static_cast<const U*>(lb.m_pUnits);
  const size_t na = la.m_nCount, nb = lb.m_nCount, shorter = std::min(na, nb);
  size_t head = 0, tail = 0;
  while (head < shorter && Same(a[head], b[head]))
    ++head;
  while (head > 0 && (InRun(a, na, head) || InRun(b, nb, head)))
    --head;
  while (tail < shorter - head && Same(a[na - 1 - tail], b[nb - 1 - tail]))
    ++tail;
  while (tail > 0 && (InRun(a, na, na - tail) || InRun(b, nb, nb - tail)))
    --tail;

  const uint32_t middleA = Cut(a, head, na - tail, m_options.m_nUnit, m_tokens[0]);
  const uint32_t middleB = Cut(b, head, nb - tail, m_options.m_nUnit, m_tokens[1]);
  if (judge) {
    const uint32_t shared = static_cast<uint32_t>(NonBlank(a, 0, head) + NonBlank(a, na - tail, na));
    const double like = m_options.m_nUnit == VnMarkUnit::Words ? MiddleLikeness(shared, middleA, middleB)
                                                               : Likeness(la, lb);
    if (like < kMinLikeness)
      return false;
  }
  if (m_options.m_bIgnoreWhitespace)
    for (std::vector<Token>& tokens : m_tokens)
      tokens.erase(std::remove_if(tokens.begin(), tokens.end(), [](const Token& t) { return t.m_bSpace; }),
                   tokens.end());
  for (int side = 0; side < 2; ++side)
    m_flags[side].assign(m_tokens[side].size(), 0);
  if (!EditScript(a, b))
    for (std::vector<char>& flags : m_flags)
      std::fill(flags.begin(), flags.end(), 1);
  Ranges(a, m_tokens[0], m_flags[0], m_marks[0]);
  Ranges(b, m_tokens[1], m_flags[1], m_marks[1]);
  return true;
}

//===-- 4. Rows ------------------------------------------------------------===//

void MarkWhole(CVnMarkStore& store, long line, CVnLineUnits units, std::vector<CVnUnitRange>& scratch) {
  scratch.clear();
  if (units.m_nCount)
    scratch.push_back({0, units.m_nCount});
  store.Add(line, scratch);
}

// How many of the m lines of both sides are like their counterparts; the
// marks of every line (whole for a line unlike its counterpart) are kept in
// m_blockRanges, source and target by turns.
template <typename U>
long Marker<U>::InOrder(const CVnLineUnits* s, const CVnLineUnits* t, long m) {
  m_blockRanges.clear();
  m_blockCounts.clear();
  long alike = 0;
  for (long k = 0; k < m; ++k) {
    if (MarkPair(s[k], t[k], true)) {
      ++alike;
    } else {
      for (int side = 0; side < 2; ++side) {
        const CVnLineUnits& line = side ? t[k] : s[k];
        m_marks[side].clear();
        if (line.m_nCount)
          m_marks[side].push_back({0, line.m_nCount});
      }
    }
    for (const std::vector<CVnUnitRange>& marks : m_marks) {
      m_blockRanges.insert(m_blockRanges.end(), marks.begin(), marks.end());
      m_blockCounts.push_back(marks.size());
    }
  }
  return alike;
}

// A block of as many lines on each side, at least half of them like their
// counterparts, is taken in order: the pairs stand level, the other lines
// face each other, marked whole.  Any other block is paired first; between
// one pair and the next (or the block's end) the unpaired lines face each
// other while both sides have one, and the rest face a gap.
template <typename U>
void Marker<U>::Block(const CVnLineUnits* s, long m, long sBegin, const CVnLineUnits* t, long n, long tBegin,
                      std::vector<CVnAlignedRow>& rows, CVnMarkStore& sourceMarks, CVnMarkStore& targetMarks) {
  if (m == n && 2 * InOrder(s, t, m) >= m) {
    for (long k = 0; k < m; ++k)
      rows.push_back({sBegin + k, tBegin + k, VnRowKind::Changed});
    for (long k = 0, at = 0; k < 2 * m; ++k) {
      CVnMarkStore& store = k % 2 ? targetMarks : sourceMarks;
      store.Add((k % 2 ? tBegin : sBegin) + k / 2, m_blockRanges.data() + at, m_blockCounts[static_cast<size_t>(k)]);
      at += static_cast<long>(m_blockCounts[static_cast<size_t>(k)]);
    }
    return;
  }
  Pairs(s, m, t, n, m_pairs);
  m_pairs.push_back({m, n});  // the end, paired with nothing
  long i = 0, j = 0;
  for (const CVnLinePair& pair : m_pairs) {
    for (; i < pair.m_nSource && j < pair.m_nTarget; ++i, ++j) {
      rows.push_back({sBegin + i, tBegin + j, VnRowKind::Changed});
      MarkWhole(sourceMarks, sBegin + i, s[i], m_marks[0]);
      MarkWhole(targetMarks, tBegin + j, t[j], m_marks[1]);
    }
    for (; i < pair.m_nSource; ++i)
      rows.push_back({sBegin + i, -1, VnRowKind::Deleted});
    for (; j < pair.m_nTarget; ++j)
      rows.push_back({-1, tBegin + j, VnRowKind::Inserted});
    if (i == m)
      break;
    rows.push_back({sBegin + i, tBegin + j, VnRowKind::Changed});
    MarkPair(s[i], t[j], false);
    sourceMarks.Add(sBegin + i, m_marks[0]);
    targetMarks.Add(tBegin + j, m_marks[1]);
    ++i, ++j;
  }
}

CVnLineUnits UnitsOf(const CVnComparedFile& file, long line) {
  CVnLineUnits units = {nullptr, 0};
  units.m_pUnits = file.GetLineText(line, units.m_nCount);
  return units;
}

// The block's lines of both files, source first.
void GatherLines(const CVnComparedFile& source, const CVnComparedFile& target, const CVnChangeSpan& block,
                 std::vector<CVnLineUnits>& lines) {
  lines.clear();
  for (long i = 0; i < block.m_nSourceCount; ++i)
    lines.push_back(UnitsOf(source, block.m_nSourceBegin + i));
  for (long j = 0; j < block.m_nTargetCount; ++j)
    lines.push_back(UnitsOf(target, block.m_nTargetBegin + j));
}

template <typename U>
void AllRows(const CVnComparison& comparison, const CVnWordOptions& options, std::vector<CVnAlignedRow>& rows,
             CVnMarkStore marks[2]) {
  const CVnComparedFile& source = comparison.GetFile(CVnComparison::Source);
  const CVnComparedFile& target = comparison.GetFile(CVnComparison::Target);
  Marker<U> marker(source.IsWide(), options);
  std::vector<CVnLineUnits> lines;
  const long n0 = source.GetLineCount(), n1 = target.GetLineCount();
  rows.reserve(static_cast<size_t>(std::max(n0, n1)));
  long s = 0, t = 0;
  for (const CVnChangeSpan& span : comparison.GetSpans(true)) {
    for (; s < span.m_nSourceBegin; ++s, ++t)
      rows.push_back({s, t, VnRowKind::Same});
    if (span.m_nSourceCount && span.m_nTargetCount) {
      GatherLines(source, target, span, lines);
      marker.Block(lines.data(), span.m_nSourceCount, span.m_nSourceBegin, lines.data() + span.m_nSourceCount,
                   span.m_nTargetCount, span.m_nTargetBegin, rows, marks[0], marks[1]);
    } else {
      for (long k = 0; k < span.m_nSourceCount; ++k)
        rows.push_back({span.m_nSourceBegin + k, -1, VnRowKind::Deleted});
      for (long k = 0; k < span.m_nTargetCount; ++k)
        rows.push_back({-1, span.m_nTargetBegin + k, VnRowKind::Inserted});
    }
    s = span.m_nSourceBegin + span.m_nSourceCount;
    t = span.m_nTargetBegin + span.m_nTargetCount;
  }
  for (; s < n0 && t < n1; ++s, ++t)
    rows.push_back({s, t, VnRowKind::Same});
}

template <typename U>
void MarkOne(CVnLineUnits a, CVnLineUnits b, bool wide, const CVnWordOptions& options,
             std::vector<CVnUnitRange>& inA, std::vector<CVnUnitRange>& inB) {
  Marker<U> marker(wide, options);
  marker.MarkPair(a, b, false);
  inA = marker.m_marks[0];
  inB = marker.m_marks[1];
}

template <typename U>
std::vector<CVnMarkedRow> BlockRows(const CVnComparedFile& source, const CVnComparedFile& target,
                                    const CVnChangeSpan& block, const CVnWordOptions& options) {
  std::vector<CVnLineUnits> lines;
  GatherLines(source, target, block, lines);
  std::vector<CVnAlignedRow> rows;
  CVnMarkStore marks[2];
  Marker<U>(source.IsWide(), options)
      .Block(lines.data(), block.m_nSourceCount, block.m_nSourceBegin, lines.data() + block.m_nSourceCount,
             block.m_nTargetCount, block.m_nTargetBegin, rows, marks[0], marks[1]);
  std::vector<CVnMarkedRow> out;
  for (const CVnAlignedRow& row : rows) {
    const CVnMarks s = marks[0].Find(row.m_nSource), t = marks[1].Find(row.m_nTarget);
    out.push_back({row, {s.begin(), s.end()}, {t.begin(), t.end()}});
  }
  return out;
}

}  // namespace

//===-- The interface ------------------------------------------------------===//

double VnLineLikeness(CVnLineUnits a, CVnLineUnits b, bool wide) {
  const CVnWordOptions options;
  return wide ? Marker<WCHAR>(true, options).Likeness(a, b) : Marker<unsigned char>(false, options).Likeness(a, b);
}

std::vector<CVnLinePair> VnPairLines(const std::vector<CVnLineUnits>& source, const std::vector<CVnLineUnits>& target,
                                     bool wide) {
  std::vector<CVnLinePair> pairs;
  const long m = static_cast<long>(source.size()), n = static_cast<long>(target.size());
  const CVnWordOptions options;
  if (wide)
    Marker<WCHAR>(true, options).Pairs(source.data(), m, target.data(), n, pairs);
  else
    Marker<unsigned char>(false, options).Pairs(source.data(), m, target.data(), n, pairs);
  return pairs;
}

void VnMarkChangedUnits(CVnLineUnits a, CVnLineUnits b, bool wide, const CVnWordOptions& options,
                        std::vector<CVnUnitRange>& inA, std::vector<CVnUnitRange>& inB) {
  if (wide)
    MarkOne<WCHAR>(a, b, wide, options, inA, inB);
  else
    MarkOne<unsigned char>(a, b, wide, options, inA, inB);
}

std::vector<CVnMarkedRow> VnBlockRows(const CVnComparedFile& source, const CVnComparedFile& target,
                                      const CVnChangeSpan& block, const CVnWordOptions& options) {
  assert(source.IsWide() == target.IsWide() && "both sides of one unit width");
  return source.IsWide() ? BlockRows<WCHAR>(source, target, block, options)
                         : BlockRows<unsigned char>(source, target, block, options);
}

//===-- A whole comparison -------------------------------------------------===//

// Records that touch form one block: a deletion beside a changed line may
// hold that line's partner.  Binary sides are lines of bytes with no words
// in them: their blocks keep the comparison's own rows and get no marks.
CVnChangedWords::CVnChangedWords(const CVnComparison& comparison, VnMarkUnit unit) {
  const CVnComparedFile& source = comparison.GetFile(CVnComparison::Source);
  if (source.GetFacts().m_nFileType == CVnDiffFile::TypeBinary ||
      comparison.GetFile(CVnComparison::Target).GetFacts().m_nFileType == CVnDiffFile::TypeBinary) {
    m_rows = comparison.GetRows();
    return;
  }
  CVnWordOptions options;
  options.m_nUnit = unit;
  options.m_bIgnoreCase = comparison.GetOptions().m_bIgnoreCase;
  options.m_bIgnoreWhitespace = comparison.GetOptions().m_bIgnoreWhitespace;
  if (source.IsWide())
    AllRows<WCHAR>(comparison, options, m_rows, m_marks);
  else
    AllRows<unsigned char>(comparison, options, m_rows, m_marks);
}

//===-- The store of marks -------------------------------------------------===//

// An empty list of ranges is not kept: a line without an entry has none.
void CVnMarkStore::Add(long line, const CVnUnitRange* ranges, size_t count) {
  if (count == 0)
    return;
  assert((m_entries.empty() || m_entries.back().m_nLine < line) && "lines in order");
  m_entries.push_back({line, m_ranges.size(), count});
  m_ranges.insert(m_ranges.end(), ranges, ranges + count);
}

CVnMarks CVnMarkStore::Find(long line) const {
  auto at = std::lower_bound(m_entries.begin(), m_entries.end(), line,
                             [](const Entry& e, long l) { return e.m_nLine < l; });
  if (at == m_entries.end() || at->m_nLine != line)
    return CVnMarks();
  const CVnUnitRange* first = m_ranges.data() + at->m_nFirst;
  return {first, first + at->m_nCount};
}
