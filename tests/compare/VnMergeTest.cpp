// VnMergeTest.cpp - three (or two) texts in, regions, choices and the merged text out.
//
// The merge rules run on texts held in memory (bytes cut at LF); encodings,
// marks and line ends go through files and the intake.
#include "compare/VnMerge.h"

#include "TestSupport.h"
#include "afx/os/OsSeam.h"
#include "intake/IntakeTestFiles.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <random>

namespace {

using vn::test::TempFile;

// Region kinds as one letter each: = unchanged, L, R, B(oth), C(onflict).
std::string KindsOf(const CVnMerge& m) {
  std::string out;
  for (const CVnMergeRegion& r : m.GetRegions())
    out += "=LRBC"[static_cast<int>(r.m_nKind)];
  return out;
}

// A merge of texts in memory; without a base it is two-way.
struct Merged {
  CVnMerge merge;
  Merged(const std::string& local, const std::string* base, const std::string& remote) {
    merge.OpenBytes(CVnMerge::Local, local, _T("L"));
    if (base)
      merge.OpenBytes(CVnMerge::Base, *base, _T("B"));
    merge.OpenBytes(CVnMerge::Remote, remote, _T("R"));
    CString why;
    EXPECT_TRUE(merge.Merge(why)) << vn::test::U8(why);
  }
  std::string Text() const { return merge.GetMergedText(CVnMergeMarkers()); }
};

TEST(VnMergeTest, ThreeWayTakesOneSidedAndEqualChangesAndStopsAtMeetingOnes) {
  const struct {
    const char *local, *base, *remote, *kinds, *text;
  } cases[] = {
      // one side only, either side; both, apart
      {"a\nB\nc\n", "a\nb\nc\n", "a\nb\nc\n", "=L=", "a\nB\nc\n"},
      {"a\nb\nc\n", "a\nb\nc\n", "a\nb\nC\n", "=R", "a\nb\nC\n"},
      {"A\nb\nc\n", "a\nb\nc\n", "a\nb\nC\n", "L=R", "A\nb\nC\n"},
      // the same change on both sides, once; the same insertion too
      {"a\nX\nc\n", "a\nb\nc\n", "a\nX\nc\n", "=B=", "a\nX\nc\n"},
      {"a\nn\nb\n", "a\nb\n", "a\nn\nb\n", "=B=", "a\nn\nb\n"},
      // changes that touch or overlap
      {"a\nB\nc\nd\n", "a\nb\nc\nd\n", "a\nb\nC\nd\n", "=C=",
       "a\n<<<<<<< LOCAL\nB\nc\n=======\nb\nC\n>>>>>>> REMOTE\nd\n"},
      {"a\nB\nC\n", "a\nb\nc\n", "a\nb\nX\n", "=C", "a\n<<<<<<< LOCAL\nB\nC\n=======\nb\nX\n>>>>>>> REMOTE\n"},
      // a deletion against an edit; against an insertion beside it
      {"a\nc\n", "a\nb\nc\n", "a\nX\nc\n", "=C=", "a\n<<<<<<< LOCAL\n=======\nX\n>>>>>>> REMOTE\nc\n"},
      {"a\nc\n", "a\nb\nc\n", "a\nb\nn\nc\n", "=C=", "a\n<<<<<<< LOCAL\n=======\nb\nn\n>>>>>>> REMOTE\nc\n"},
      // insertions at one place; an insertion before a changed line
      {"a\nx\nb\n", "a\nb\n", "a\ny\nb\n", "=C=", "a\n<<<<<<< LOCAL\nx\n=======\ny\n>>>>>>> REMOTE\nb\n"},
      {"a\nn\nb\nc\n", "a\nb\nc\n", "a\nB\nc\n", "=C=", "a\n<<<<<<< LOCAL\nn\nb\n=======\nB\n>>>>>>> REMOTE\nc\n"},
      // empty files
      {"", "", "", "", ""},
      {"x\n", "", "", "L", "x\n"},
      {"x\n", "", "y\n", "C", "<<<<<<< LOCAL\nx\n=======\ny\n>>>>>>> REMOTE\n"},
      {"", "a\nb\n", "a\nb\n", "L", ""},
      // a missing final newline: a change of the last line like any other
      {"a\nb", "a\nb\n", "a\nb\n", "=L", "a\nb"},
      {"a\nb\n", "a\nb\n", "a\nb", "=R", "a\nb"},
      {"a\nb", "a\nb\n", "a\nb\nc\n", "=C", "a\n<<<<<<< LOCAL\nb\n=======\nb\nc\n>>>>>>> REMOTE\n"},
      {"X\nm\nb", "a\nm\nb", "a\nm\nb\n", "L=R", "X\nm\nb\n"},
      // one edit that a comparison could place at two lines is placed alike
      {"}\n\n\n\n", "}\n\n\n", "\n}\n\n\n\n", "R=B", "\n}\n\n\n\n"},
      {"a\n\n\n", "a\n\n", "\n\n", "R=L", "\n\n\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.local) + "|" + c.base + "|" + c.remote);
    const std::string base = c.base;
    Merged m(c.local, &base, c.remote);
    EXPECT_EQ(c.kinds, KindsOf(m.merge));
    EXPECT_EQ(c.text, m.Text());
    EXPECT_EQ(static_cast<int>(std::count(c.kinds, c.kinds + strlen(c.kinds), 'C')), m.merge.GetConflictCount());
  }
}

// Two-way: every difference is a conflict with an empty base, and each
// choice writes its lines; reopening a conflict brings its markers back.
TEST(VnMergeTest, ChoicesResolveTwoWayConflicts) {
  Merged m("a\nb\nc\n", nullptr, "a\nB\nc\nd\n");
  ASSERT_EQ("=C=C", KindsOf(m.merge));
  EXPECT_FALSE(m.merge.HasBase());
  EXPECT_EQ(0, m.merge.GetRegions()[1].m_base.m_nCount);
  EXPECT_EQ(2, m.merge.GetConflictCount());
  const struct {
    VnMergeChoice first, second;
    const char* text;
  } cases[] = {
      {VnMergeChoice::Local, VnMergeChoice::Local, "a\nb\nc\n"},
      {VnMergeChoice::Remote, VnMergeChoice::Remote, "a\nB\nc\nd\n"},
      {VnMergeChoice::LocalThenRemote, VnMergeChoice::Remote, "a\nb\nB\nc\nd\n"},
      {VnMergeChoice::RemoteThenLocal, VnMergeChoice::Local, "a\nB\nb\nc\n"},
      {VnMergeChoice::None, VnMergeChoice::Remote, "a\n<<<<<<< LOCAL\nb\n=======\nB\n>>>>>>> REMOTE\nc\nd\n"},
  };
  for (const auto& c : cases) {
    m.merge.Resolve(1, c.first);
    m.merge.Resolve(3, c.second);
    EXPECT_EQ(c.text, m.Text());
    EXPECT_EQ(c.first == VnMergeChoice::None ? 1 : 0, m.merge.GetConflictCount());
  }
  EXPECT_TRUE(vn::test::RaisesInvalidArg([&] { m.merge.Resolve(0, VnMergeChoice::Local); }));
  EXPECT_TRUE(vn::test::RaisesInvalidArg([&] { m.merge.Resolve(4, VnMergeChoice::Local); }));
}

//===-- Properties on random triples ---------------------------------------===//

// Short texts over a few lines (repeated lines included), the final line
// end now and then left off.
std::string RandomText(std::mt19937& rng) {
  static const char* const kLines[] = {"a", "b", "c", "", "}", "x y"};
  std::string text;
  for (unsigned n = rng() % 12; n > 0; --n)
    text += std::string(kLines[rng() % 6]) + "\n";
  if (!text.empty() && rng() % 5 == 0)
    text.pop_back();
  return text;
}

// A few lines of `text` replaced, deleted or inserted.
std::string Edited(std::mt19937& rng, const std::string& text) {
  std::vector<std::string> lines;
  for (size_t at = 0; at < text.size();) {
    const size_t end = text.find('\n', at);
    lines.push_back(text.substr(at, end == std::string::npos ? std::string::npos : end + 1 - at));
    at = end == std::string::npos ? text.size() : end + 1;
  }
  for (unsigned edits = rng() % 4; edits > 0; --edits) {
    const size_t at = rng() % (lines.size() + 1);
    const std::string line = std::string(1, "abqz}"[rng() % 5]) + "\n";
    if (at < lines.size() && rng() % 2)
      lines.erase(lines.begin() + static_cast<long>(at));
    else
      lines.insert(lines.begin() + static_cast<long>(at), line);
  }
  std::string out;
  for (const std::string& l : lines)
    out += l.back() == '\n' ? l : l + "\n";
  if (!out.empty() && rng() % 6 == 0)
    out.pop_back();
  return out;
}

std::string LinesOf(const CVnComparedFile& f, CVnLineRange r) {
  std::string out;
  for (long i = r.m_nBegin; i < r.End(); ++i)
    f.AppendLineAsRead(i, out);
  return out;
}

// Resolves every conflict with one choice.
std::string Resolved(Merged& m, VnMergeChoice choice) {
  for (size_t k = 0; k < m.merge.GetRegions().size(); ++k)
    if (m.merge.GetRegions()[k].m_nKind == VnMergeKind::Conflict)
      m.merge.Resolve(k, choice);
  return m.Text();
}

TEST(VnMergeTest, RandomTriplesKeepTheMergeLaws) {
  std::mt19937 rng(3);
  for (int i = 0; i < 400; ++i) {
    const std::string base = RandomText(rng), local = Edited(rng, base), remote = Edited(rng, base);
    SCOPED_TRACE(local + "|" + base + "|" + remote);
    Merged m(local, &base, remote), swapped(remote, &base, local);
    // The regions tile each side; what they say of their lines holds.
    long next[3] = {0, 0, 0};
    for (const CVnMergeRegion& r : m.merge.GetRegions()) {
      const CVnLineRange ranges[3] = {r.m_local, r.m_base, r.m_remote};
      for (int s = 0; s < 3; ++s) {
        EXPECT_EQ(next[s], ranges[s].m_nBegin);
        next[s] = ranges[s].End();
      }
      const std::string l = LinesOf(m.merge.GetFile(CVnMerge::Local), r.m_local);
      const std::string b = LinesOf(m.merge.GetFile(CVnMerge::Base), r.m_base);
      const std::string t = LinesOf(m.merge.GetFile(CVnMerge::Remote), r.m_remote);
      switch (r.m_nKind) {
      case VnMergeKind::Unchanged: EXPECT_TRUE(b == l && b == t); break;
      case VnMergeKind::Local: EXPECT_EQ(b, t); break;
      case VnMergeKind::Remote: EXPECT_EQ(b, l); break;
      case VnMergeKind::Both: EXPECT_EQ(l, t); break;
      case VnMergeKind::Conflict: EXPECT_NE(l, t); break;
      }
    }
    for (int s = 0; s < 3; ++s)
      EXPECT_EQ(m.merge.GetFile(static_cast<CVnMerge::Side>(s)).GetLineCount(), next[s]);
    // A side equal to the base gives the other side.
    EXPECT_EQ(local, Merged(local, &base, base).Text());
    EXPECT_EQ(remote, Merged(base, &base, remote).Text());
    EXPECT_EQ(local, Merged(local, &base, local).Text());
    // Swapping LOCAL and REMOTE swaps the halves of every conflict.
    ASSERT_EQ(m.merge.GetConflictCount(), swapped.merge.GetConflictCount());
    EXPECT_EQ(Resolved(m, VnMergeChoice::LocalThenRemote), Resolved(swapped, VnMergeChoice::RemoteThenLocal));
  }
}

//===-- Encodings, marks and line ends through files -----------------------===//

std::string Utf16(const std::string& ascii, bool bigEndian) {
  std::string out = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
  for (char c : ascii)
    out += bigEndian ? std::string(1, '\0') + c : std::string(1, c) + '\0';
  return out;
}

// The ANSI code page fixed, so that text without a mark reads alike
// whatever the machine's locale.
struct AnsiPage {
  explicit AnsiPage(unsigned page) { vn::os::SetAnsiCodePage(page); }
  ~AnsiPage() { vn::os::SetAnsiCodePage(0); }
};

struct FileMerge {
  static CVnMergeOptions Options(bool byContent) {
    CVnMergeOptions options;
    options.m_bEncodingByContent = byContent;
    return options;
  }
  TempFile local, base, remote;
  CVnMerge merge;
  CString why;
  bool merged;
  FileMerge(const std::string& l, const std::string& b, const std::string& r, bool byContent = false)
      : local(l), base(b), remote(r), merge(Options(byContent)) {
    EXPECT_TRUE(merge.Open(CVnMerge::Local, local.Path()));
    EXPECT_TRUE(merge.Open(CVnMerge::Base, base.Path()));
    EXPECT_TRUE(merge.Open(CVnMerge::Remote, remote.Path()));
    merged = merge.Merge(why);
  }
};

// Line-end style takes no part in the merge; the text is written in
// LOCAL's encoding, mark and line end, which markers take too.
TEST(VnMergeTest, MergedTextKeepsLocalsEncodingMarkAndLineEnds) {
  AnsiPage page(1252);
  const std::string bom = "\xEF\xBB\xBF";
  const struct {
    std::string local, base, remote, text;
  } cases[] = {
      {"A\r\nb\r\nc\r\n", "a\nb\nc\n", "a\nb\nC\n", "A\r\nb\r\nC\r\n"},
      {"A\nb\nc\n", "a\r\nb\r\nc\r\n", "a\r\nb\r\nC\r\n", "A\nb\nC\n"},
      {"a\r\nb\r\nc\r\n", "a\nb\nc\n", "a\r\nb\r\nc\r\n", "a\r\nb\r\nc\r\n"},  // REMOTE only changed its ends
      {"a\nb\r\nc\n", "a\nb\nc\n", "a\nb\nc\nd\r\n", "a\nb\r\nc\nd\r\n"},        // mixed: each line keeps its own
      {"a\r\nL\r\n", "a\nb\n", "a\nR\n", "a\r\n<<<<<<< LOCAL\r\nL\r\n=======\r\nR\r\n>>>>>>> REMOTE\r\n"},
      {"a\r\nb", "a\nb\n", "a\nB\n", "a\r\n<<<<<<< LOCAL\r\nb\r\n=======\r\nB\r\n>>>>>>> REMOTE\r\n"},
      {"A\n\rb\n\rc\n\r", "a\nb\nc\n", "a\nb\nC\n", "A\n\rb\n\rC\n\r"},  // LF CR ends
      {bom + "A\n\xC3\xA9\n", bom + "a\n\xC3\xA9\n", bom + "a\n\xC3\xA9\nc\n", bom + "A\n\xC3\xA9\nc\n"},
      {bom + "A\nb\n", "a\nb\n", "a\nb\nc\n", bom + "A\nb\nc\n"},  // ASCII sides read alike in any page
      {"A\nb\n", bom + "a\nb\n", bom + "a\nb\nc\n", "A\nb\nc\n"},
      {Utf16("A\r\nb\r\n", false), Utf16("a\nb\n", false), Utf16("a\nb\nc\n", false), Utf16("A\r\nb\r\nc\r\n", false)},
      {Utf16("A\nb\n", true), Utf16("a\nb\n", true), Utf16("a\nb\nc\n", true), Utf16("A\nb\nc\n", true)},
      {"caf\xE9\nb\n", "cafe\nb\n", "cafe\nb\nX\n", "caf\xE9\nb\nX\n"},  // 1252 written back as 1252
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.local + "|" + c.remote);
    FileMerge f(c.local, c.base, c.remote);
    ASSERT_TRUE(f.merged) << vn::test::U8(f.why);
    EXPECT_EQ(c.text, f.merge.GetMergedText(CVnMergeMarkers()));
  }
}

// Read by content, UTF-8 on one side is no "other encoding" for sides of
// plain ASCII: the merged text takes it.  Latin-1 against UTF-8 still is.
TEST(VnMergeTest, EncodingChosenByContentIsSharedWithPlainAsciiSides) {
  AnsiPage page(1252);
  const struct {
    std::string local, base, remote, text;  // text empty: refused
  } cases[] = {
      {"a\nb\n", "a\nb\n", "a\nb\ncaf\xC3\xA9\n", "a\nb\ncaf\xC3\xA9\n"},
      {"caf\xC3\xA9\nx\nb\n", "cafe\nx\nb\n", "cafe\nx\nB\n", "caf\xC3\xA9\nx\nB\n"},
      {"caf\xE9\nb\n", "cafe\nb\n", "cafe\nb\n\xC3\xA9\n", ""},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.local + "|" + c.remote);
    FileMerge f(c.local, c.base, c.remote, true);
    ASSERT_EQ(!c.text.empty(), f.merged) << vn::test::U8(f.why);
    if (f.merged) {
      EXPECT_EQ(c.text, f.merge.GetMergedText(CVnMergeMarkers()));
    }
  }
}

// What decoding would change, or a side in another encoding, stops the
// merge with the side's name before anything is compared.
TEST(VnMergeTest, RefusesSidesItCouldNotWriteBackAsTheyWere) {
  AnsiPage page(1252);
  const std::string bom = "\xEF\xBB\xBF";
  const struct {
    std::string local, base, remote;
    int culprit;  // CVnMerge::Side
    const char* why;
  } cases[] = {
      {bom + "\xC3\xA9\n", "a\n", Utf16("a\n", false), CVnMerge::Remote, "text, but LOCAL"},
      {bom + "\xC3\xA9\n", "\xE9\n", "a\n", CVnMerge::Base, "text, but LOCAL"},
      {Utf16("a\n", false), "a\n", "a\n", CVnMerge::Base, "text, but LOCAL"},
      {bom + "caf\xC3(\n", bom + "a\n", bom + "a\n", CVnMerge::Local, "no valid"},
      {Utf16("a\n", false), Utf16("a\n", false), Utf16("a\n", false) + "b", CVnMerge::Remote, "no valid"},  // half a unit
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.why);
    FileMerge f(c.local, c.base, c.remote);
    EXPECT_FALSE(f.merged);
    const std::string why = vn::test::U8(f.why);
    EXPECT_EQ(0u, why.find(vn::test::U8(f.merge.GetFile(static_cast<CVnMerge::Side>(c.culprit)).GetFacts().m_strDisplayName)))
        << why;
    EXPECT_NE(std::string::npos, why.find(c.why)) << why;
    EXPECT_TRUE(f.merge.GetRegions().empty());
  }
}

// Raw reading (and a binary side let through) merges the bytes as they stand.
TEST(VnMergeTest, RawSidesMergeTheirBytes) {
  TempFile local(std::string("a\0\r\nB\n", 6)), base(std::string("a\0\r\nb\n", 6)), remote(std::string("a\0\r\nb\nc", 7));
  CVnMergeOptions options;
  options.m_bRaw = true;
  CVnMerge merge(options);
  merge.Open(CVnMerge::Local, local.Path());
  merge.Open(CVnMerge::Base, base.Path());
  merge.Open(CVnMerge::Remote, remote.Path());
  CString why;
  ASSERT_TRUE(merge.Merge(why));
  EXPECT_EQ(std::string("a\0\r\n", 4) + "<<<<<<< LOCAL\nB\n=======\nb\nc\n>>>>>>> REMOTE\n",
            merge.GetMergedText(CVnMergeMarkers()));
}

}  // namespace
