// VnChangedWordsTest.cpp - which lines of a replaced block pair up, and the
// ranges marked inside each pair.
#include "compare/VnChangedWords.h"

#include "TestSupport.h"
#include "intake/IntakeTestFiles.h"

#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

namespace {

using vn::test::TempFile;
using vn::test::W;

// The line with each marked range in brackets.
template <class Ranges>
std::string Bracketed(const std::string& line, const Ranges& ranges) {
  std::string out;
  size_t at = 0;
  for (const CVnUnitRange& r : ranges) {
    out += line.substr(at, r.m_nBegin - at) + "[" + line.substr(r.m_nBegin, r.m_nEnd - r.m_nBegin) + "]";
    at = r.m_nEnd;
  }
  return out + line.substr(at);
}

// Marks two lines given in UTF-8, as decoded text (UTF-16 units) when wide,
// else as bytes; the brackets go around the same text either way.
std::pair<std::string, std::string> Marked(const std::string& a, const std::string& b, bool wide,
                                           const CVnWordOptions& options = CVnWordOptions()) {
  std::vector<CVnUnitRange> inA, inB;
  if (!wide) {
    VnMarkChangedUnits({a.data(), a.size()}, {b.data(), b.size()}, false, options, inA, inB);
    return {Bracketed(a, inA), Bracketed(b, inB)};
  }
  const CString wa = W(a.c_str()), wb = W(b.c_str());
  VnMarkChangedUnits({wa.GetString(), static_cast<size_t>(wa.GetLength())},
                     {wb.GetString(), static_cast<size_t>(wb.GetLength())}, true, options, inA, inB);
  auto bracketed = [](const CString& line, const std::vector<CVnUnitRange>& ranges) {
    CString out;
    int at = 0;
    for (const CVnUnitRange& r : ranges) {
      out += line.Mid(at, static_cast<int>(r.m_nBegin) - at) + _T("[") +
             line.Mid(static_cast<int>(r.m_nBegin), static_cast<int>(r.m_nEnd - r.m_nBegin)) + _T("]");
      at = static_cast<int>(r.m_nEnd);
    }
    return vn::test::U8(out + line.Mid(at));
  };
  return {bracketed(wa, inA), bracketed(wb, inB)};
}

TEST(VnChangedWordsTest, MarksWordsWhitespaceAndPunctuationAlikeInUnitsAndBytes) {
  const struct {
    const char *a, *b, *markedA, *markedB;
  } cases[] = {
      {"int x = 5;", "int y = 5;", "int [x] = 5;", "int [y] = 5;"},
      {"same line", "same line", "same line", "same line"},
      {"foo bar baz", "foo qux quux baz", "foo [bar] baz", "foo [qux quux] baz"},
      {"f(a, b)", "f(a; b)", "f(a[,] b)", "f(a[;] b)"},
      {"counter++", "counters++", "[counter]++", "[counters]++"},
      {"\tvalue = 1;", "    value = 1;", "[\t]value = 1;", "[    ]value = 1;"},
      {"a\tb", "a b", "a[\t]b", "a[ ]b"},
      {"return x;", "return x;   ", "return x;", "return x;[   ]"},
      {"x", "x + a_long_name * another_long_name", "x", "x[ + a_long_name * another_long_name]"},
      {"", "abc", "", "[abc]"},
      {"caf\xC3\xA9 au lait", "cafe au lait", "[caf\xC3\xA9] au lait", "[cafe] au lait"},
      {"a b c d e", "a B c D e", "a [b] c [d] e", "a [B] c [D] e"},
      {"one two three", "three two one", "[one] two [three]", "[three] two [one]"},
  };
  for (const auto& c : cases) {
    for (bool wide : {true, false}) {
      SCOPED_TRACE(std::string(c.a) + " / " + c.b + (wide ? " (wide)" : " (bytes)"));
      const auto marked = Marked(c.a, c.b, wide);
      EXPECT_EQ(c.markedA, marked.first);
      EXPECT_EQ(c.markedB, marked.second);
    }
  }
}

TEST(VnChangedWordsTest, CharacterGranularityAndTheComparisonsIgnoreFlags) {
  CVnWordOptions characters;
  characters.m_nUnit = VnMarkUnit::Characters;
  CVnWordOptions noCase, noBlanks;
  noCase.m_bIgnoreCase = true;
  noBlanks.m_bIgnoreWhitespace = true;
  const struct {
    const char *a, *b;
    CVnWordOptions options;
    const char *markedA, *markedB;
  } cases[] = {
      {"counter", "counters", characters, "counter", "counter[s]"},
      {"colour", "color", characters, "colo[u]r", "color"},
      {"abc def", "xbc dxf", characters, "[a]bc d[e]f", "[x]bc d[x]f"},
      {"caf\xC3\xA9", "cafe", characters, "caf[\xC3\xA9]", "caf[e]"},          // one character, two bytes
      {"a\xF0\x9F\x98\x80" "b", "a\xF0\x9F\x98\x83" "b", characters,          // a surrogate pair, four bytes
       "a[\xF0\x9F\x98\x80]b", "a[\xF0\x9F\x98\x83]b"},
      {"Hello World", "hello there", noCase, "Hello [World]", "hello [there]"},
      {"a  =  b;", "a = c;", noBlanks, "a  =  [b];", "a = [c];"},
      {"x = 1;  ", "x = 1;", noBlanks, "x = 1;  ", "x = 1;"},
  };
  for (const auto& c : cases) {
    for (bool wide : {true, false}) {
      SCOPED_TRACE(std::string(c.a) + " / " + c.b + (wide ? " (wide)" : " (bytes)"));
      const auto marked = Marked(c.a, c.b, wide, c.options);
      EXPECT_EQ(c.markedA, marked.first);
      EXPECT_EQ(c.markedB, marked.second);
    }
  }
}

std::string Pairs(const std::vector<std::string>& source, const std::vector<std::string>& target) {
  std::vector<CVnLineUnits> s, t;
  for (const std::string& line : source)
    s.push_back({line.data(), line.size()});
  for (const std::string& line : target)
    t.push_back({line.data(), line.size()});
  std::string out;
  for (const CVnLinePair& p : VnPairLines(s, t, false))
    out += std::to_string(p.m_nSource) + "-" + std::to_string(p.m_nTarget) + " ";
  return out;
}

TEST(VnChangedWordsTest, PairsLinesByLikenessInOrderAndLeavesUnlikeLinesAlone) {
  const struct {
    const char* name;
    std::vector<std::string> source, target;
    const char* pairs;
  } cases[] = {
      {"one to one", {"int x = 1;"}, {"int x = 2;"}, "0-0 "},
      {"the like line, not the first", {"int x = 1;", "return x;"}, {"return x + 1;"}, "1-0 "},
      {"a line put in front", {"alpha beta gamma"}, {"totally different", "alpha beta delta"}, "0-1 "},
      {"the better of two crossing pairs", {"aaa bbb", "ccc ddd"}, {"ccc ddd", "aaa bbb fff"}, "1-0 "},
      {"too unlike", {"{"}, {"}"}, ""},
      {"very different lengths", {"x"}, {"x = compute(first, second, third);"}, ""},
      {"blank lines are alike", {""}, {"   "}, "0-0 "},
      {"blank against text", {""}, {"text"}, ""},
      {"case aside", {"HELLO WORLD"}, {"hello world!"}, "0-0 "},
      {"order kept", {"a1 b1", "c1 d1", "e1 f1"}, {"a1 b1 x", "e1 f1 y"}, "0-0 2-1 "},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    EXPECT_EQ(c.pairs, Pairs(c.source, c.target));
  }
  EXPECT_DOUBLE_EQ(1.0, VnLineLikeness({"a b", 3}, {"a  b", 4}, false));
  EXPECT_DOUBLE_EQ(0.5, VnLineLikeness({"abc", 3}, {"abc xyz uvw", 11}, false));
}

TEST(VnChangedWordsTest, LongBlocksPairInPiecesAndStillPairEveryLikeLine) {
  std::vector<std::string> source, target;
  for (int i = 0; i < 3 * kChunkLines + 17; ++i) {
    source.push_back("value_" + std::to_string(i) + " = compute(" + std::to_string(i) + ");");
    target.push_back("value_" + std::to_string(i) + " = compute(" + std::to_string(i + 1) + ");");
  }
  std::string expected;
  for (size_t i = 0; i < source.size(); ++i)
    expected += std::to_string(i) + "-" + std::to_string(i) + " ";
  EXPECT_EQ(expected, Pairs(source, target));
}

//===-- A whole comparison -------------------------------------------------===//

struct Compared {
  TempFile source, target;
  CVnComparison comparison;
  Compared(const std::string& s, const std::string& t, const CVnCompareOptions& o = CVnCompareOptions())
      : source(s), target(t), comparison(o) {
    EXPECT_TRUE(comparison.Open(CVnComparison::Source, source.Path()));
    EXPECT_TRUE(comparison.Open(CVnComparison::Target, target.Path()));
    comparison.Compare();
  }
};

// Rows as in VnComparisonTest ("s t kind", = > < |), each changed line with
// its marks in brackets.
std::string RowsAndMarks(const CVnComparison& comparison, VnMarkUnit unit = VnMarkUnit::Words) {
  CVnChangedWords words(comparison, unit);
  std::string out;
  auto line = [&](CVnComparison::Side side, long n) {
    std::string text;
    comparison.GetFile(side).AppendLineUtf8(n, text);
    if (!comparison.GetFile(side).IsWide())
      return Bracketed(text, words.GetMarks(side, n));
    // Units to UTF-8 through the shared helpers: the marks are UTF-16 units.
    const CString w = W(text.c_str());
    std::string marked;
    int at = 0;
    for (const CVnUnitRange& r : words.GetMarks(side, n)) {
      marked += vn::test::U8(w.Mid(at, static_cast<int>(r.m_nBegin) - at)) + "[" +
                vn::test::U8(w.Mid(static_cast<int>(r.m_nBegin), static_cast<int>(r.m_nEnd - r.m_nBegin))) + "]";
      at = static_cast<int>(r.m_nEnd);
    }
    return marked + vn::test::U8(w.Mid(at));
  };
  for (const CVnAlignedRow& r : words.GetRows()) {
    out += (r.m_nSource < 0 ? std::string("-") : std::to_string(r.m_nSource)) +
           (r.m_nTarget < 0 ? std::string("-") : std::to_string(r.m_nTarget)) + "=><|"[static_cast<int>(r.m_nKind)];
    if (r.m_nKind == VnRowKind::Changed)
      out += " " + line(CVnComparison::Source, r.m_nSource) + " / " + line(CVnComparison::Target, r.m_nTarget);
    out += "\n";
  }
  return out;
}

TEST(VnChangedWordsTest, RowsStandPairedLinesLevelAndMarkUnpairedFacingLinesWhole) {
  const struct {
    const char *source, *target, *rows;
  } cases[] = {
      {"a\nint x = 1;\nb\n", "a\nint x = 2;\nb\n", "00=\n11| int x = [1]; / int x = [2];\n22=\n"},
      {"keep\nold line one\nreturn value;\nend\n", "keep\nreturn value + 1;\nend\n",
       "00=\n1-<\n21| return value; / return value[ + 1];\n32=\n"},
      {"x\n{\ny\n", "x\n}\ny\n", "00=\n11| [{] / [}]\n22=\n"},
      {"a\nb\n", "a\nc\nd\nb\n", "00=\n-1>\n-2>\n13=\n"},
      {"one two\nthree\n", "zero\none two!\n", "-0>\n01| one two / one two[!]\n1-<\n"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.source);
    Compared pair(c.source, c.target);
    EXPECT_EQ(c.rows, RowsAndMarks(pair.comparison));
  }
}

// The marks are in each line's own units: UTF-16 units for decoded text,
// however the file was encoded; bytes for raw text.
TEST(VnChangedWordsTest, MarksCountTheUnitsEachSideIsReadIn) {
  const std::string source = "caf\xC3\xA9 noir\n", target = "caf\xC3\xA9 au lait\n";
  CVnCompareOptions byContent;
  byContent.m_bEncodingByContent = true;
  Compared decoded(source, "\xFF\xFE" + vn::test::Le("caf") + std::string("\xE9\x00", 2) + vn::test::Le(" au lait\n"),
                   byContent);
  CVnChangedWords words(decoded.comparison);
  ASSERT_EQ(1u, words.GetMarks(CVnComparison::Target, 0).size());
  EXPECT_EQ(5u, words.GetMarks(CVnComparison::Target, 0)[0].m_nBegin);   // after "café " in UTF-16
  EXPECT_EQ(12u, words.GetMarks(CVnComparison::Target, 0)[0].m_nEnd);
  EXPECT_EQ("00| caf\xC3\xA9 [noir] / caf\xC3\xA9 [au lait]\n", RowsAndMarks(decoded.comparison));

  CVnCompareOptions raw;
  raw.m_bRaw = true;
  Compared bytes(source, target, raw);
  CVnChangedWords byteWords(bytes.comparison);
  ASSERT_EQ(1u, byteWords.GetMarks(CVnComparison::Source, 0).size());
  EXPECT_EQ(6u, byteWords.GetMarks(CVnComparison::Source, 0)[0].m_nBegin);  // after "café " in UTF-8
  EXPECT_EQ("00| caf\xC3\xA9 [noir] / caf\xC3\xA9 [au lait]\n", RowsAndMarks(bytes.comparison));
}

// Lines that pair first with first keep the comparison's own rows: single
// changed lines, two in a row, insertions and deletions apart from them.
TEST(VnChangedWordsTest, BlocksOfLikeLinesKeepTheComparisonsRows) {
  const std::set<int> changed = {7, 8, 21, 35, 49}, insertedAfter = {3, 25, 40}, deleted = {10, 30, 55};
  std::string a, b;
  for (int i = 1; i <= 60; ++i) {
    const std::string line = "line " + std::to_string(i) + " of the report\n";
    a += line;
    if (changed.count(i))
      b += "line " + std::to_string(i) + " OF THE REPORT, changed\n";
    else if (!deleted.count(i))
      b += line;
    if (insertedAfter.count(i))
      b += "an inserted line\n";
  }
  Compared pair(a, b);
  const std::vector<CVnAlignedRow> expected = pair.comparison.GetRows(), rows = CVnChangedWords(pair.comparison).GetRows();
  ASSERT_EQ(expected.size(), rows.size());
  for (size_t r = 0; r < rows.size(); ++r) {
    EXPECT_EQ(expected[r].m_nSource, rows[r].m_nSource) << r;
    EXPECT_EQ(expected[r].m_nTarget, rows[r].m_nTarget) << r;
    EXPECT_EQ(expected[r].m_nKind, rows[r].m_nKind) << r;
  }
}

}  // namespace
