// CStringATest.cpp - the 8-bit string: construction, order, equality.
#include "afx/portable/CStringA.h"

#include "afx/afx.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

namespace {

TEST(CStringATest, ConstructsFromNullPartsAndWholeTexts) {
  EXPECT_TRUE(CStringA(static_cast<LPCSTR>(nullptr)).IsEmpty());
  EXPECT_STREQ("ab", CStringA("abc", 2));
  EXPECT_TRUE(CStringA("abc", -1).IsEmpty());
  CStringA s("x");
  s += "yz";
  s += CStringA("!");
  EXPECT_STREQ("xyz!", s);
  EXPECT_EQ(4, s.GetLength());
  EXPECT_EQ('y', s.GetAt(1));
  EXPECT_TRUE(vn::test::RaisesInvalidArg([&] { s.GetAt(4); }));
}

TEST(CStringATest, CompareOrdersBytesAsUnsigned) {
  const struct { LPCSTR a, b; int sign; } cases[] = {
      {"a", "b", -1}, {"b", "a", 1}, {"a", "a", 0}, {"", "a", -1}, {"\xE9", "z", 1}, {"A", "a", -1}, {"ab", "a", 1}};
  for (const auto& c : cases) {
    int r = CStringA(c.a).Compare(c.b);
    EXPECT_EQ(c.sign, (r > 0) - (r < 0)) << c.a << " vs " << c.b;
    EXPECT_EQ(c.sign == 0, CStringA(c.a) == CStringA(c.b));
  }
}

}  // namespace
