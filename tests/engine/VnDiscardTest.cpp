// VnDiscardTest.cpp - which lines leave the search before it starts: the
// "many matches" threshold and the settling of provisional marks in runs.
#include "EngineTestUtil.h"
#include "engine/VnDiscard.h"

#include <gtest/gtest.h>

#include <string>

using vn::test::CompareText;
using vn::test::Letters;

namespace {

// Marks as digits: "0" keep, "1" discard, "2" provisional.
std::string Resolve(const std::string& marks) {
  std::string m = marks;
  for (char& c : m)
    c = static_cast<char>(c - '0');
  VnResolveDiscards(reinterpret_cast<unsigned char*>(&m[0]), static_cast<int32_t>(m.size()));
  for (char& c : m)
    c = static_cast<char>(c + '0');
  return m;
}

}  // namespace

TEST(VnDiscardTest, ThresholdDoublesAsTheSideQuadruples) {
  struct {
    int32_t lines;
    int many;
  } kCases[] = {{0, 5},      {255, 5},    {256, 10},   {1023, 10},  {1024, 20},    {4095, 20},
                {4096, 40},  {16383, 40}, {16384, 80}, {65535, 80}, {65536, 160}, {262143, 160}, {1000000, 320}};
  for (const auto& c : kCases)
    EXPECT_EQ(c.many, VnManyThreshold(c.lines)) << c.lines;
}

TEST(VnDiscardTest, ProvisionalMarksSettleByTheirRun) {
  struct {
    const char* marks;
    const char* settled;
    const char* why;
  } kCases[] = {
      {"2", "0", "no certain discard opens its run"},
      {"021", "001", "provisional before the run's first certain discard"},
      {"12", "10", "a run is shrunk to end with a certain discard"},
      {"122", "100", "several at the end"},
      {"1221", "1001", "more than a quarter of 4 lines"},
      {"12211", "10011", "more than a quarter of 5 lines"},
      {"111112211111", "111110011111", "2 in a row reach the limit 2 of a 12-line run"},
      {"111112111111", "111112111111", "a lone one stays below the limit"},
      {"11111111121111111111", "11111111121111111111", "tenth of 20: both end scans stop first"},
      {"11211111111", "11011111111", "head scan clears before its third certain discard"},
      {"11111111211", "11111111011", "tail scan likewise"},
      {"1111111111111111211111111111111", "1111111111111111211111111111111", "deep inside a long run"},
      {"1111222111111111111111111", "1111000111111111111111111", "3 in a row reach the limit 3 of a 25-line run"},
      {"1111221111111111111111111", "1111221111111111111111111", "2 in a row stay in a 25-line run"},
      {"1001", "1001", "keeps are left alone"},
  };
  for (const auto& c : kCases)
    EXPECT_EQ(c.settled, Resolve(c.marks)) << c.marks << ": " << c.why;
}

// Each case shows one rule on the records it leads to.
TEST(VnDiscardTest, DiscardsShapeTheRecords) {
  const struct {
    const char *source, *target, *records, *why;
  } kCases[] = {
      // The source c stands among seven lines without partner.  Five c in the
      // target (the threshold) keep it; six make it provisional, and deep in
      // the run it is discarded, so no c of the target keeps a partner.
      {"123c456", "ccccc", "D1,3,0,0 C5,7,2,4 I0,0,5,5", "at the threshold"},
      {"123c456", "cccccc", "C1,6,1,6 D7,7,0,0", "above the threshold"},
      // x has no equal line on the other side; it is changed although moving
      // it would not help, and the lone a pairs with the first a of the target.
      {"axb", "ab", "D2,2,0,0", "lines without partner never reach the search"},
      // The inner p equals only the prefix line of the other side: it counts
      // as matching nothing, and the whole middle is one changed hunk.
      {"pqpz", "prz", "C2,2,2,2 D3,3,0,0", "prefix and suffix lend no matches"},
  };
  for (const auto& c : kCases) {
    auto source = Letters(c.source);
    auto target = Letters(c.target);
    EXPECT_EQ(c.records, CompareText(source, target)) << c.why;
  }
}
