// VnCompareTest.cpp - the records Compare gives for small, known inputs,
// one letter per line: stripping of prefix and suffix, the search's choice
// among minimal scripts, discarding and shifting, and pairing into Change.
#include "EngineTestUtil.h"

#include <gtest/gtest.h>

using vn::test::CompareText;
using vn::test::Letters;
using vn::test::MakeSet;
using vn::test::ScopedHooks;

TEST(VnCompareTest, LetterExamplesWithAndWithoutTheShapingSteps) {
  const struct {
    const char *source, *target;
    bool discard, shift;
    const char* records;
  } kCases[] = {
      {"", "", 1, 1, ""},
      {"ab", "ab", 1, 1, ""},
      {"", "ab", 1, 1, "I0,0,1,2"},
      {"ab", "", 1, 1, "D1,2,0,0"},
      {"a", "b", 1, 1, "C1,1,1,1"},
      {"abc", "axc", 1, 1, "C2,2,2,2"},
      {"abcd", "axyzd", 1, 1, "C2,3,2,3 I0,0,4,4"},
      {"axyzd", "abcd", 1, 1, "C2,3,2,3 D4,4,0,0"},
      {"abab", "ab", 1, 1, "D2,3,0,0"},
      {"aaa", "aa", 1, 1, "D2,2,0,0"},
      {"abc", "abcc", 1, 1, "I0,0,3,3"},
      // Runs at the end, or before a different line, stay where they are;
      // the last source line never enters the prefix.
      {"abc", "ab", 1, 1, "D3,3,0,0"},
      {"axbc", "abc", 1, 1, "D2,2,0,0"},
      {"abxb", "abb", 1, 1, "D3,3,0,0"},
      // The target's c matches seven lines (above 5) and sits inside a run of
      // certain discards: discarded with them, nothing keeps a partner.
      {"ccccccc", "adbcbba", 1, 1, "C1,7,1,7"},
      {"ccccccc", "adbcbba", 0, 1, "C1,3,1,3 D4,6,0,0 I0,0,5,7"},
      // Shifting slides the search's runs as late as they go.
      {"aba", "baab", 1, 1, "D1,1,0,0 I0,0,3,4"},
      {"aba", "baab", 1, 0, "D1,1,0,0 I0,0,2,2 I0,0,4,4"},
      {"abaa", "bab", 1, 1, "D1,1,0,0 C4,4,3,3"},
      {"abaa", "bab", 1, 0, "D1,1,0,0 D3,3,0,0 I0,0,3,3"},
  };
  for (const auto& c : kCases) {
    ScopedHooks hooks(c.discard, c.shift);
    for (CVnFileInfo::FileType type : {CVnFileInfo::Text8, CVnFileInfo::Text16}) {
      auto source = Letters(c.source, type);
      auto target = Letters(c.target, type);
      EXPECT_EQ(c.records, CompareText(source, target))
          << c.source << " / " << c.target << " discard " << c.discard << " shift " << c.shift << " type " << type;
    }
  }
}

TEST(VnCompareTest, AppendsBehindEarlierRecords) {
  auto source = Letters("abc");
  auto target = Letters("axc");
  CVnDiffChangeList changes;
  source.arg->Compare(0, 0, 0, *target.arg, changes);
  source.arg->Compare(0, 0, 0, *target.arg, changes);
  EXPECT_EQ("C2,2,2,2 C2,2,2,2", vn::test::ListText(changes));
}

// Equal files end at the strip: with two or more lines no line is hashed;
// a one-line file's prefix scan stops short of its only line, so it runs
// through and is hashed.
TEST(VnCompareTest, EqualFilesGiveNothingAndAreHashedOnlyWhenTheStripCannotEndThem) {
  for (const char* text : {"one\ntwo\nthree\n", "abc"}) {
    auto source = MakeSet(text);
    auto target = MakeSet(text);
    EXPECT_EQ("", CompareText(source, target)) << text;
    const bool oneLine = source.arg->GetLineCount() == 1;
    for (auto* set : {source.arg.get(), target.arg.get()})
      for (int i = 0; i < set->GetLineCount(); ++i)
        EXPECT_EQ(oneLine ? 2853781978u : 0u, set->GetLines().GetAt(i)->GetHash()) << text << " line " << i;
  }
}

TEST(VnCompareTest, FlagsDecideWhichLinesAreEqual) {
  const struct {
    const char *source, *target;
    int ws, ic, le;
    const char* records;
  } kCases[] = {
      {"x\nA B\ny\n", "x\nab\ny\n", 0, 0, 0, "C2,2,2,2"},
      {"x\nA B\ny\n", "x\nab\ny\n", 1, 0, 0, "C2,2,2,2"},
      {"x\nA B\ny\n", "x\nab\ny\n", 0, 1, 0, "C2,2,2,2"},
      {"x\nA B\ny\n", "x\nab\ny\n", 1, 1, 0, ""},
      {"x\r\nab\r\ny", "x\nab\ny", 0, 0, 1, ""},
      {"x\r\nab\r\ny", "x\nab\ny", 0, 0, 0, "C1,2,1,2"},
      {"x\na\rb\ny", "x\nab\ny", 0, 0, 1, "C2,2,2,2"},
  };
  for (const auto& c : kCases) {
    auto source = MakeSet(c.source);
    auto target = MakeSet(c.target);
    EXPECT_EQ(c.records, CompareText(source, target, c.ws, c.ic, c.le))
        << c.source << " / " << c.target << " flags " << c.ws << c.ic << c.le;
  }
}

TEST(VnCompareTest, LeftOverHashesShortenTheStripButNotTheResult) {
  // Compared once under ignore case, the records hold case-blind hashes;
  // a second call without flags must still find the same differences.
  auto source = MakeSet("A\nb\nc\nd\n");
  auto target = MakeSet("a\nb\nx\nd\n");
  EXPECT_EQ("C3,3,3,3", CompareText(source, target, 0, 1, 0));
  EXPECT_EQ("C1,1,1,1 C3,3,3,3", CompareText(source, target));
  EXPECT_EQ("C3,3,3,3", CompareText(source, target, 0, 1, 0));
}
