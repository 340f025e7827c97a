// VnComparison.cpp - the comparison of two files, from paths to rows.
//
// 1. Open reads each side: through the intake, or as raw bytes.
// 2. Compare makes both sides one unit width (a binary side makes the other
//    side raw bytes too), runs the engine's Compare, and, when asked for
//    exact line ends, adds the records for lines that differ only there.
// 3. GetSpans and GetRows place the records on both sides.
#include "compare/VnComparison.h"

#include "compare/VnFormDifference.h"
#include "compare/VnLineEndChanges.h"

#include "intake/VnFile.h"

#include <cassert>
#include <cstring>
#include <memory>

CVnComparison::CVnComparison(const CVnCompareOptions& options) : m_options(options) {}

CVnComparison::~CVnComparison() = default;

bool CVnComparison::Open(Side side, const CString& path) {
  if (m_options.m_bRaw) {
    m_files[side].ReadRaw(path);
    return true;
  }
  return m_files[side].Read(path, side == Source ? m_options.m_nSourceCodePage : m_options.m_nTargetCodePage,
                            m_options.m_bEncodingByContent);
}

// A comparison needs one unit width on both sides: next to a binary file,
// text is compared as its bytes.
void CVnComparison::MatchWidths() {
  if (m_files[Source].IsWide() == m_files[Target].IsWide())
    return;
  for (CVnComparedFile& file : m_files)
    if (file.IsWide())
      file.ReadRaw(file.GetPath());
}

void CVnComparison::Compare() {
  assert(!m_bCompared && "a comparison runs once");
  m_bCompared = true;
  MatchWidths();
  CVnComparedFile& source = m_files[Source];
  CVnComparedFile& target = m_files[Target];
  source.GetLines().Compare(m_options.m_bIgnoreWhitespace, m_options.m_bIgnoreCase, m_options.m_bIgnoreLineEnds,
                            target.GetLines(), m_changes);
  if (!m_options.m_bExactLineEnds || m_options.m_bIgnoreLineEnds)
    return;
  if (source.IsWide())
    VnAddLineEndChanges(source, target, m_changes);
  else
    VnAddFinalNewlineChange(source, target, m_changes);
}

std::vector<CVnChangeSpan> CVnComparison::GetSpans(bool join) const { return VnChangeSpans(m_changes, join); }

// Unchanged lines stand level; in a span the lines both sides have pair off
// as changed, and the rest face a gap.
std::vector<CVnAlignedRow> CVnComparison::GetRows() const {
  std::vector<CVnAlignedRow> rows;
  const long n0 = m_files[Source].GetLineCount(), n1 = m_files[Target].GetLineCount();
  rows.reserve(static_cast<size_t>(n0 > n1 ? n0 : n1));
  long s = 0, t = 0;  // the next line of each side
  for (const CVnChangeSpan& span : GetSpans(false)) {
    for (; s < span.m_nSourceBegin; ++s, ++t)
      rows.push_back({s, t, VnRowKind::Same});
    const long paired = span.m_nSourceCount < span.m_nTargetCount ? span.m_nSourceCount : span.m_nTargetCount;
    for (long k = 0; k < paired; ++k, ++s, ++t)
      rows.push_back({s, t, VnRowKind::Changed});
    for (; s < span.m_nSourceBegin + span.m_nSourceCount; ++s)
      rows.push_back({s, -1, VnRowKind::Deleted});
    for (; t < span.m_nTargetBegin + span.m_nTargetCount; ++t)
      rows.push_back({-1, t, VnRowKind::Inserted});
  }
  for (; s < n0 && t < n1; ++s, ++t)
    rows.push_back({s, t, VnRowKind::Same});
  return rows;
}

// One span of a record, its empty side placed by `offset`: target position
// minus source position between records.
static bool SpanOf(const CVnDiffChange& c, long offset, CVnChangeSpan& s) {
  s = {0, 0, 0, 0};
  switch (c.GetAction()) {
  case CVnDiffChange::Insert:
    s.m_nTargetBegin = c.StartTarget() - 1;
    s.m_nTargetCount = c.TargetChangeLen();
    s.m_nSourceBegin = s.m_nTargetBegin - offset;
    return true;
  case CVnDiffChange::Delete:
    s.m_nSourceBegin = c.StartSource() - 1;
    s.m_nSourceCount = c.SourceChangeLen();
    s.m_nTargetBegin = s.m_nSourceBegin + offset;
    return true;
  case CVnDiffChange::Change:
    s.m_nSourceBegin = c.StartSource() - 1;
    s.m_nSourceCount = c.SourceChangeLen();
    s.m_nTargetBegin = c.StartTarget() - 1;
    s.m_nTargetCount = c.TargetChangeLen();
    return true;
  default:
    return false;
  }
}

std::vector<CVnChangeSpan> VnChangeSpans(const CVnDiffChangeList& changes, bool join) {
  std::vector<CVnChangeSpan> spans;
  long offset = 0;
  for (INT_PTR k = 0; k < changes.GetSize(); ++k) {
    CVnChangeSpan s;
    if (!SpanOf(*changes[k], offset, s))
      continue;
    offset += s.m_nTargetCount - s.m_nSourceCount;
    CVnChangeSpan* last = spans.empty() ? nullptr : &spans.back();
    if (join && last && last->m_nSourceBegin + last->m_nSourceCount == s.m_nSourceBegin &&
        last->m_nTargetBegin + last->m_nTargetCount == s.m_nTargetBegin) {
      last->m_nSourceCount += s.m_nSourceCount;
      last->m_nTargetCount += s.m_nTargetCount;
      continue;
    }
    spans.push_back(s);
  }
  return spans;
}

CString VnWhyNotComparable(const CString& path) {
  CVnFile::FileStatus status;
  if (!CVnFile::GetStatus(path, status, false))
    return CString();
  if (status.m_attribute & FILE_ATTRIBUTE_DIRECTORY)
    return _T("is a directory");
  if (status.m_sizeHigh != 0)
    return VnTooLargeText();
  return CString();
}

CString VnTooLargeText() { return _T("file of 4 GiB or more; files below 4 GiB only are compared"); }

bool CVnComparison::Differs() const {
  if (!IsSame())
    return true;
  for (const CVnFormDifference& d : VnFormDifferences(m_files[Source].GetFacts(), m_files[Target].GetFacts()))
    if (VnFormDifferenceCounts(d.m_nKind, m_options))
      return true;
  return false;
}

bool VnSameBytes(const CString& a, const CString& b) {
  CVnFile fa(a, CFile::modeRead), fb(b, CFile::modeRead);
  if (fa.GetLength() != fb.GetLength())
    return false;
  const unsigned long kChunk = 1 << 16;
  std::unique_ptr<unsigned char[]> ba(new unsigned char[kChunk]), bb(new unsigned char[kChunk]);
  for (;;) {
    const unsigned long na = fa.ReadRaw(ba.get(), kChunk), nb = fb.ReadRaw(bb.get(), kChunk);
    if (na != nb || memcmp(ba.get(), bb.get(), na) != 0)
      return false;
    if (na == 0)
      return true;
  }
}

CString VnLineText(const CVnDiffArg& lines, long line) {
  CString text = lines.GetLine(static_cast<int>(line));
  const int length = text.GetLength();
  if (length && text[length - 1] == L'\r')
    text = text.Left(length - 1);
  return text;
}
