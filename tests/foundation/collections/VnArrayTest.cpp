// VnArrayTest.cpp - sorted arrays: order, search, insertion, removal, the
// difference of two sorted arrays, and the concrete string and long arrays.
#include "foundation/collections/VnArray.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace {

using namespace vn::test;

// A long array filled from a list, for short tables.
class Longs : public CVnSortableLongArray {
public:
  Longs(std::initializer_list<long> values = {}) {
    for (long v : values)
      Add(v);
  }
};

std::vector<long> Values(const CVnSortableLongArray& a) {
  std::vector<long> v;
  for (INT_PTR i = 0; i < a.GetSize(); ++i)
    v.push_back(a[i]);
  return v;
}

std::vector<std::string> Texts(const CVnStringArray& a) {
  std::vector<std::string> v;
  for (INT_PTR i = 0; i < a.GetSize(); ++i)
    v.push_back(U8(a[i]));
  return v;
}

TEST(VnSortableArrayTest, SortOrdersSignedAndRemovesDuplicates) {
  Longs a{3, -1, 3, 3, 0, -7};
  a.Sort();
  EXPECT_EQ((std::vector<long>{-7, -1, 0, 3, 3, 3}), Values(a));
  Longs b{3, 1, 3, 3};
  b.SortAndRemoveDuplicates();
  EXPECT_EQ((std::vector<long>{1, 3}), Values(b));
  CVnSortableLongArray empty;
  empty.SortAndRemoveDuplicates();
  EXPECT_EQ(0, empty.GetSize());
}

// Hits and misses (the insertion point) on every value around random arrays,
// the empty one included.
TEST(VnSortableArrayTest, FindIndexAgreesWithLowerBoundOnRandomArrays) {
  std::mt19937 rng(7);
  for (int round = 0; round < 200; ++round) {
    CVnSortableLongArray a;
    std::vector<long> ref;
    int n = static_cast<int>(rng() % 20);
    for (int i = 0; i < n; ++i) {
      long v = static_cast<long>(rng() % 40) * 2;  // even values only
      a.Add(v);
      ref.push_back(v);
    }
    a.SortAndRemoveDuplicates();
    std::sort(ref.begin(), ref.end());
    ref.erase(std::unique(ref.begin(), ref.end()), ref.end());
    for (long probe = -1; probe <= 81; ++probe) {
      int index = -1;
      bool found = a.FindIndex(probe, index);
      auto at = std::lower_bound(ref.begin(), ref.end(), probe);
      EXPECT_EQ(at != ref.end() && *at == probe, found);
      EXPECT_EQ(found, a.Contains(probe));
      EXPECT_EQ(at - ref.begin(), index) << "probe " << probe;
    }
  }
}

TEST(VnSortableArrayTest, InsertKeepsOrderAndReplacesOnlyWhenAsked) {
  CVnStringArray a;
  EXPECT_TRUE(a.Insert(CString(_T("m")), false));
  EXPECT_TRUE(a.Insert(CString(_T("a")), false));
  EXPECT_TRUE(a.Insert(CString(_T("z")), false));
  EXPECT_TRUE(a.Insert(CString(_T("M")), false));  // upper case orders first
  EXPECT_FALSE(a.Insert(CString(_T("m")), false));
  EXPECT_TRUE(a.Insert(CString(_T("m")), true));
  EXPECT_EQ((std::vector<std::string>{"M", "a", "m", "z"}), Texts(a));
}

TEST(VnSortableArrayTest, RemoveTakesOneOfSeveralEqualElements) {
  Longs a{1, 2, 2, 3};
  EXPECT_TRUE(a.Remove(2));
  EXPECT_EQ((std::vector<long>{1, 2, 3}), Values(a));
  EXPECT_FALSE(a.Remove(9));
  EXPECT_FALSE(a.Remove(0));
  EXPECT_EQ(3, a.GetSize());
}

// The reference: multiset difference and intersection by counting; equal
// values pair up one for one.  The outputs are reused from round to round,
// so each call must empty them first; empty inputs come up often enough.
TEST(VnSortableArrayTest, CompareAgreesWithABruteForceReference) {
  std::mt19937 rng(1234);
  CVnSortableLongArray common, onlyOther, onlyThis;
  for (int round = 0; round < 500; ++round) {
    std::vector<long> x, y;
    CVnSortableLongArray a, b;
    for (int i = static_cast<int>(rng() % 25); i > 0; --i)
      x.push_back(static_cast<long>(rng() % 30) - 10);
    for (int i = static_cast<int>(rng() % 25); i > 0; --i)
      y.push_back(static_cast<long>(rng() % 30) - 10);
    for (long v : x)
      a.Add(v);
    for (long v : y)
      b.Add(v);
    a.Sort();
    b.Sort();

    std::vector<long> refCommon, refOnlyThis, refOnlyOther, rest = y;
    for (long v : x) {
      auto at = std::find(rest.begin(), rest.end(), v);
      if (at != rest.end()) {
        refCommon.push_back(v);
        rest.erase(at);
      } else {
        refOnlyThis.push_back(v);
      }
    }
    refOnlyOther = rest;
    for (auto* v : {&refCommon, &refOnlyThis, &refOnlyOther})
      std::sort(v->begin(), v->end());

    // CompareThisHasMore is 1, CompareOtherHasMore 2, both together 3.
    int expected = (refOnlyThis.empty() ? 0 : 1) + (refOnlyOther.empty() ? 0 : 2);
    EXPECT_EQ(expected, a.Compare(b, common, onlyOther, onlyThis));
    EXPECT_EQ(refCommon, Values(common));
    EXPECT_EQ(refOnlyThis, Values(onlyThis));
    EXPECT_EQ(refOnlyOther, Values(onlyOther));
    EXPECT_EQ(expected == 0, (a == b) != 0);
  }
}

TEST(VnSortableArrayTest, CompareRefusesAnOutputThatIsAlsoAnInput) {
  Longs a{1, 2}, b{2}, c, d;
  EXPECT_TRUE(RaisesInvalidArg([&] { a.Compare(b, a, c, d); }));
  EXPECT_TRUE(RaisesInvalidArg([&] { a.Compare(b, c, b, d); }));
  EXPECT_TRUE(RaisesInvalidArg([&] { a.Compare(b, c, c, d); }));
  EXPECT_EQ((std::vector<long>{1, 2}), Values(a));
}

TEST(VnSortableArrayTest, EqualityNeedsTheSameElementsInTheSameOrder) {
  Longs a{1, 2, 3}, b{1, 2, 3}, c{3, 2, 1}, d{1, 2};
  EXPECT_TRUE(a == b);
  EXPECT_FALSE(a == c);  // unsorted arrays compare unequal
  EXPECT_FALSE(a == d);
}

// A subclass that reverses the order overrides both virtuals; search and
// merge then follow the new order.
class DescendingLongs : public CVnSortableLongArray {
public:
  void DoSort() override {
    CVnSortableLongArray::DoSort();
    for (INT_PTR i = 0, j = GetSize() - 1; i < j; ++i, --j)
      std::swap(ElementAt(i), ElementAt(j));
  }
  int SortElements(const long* a, const long* b) const override { return -CVnSortableLongArray::SortElements(a, b); }
};

TEST(VnSortableArrayTest, ASubclassChangesTheOrderThroughBothVirtuals) {
  DescendingLongs a;
  for (long v : {5, 9, 1})
    a.Add(v);
  a.Sort();
  EXPECT_EQ((std::vector<long>{9, 5, 1}), Values(a));
  EXPECT_TRUE(a.Insert(7, false));
  EXPECT_EQ((std::vector<long>{9, 7, 5, 1}), Values(a));
  int index = -1;
  EXPECT_TRUE(a.FindIndex(5, index));
  EXPECT_EQ(2, index);
}

TEST(VnStringArrayTest, ConcatenateAllSkipsEmptyLaterElements) {
  struct Case { std::vector<LPCWSTR> elements; LPCWSTR expected; } cases[] = {
      {{_T(""), _T("a"), _T(""), _T("b")}, _T(",a,b")}, {{_T("a"), _T("")}, _T("a")}, {{_T("x")}, _T("x")},
      {{}, _T("")},
  };
  for (const Case& c : cases) {
    CVnStringArray a;
    for (LPCWSTR e : c.elements)
      a.Add(CString(e));
    CString result(_T("stale"));
    a.ConcatenateAll(result, _T(","));
    EXPECT_EQ(CString(c.expected), result) << VnToUtf8(c.expected);
  }
}

TEST(VnStringArrayTest, StringsSortCaseSensitively) {
  CVnStringArray a;
  for (LPCWSTR s : {_T("b"), _T("B"), _T("a"), _T("A"), _T("ab"), _T("")})
    a.Add(CString(s));
  a.Sort();
  EXPECT_EQ((std::vector<std::string>{"", "A", "B", "a", "ab", "b"}), Texts(a));
}

TEST(VnStringArrayTest, NarrowStringsSortByUnsignedBytes) {
  CVnStringArrayA a;
  for (LPCSTR s : {"\xC3\xA9", "z", "a", "z"})
    a.Add(CStringA(s));
  a.SortAndRemoveDuplicates();
  ASSERT_EQ(3, a.GetSize());
  EXPECT_STREQ("a", a[0]);
  EXPECT_STREQ("z", a[1]);
  EXPECT_STREQ("\xC3\xA9", a[2]);
  EXPECT_TRUE(a.Contains(CStringA("z")));
}

TEST(VnSortableLongArrayTest, CopyTakesTheBitsOfEachDWord) {
  CDWordArray source;
  for (DWORD v : {0u, 7u, 0x7FFFFFFFu, 0x80000000u, 0xFFFFFFFFu})
    source.Add(v);
  Longs a{42, 43, 44, 45, 46, 47};
  a.Copy(source);
  EXPECT_EQ((std::vector<long>{0, 7, 0x7FFFFFFF, -2147483647L - 1, -1}), Values(a));
  a.Copy(CDWordArray());
  EXPECT_EQ(0, a.GetSize());
}

}  // namespace
