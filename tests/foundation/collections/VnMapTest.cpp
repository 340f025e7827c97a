// VnMapTest.cpp - the maps: copying, appending, key lookups, the owning
// pointer map, bucket placement and the bucket count suggestion.
#include "foundation/collections/VnMap.h"

#include <gtest/gtest.h>

#include <map>
#include <vector>

namespace {

// A value that counts how many of its kind are alive, to show what an owning
// map deletes.
class CountedMap : public CVnDWordCStringMap {
public:
  CountedMap() { ++s_alive; }
  ~CountedMap() override { --s_alive; }
  static int s_alive;
};
int CountedMap::s_alive = 0;

std::map<DWORD, CString> Contents(const CVnDWordCStringMap& m) {
  std::map<DWORD, CString> out;
  DWORD key;
  CString value;
  for (POSITION pos = m.GetStartPosition(); pos;) {
    m.GetNextAssoc(pos, key, value);
    out[key] = value;
  }
  return out;
}

TEST(VnMapTest, CopyKeepsTheBucketCountAndEveryAssociation) {
  CVnDWordCStringMap a;
  a.InitHashTable(53);
  for (DWORD k = 0; k < 100; ++k)
    a[k * 7] = CString(_T("v"));
  a[3] = CString(_T("three"));
  CVnDWordCStringMap b(a);
  EXPECT_EQ(53u, b.GetHashTableSize());
  EXPECT_EQ(Contents(a), Contents(b));
  b[3] = CString(_T("changed"));
  EXPECT_EQ(CString(_T("three")), a[3]);  // a deep copy of the values
}

TEST(VnMapTest, AppendTakesTheOtherValueForSharedKeys) {
  CVnDWordCStringMap a, b;
  a[1] = CString(_T("a1"));
  a[2] = CString(_T("a2"));
  b[2] = CString(_T("b2"));
  b[3] = CString(_T("b3"));
  a.Append(b);
  std::map<DWORD, CString> expected = {{1, _T("a1")}, {2, _T("b2")}, {3, _T("b3")}};
  EXPECT_EQ(expected, Contents(a));
  a.Copy(b);
  EXPECT_EQ(Contents(b), Contents(a));
  a.Copy(a);  // onto itself: unchanged
  EXPECT_EQ(Contents(b), Contents(a));
}

TEST(VnMapTest, LookupKeyGivesTheKeyAsStored) {
  CVnMap<DWORD, DWORD, CString, const CString&> m;
  m[10] = CString(_T("ten"));
  DWORD key = 10;
  CString value;
  EXPECT_TRUE(m.LookupKey(key));
  EXPECT_TRUE(m.LookupKeyAndValue(key, value));
  EXPECT_EQ(CString(_T("ten")), value);
  key = 11;
  value = _T("untouched");
  EXPECT_FALSE(m.LookupKeyAndValue(key, value));
  EXPECT_EQ(11u, key);
  EXPECT_EQ(CString(_T("untouched")), value);
}

// Iteration walks the buckets in order, so with DWORD keys hashing to
// themselves it visits keys in order of key modulo 17.
TEST(VnMapTest, DWordKeysLandInBucketKeyModuloTableSize) {
  CVnDWordCStringMap m;
  EXPECT_EQ(17u, m.GetHashTableSize());
  for (DWORD k : {16u, 18u, 3u, 0u})
    m[k] = CString();
  std::vector<DWORD> order;
  DWORD key;
  CString value;
  for (POSITION pos = m.GetStartPosition(); pos;) {
    m.GetNextAssoc(pos, key, value);
    order.push_back(key);
  }
  EXPECT_EQ((std::vector<DWORD>{0, 18, 3, 16}), order);
}

TEST(VnMapTest, StringKeyedMapLooksUpByText) {
  CVnCStringToDWordMap m;
  m[_T("alpha")] = 1;
  m[_T("Alpha")] = 2;
  DWORD v = 0;
  EXPECT_TRUE(m.Lookup(_T("alpha"), v));
  EXPECT_EQ(1u, v);
  EXPECT_TRUE(m.Lookup(_T("Alpha"), v));
  EXPECT_EQ(2u, v);
  EXPECT_FALSE(m.Lookup(_T("ALPHA"), v));
}

TEST(VnPtrMapTest, AutoDeleteDecidesWhetherValuesDieWithTheMap) {
  CountedMap::s_alive = 0;
  {
    CVnPtrMap<DWORD, DWORD, CVnDWordCStringMap> owning(TRUE);
    owning[1] = new CountedMap;
    owning[2] = new CountedMap;
    owning[3] = nullptr;
    EXPECT_EQ(2, CountedMap::s_alive);
  }
  EXPECT_EQ(0, CountedMap::s_alive);

  CountedMap* kept = new CountedMap;
  {
    CVnDWordDWordCStringMap borrowing;  // auto-delete off by default
    EXPECT_FALSE(borrowing.IsAutoDelete());
    borrowing[1] = kept;
  }
  EXPECT_EQ(1, CountedMap::s_alive);
  delete kept;
}

TEST(VnPtrMapTest, RemoveAndDeleteReportsWhetherTheKeyWasThere) {
  CountedMap::s_alive = 0;
  CVnDWordDWordCStringMap m;
  m.SetAutoDelete(TRUE);
  m[1] = new CountedMap;
  m[2] = nullptr;
  m[3] = new CountedMap;
  EXPECT_EQ(0, m.RemoveAndDelete(9));
  EXPECT_EQ(1, m.RemoveAndDelete(2));  // a null value: the key still goes
  EXPECT_EQ(1, m.RemoveAndDelete(1));
  EXPECT_EQ(1, CountedMap::s_alive);
  EXPECT_EQ(1, m.GetCount());
  m.RemoveAndDeleteAll();
  EXPECT_EQ(0, CountedMap::s_alive);
  EXPECT_EQ(0, m.GetCount());
}

TEST(VnPtrMapTest, ACopySharesThePointersAndTakesTheFlag) {
  CountedMap::s_alive = 0;
  CVnDWordDWordCStringMap source;
  source.SetAutoDelete(TRUE);
  CountedMap* value = new CountedMap;
  (*value)[5] = CString(_T("five"));
  source[1] = value;
  {
    CVnDWordDWordCStringMap copy(source);
    EXPECT_TRUE(copy.IsAutoDelete());
    EXPECT_EQ(value, copy[1]);
    copy.SetAutoDelete(FALSE);  // the source keeps ownership
  }
  EXPECT_EQ(1, CountedMap::s_alive);
  EXPECT_EQ(CString(_T("five")), (*source[1])[5]);
}

TEST(HashTableSizeTest, GivesTheFirstPrimeAboveTwelveTenthsOfTheCount) {
  struct Case { UINT count, expected; } cases[] = {
      {0, 29},         {24, 29},           {25, 53},           {44, 53}, {45, 101},
      {1666669, 2000003}, {1666670, 5000011}, {4166675, 5000011}, {357913941, 5000011},
      // 357913942 * 12 wraps to 8 in 32 bits; 8 / 10 is 0.
      {357913942u, 29},
  };
  for (const Case& c : cases)
    EXPECT_EQ(c.expected, HashTableSize(c.count)) << c.count;
}

}  // namespace
