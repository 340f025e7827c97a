// VnWideSearchTest.cpp - the wide search gives the portable search's records.
//
// Each pair is compared twice, the wide search switched on and off, with
// the shaping steps off (the records are then the search's marks alone)
// and on.  The pairs cover what the wide form treats apart: dense pairs
// over few classes (snakes that end in the first steps), long snakes that
// run past the steps taken in registers, lanes whose points leave their
// windows, narrow and very uneven boxes, and pairs with more shared classes
// than 16 bits hold, which go to the portable search.  The dense pairs also
// recurse deep enough for halves to start from the points their box kept.
#include "EngineTestUtil.h"

#include "engine/VnWideSearch.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

using vn::test::LineSet;
using vn::test::MakeSet;
using vn::test::ScopedHooks;

namespace {

std::string Text(const std::vector<int>& lines) {
  std::string text;
  for (int line : lines)
    text += "line " + std::to_string(line) + "\n";
  return text;
}

// The records of both searches, under both shaping settings, must agree.
::testing::AssertionResult SameRecords(const std::vector<int>& a, const std::vector<int>& b) {
  LineSet source = MakeSet(Text(a)), target = MakeSet(Text(b));
  for (bool shaped : {false, true}) {
    std::string wide, portable;
    {
      ScopedHooks hooks(shaped, shaped, true);
      wide = vn::test::CompareText(source, target);
    }
    {
      ScopedHooks hooks(shaped, shaped, false);
      portable = vn::test::CompareText(source, target);
    }
    if (wide != portable)
      return ::testing::AssertionFailure() << (shaped ? "shaped" : "search alone") << ", " << a.size() << " and "
                                           << b.size() << " lines\nwide:     " << wide << "\nportable: " << portable;
  }
  return ::testing::AssertionSuccess();
}

std::vector<int> Random(std::mt19937& rng, int lines, int classes) {
  std::vector<int> out(static_cast<size_t>(lines));
  for (int& line : out)
    line = std::uniform_int_distribution<int>(0, classes - 1)(rng);
  return out;
}

// Replaces runs of 1 to maxRun lines by as many random ones, about half of them.
std::vector<int> ReplaceRuns(std::mt19937& rng, std::vector<int> lines, int classes, int maxRun) {
  for (size_t i = 0; i < lines.size();) {
    size_t run = static_cast<size_t>(std::uniform_int_distribution<int>(1, maxRun)(rng));
    if (rng() % 2)
      for (size_t k = i; k < i + run && k < lines.size(); ++k)
        lines[k] = std::uniform_int_distribution<int>(0, classes - 1)(rng);
    i += run;
  }
  return lines;
}

class VnWideSearchTest : public ::testing::Test {
protected:
  void SetUp() override {
    if (!VnWideSearchAvailable())
      GTEST_SKIP() << "this processor runs the portable search only";
  }
};

}  // namespace

TEST_F(VnWideSearchTest, RandomPairsOverFewClasses) {
  std::mt19937 rng(21);
  for (int round = 0; round < 400; ++round) {
    const int classes = 2 + round % 12;
    const int n0 = std::uniform_int_distribution<int>(0, 120)(rng), n1 = std::uniform_int_distribution<int>(0, 120)(rng);
    ASSERT_TRUE(SameRecords(Random(rng, n0, classes), Random(rng, n1, classes))) << "round " << round;
  }
}

TEST_F(VnWideSearchTest, DensePairs) {
  std::mt19937 rng(2026);
  // Shuffled repeats of eleven lines: bands thousands wide, snakes mostly short.
  std::vector<int> repeats = Random(rng, 3000, 11), shuffled = repeats;
  std::shuffle(shuffled.begin(), shuffled.end(), rng);
  EXPECT_TRUE(SameRecords(repeats, shuffled));
  // Unrelated files sharing a vocabulary, and half the lines replaced in runs.
  EXPECT_TRUE(SameRecords(Random(rng, 2500, 400), Random(rng, 2600, 400)));
  const std::vector<int> base = Random(rng, 3000, 300);
  EXPECT_TRUE(SameRecords(base, ReplaceRuns(rng, base, 300, 20)));
}

TEST_F(VnWideSearchTest, LongSnakesAndScatteredLanes) {
  std::mt19937 rng(5);
  // Runs of 20 to 200 equal lines between edits: snakes outlast the steps
  // taken in registers, and neighbouring diagonals' points drift apart.
  for (int round = 0; round < 20; ++round) {
    std::vector<int> a, b;
    for (int block = 0; block < 30; ++block) {
      std::vector<int> same = Random(rng, std::uniform_int_distribution<int>(20, 200)(rng), 1000);
      a.insert(a.end(), same.begin(), same.end());
      b.insert(b.end(), same.begin(), same.end());
      std::vector<int> left = Random(rng, static_cast<int>(rng() % 40), 1000);
      std::vector<int> right = Random(rng, static_cast<int>(rng() % 40), 1000);
      a.insert(a.end(), left.begin(), left.end());
      b.insert(b.end(), right.begin(), right.end());
    }
    ASSERT_TRUE(SameRecords(a, b)) << "round " << round;
  }
  // A block moved far: one long diagonal away from the others.
  std::vector<int> a = Random(rng, 4000, 100000), b = a;
  std::rotate(b.begin() + 100, b.begin() + 600, b.begin() + 3900);
  EXPECT_TRUE(SameRecords(a, b));
}

TEST_F(VnWideSearchTest, UnevenBoxes) {
  std::mt19937 rng(77);
  for (int round = 0; round < 60; ++round) {
    const int classes = 3 + round % 20;
    const int longSide = std::uniform_int_distribution<int>(200, 2000)(rng);
    const int shortSide = std::uniform_int_distribution<int>(1, 17)(rng);
    std::vector<int> a = Random(rng, longSide, classes), b = Random(rng, shortSide, classes);
    ASSERT_TRUE(round % 2 ? SameRecords(a, b) : SameRecords(b, a)) << "round " << round;
  }
}

TEST_F(VnWideSearchTest, MoreSharedClassesThanSixteenBitsHold) {
  std::mt19937 rng(3);
  std::vector<int> a(70000);
  for (int i = 0; i < 70000; ++i)
    a[static_cast<size_t>(i)] = i;
  std::vector<int> b = a;
  for (int edit = 0; edit < 50; ++edit)
    b[rng() % b.size()] = -1 - edit;
  EXPECT_TRUE(SameRecords(a, b));
}
