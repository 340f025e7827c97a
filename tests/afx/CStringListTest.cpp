// CStringListTest.cpp - the string list: order, walking, removal, faults.
#include "afx/afx.h"
#include "afx/portable/CStringList.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace vn::test;

std::vector<std::string> Forward(const CStringList& l) {
  std::vector<std::string> out;
  for (POSITION pos = l.GetHeadPosition(); pos;)
    out.push_back(VnToUtf8(l.GetNext(pos)));
  return out;
}

std::vector<std::string> Backward(const CStringList& l) {
  std::vector<std::string> out;
  for (POSITION pos = l.GetTailPosition(); pos;)
    out.push_back(VnToUtf8(l.GetPrev(pos)));
  return out;
}

TEST(CStringListTest, KeepsInsertionOrderBothWays) {
  CStringList l;
  EXPECT_TRUE(l.IsEmpty());
  EXPECT_EQ(nullptr, l.GetHeadPosition());
  l.AddTail(_T("b"));
  l.AddTail(_T("c"));
  l.AddHead(_T("a"));
  EXPECT_EQ(3, l.GetCount());
  EXPECT_EQ((std::vector<std::string>{"a", "b", "c"}), Forward(l));
  EXPECT_EQ((std::vector<std::string>{"c", "b", "a"}), Backward(l));
  EXPECT_EQ("a", VnToUtf8(l.GetHead()));
  EXPECT_EQ("c", VnToUtf8(l.GetTail()));
}

TEST(CStringListTest, RemovesFromEitherEndAndEmpties) {
  CStringList l;
  for (LPCWSTR s : {_T("1"), _T("2"), _T("3"), _T("4")})
    l.AddTail(s);
  EXPECT_EQ("1", VnToUtf8(l.RemoveHead()));
  EXPECT_EQ("4", VnToUtf8(l.RemoveTail()));
  EXPECT_EQ((std::vector<std::string>{"2", "3"}), Forward(l));
  EXPECT_EQ((std::vector<std::string>{"3", "2"}), Backward(l));
  l.RemoveHead();
  l.RemoveTail();
  EXPECT_TRUE(l.IsEmpty());
  EXPECT_EQ(nullptr, l.GetTailPosition());
  l.AddTail(_T("again"));
  l.RemoveAll();
  EXPECT_EQ(0, l.GetCount());
  EXPECT_TRUE(Forward(l).empty());
}

TEST(CStringListTest, FindsExactTextAfterAPosition) {
  CStringList l;
  POSITION first = l.AddTail(_T("x"));
  l.AddTail(_T("X"));
  POSITION third = l.AddTail(_T("x"));
  EXPECT_EQ(first, l.Find(_T("x")));
  EXPECT_EQ(third, l.Find(_T("x"), first));
  EXPECT_EQ(nullptr, l.Find(_T("x"), third));
  EXPECT_EQ(nullptr, l.Find(_T("y")));
  EXPECT_EQ("X", VnToUtf8(l.GetAt(l.Find(_T("X")))));
}

TEST(CStringListTest, EmptyEndsAndNullPositionsRaiseInvalidArgument) {
  CStringList l;
  POSITION none = nullptr;
  EXPECT_TRUE(RaisesInvalidArg([&] { l.GetHead(); }));
  EXPECT_TRUE(RaisesInvalidArg([&] { l.GetTail(); }));
  EXPECT_TRUE(RaisesInvalidArg([&] { l.RemoveHead(); }));
  EXPECT_TRUE(RaisesInvalidArg([&] { l.RemoveTail(); }));
  EXPECT_TRUE(RaisesInvalidArg([&] { l.GetNext(none); }));
  EXPECT_TRUE(RaisesInvalidArg([&] { l.GetPrev(none); }));
  EXPECT_TRUE(RaisesInvalidArg([&] { l.GetAt(none); }));
}

}  // namespace
