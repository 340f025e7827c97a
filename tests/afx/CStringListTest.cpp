// CStringListTest.cpp - the string list: order, walking, removal, faults.
#include "afx/afx.h"
#include "afx/portable/CStringList.h"

#include "TestSupport.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

namespace {

using namespace vn::test;
using Texts = std::vector<std::string>;

// The list walked from the head, then from the tail, as one sequence.
Texts HeadToTailThenBack(const CStringList& l) {
  Texts out;
  for (POSITION pos = l.GetHeadPosition(); pos;)
    out.push_back(U8(l.GetNext(pos)));
  for (POSITION pos = l.GetTailPosition(); pos;)
    out.push_back(U8(l.GetPrev(pos)));
  return out;
}

TEST(CStringListTest, KeepsInsertionOrderAndRemovesFromEitherEnd) {
  CStringList l;
  EXPECT_TRUE(l.IsEmpty());
  EXPECT_EQ(nullptr, l.GetHeadPosition());
  l.AddTail(_T("b"));
  l.AddTail(_T("c"));
  l.AddHead(_T("a"));
  l.AddTail(_T("d"));
  EXPECT_EQ(4, l.GetCount());
  EXPECT_EQ((Texts{"a", "b", "c", "d", "d", "c", "b", "a"}), HeadToTailThenBack(l));
  EXPECT_EQ("a", U8(l.GetHead()));
  EXPECT_EQ("d", U8(l.GetTail()));
  EXPECT_EQ("a", U8(l.RemoveHead()));
  EXPECT_EQ("d", U8(l.RemoveTail()));
  EXPECT_EQ((Texts{"b", "c", "c", "b"}), HeadToTailThenBack(l));
  l.RemoveHead();
  l.RemoveTail();
  EXPECT_TRUE(l.IsEmpty());
  EXPECT_EQ(nullptr, l.GetTailPosition());
  l.AddTail(_T("again"));
  l.RemoveAll();
  EXPECT_EQ(0, l.GetCount());
  EXPECT_TRUE(HeadToTailThenBack(l).empty());
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
  EXPECT_EQ("X", U8(l.GetAt(l.Find(_T("X")))));
}

TEST(CStringListTest, EmptyEndsAndNullPositionsRaiseInvalidArgument) {
  CStringList l;
  POSITION none = nullptr;
  const std::function<void()> faults[] = {[&] { l.GetHead(); },     [&] { l.GetTail(); },
                                          [&] { l.RemoveHead(); },  [&] { l.RemoveTail(); },
                                          [&] { l.GetNext(none); }, [&] { l.GetPrev(none); },
                                          [&] { l.GetAt(none); }};
  for (size_t k = 0; k < sizeof faults / sizeof faults[0]; ++k)
    EXPECT_TRUE(RaisesInvalidArg(faults[k])) << k;
}

}  // namespace
