// VnCompareLimitsTest.cpp - inputs at the edges: huge lines, a million lines
// that match nothing, odd-sized 16-bit buffers, empty sides.  Each must give
// the defined result without a crash or a hang.
#include "EngineTestUtil.h"

#include <gtest/gtest.h>

#include <string>

using vn::test::CompareText;
using vn::test::MakeSet;

TEST(VnCompareLimitsTest, LinesOfSeveralMegabytes) {
  std::string big(4 << 20, 'x');
  std::string other = big;
  other[big.size() / 2] = 'y';
  auto source = MakeSet("head\n" + big + "\ntail\n");
  auto same = MakeSet("head\n" + big + "\ntail\n");
  auto changed = MakeSet("head\n" + other + "\ntail\n");
  EXPECT_EQ("", CompareText(source, same));
  EXPECT_EQ("C2,2,2,2", CompareText(source, changed));
  EXPECT_EQ("C2,2,2,2", CompareText(source, changed, 1, 1, 1));
  EXPECT_EQ(big.size(), VnToUtf8(source.arg->GetLine(1)).size());
}

TEST(VnCompareLimitsTest, MillionLinesAgainstAMillionOthers) {
  const int kLines = 1000000;
  std::string as, bs;
  as.reserve(2 * kLines);
  bs.reserve(2 * kLines);
  for (int i = 0; i < kLines; ++i) {
    as += "a\n";
    bs += "b\n";
  }
  auto source = MakeSet(as);
  auto target = MakeSet(bs);
  // Nothing matches: every line is discarded before the search.
  EXPECT_EQ("C1,1000000,1,1000000", CompareText(source, target));
  auto shorter = MakeSet(bs.substr(0, bs.size() / 2));
  EXPECT_EQ("C1,500000,1,500000 D500001,1000000,0,0", CompareText(source, shorter));
}

TEST(VnCompareLimitsTest, OddSizedWideBuffersIgnoreTheLastByte) {
  auto source = MakeSet(std::string("a\0\n\0b\0\n\0z", 9), CVnFileInfo::Text16);
  auto target = MakeSet(std::string("a\0\n\0c\0\n\0", 8), CVnFileInfo::Text16);
  EXPECT_EQ(2, source.arg->GetLineCount());
  EXPECT_EQ("C2,2,2,2", CompareText(source, target));
  auto lone = MakeSet(std::string("q", 1), CVnFileInfo::Text16);
  EXPECT_EQ(0, lone.arg->GetLineCount());
  EXPECT_EQ("I0,0,1,2", CompareText(lone, target));
}

TEST(VnCompareLimitsTest, EmptySetsOnEitherSide) {
  struct {
    const char* source;
    const char* target;
    const char* records;
  } kCases[] = {
      {"", "", ""},
      {"", "x", "I0,0,1,1"},
      {"x", "", "D1,1,0,0"},
      {"", "\n\n", "I0,0,1,2"},
      {"\n", "", "D1,1,0,0"},
  };
  for (const auto& c : kCases) {
    auto source = MakeSet(c.source);
    auto target = MakeSet(c.target);
    EXPECT_EQ(c.records, CompareText(source, target)) << "'" << c.source << "' / '" << c.target << "'";
  }
  CVnDiffArg never(CVnFileInfo::Text8, 0);  // never given a buffer at all
  auto some = MakeSet("a\nb\n");
  CVnDiffChangeList changes;
  never.Compare(0, 0, 0, *some.arg, changes);
  EXPECT_EQ("I0,0,1,2", vn::test::ListText(changes));
}

TEST(VnCompareLimitsTest, ManyRepeatedLinesStayQuickAndCorrect) {
  // Blank lines and lone braces match hundreds of lines; discarding keeps
  // the search from drowning in them.  The result must still rebuild.
  std::string source, target;
  for (int i = 0; i < 20000; ++i) {
    source += (i % 3 == 0) ? "\n" : (i % 3 == 1) ? "}\n" : "stmt" + std::to_string(i) + ";\n";
    target += (i % 3 == 0) ? "\n" : (i % 3 == 1) ? "{\n" : "stmt" + std::to_string(i + (i % 7 == 0)) + ";\n";
  }
  auto s = MakeSet(source);
  auto t = MakeSet(target);
  CVnDiffChangeList changes;
  s.arg->Compare(0, 0, 0, *t.arg, changes);
  ASSERT_GT(changes.GetSize(), 0);
  long changedTarget = 0;
  for (INT_PTR i = 0; i < changes.GetSize(); ++i) {
    const CVnDiffChange* c = changes.GetAt(i);
    if (c->GetAction() != CVnDiffChange::Delete)
      changedTarget += c->TargetChangeLen();
  }
  EXPECT_GE(changedTarget, 6667 + 952);  // every brace line and every altered statement
}
