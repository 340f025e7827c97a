// VnComparisonTest.cpp - two files in, facts, records and aligned rows out.
#include "compare/VnComparison.h"

#include "ScriptedPrompt.h"
#include "TestSupport.h"
#include "intake/IntakeTestFiles.h"

#include <gtest/gtest.h>

namespace {

using vn::test::TempFile;

std::string Utf16(const std::string& ascii) { return "\xFF\xFE" + vn::test::Le(ascii); }

// The rows as "s t k" words: line numbers or '-' for a gap, and the kind
// as =, |, < or >.
std::string RowsText(const CVnComparison& c) {
  std::string out;
  for (const CVnAlignedRow& r : c.GetRows()) {
    const char kind = "=><|"[static_cast<int>(r.m_nKind)];
    out += (r.m_nSource < 0 ? std::string("-") : std::to_string(r.m_nSource)) +
           (r.m_nTarget < 0 ? std::string("-") : std::to_string(r.m_nTarget)) + kind + " ";
  }
  return out;
}

std::string RecordsText(const CVnDiffChangeList& changes) {
  std::string out;
  for (INT_PTR k = 0; k < changes.GetSize(); ++k) {
    const CVnDiffChange& c = *changes[k];
    out += "IDCF"[c.GetAction() - 1] + std::to_string(c.StartSource()) + std::to_string(c.EndSource()) +
           std::to_string(c.StartTarget()) + std::to_string(c.EndTarget()) + " ";
  }
  return out;
}

struct Pair {
  TempFile source, target;
  CVnComparison comparison;
  Pair(const std::string& s, const std::string& t, const CVnCompareOptions& o = CVnCompareOptions())
      : source(s), target(t), comparison(o) {
    EXPECT_TRUE(comparison.Open(CVnComparison::Source, source.Path()));
    EXPECT_TRUE(comparison.Open(CVnComparison::Target, target.Path()));
    comparison.Compare();
  }
};

TEST(VnComparisonTest, RowsStandEqualLinesLevelAndFaceChangesWithGaps) {
  const struct {
    const char *source, *target, *rows;
  } cases[] = {
      {"a\nb\n", "a\nb\n", "00= 11= "},
      {"", "x\ny\n", "-0> -1> "},
      {"x\ny\n", "", "0-< 1-< "},
      {"a\nb\nc\n", "a\nc\n", "00= 1-< 21= "},
      {"a\nc\n", "a\nb\nc\n", "00= -1> 12= "},
      {"a\nb\nc\nd\n", "a\nB\nC\nD\nd\n", "00= 11| 22| -3> 34= "},
      {"1\n2\n3\n4\n5\n", "0\n1\n3\n5\n6\n", "-0> 01= 1-< 22= 3-< 43= -4> "},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.source) + "|" + c.target);
    Pair p(c.source, c.target);
    EXPECT_EQ(c.rows, RowsText(p.comparison));
    EXPECT_EQ(std::string(c.rows).find_first_of("<>|") == std::string::npos, p.comparison.IsSame());
  }
}

TEST(VnComparisonTest, SpansPlaceInsertionsAndDeletionsOnBothSides) {
  Pair p("a\nb\nc\nd\n", "a\nB\nx\nc\n");
  ASSERT_EQ("C2222 I0033 D4400 ", RecordsText(p.comparison.GetChanges()));
  const std::vector<CVnChangeSpan> apart = p.comparison.GetSpans(false);
  ASSERT_EQ(3u, apart.size());
  EXPECT_EQ(2, apart[1].m_nSourceBegin);  // the insertion stands before source line 2
  EXPECT_EQ(4, apart[2].m_nTargetBegin);  // the deletion at the target's end
  const std::vector<CVnChangeSpan> joined = p.comparison.GetSpans(true);
  ASSERT_EQ(2u, joined.size());
  EXPECT_EQ(1, joined[0].m_nSourceCount);
  EXPECT_EQ(2, joined[0].m_nTargetCount);
}

TEST(VnComparisonTest, FactsTellWhatEachFileIs) {
  const unsigned ansi = CVnDiffFile().GetCodePage();
  const struct {
    std::string bytes;
    int type;
    unsigned codePage;
    bool bom;
    VnLineEnd ends;
    bool finalNewline;
    long lines;
  } cases[] = {
      {"", CVnDiffFile::TypeText, ansi, false, VnLineEnd::None, true, 0},
      {"a\nb", CVnDiffFile::TypeText, ansi, false, VnLineEnd::LF, false, 2},
      {"a\r\nb\r\n", CVnDiffFile::TypeText, ansi, false, VnLineEnd::CRLF, true, 2},
      {"a\rb\n", CVnDiffFile::TypeText, ansi, false, VnLineEnd::Mixed, true, 2},
      {"a\n\rb\n\r", CVnDiffFile::TypeText, ansi, false, VnLineEnd::LFCR, true, 2},
      {"\xEF\xBB\xBF" "caf\xC3\xA9\r\n", CVnDiffFile::TypeUnicode, 65001, true, VnLineEnd::CRLF, true, 1},
      {Utf16("a\nb\r\nc"), CVnDiffFile::TypeUnicode, 70001, true, VnLineEnd::Mixed, false, 3},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.bytes);
    TempFile file(c.bytes);
    CVnComparedFile side;
    ASSERT_TRUE(side.Read(file.Path(), 0));
    const CVnFileFacts& f = side.GetFacts();
    EXPECT_EQ(c.type, f.m_nFileType);
    EXPECT_EQ(c.codePage, f.m_nCodePage);
    EXPECT_EQ(c.bom, f.m_bHasBOM);
    EXPECT_EQ(c.ends, f.m_nLineEnds);
    EXPECT_EQ(c.finalNewline, f.m_bFinalNewline);
    EXPECT_EQ(c.lines, f.m_nLineCount);
    EXPECT_EQ(file.Path(), f.m_strDisplayName);
  }
}

// Each line as a reader splitting the bytes at LF sees it, from the decoded
// text and the ends kept beside it; UTF-16 and non-ASCII text take the road
// that reads the file's ends again.
TEST(VnComparisonTest, LinesReadBackAsTheFileHadThem) {
  const struct {
    std::string bytes;
    const char* read;
  } cases[] = {
      {"a\r\nb\nc", "a\r\nb\nc"},
      {"a\n\rb\n\rc", "a\n\rb\n\rc"},
      {"a\rb\r\n", "a\nb\r\n"},
      {"\xEF\xBB\xBF\xC3\xA9\r\nx\n", "\xC3\xA9\r\nx\n"},
      {Utf16("a\r\nb\nc"), "a\r\nb\nc"},
      {"\xFE\xFF" + std::string("\0a\0\r\0\n\0b\0\n", 10), "a\r\nb\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.read);
    TempFile file(c.bytes);
    CVnComparedFile side;
    ASSERT_TRUE(side.Read(file.Path(), 0));
    std::string out;
    for (long i = 0; i < side.GetLineCount(); ++i)
      side.AppendLineAsRead(i, out);
    EXPECT_EQ(c.read, out);
  }
}

// With exact line ends, lines that differ only in their ends are changes,
// so that the records rebuild the target byte for byte; ignoring line ends
// or asking for Compare's own records leaves them equal.
TEST(VnComparisonTest, ExactLineEndsMakeEndOnlyDifferencesChanges) {
  const struct {
    const char *source, *target;
    bool raw, exact, ignore;
    const char* records;
  } cases[] = {
      {"a\nb\nc\n", "a\nb\r\nc\n", false, true, false, "C2222 "},
      {"a\nb\nc\n", "a\nb\r\nc\n", false, false, false, ""},
      {"a\nb\nc\n", "a\nb\r\nc\n", false, true, true, ""},
      {"a\r\nb\r\n", "a\r\nb\r\n", false, true, false, ""},
      {"a\nb\n", "x\na\nb\r\n", false, true, false, "I0011 C2233 "},
      {"a\n\rb\n", "a\nb\n", false, true, false, "C2222 "},
      {"a\nb", "a\nb\n", true, true, false, "C2222 "},
      {"a\nb", "a\nb\n", true, false, false, ""},
      {"a\nb", "x\na\nb\n", true, true, false, "I0011 C2233 "},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(std::string(c.source) + "|" + c.target);
    CVnCompareOptions o;
    o.m_bRaw = c.raw;
    o.m_bExactLineEnds = c.exact;
    o.m_bIgnoreLineEnds = c.ignore;
    Pair p(c.source, c.target, o);
    EXPECT_EQ(c.records, RecordsText(p.comparison.GetChanges()));
  }
}

// A binary file the user lets through is compared as bytes, and so is the
// text beside it; declined, the side stays unopened.
TEST(VnComparisonTest, BinaryFileComparesAsBytesOrIsDeclined) {
  TempFile text("a\r\nb\n"), binary(std::string("a\r\nb\0", 5));
  {
    vn::test::ScriptedPrompt prompt({IDYES});
    CVnComparison c;
    ASSERT_TRUE(c.Open(CVnComparison::Source, text.Path()));
    ASSERT_TRUE(c.Open(CVnComparison::Target, binary.Path()));
    c.Compare();
    EXPECT_FALSE(c.GetFile(CVnComparison::Source).IsWide());
    EXPECT_EQ(CVnDiffFile::TypeBinary, c.GetFile(CVnComparison::Target).GetFacts().m_nFileType);
    EXPECT_EQ("00= 11| ", RowsText(c));  // "b\n" against "b" and the marker
    EXPECT_EQ(1u, prompt.Asked().size());
  }
  vn::test::ScriptedPrompt prompt({IDNO});
  CVnComparison c;
  EXPECT_FALSE(c.Open(CVnComparison::Target, binary.Path()));
  EXPECT_EQ(0, c.GetFile(CVnComparison::Target).GetLineCount());
}

TEST(VnComparisonTest, UnreadableFileRaisesTheIntakesFailure) {
  CVnComparison c;
  EXPECT_TRUE(vn::test::RaisesKindOf(RUNTIME_CLASS(CFileException),
                                     [&] { c.Open(CVnComparison::Source, _T("/nonexistent/vn-file")); }));
}

}  // namespace
