// VnSortedDWordArrayTest.cpp - the ascending set of DWORD values.
#include "foundation/collections/VnSortedDWordArray.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <vector>

namespace {

std::vector<DWORD> Values(const CDWordArray& a) {
  std::vector<DWORD> v;
  for (INT_PTR i = 0; i < a.GetSize(); ++i)
    v.push_back(a[i]);
  return v;
}

TEST(VnSortedDWordArrayTest, SortTreatsTheTopBitAsUnsigned) {
  struct Case { std::vector<DWORD> in, out; } cases[] = {
      {{0xFFFFFFFFu, 1}, {1, 0xFFFFFFFFu}}, {{5, 3, 0x7FFFFFFFu, 0}, {0, 3, 5, 0x7FFFFFFFu}},
      {{0x80000000u, 0x7FFFFFFFu, 2, 2}, {2, 2, 0x7FFFFFFFu, 0x80000000u}}, {{}, {}},
  };
  for (const Case& c : cases) {
    CVnSortedDWordArray a;
    for (DWORD v : c.in)
      a.Add(v);
    a.Sort();
    EXPECT_EQ(c.out, Values(a));
  }
}

// Both search strategies (scan below five elements, bisection from five on)
// against a reference set, under random inserts and removals.
TEST(VnSortedDWordArrayTest, AgreesWithAReferenceSetAtEverySize) {
  std::mt19937 rng(99);
  for (int round = 0; round < 100; ++round) {
    CVnSortedDWordArray a;
    std::set<DWORD> ref;
    for (int step = 0; step < 60; ++step) {
      DWORD v = rng() % 50;
      if (rng() % 3)
        a.Insert(v), ref.insert(v);
      else
        a.Remove(v), ref.erase(v);
      ASSERT_EQ(std::vector<DWORD>(ref.begin(), ref.end()), Values(a));
      for (DWORD probe = 0; probe < 52; ++probe) {
        auto at = ref.find(probe);
        int expected = at == ref.end() ? -1 : static_cast<int>(std::distance(ref.begin(), at));
        ASSERT_EQ(expected, a.Find(probe)) << "probe " << probe << " size " << ref.size();
        ASSERT_EQ(expected != -1, a.IsMember(probe) != 0);
      }
    }
  }
}

// The random values above stay small; here the top bit, in scrambled order
// with a duplicate, for insertion and for both ends of the search.
TEST(VnSortedDWordArrayTest, InsertAndFindTreatTheTopBitAsUnsigned) {
  CVnSortedDWordArray a;
  for (DWORD v : {0xFFFFFFFFu, 3u, 0x80000000u, 1u, 4u, 2u, 3u})
    a.Insert(v);
  ASSERT_EQ((std::vector<DWORD>{1, 2, 3, 4, 0x80000000u, 0xFFFFFFFFu}), Values(a));
  EXPECT_EQ(0, a.Find(1));
  EXPECT_EQ(5, a.Find(0xFFFFFFFFu));
  EXPECT_EQ(4, a.Find(0x80000000u));
  EXPECT_EQ(-1, a.Find(0));
  EXPECT_EQ(-1, a.Find(0x90000000u));
  EXPECT_EQ(-1, CVnSortedDWordArray().Find(0));
}

}  // namespace
