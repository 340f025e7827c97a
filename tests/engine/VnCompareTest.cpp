// VnCompareTest.cpp - the records Compare gives for small, known inputs,
// one letter per line: stripping of prefix and suffix, the search's choice
// among minimal scripts, discarding and shifting, and pairing into Change.
#include "EngineTestUtil.h"

#include <gtest/gtest.h>

using vn::test::CompareText;
using vn::test::Letters;
using vn::test::ScopedHooks;

namespace {

struct Case {
  const char* source;
  const char* target;
  const char* records;
};

void ExpectCases(const Case* cases, size_t count, CVnFileInfo::FileType type = CVnFileInfo::Text8) {
  for (size_t i = 0; i < count; ++i) {
    auto source = Letters(cases[i].source, type);
    auto target = Letters(cases[i].target, type);
    EXPECT_EQ(cases[i].records, CompareText(source, target))
        << "source " << cases[i].source << ", target " << cases[i].target;
  }
}

}  // namespace

TEST(VnCompareTest, SearchAndPairingExamples) {
  static const Case kCases[] = {
      {"", "", ""},
      {"ab", "ab", ""},
      {"a", "a", ""},
      {"", "ab", "I0,0,1,2"},
      {"ab", "", "D1,2,0,0"},
      {"a", "b", "C1,1,1,1"},
      {"abc", "axc", "C2,2,2,2"},
      {"abcd", "axyzd", "C2,3,2,3 I0,0,4,4"},
      {"axyzd", "abcd", "C2,3,2,3 D4,4,0,0"},
      {"abab", "ab", "D2,3,0,0"},
      {"aaa", "aa", "D2,2,0,0"},
      {"abc", "abcc", "I0,0,3,3"},
  };
  ExpectCases(kCases, sizeof kCases / sizeof kCases[0]);
  ExpectCases(kCases, sizeof kCases / sizeof kCases[0], CVnFileInfo::Text16);
}

TEST(VnCompareTest, DiscardingExamples) {
  static const Case kCases[] = {
      // The target's c matches seven lines (above 5) and sits inside a run of
      // certain discards: discarded with them, nothing keeps a partner.
      {"ccccccc", "adbcbba", "C1,7,1,7"},
  };
  ExpectCases(kCases, 1);
}

TEST(VnCompareTest, DiscardingOffGivesTheSearchAlone) {
  ScopedHooks hooks(false, true);
  auto source = Letters("ccccccc");
  auto target = Letters("adbcbba");
  EXPECT_EQ("C1,3,1,3 D4,6,0,0 I0,0,5,7", CompareText(source, target));
}

TEST(VnCompareTest, ShiftingExamples) {
  static const Case kCases[] = {
      {"aba", "baab", "D1,1,0,0 I0,0,3,4"},
      {"abaa", "bab", "D1,1,0,0 C4,4,3,3"},
  };
  ExpectCases(kCases, sizeof kCases / sizeof kCases[0]);
}

TEST(VnCompareTest, ShiftingOffLeavesTheSearchPositions) {
  ScopedHooks hooks(true, false);
  static const Case kCases[] = {
      {"aba", "baab", "D1,1,0,0 I0,0,2,2 I0,0,4,4"},
      {"abaa", "bab", "D1,1,0,0 D3,3,0,0 I0,0,3,3"},
  };
  ExpectCases(kCases, sizeof kCases / sizeof kCases[0]);
}

TEST(VnCompareTest, RunsAtTheEndOrBeforeADifferentLineStay) {
  static const Case kCases[] = {
      {"abc", "ab", "D3,3,0,0"},    // nothing behind the run
      {"axbc", "abc", "D2,2,0,0"},  // x differs from the b behind it
      {"abxb", "abb", "D3,3,0,0"},  // last source line never enters the prefix
  };
  ExpectCases(kCases, sizeof kCases / sizeof kCases[0]);
}

TEST(VnCompareTest, AppendsBehindEarlierRecords) {
  auto source = Letters("abc");
  auto target = Letters("axc");
  CVnDiffChangeList changes;
  source.arg->Compare(0, 0, 0, *target.arg, changes);
  source.arg->Compare(0, 0, 0, *target.arg, changes);
  EXPECT_EQ("C2,2,2,2 C2,2,2,2", vn::test::ListText(changes));
}

TEST(VnCompareTest, EqualFilesOfTwoOrMoreLinesComputeNoHash) {
  auto source = vn::test::MakeSet("one\ntwo\nthree\n");
  auto target = vn::test::MakeSet("one\ntwo\nthree\n");
  CVnDiffChangeList changes;
  source.arg->Compare(0, 0, 0, *target.arg, changes);
  EXPECT_EQ(0, changes.GetSize());
  for (auto* set : {source.arg.get(), target.arg.get()})
    for (int i = 0; i < set->GetLineCount(); ++i)
      EXPECT_EQ(0u, set->GetLines().GetAt(i)->GetHash()) << i;
}

TEST(VnCompareTest, EqualOneLineFilesRunThroughAndGiveNothing) {
  auto source = vn::test::MakeSet("abc");
  auto target = vn::test::MakeSet("abc");
  CVnDiffChangeList changes;
  source.arg->Compare(0, 0, 0, *target.arg, changes);
  EXPECT_EQ(0, changes.GetSize());
  EXPECT_EQ(2853781978u, source.arg->GetLines().GetAt(0)->GetHash());  // hashed: a full run
}

TEST(VnCompareTest, FlagsDecideWhichLinesAreEqual) {
  struct FlagCase {
    const char* source;
    const char* target;
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
    auto source = vn::test::MakeSet(c.source);
    auto target = vn::test::MakeSet(c.target);
    EXPECT_EQ(c.records, CompareText(source, target, c.ws, c.ic, c.le))
        << c.source << " / " << c.target << " flags " << c.ws << c.ic << c.le;
  }
}

TEST(VnCompareTest, LeftOverHashesShortenTheStripButNotTheResult) {
  // Compared once under ignore case, the records hold case-blind hashes;
  // a second call without flags must still find the same differences.
  auto source = vn::test::MakeSet("A\nb\nc\nd\n");
  auto target = vn::test::MakeSet("a\nb\nx\nd\n");
  EXPECT_EQ("C3,3,3,3", CompareText(source, target, 0, 1, 0));
  EXPECT_EQ("C1,1,1,1 C3,3,3,3", CompareText(source, target));
  EXPECT_EQ("C3,3,3,3", CompareText(source, target, 0, 1, 0));
}
