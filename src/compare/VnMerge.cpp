// VnMerge.cpp - three sides in, regions out.
//
// 1. Open reads each side: through the intake, or as raw bytes.
// 2. Merge makes all sides one unit width (a binary or in-memory side makes
//    every side raw bytes), refuses decoded sides it could not write back
//    as they were, compares BASE with each side (or LOCAL with REMOTE),
//    places each changed run canonically (VnCanonicalSpans.h), and walks
//    the spans into regions.
// 3. Resolve records the user's choices; VnMergeText.cpp writes the text.
#include "compare/VnMerge.h"

#include "compare/VnCanonicalSpans.h"
#include "compare/VnLineEndChanges.h"
#include "compare/VnMergeText.h"
#include "compare/VnTextEncoding.h"
#include "intake/VnFile.h"

#include <algorithm>
#include <cassert>
#include <cstring>

CVnMerge::CVnMerge(const CVnMergeOptions& options) : m_options(options) {}

CVnMerge::~CVnMerge() = default;

bool CVnMerge::Open(Side side, const CString& path) {
  m_bOpened[side] = true;
  if (m_options.m_bRaw) {
    m_files[side].ReadRaw(path);
    return true;
  }
  return m_files[side].Read(path, m_options.m_nCodePage, m_options.m_bEncodingByContent);
}

void CVnMerge::OpenBytes(Side side, const std::string& bytes, const CString& name) {
  m_bOpened[side] = true;
  m_files[side].ReadBytes(bytes, name);
}

int CVnMerge::GetConflictCount() const {
  return static_cast<int>(std::count_if(m_regions.begin(), m_regions.end(), [](const CVnMergeRegion& r) {
    return r.m_nKind == VnMergeKind::Conflict && r.m_nChoice == VnMergeChoice::None;
  }));
}

void CVnMerge::Resolve(size_t k, VnMergeChoice choice) {
  if (k >= m_regions.size() || m_regions[k].m_nKind != VnMergeKind::Conflict)
    AfxThrowInvalidArgException();
  m_regions[k].m_nChoice = choice;
}

//===-- Reading the sides alike --------------------------------------------===//

// One unit width for all: next to bytes, text is merged as its bytes too.
// A binary side is read again as well: the intake's copy of its bytes has
// its NUL bytes made spaces and its last byte replaced by a marker.
void CVnMerge::MatchWidths() {
  bool anyNarrow = false;
  for (int s = 0; s < 3; ++s)
    anyNarrow = anyNarrow || (m_bOpened[s] && !m_files[s].IsWide());
  if (!anyNarrow)
    return;
  for (int s = 0; s < 3; ++s) {
    CVnComparedFile& file = m_files[s];
    if (m_bOpened[s] && (file.IsWide() || file.GetFacts().m_nFileType == CVnDiffFile::TypeBinary))
      file.ReadRaw(file.GetPath());
  }
}

namespace {

// Every unit of the decoded text below 0x80.
bool AllAscii(const CVnComparedFile& file) {
  const unsigned char* p = file.GetBuffer();
  const unsigned long n = file.GetBufferSize() & ~1ul;
  for (unsigned long k = 0; k < n; k += 2)
    if (p[k] >= 0x80 || p[k + 1] != 0)
      return false;
  return true;
}

CString NameOf(const CVnComparedFile& file) { return file.GetFacts().m_strDisplayName; }

}  // namespace

unsigned CVnMerge::GetMergedCodePage() const {
  const CVnFileFacts& local = m_files[Local].GetFacts();
  if (!local.m_bAscii)
    return local.m_nCodePage;
  for (Side side : {Remote, Base})
    if (m_bOpened[side] && m_files[side].GetFacts().m_nEncodingSource == VnEncodingSource::Content &&
        !m_files[side].GetFacts().m_bAscii)
      return m_files[side].GetFacts().m_nCodePage;
  return local.m_nCodePage;
}

// The merged text is written in one encoding, so every side must be read
// in it; all-ASCII text reads alike in every ASCII-based page.
CString CVnMerge::WhyNotOneEncoding() const {
  const CVnComparedFile& local = m_files[Local];
  const unsigned page = GetMergedCodePage();
  for (Side side : {Base, Remote}) {
    const CVnComparedFile& file = m_files[side];
    const unsigned other = file.GetFacts().m_nCodePage;
    if (!m_bOpened[side] || other == page || (file.GetFacts().m_bAscii && VnIsAsciiBased(page)))
      continue;
    if (VnIsAsciiBased(page) && VnIsAsciiBased(other) && AllAscii(file))
      continue;
    return NameOf(file) + _T(": ") + file.GetFacts().m_strEncoding + _T(" text, but LOCAL (") + NameOf(local) +
           _T(") is ") + local.GetFacts().m_strEncoding + _T(" text; the merged text takes one encoding");
  }
  return CString();
}

// Decoding loses what the encoding can't express (invalid bytes become
// U+FFFD, a half UTF-16 unit at the end is dropped).  Each side is written
// back as the merge would write it and compared with its file.
CString CVnMerge::WhyNotWrittenBack() const {
  for (int s = 0; s < 3; ++s) {
    const CVnComparedFile& file = m_files[s];
    if (!m_bOpened[s] || file.GetPath().IsEmpty())
      continue;
    const CVnFileFacts& facts = file.GetFacts();
    CVnMergeWriter w(true, facts.m_nCodePage, facts.m_bHasBOM ? VnByteOrderMark(facts.m_nCodePage) : std::string(),
                     VnLineEnd::None, VnLineEnd::LF);
    w.Lines(file, {0, file.GetLineCount()}, false);
    std::string written;
    const bool encoded = w.Finish(written);
    CVnSmartBytePtr bytes;
    CVnFile in(file.GetPath(), CFile::modeRead);
    const unsigned long size = in.ReadAll(bytes);
    in.Close();
    if (!encoded || written.size() != size || (size && memcmp(written.data(), bytes.Get(), size) != 0))
      return NameOf(file) + _T(": holds bytes that are no valid ") + facts.m_strEncoding +
             _T(" text; merged as text they would change");
  }
  return CString();
}

//===-- Regions ------------------------------------------------------------===//

namespace {

bool SameLines(const CVnComparedFile& a, CVnLineRange ra, const CVnComparedFile& b, CVnLineRange rb) {
  if (ra.m_nCount != rb.m_nCount)
    return false;
  for (long k = 0; k < ra.m_nCount; ++k)
    if (!VnSameLine(a, ra.m_nBegin + k, b, rb.m_nBegin + k))
      return false;
  return true;
}

// The spans that lead from source to target.  Raw lines hold no line end,
// so a last line that gained or lost one is added as a change.  Compare
// keeps its hashes in the line records and trusts them when both sets
// hold some, so BASE, compared twice, takes part through a fresh set each
// time: the second comparison then gives what a comparison of its own gives.
std::vector<CVnChangeSpan> SpansBetween(const CVnComparedFile& source, CVnComparedFile& target) {
  CVnDiffArg lines(source.IsWide() ? CVnFileInfo::Text16 : CVnFileInfo::Text8, 10);
  lines.Create(source.GetBuffer(), source.GetBufferSize());
  CVnDiffChangeList changes;
  lines.Compare(0, 0, 0, target.GetLines(), changes);
  if (!source.IsWide())
    VnAddFinalNewlineChange(source, target, changes);
  return VnCanonicalSpans(VnChangeSpans(changes, true), source, target);
}

// Walks one side's spans, which all start at or before the group's end, into a group.
struct SideWalk {
  const std::vector<CVnChangeSpan>& spans;
  size_t next = 0;
  long offset = 0;  // side line minus base line after the spans taken

  bool Starts(long at) const { return next < spans.size() && spans[next].m_nSourceBegin <= at; }
  long NextBegin() const { return next < spans.size() ? spans[next].m_nSourceBegin : -1; }
  // Takes the spans that start at or before end; moves end past them.
  bool Take(long& end) {
    bool took = false;
    for (; Starts(end); ++next, took = true) {
      const CVnChangeSpan& s = spans[next];
      end = std::max(end, s.m_nSourceBegin + s.m_nSourceCount);
      offset += s.m_nTargetCount - s.m_nSourceCount;
    }
    return took;
  }
};

}  // namespace

bool CVnMerge::Merge(CString& why) {
  assert(!m_bMerged && "a merge runs once");
  m_bMerged = true;
  MatchWidths();
  if (m_files[Local].IsWide()) {
    why = WhyNotOneEncoding();
    if (why.IsEmpty())
      why = WhyNotWrittenBack();
    if (!why.IsEmpty())
      return false;
  }
  CVnComparedFile& local = m_files[Local];
  CVnComparedFile& base = m_files[Base];
  CVnComparedFile& remote = m_files[Remote];
  const CVnLineRange none = {0, 0};

  if (!HasBase()) {
    long l = 0, r = 0;
    for (const CVnChangeSpan& s : SpansBetween(local, remote)) {
      if (s.m_nSourceBegin > l)
        m_regions.push_back({VnMergeKind::Unchanged, {l, s.m_nSourceBegin - l}, none, {r, s.m_nTargetBegin - r},
                             VnMergeChoice::None});
      m_regions.push_back({VnMergeKind::Conflict, {s.m_nSourceBegin, s.m_nSourceCount}, none,
                           {s.m_nTargetBegin, s.m_nTargetCount}, VnMergeChoice::None});
      l = s.m_nSourceBegin + s.m_nSourceCount;
      r = s.m_nTargetBegin + s.m_nTargetCount;
    }
    if (l < local.GetLineCount())
      m_regions.push_back({VnMergeKind::Unchanged, {l, local.GetLineCount() - l}, none,
                           {r, remote.GetLineCount() - r}, VnMergeChoice::None});
    return true;
  }

  const std::vector<CVnChangeSpan> toLocal = SpansBetween(base, local), toRemote = SpansBetween(base, remote);
  SideWalk L{toLocal}, R{toRemote};
  long at = 0;  // the first base line in no region yet
  auto unchangedUpTo = [&](long end) {
    if (end > at)
      m_regions.push_back({VnMergeKind::Unchanged, {at + L.offset, end - at}, {at, end - at},
                           {at + R.offset, end - at}, VnMergeChoice::None});
    at = end;
  };
  while (L.NextBegin() >= 0 || R.NextBegin() >= 0) {
    // A group starts at the first span of either side and takes every span
    // that starts at or before its end, until neither side has one.
    const long begin = L.NextBegin() < 0 ? R.NextBegin()
                       : R.NextBegin() < 0 ? L.NextBegin()
                                           : std::min(L.NextBegin(), R.NextBegin());
    unchangedUpTo(begin);
    const long localBegin = begin + L.offset, remoteBegin = begin + R.offset;
    long end = begin;
    bool byLocal = false, byRemote = false;
    for (bool grew = true; grew;) {
      const bool l = L.Take(end), r = R.Take(end);
      byLocal = byLocal || l;
      byRemote = byRemote || r;
      grew = l || r;
    }
    CVnMergeRegion region = {VnMergeKind::Local, {localBegin, end + L.offset - localBegin}, {begin, end - begin},
                             {remoteBegin, end + R.offset - remoteBegin}, VnMergeChoice::None};
    if (byLocal && byRemote)
      region.m_nKind = SameLines(local, region.m_local, remote, region.m_remote) ? VnMergeKind::Both
                                                                                 : VnMergeKind::Conflict;
    else if (byRemote)
      region.m_nKind = VnMergeKind::Remote;
    m_regions.push_back(region);
    at = end;
  }
  unchangedUpTo(base.GetLineCount());
  return true;
}
