// VnLineIdentityTest.cpp - the line hash, equality under the three flags,
// and class numbers from the hash chains.
#include "EngineTestUtil.h"
#include "engine/VnHashKernels.h"
#include "engine/VnLineIdentity.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using vn::test::LineFlags;

// A line record over text that the caller keeps alive.
CVnDiffLine Line(const std::string& bytes, bool wide = false) {
  return CVnDiffLine(reinterpret_cast<const unsigned char*>(bytes.data()), static_cast<uint32_t>(bytes.size()), wide);
}

// Both lines, in either width, under the flags.
bool Equal(const std::string& a, const std::string& b, const CVnLineFlags& f, bool wide = false) {
  std::string wa = wide ? vn::test::Widen16(a) : a, wb = wide ? vn::test::Widen16(b) : b;
  return vn::test::LinesEqual(Line(wa, wide), Line(wb, wide), f);
}

uint32_t Hash(const std::string& text, const CVnLineFlags& f, bool wide = false) {
  std::string bytes = wide ? vn::test::Widen16(text) : text;
  CVnDiffLine line = Line(bytes, wide);
  uint32_t h = VnHashLine(line, f);
  EXPECT_EQ(h, line.GetHash()) << "the record holds the hash";
  return h;
}

struct EqualCase {
  const char* a;
  const char* b;
  bool ws, ic, le;
  bool equal;
};

}  // namespace

// Lines of every length up to 40 and around 512 units, with 16-bit units
// above 0x7FFF and bytes above 0x7F (zero-extended): the hash without flags
// must match the defined sum unit by unit, in both widths, and the flagged
// walk must give the same value when no unit is skipped or folded.
TEST(VnLineIdentityTest, HashWithoutFlagsIsTheDefinedSumAtEveryLength) {
  const CVnLineFlags none = LineFlags(false, false, false), ws = LineFlags(true, false, false);
  std::vector<size_t> lengths = {511, 512, 513, 516, 2000};
  for (size_t n = 0; n <= 40; ++n)
    lengths.push_back(n);
  for (size_t n : lengths) {
    std::string narrow, wide;
    uint32_t expected = 0, expectedNarrow = 0, pos = 1, weight = 6293815u;
    for (size_t i = 0; i < n; ++i, ++pos, weight *= 6293815u) {
      const unsigned unit = 0x41u + static_cast<unsigned>(i * 7919u % 0xFFBFu);
      const unsigned byte = 0x21u + static_cast<unsigned>(i * 37u % 0xDEu);
      wide += static_cast<char>(unit & 0xFF);
      wide += static_cast<char>(unit >> 8);
      narrow += static_cast<char>(byte);
      expected += unit * pos * weight;
      expectedNarrow += byte * pos * weight;
    }
    CVnDiffLine w = Line(wide, true), w2 = Line(wide, true), b = Line(narrow), b2 = Line(narrow);
    EXPECT_EQ(expected, VnHashLine(w, none)) << n;
    EXPECT_EQ(expectedNarrow, VnHashLine(b, none)) << n;
    EXPECT_EQ(VnHashLine(w2, ws), w.GetHash()) << n;
    EXPECT_EQ(VnHashLine(b2, ws), b.GetHash()) << n;
  }
}

// The widest kernel the machine runs against the portable one, at every
// length around the eight-lane steps, on bytes at odd addresses too.
TEST(VnLineIdentityTest, HashKernelsAgree) {
  std::vector<uint32_t> coef(80);
  std::string bytes(2 * coef.size() + 1, '\0');
  for (size_t i = 0; i < coef.size(); ++i)
    coef[i] = static_cast<uint32_t>(i * 2654435761u + 12345u);
  for (size_t i = 0; i < bytes.size(); ++i)
    bytes[i] = static_cast<char>(i * 151u + 7u);
  for (uint32_t n = 0; n <= coef.size(); ++n) {
    for (size_t offset = 0; offset < 2; ++offset) {
      const unsigned char* p = reinterpret_cast<const unsigned char*>(bytes.data()) + offset;
      EXPECT_EQ(VnDotUnits8Portable(p, coef.data(), n), VnDotUnits8(p, coef.data(), n)) << n;
      EXPECT_EQ(VnDotUnits16Portable(p, coef.data(), n), VnDotUnits16(p, coef.data(), n)) << n;
    }
  }
}

TEST(VnLineIdentityTest, SkippedUnitsDoNotMoveTheOthers) {
  EXPECT_EQ(Hash("ab", LineFlags(false, false, false)), Hash(" a\t b ", LineFlags(true, false, false)));
  EXPECT_EQ(Hash("ab", LineFlags(false, false, false)), Hash("a\rb\n", LineFlags(false, false, true)));
  EXPECT_EQ(Hash("abc", LineFlags(false, false, false)), Hash("ABC", LineFlags(false, true, false)));
  EXPECT_EQ(0u, Hash(" \t ", LineFlags(true, false, false)));
}

TEST(VnLineIdentityTest, CaseCountsBehindANul) {
  const CVnLineFlags ic = LineFlags(false, true, false);
  std::string a("Ab\0C", 4), b("ab\0c", 4), c("aB\0C", 4);
  EXPECT_NE(Hash(a, ic), Hash(b, ic));
  EXPECT_EQ(Hash(a, ic), Hash(c, ic));  // before the NUL case is folded
  EXPECT_FALSE(Equal(a, b, ic));
  EXPECT_TRUE(Equal(a, c, ic));
  EXPECT_FALSE(Equal(a, b, ic, true));
  EXPECT_TRUE(Equal(a, c, ic, true));
}

TEST(VnLineIdentityTest, EqualityUnderTheFlags) {
  static const EqualCase kCases[] = {
      {"abc", "abc", 0, 0, 0, true},
      {"abc", "abd", 0, 0, 0, false},
      {"ABC", "abc", 0, 0, 0, false},
      {"ABC", "abc", 0, 1, 0, true},
      {"a b", "ab", 1, 0, 0, true},
      {" a\tb ", "ab", 1, 0, 0, true},
      {"a b", " a\tb ", 1, 0, 0, true},
      {"   ", "", 1, 0, 0, true},
      {"ab ", "ab", 1, 0, 0, true},
      {"ab \r", "ab\r", 1, 0, 0, true},
      {"ab\r", "ab", 1, 0, 0, false},
      {"ab\r", "ab", 0, 0, 1, true},
      {"\r", "", 0, 0, 1, true},
      {"ab\r\r", "ab", 0, 0, 1, true},
      {"ab", "ab\r\r", 0, 0, 1, true},
      {"a\rb", "ab", 0, 0, 1, false},
      {"a\rb", "a\nb", 0, 0, 1, true},
      {"ab\r", "ab", 0, 0, 0, false},
      {"A b\r", "ab", 1, 1, 1, true},
      {"ab", "abc", 1, 0, 0, false},
      {"abc", "ab", 0, 0, 1, false},
  };
  for (bool wide : {false, true})
    for (const auto& c : kCases)
      EXPECT_EQ(c.equal, Equal(c.a, c.b, LineFlags(c.ws, c.ic, c.le), wide))
          << "'" << c.a << "' vs '" << c.b << "' flags " << c.ws << c.ic << c.le << " wide " << wide;
}

TEST(VnLineIdentityTest, LengthAndHashDecideBeforeTheBytes) {
  const CVnLineFlags none = LineFlags(false, false, false);
  std::string a = "abc", b = "abcd";
  CVnDiffLine la = Line(a), lb = Line(b);
  la.SetHash(5);
  lb.SetHash(5);
  EXPECT_FALSE(VnLinesEqual(la, lb, none));  // lengths differ: no look at anything else
  std::string c = "abc";
  CVnDiffLine lc = Line(c);
  lc.SetHash(6);
  EXPECT_FALSE(VnLinesEqual(la, lc, none));  // same bytes, stale hashes differ
  lc.SetHash(5);
  EXPECT_TRUE(VnLinesEqual(la, lc, none));
}

// E-acute and its capital: 16-bit lines fold as the platform folds, 8-bit
// lines A to Z only, the same in hash and walk.
TEST(VnLineIdentityTest, WideCaseFoldingUsesTheWideRules) {
  const CVnLineFlags ic = LineFlags(false, true, false);
  EXPECT_EQ(VnToLower(static_cast<WCHAR>(0xC9)) == 0xE9, Equal("\xC9", "\xE9", ic, true));
  EXPECT_FALSE(Equal("\xC9", "\xE9", ic));
}

// Classes are numbered as lines first appear; lines whose hashes collide
// are tried against each founder in the chain and stay apart.
TEST(VnLineIdentityTest, ClassesFollowFirstAppearanceAndCollisionsStaySeparate) {
  const CVnLineFlags none = LineFlags(false, false, false);
  for (bool collide : {false, true}) {
    std::string texts[] = {"a", "b", "a", "c", "b"};
    CVnDiffLine lines[5];
    CVnLineSlot slots[5];
    for (int i = 0; i < 5; ++i) {
      lines[i] = Line(texts[i]);
      const uint32_t hash = VnHashLine(lines[i], none);
      if (collide)
        lines[i].SetHash(77);
      slots[i] = {&lines[i], i, collide ? 77u : hash};
    }
    CVnClassTable table(10, none);
    int32_t expected[] = {1, 2, 1, 3, 2};
    for (int i = 0; i < 5; ++i)
      EXPECT_EQ(expected[i], table.ClassOf(slots[i])) << i << (collide ? " colliding" : "");
    EXPECT_EQ(4, table.Count());
  }
}

TEST(VnLineIdentityTest, FullPoolThrowsTheLastVisitedNode) {
  const CVnLineFlags none = LineFlags(false, false, false);
  std::string a = "a", b = "b";
  CVnDiffLine la = Line(a), lb = Line(b);
  CVnLineSlot sa = {&la, 0, VnHashLine(la, none)}, sb = {&lb, 1, VnHashLine(lb, none)};
  CVnClassTable table(2, none);  // room for class 1 only
  EXPECT_EQ(1, table.ClassOf(sa));
  bool thrown = false;
  try {
    table.ClassOf(sb);
  } catch (CVnEquivalence*) {
    thrown = true;
  }
  EXPECT_TRUE(thrown);
}
