// VnComparePropertiesTest.cpp - what every result of Compare must satisfy,
// checked on thousands of random pairs over small alphabets, in both unit
// widths and under every combination of the three flags:
//   - the records and the delta text rebuild the target;
//   - records ascend on both sides, a Change is even, and only a Change and
//     the record that finishes its hunk touch;
//   - unchanged lines pair up in order and are equal under the flags;
//   - shifting moves changed lines but keeps their number on each side;
//   - with discarding and shifting off, the script is minimal: changed
//     lines = N0 + N1 - 2 * LCS, against a brute-force LCS.
#include "EngineTestUtil.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

using vn::test::LineSet;
using vn::test::MakeSet;
using vn::test::ScopedHooks;

namespace {

const std::vector<std::string> kPlainPool = {"a", "b", "c"};
// Lines that differ in bytes but may be equal under some flag.
const std::vector<std::string> kFlagPool = {"a", "A", " a", "a\t", "b", "B", "a\r", "b\r", "\r", "", " ", "a b", "ab"};

struct Input {
  std::vector<std::string> source, target;
};

std::string Join(const std::vector<std::string>& lines, bool endingTerminator) {
  std::string text;
  for (size_t i = 0; i < lines.size(); ++i) {
    text += lines[i];
    if (i + 1 < lines.size() || endingTerminator)
      text += '\n';
  }
  return text;
}

// A random file of up to maxLines lines from the pool.  An empty last line
// needs a terminator behind it to exist at all.
std::vector<std::string> RandomLines(std::mt19937& rng, const std::vector<std::string>& pool, int maxLines) {
  std::vector<std::string> lines(std::uniform_int_distribution<int>(0, maxLines)(rng));
  for (auto& line : lines)
    line = pool[std::uniform_int_distribution<size_t>(0, pool.size() - 1)(rng)];
  return lines;
}

// A target made from the source by a few random edits, so that long common
// stretches occur as they do in real files.
std::vector<std::string> Edited(std::mt19937& rng, const std::vector<std::string>& pool, std::vector<std::string> lines) {
  int edits = std::uniform_int_distribution<int>(0, 4)(rng);
  for (int e = 0; e < edits; ++e) {
    size_t at = std::uniform_int_distribution<size_t>(0, lines.size())(rng);
    const std::string& line = pool[std::uniform_int_distribution<size_t>(0, pool.size() - 1)(rng)];
    switch (std::uniform_int_distribution<int>(0, 2)(rng)) {
    case 0: lines.insert(lines.begin() + static_cast<long>(at), line); break;
    case 1: if (at < lines.size()) lines.erase(lines.begin() + static_cast<long>(at)); break;
    default: if (at < lines.size()) lines[at] = line; break;
    }
  }
  return lines;
}

LineSet Build(const std::vector<std::string>& lines, bool wide, bool endingTerminator) {
  std::string text = Join(lines, endingTerminator || (!lines.empty() && lines.back().empty()));
  return wide ? MakeSet(vn::test::Widen16(text), CVnFileInfo::Text16) : MakeSet(text, CVnFileInfo::Text8);
}

struct Flags {
  int ws, ic, le;
  CVnLineFlags Line() const { return vn::test::LineFlags(ws, ic, le); }
  bool Any() const { return ws || ic || le; }
};

bool LinesEqual(const CVnDiffLine& a, const CVnDiffLine& b, const Flags& f) {
  return vn::test::LinesEqual(a, b, f.Line());
}

const CVnDiffChange& At(const CPtrArray& changes, INT_PTR i) { return *static_cast<const CVnDiffChange*>(changes.GetAt(i)); }

bool HasSource(const CVnDiffChange& c) { return c.GetAction() != CVnDiffChange::Insert; }
bool HasTarget(const CVnDiffChange& c) { return c.GetAction() != CVnDiffChange::Delete; }

// Marks the lines the records name: 1 per named line, per side.
void NamedLines(const CPtrArray& changes, int n0, int n1, std::vector<int>& src, std::vector<int>& tgt) {
  src.assign(static_cast<size_t>(n0), 0);
  tgt.assign(static_cast<size_t>(n1), 0);
  for (INT_PTR i = 0; i < changes.GetSize(); ++i) {
    const CVnDiffChange& c = At(changes, i);
    if (HasSource(c))
      for (long l = c.StartSource(); l <= c.EndSource(); ++l)
        src.at(static_cast<size_t>(l - 1)) = 1;
    if (HasTarget(c))
      for (long l = c.StartTarget(); l <= c.EndTarget(); ++l)
        tgt.at(static_cast<size_t>(l - 1)) = 1;
  }
}

::testing::AssertionResult WellOrdered(const CPtrArray& changes) {
  long lastSource = 0, lastTarget = 0;
  for (INT_PTR i = 0; i < changes.GetSize(); ++i) {
    const CVnDiffChange& c = At(changes, i);
    if (c.GetAction() < CVnDiffChange::Insert || c.GetAction() > CVnDiffChange::Change)
      return ::testing::AssertionFailure() << "record " << i << " has action " << c.GetAction();
    if (c.GetAction() == CVnDiffChange::Change && c.SourceChangeLen() != c.TargetChangeLen())
      return ::testing::AssertionFailure() << "uneven Change at " << i;
    if (c.GetAction() == CVnDiffChange::Insert && (c.StartSource() != 0 || c.EndSource() != 0))
      return ::testing::AssertionFailure() << "Insert with source lines at " << i;
    if (c.GetAction() == CVnDiffChange::Delete && (c.StartTarget() != 0 || c.EndTarget() != 0))
      return ::testing::AssertionFailure() << "Delete with target lines at " << i;
    bool follows = i > 0 && At(changes, i - 1).GetAction() == CVnDiffChange::Change && c.GetAction() != CVnDiffChange::Change;
    // Records touch only when a Change is finished by the next record.
    if (HasSource(c)) {
      if (c.StartSource() > c.EndSource() || c.StartSource() <= lastSource ||
          (c.StartSource() == lastSource + 1 && lastSource && !follows))
        return ::testing::AssertionFailure() << "source lines out of order at " << i;
      lastSource = c.EndSource();
    }
    if (HasTarget(c)) {
      if (c.StartTarget() > c.EndTarget() || c.StartTarget() <= lastTarget ||
          (c.StartTarget() == lastTarget + 1 && lastTarget && !follows))
        return ::testing::AssertionFailure() << "target lines out of order at " << i;
      lastTarget = c.EndTarget();
    }
  }
  return ::testing::AssertionSuccess();
}

::testing::AssertionResult UnchangedLinesPairUp(const CPtrArray& changes, const CVnDiffArg& s, const CVnDiffArg& t,
                                                const Flags& f) {
  std::vector<int> src, tgt;
  NamedLines(changes, s.GetLineCount(), t.GetLineCount(), src, tgt);
  std::vector<int> keptS, keptT;
  for (int i = 0; i < s.GetLineCount(); ++i)
    if (!src[static_cast<size_t>(i)])
      keptS.push_back(i);
  for (int j = 0; j < t.GetLineCount(); ++j)
    if (!tgt[static_cast<size_t>(j)])
      keptT.push_back(j);
  if (keptS.size() != keptT.size())
    return ::testing::AssertionFailure() << keptS.size() << " unchanged source lines, " << keptT.size() << " target";
  for (size_t k = 0; k < keptS.size(); ++k)
    if (!LinesEqual(*s.GetLines().GetAt(keptS[k]), *t.GetLines().GetAt(keptT[k]), f))
      return ::testing::AssertionFailure() << "source line " << keptS[k] << " paired with target line " << keptT[k];
  return ::testing::AssertionSuccess();
}

// Rebuilds the target from the source through the delta operations; the
// delta of Compare's records always passes the check.
::testing::AssertionResult Rebuilds(CPtrArray& changes, LineSet& source, LineSet& target, const Flags& f) {
  vn::test::Rebuilt rebuilt(changes, *source.arg, *target.arg);
  if (!rebuilt.ok)
    return ::testing::AssertionFailure() << "the delta is refused: " << rebuilt.why;
  CVnDiffArg& result = rebuilt.result;
  // Whether the last line ends is no line content: the records can't carry it.
  result.SetFileInfo(target.arg->GetFileInfo());
  if (!f.Any())
    return vn::test::Flatten(result) == target.bytes ? ::testing::AssertionSuccess()
                                                      : ::testing::AssertionFailure() << "rebuilt bytes differ";
  // Under flags unchanged lines come from the source: equal, not identical.
  if (result.GetLineCount() != target.arg->GetLineCount())
    return ::testing::AssertionFailure() << result.GetLineCount() << " lines rebuilt of " << target.arg->GetLineCount();
  for (int i = 0; i < result.GetLineCount(); ++i)
    if (!LinesEqual(*result.GetLines().GetAt(i), *target.arg->GetLines().GetAt(i), f))
      return ::testing::AssertionFailure() << "rebuilt line " << i << " differs";
  return ::testing::AssertionSuccess();
}

void ChangedCounts(const CPtrArray& changes, long& source, long& target) {
  source = target = 0;
  for (INT_PTR i = 0; i < changes.GetSize(); ++i) {
    const CVnDiffChange& c = At(changes, i);
    if (HasSource(c))
      source += c.SourceChangeLen();
    if (HasTarget(c))
      target += c.TargetChangeLen();
  }
}

int BruteForceLcs(const CVnDiffArg& s, const CVnDiffArg& t, const Flags& f) {
  const int n0 = s.GetLineCount(), n1 = t.GetLineCount();
  std::vector<std::vector<int>> len(static_cast<size_t>(n0) + 1, std::vector<int>(static_cast<size_t>(n1) + 1, 0));
  for (int i = n0 - 1; i >= 0; --i)
    for (int j = n1 - 1; j >= 0; --j)
      len[i][j] = LinesEqual(*s.GetLines().GetAt(i), *t.GetLines().GetAt(j), f)
                      ? len[i + 1][j + 1] + 1
                      : std::max(len[i + 1][j], len[i][j + 1]);
  return len[0][0];
}

const Flags kAllFlags[] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}, {1, 1, 0}, {1, 0, 1}, {0, 1, 1}, {1, 1, 1}};

std::string Describe(const Input& in, const Flags& f, bool wide) {
  std::string s = "flags " + std::to_string(f.ws) + std::to_string(f.ic) + std::to_string(f.le) + (wide ? " wide" : " narrow") + "\nsource:";
  for (auto& l : in.source)
    s += " [" + l + "]";
  s += "\ntarget:";
  for (auto& l : in.target)
    s += " [" + l + "]";
  return s;
}

Input RandomInput(std::mt19937& rng, const std::vector<std::string>& pool, int maxLines) {
  Input in;
  in.source = RandomLines(rng, pool, maxLines);
  bool related = std::uniform_int_distribution<int>(0, 2)(rng) != 0;
  in.target = related ? Edited(rng, pool, in.source) : RandomLines(rng, pool, maxLines);
  return in;
}

}  // namespace

TEST(VnComparePropertiesTest, RecordsAreOrderedPairedAndRebuildTheTarget) {
  std::mt19937 rng(20261122);
  for (int round = 0; round < 250; ++round) {
    const bool large = round % 25 == 0;  // now and then long enough for the threshold to matter
    for (const Flags& f : kAllFlags) {
      const auto& pool = (round % 2) ? kFlagPool : kPlainPool;
      Input in = RandomInput(rng, pool, large ? 300 : 14);
      bool terminated = std::uniform_int_distribution<int>(0, 1)(rng) != 0;
      for (bool wide : {false, true}) {
        LineSet source = Build(in.source, wide, terminated);
        LineSet target = Build(in.target, wide, !terminated);
        CVnDiffChangeList changes;
        source.arg->Compare(f.ws, f.ic, f.le, *target.arg, changes);
        ASSERT_TRUE(WellOrdered(changes)) << Describe(in, f, wide) << "\n" << vn::test::ListText(changes);
        ASSERT_TRUE(UnchangedLinesPairUp(changes, *source.arg, *target.arg, f)) << Describe(in, f, wide);
        ASSERT_TRUE(Rebuilds(changes, source, target, f)) << Describe(in, f, wide);
      }
    }
  }
}

TEST(VnComparePropertiesTest, ShiftingKeepsTheChangedCountOfEachSide) {
  std::mt19937 rng(7);
  for (int round = 0; round < 1500; ++round) {
    const Flags& f = kAllFlags[round % 8];
    Input in = RandomInput(rng, (round % 3) ? kPlainPool : kFlagPool, 16);
    LineSet source = Build(in.source, round % 2 != 0, true);
    LineSet target = Build(in.target, round % 2 != 0, true);
    long shifted[2], unshifted[2];
    {
      CVnDiffChangeList changes;
      source.arg->Compare(f.ws, f.ic, f.le, *target.arg, changes);
      ChangedCounts(changes, shifted[0], shifted[1]);
    }
    {
      ScopedHooks hooks(true, false);
      CVnDiffChangeList changes;
      source.arg->Compare(f.ws, f.ic, f.le, *target.arg, changes);
      ChangedCounts(changes, unshifted[0], unshifted[1]);
    }
    ASSERT_EQ(unshifted[0], shifted[0]) << Describe(in, f, round % 2 != 0);
    ASSERT_EQ(unshifted[1], shifted[1]) << Describe(in, f, round % 2 != 0);
  }
}

TEST(VnComparePropertiesTest, WithoutDiscardingAndShiftingTheScriptIsMinimal) {
  ScopedHooks hooks(false, false);
  std::mt19937 rng(1234);
  for (int round = 0; round < 2000; ++round) {
    const Flags& f = kAllFlags[round % 8];
    Input in = RandomInput(rng, (round % 2) ? kPlainPool : kFlagPool, 12);
    LineSet source = Build(in.source, round % 3 == 0, true);
    LineSet target = Build(in.target, round % 3 == 0, true);
    CVnDiffChangeList changes;
    source.arg->Compare(f.ws, f.ic, f.le, *target.arg, changes);
    long changedSource, changedTarget;
    ChangedCounts(changes, changedSource, changedTarget);
    long expected = source.arg->GetLineCount() + target.arg->GetLineCount() - 2 * BruteForceLcs(*source.arg, *target.arg, f);
    ASSERT_EQ(expected, changedSource + changedTarget) << Describe(in, f, round % 3 == 0) << "\n" << vn::test::ListText(changes);
    ASSERT_TRUE(UnchangedLinesPairUp(changes, *source.arg, *target.arg, f)) << Describe(in, f, false);
  }
}
