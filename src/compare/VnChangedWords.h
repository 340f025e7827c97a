// VnChangedWords.h - the words that changed within replaced lines.
//
// A replaced block (changed lines on both sides; records that touch make
// one block) says only that m lines became n lines.  A reader wants to see which lines became which, and what
// changed inside them:
//
// 1. Pairing.  Each line is cut into tokens: a word is a run of letters,
//    digits and underscores (any unit beyond ASCII counts as a letter, so a
//    UTF-8 sequence or an accented word stays whole), a run of white space
//    is one token, any other character a token of its own.  The likeness of
//    two lines is the share of their non-blank units that lie in tokens both
//    have, letter case aside: 2 * common / (units of a + units of b).  Lines
//    at least kMinLikeness alike may pair; an order-keeping alignment picks
//    the pairs of greatest total likeness.  A block of more than kChunkLines
//    lines on a side is aligned in proportional pieces of that size, so the
//    cost grows with the block's length, not its square.
// 2. Marking.  The tokens of the two lines of a pair are compared (the
//    shortest edit script over tokens, after the common head and tail); the
//    tokens the script changes become ranges of units, and two ranges with
//    only white space between them join.  With character granularity every
//    character is a token (a surrogate pair or a UTF-8 sequence is one).
//    A script longer than kMaxEdits marks the whole middle.
// 3. Rows.  A paired line stands level with its partner, on a Changed row.
//    Unpaired lines between two pairs face each other on Changed rows as far
//    as both sides have them, and are marked whole; the rest face a gap
//    (Deleted, Inserted rows).  A block of as many lines on each side, at
//    least half of them like the line at their place on the other side, is
//    taken in order without the alignment: the rows CVnComparison::GetRows
//    gives, like lines marked by words, the others whole.
//
// Ranges are in the line's own units: UTF-16 units for decoded text (what a
// pane holds), bytes for raw text.  Under ignore case, letters that differ
// only in case are not marked; under ignore white space, white space is not.
#ifndef VN_COMPARE_VNCHANGEDWORDS_H
#define VN_COMPARE_VNCHANGEDWORDS_H

#include "compare/VnComparison.h"

#include <vector>

enum class VnMarkUnit : unsigned char { Words, Characters };

struct CVnWordOptions {
  VnMarkUnit m_nUnit = VnMarkUnit::Words;
  bool m_bIgnoreCase = false;
  bool m_bIgnoreWhitespace = false;
};

// Units [m_nBegin, m_nEnd) of a line.
struct CVnUnitRange {
  size_t m_nBegin;
  size_t m_nEnd;
};

// A line's units: WCHAR for wide text, bytes otherwise.
struct CVnLineUnits {
  const void* m_pUnits;
  size_t m_nCount;
};

// Two paired lines, as indexes into the two lists given to VnPairLines.
struct CVnLinePair {
  long m_nSource;
  long m_nTarget;
};

// One row of a block: a line of each side (-1: a gap), the ranges to mark.
struct CVnMarkedRow {
  CVnAlignedRow m_row;
  std::vector<CVnUnitRange> m_source, m_target;
};

const double kMinLikeness = 0.4;
const long kChunkLines = 256;
const long kMaxEdits = 512;

// The likeness of two lines, 0 to 1; two lines without a non-blank unit are
// alike (1), one such line is not like another that has one (0).  Lines too
// unlike in length to reach kMinLikeness are given 0 without a count.
VN_API double VnLineLikeness(CVnLineUnits a, CVnLineUnits b, bool wide);
// The pairs, in order of both sides.
VN_API std::vector<CVnLinePair> VnPairLines(const std::vector<CVnLineUnits>& source,
                                            const std::vector<CVnLineUnits>& target, bool wide);
// The ranges in which a and b differ, in order, in each line's own units.
VN_API void VnMarkChangedUnits(CVnLineUnits a, CVnLineUnits b, bool wide, const CVnWordOptions& options,
                               std::vector<CVnUnitRange>& inA, std::vector<CVnUnitRange>& inB);
// The rows of one block of two sides of equal width (both wide or both
// not); line numbers in the rows are the files' own, 0-based.
VN_API std::vector<CVnMarkedRow> VnBlockRows(const CVnComparedFile& source, const CVnComparedFile& target,
                                             const CVnChangeSpan& block, const CVnWordOptions& options);

// A line's marks, as CVnChangedWords holds them.
struct CVnMarks {
  const CVnUnitRange* m_pBegin = nullptr;
  const CVnUnitRange* m_pEnd = nullptr;
  const CVnUnitRange* begin() const { return m_pBegin; }
  const CVnUnitRange* end() const { return m_pEnd; }
  size_t size() const { return static_cast<size_t>(m_pEnd - m_pBegin); }
  bool empty() const { return m_pBegin == m_pEnd; }
  const CVnUnitRange& operator[](size_t i) const { return m_pBegin[i]; }
};

// The marks of many lines in one array, added in the order of their lines.
class VN_API CVnMarkStore {
public:
  void Add(long line, const CVnUnitRange* ranges, size_t count);
  void Add(long line, const std::vector<CVnUnitRange>& ranges) { Add(line, ranges.data(), ranges.size()); }
  CVnMarks Find(long line) const;

private:
  struct Entry {
    long m_nLine;
    size_t m_nFirst, m_nCount;
  };
  std::vector<Entry> m_entries;
  std::vector<CVnUnitRange> m_ranges;
};

// Every row of a compared comparison, blocks paired and marked, with the
// comparison's own ignore case and ignore white space.
class VN_API CVnChangedWords {
public:
  CVnChangedWords(const CVnComparison& comparison, VnMarkUnit unit = VnMarkUnit::Words);

  const std::vector<CVnAlignedRow>& GetRows() const { return m_rows; }
  // The ranges to mark in a line (0-based) of side: none for a line that
  // is not on a Changed row, or that equals its partner.
  CVnMarks GetMarks(CVnComparison::Side side, long line) const { return m_marks[side].Find(line); }

private:
  std::vector<CVnAlignedRow> m_rows;
  CVnMarkStore m_marks[2];
};

#endif  // VN_COMPARE_VNCHANGEDWORDS_H
