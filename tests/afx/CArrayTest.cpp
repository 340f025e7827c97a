// CArrayTest.cpp - growable arrays and the hash map.
#include "afx/afx.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <map>
#include <random>

namespace {

using namespace vn::test;

TEST(CArrayTest, GrowsInsertsAndRemoves) {
  CDWordArray a;
  a.SetSize(0, 1000);
  for (DWORD i = 0; i < 5; ++i)
    a.Add(i * 10);
  a.InsertAt(1, 7, 2);
  a.RemoveAt(4);
  ASSERT_EQ(6, a.GetSize());
  const DWORD expected[] = {0, 7, 7, 10, 30, 40};
  for (int i = 0; i < 6; ++i)
    EXPECT_EQ(expected[i], a[i]) << i;
  a.SetAtGrow(9, 99);
  EXPECT_EQ(10, a.GetSize());
  EXPECT_EQ(0u, a[8]);  // the gap is value-initialised
  EXPECT_EQ(9, a.GetUpperBound());
}

TEST(CArrayTest, IndexesOutsideRaiseInvalidArgument) {
  CDWordArray a;
  a.Add(1);
  EXPECT_TRUE(RaisesInvalidArg([&] { a.GetAt(1); }));
  EXPECT_TRUE(RaisesInvalidArg([&] { a.GetAt(-1); }));
  EXPECT_TRUE(RaisesInvalidArg([&] { a.SetAt(5, 0); }));
  EXPECT_TRUE(RaisesInvalidArg([&] { a.RemoveAt(0, 2); }));
  EXPECT_TRUE(RaisesInvalidArg([&] { a.SetSize(-1); }));
  EXPECT_EQ(1, a.GetSize());
}

TEST(CArrayTest, TypedPointerArrayElementsAreTheUntypedSlots) {
  int x = 1, y = 2;
  CTypedPtrArray<CPtrArray, int*> a;
  a.Add(&x);
  a.ElementAt(0) = &y;  // a typed reference into the untyped block
  EXPECT_EQ(&y, a[0]);
}

TEST(CArrayTest, StringArrayCopiesValues) {
  CStringArray a, b;
  a.Add(CString(_T("one")));
  a.Add(CString(_T("two")));
  b.Copy(a);
  a[0] = _T("changed");
  EXPECT_EQ(CString(_T("one")), b[0]);
  EXPECT_EQ(2, b.Append(a));
  EXPECT_EQ(4, b.GetSize());
}

TEST(CMapTest, AgreesWithAReferenceMapUnderRandomOperations) {
  CMap<DWORD, DWORD, int, int> m;
  m.InitHashTable(7);
  std::map<DWORD, int> ref;
  std::mt19937 rng(42);
  for (int step = 0; step < 5000; ++step) {
    DWORD key = rng() % 200;
    switch (rng() % 3) {
    case 0:
      m.SetAt(key, step);
      ref[key] = step;
      break;
    case 1:
      EXPECT_EQ(ref.erase(key) == 1, m.RemoveKey(key) != 0);
      break;
    default: {
      int v = -1;
      bool found = m.Lookup(key, v) != 0;
      ASSERT_EQ(ref.count(key) == 1, found);
      if (found) {
        EXPECT_EQ(ref[key], v);
      }
    }
    }
  }
  ASSERT_EQ(static_cast<INT_PTR>(ref.size()), m.GetCount());
  std::map<DWORD, int> walked;
  for (POSITION pos = m.GetStartPosition(); pos;) {
    DWORD k;
    int v;
    m.GetNextAssoc(pos, k, v);
    walked[k] = v;
  }
  EXPECT_EQ(ref, walked);
}

TEST(CMapTest, SizesItsTableOnlyWhileEmpty) {
  CMap<CString, const CString&, int, int> m;
  EXPECT_EQ(17u, m.GetHashTableSize());
  m.InitHashTable(101);
  EXPECT_EQ(101u, m.GetHashTableSize());
  m[CString(_T("a"))] = 1;
  EXPECT_TRUE(RaisesInvalidArg([&] { m.InitHashTable(3); }));
  int v = 0;
  EXPECT_TRUE(m.Lookup(CString(_T("a")), v));
  EXPECT_EQ(1, v);
  EXPECT_FALSE(m.Lookup(CString(_T("A")), v));
}

}  // namespace
