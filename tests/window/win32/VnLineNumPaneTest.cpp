// VnLineNumPaneTest.cpp - the number column: its rows, the length it
// reserves for them, the width it needs in a font, joining two columns, and
// a control that clicks and the focus leave alone.
#include "PaneTestSupport.h"

#include "window/VnPaneMessages.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

using vn::test::CountedRows;
using vn::test::HostedPane;
using vn::test::Rows;

namespace {

// The protected counting, open to the tests.
struct CountingColumn : CVnLineNumPane {
  using CVnLineNumPane::CalcTextLength;
};

CountingColumn& Counting(HostedPane<>& p) { return static_cast<CountingColumn&>(p.Numbers()); }

// The reserved length is the exact length of the text, terminators
// between the rows and none behind the last; for no rows there is nothing
// to reserve.  The digits of 0 are those of the line count.
TEST(VnLineNumPaneDisplayLineNumbers, WritesOneRowANumberAndReservesItsExactLength) {
  struct Case {
    int count, length;
  } cases[] = {{1, 1}, {9, 25}, {10, 29}, {12, 37}, {100, 390}, {1000, 4891}};
  for (const Case& c : cases) {
    HostedPane<> p;
    p.Numbers().SetWindowText(L"old");
    p.Numbers().DisplayLineNumbers(c.count);
    EXPECT_EQ(CountedRows(c.count), Rows(p.Numbers())) << c.count;
    EXPECT_EQ(c.length, Counting(p).CalcTextLength(c.count)) << c.count;
    EXPECT_EQ(c.length, p.Numbers().GetWindowTextLength()) << c.count;
    EXPECT_EQ(static_cast<int>(std::to_string(c.count).size()), p.Numbers().GetMaxDigits(0)) << c.count;
  }
  HostedPane<> p;
  p.Numbers().SetWindowText(L"old");
  EXPECT_LE(Counting(p).CalcTextLength(0), 0);
  p.Numbers().DisplayLineNumbers(0);
  EXPECT_EQ(0, p.Numbers().GetWindowTextLength());
}

// Rows go at the end whatever the selection, each field as wide as the
// largest number; a number 0 is a blank field.
TEST(VnLineNumPaneAddRows, AppendsFieldsAsWideAsTheLargestNumber) {
  struct Case {
    const char* what;
    std::function<void(CVnLineNumPane&)> add;
    const wchar_t* rows;
  } cases[] = {
      {"single", [](CVnLineNumPane& n) { n.AddLineNumber(7, 100); }, L"1|2|7  |"},
      {"single, as wide", [](CVnLineNumPane& n) { n.AddLineNumber(123, 100); }, L"1|2|123|"},
      {"both", [](CVnLineNumPane& n) { n.AddSinglePaneLineNumber(12, 345, 999); }, L"1|2|12  345|"},
      {"first only", [](CVnLineNumPane& n) { n.AddSinglePaneLineNumber(1, 0, 100); }, L"1|2|1      |"},
      {"second only", [](CVnLineNumPane& n) { n.AddSinglePaneLineNumber(0, 5, 100); }, L"1|2|    5  |"},
      {"neither", [](CVnLineNumPane& n) { n.AddSinglePaneLineNumber(0, 0, 100); }, L"1|2|    0  |"},
  };
  for (const Case& c : cases) {
    HostedPane<> p;
    p.Numbers().SetWindowText(vn::test::Text(L"1|2|").c_str());
    p.Numbers().SetSel(0, 1);
    c.add(p.Numbers());
    EXPECT_EQ(c.rows, Rows(p.Numbers())) << c.what;
  }
}

// In a fixed-pitch font the width is the characters of the number, once or
// twice, and a blank after each.
TEST(VnLineNumPaneWidth, IsTheNumbersCharactersAndABlankInTheFont) {
  HostedPane<> p;
  CHARFORMATW format = p.pane.GetDefaultCharFormat();
  double perChar = p.Numbers().CalcTextWidth(format, 9, 0) / 2.0;
  ASSERT_GT(perChar, 0);
  struct Case {
    long count;
    int doubled, characters;
  } cases[] = {{9, 0, 2}, {10, 0, 3}, {9, 1, 4}, {10, 1, 6}, {100000, 0, 7}};
  for (const Case& c : cases)
    EXPECT_EQ(c.characters * perChar, p.Numbers().CalcTextWidth(format, c.count, c.doubled)) << c.count;
  // A larger font takes more room.
  format.yHeight *= 2;
  EXPECT_GT(p.Numbers().CalcTextWidth(format, 9, 0), 2 * perChar);
  // The pane asks the column with its own doubling.
  p.pane.SetDoubleLineNum(1);
  EXPECT_EQ(p.Numbers().CalcTextWidth(format, 10, 1), p.pane.GetLineNumWidth(format, 10));
}

// Row by row: this column's field padded to the width of the row count
// and a blank, then the other's; rows beyond the shorter column dropped.
TEST(VnLineNumPaneConcatenate, JoinsTwoColumnsRowByRow) {
  struct Case {
    const wchar_t *mine, *theirs, *joined;
  } cases[] = {
      {L"1|2|3", L"1|2|3", L"1 1|2 2|3 3|"},
      {L"1||2", L"1|2|3", L"1 1|  2|2 3|"},
      {L"1|2|3", L"1|2", L"1 1|2 2|"},
      {L"1|2|3|4|5|6|7|8|9|10", L"1|2|3|4|5|6|7|8||9", L"1  1|2  2|3  3|4  4|5  5|6  6|7  7|8  8|9  |10 9|"},
  };
  for (const Case& c : cases) {
    HostedPane<> a, b(300, 100, 200);
    a.Numbers().SetWindowText(vn::test::Text(c.mine).c_str());
    b.Numbers().SetWindowText(vn::test::Text(c.theirs).c_str());
    a.Numbers().Concatenate(b.Numbers(), a.pane.GetDefaultCharFormat());
    EXPECT_EQ(c.joined, Rows(a.Numbers())) << Rows(a.Numbers()).size();
  }
}

// A click that moves the caret in a rich edit pane moves nothing in the
// number column, and the column's background is the scroll bar colour.
TEST(VnLineNumPaneInput, IgnoresClicksAndHasTheScrollBarColour) {
  HostedPane<> p;
  p.Load(L"aaaa|bbbb|cccc");
  p.pane.SendMessage(WM_PANE_RESIZEINTERNALPANES, 0, 60);
  CVnRichEditPane* children[] = {&p.TextPane(), &p.Numbers()};
  for (CVnRichEditPane* edit : children) {
    edit->SetSel(0, 0);
    CPoint onRow3 = edit->PosFromChar(static_cast<UINT>(edit->LineIndex(2)));
    LPARAM at = MAKELPARAM(onRow3.x + 2, onRow3.y + 2);
    edit->SendMessage(WM_LBUTTONDOWN, MK_LBUTTON, at);
    edit->SendMessage(WM_LBUTTONUP, 0, at);
    bool isColumn = edit == &p.Numbers();
    EXPECT_EQ(isColumn, vn::test::Selection(*edit).first == 0) << isColumn;
  }
  COLORREF old = static_cast<COLORREF>(p.Numbers().SendMessage(EM_SETBKGNDCOLOR, 0, RGB(1, 2, 3)));
  EXPECT_EQ(::GetSysColor(COLOR_SCROLLBAR), old);
}

}  // namespace
