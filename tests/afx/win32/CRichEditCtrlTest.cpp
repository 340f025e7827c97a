// CRichEditCtrlTest.cpp - the real rich edit control, driven by its messages:
// lines, selections and lengths.  Clearing, placing characters and formats
// are shown through the panes (tests/window).
#include "afx/win32/CRichEditCtrl.h"

#include <gtest/gtest.h>

namespace {

class CRichEditCtrlTest : public testing::Test {
protected:
  void SetUp() override {
    RECT frame = {0, 0, 400, 300};
    ASSERT_EQ(TRUE, m_parent.CreateEx(0, nullptr, L"rich edit test", WS_OVERLAPPEDWINDOW, frame, nullptr, 0));
    RECT client = {0, 0, 380, 260};
    ASSERT_EQ(TRUE, m_edit.Create(WS_CHILD | WS_VISIBLE | ES_MULTILINE | WS_VSCROLL, client, &m_parent, 100));
  }

  CWnd m_parent;
  CRichEditCtrl m_edit;
};

TEST_F(CRichEditCtrlTest, CountsLinesAndFindsWhereEachBegins) {
  m_edit.SetWindowText(L"first\r\nsecond\r\nthird");
  EXPECT_EQ(3, m_edit.GetLineCount());
  // The control ends a line in one CR of its own.
  const struct { int line, index, length; } lines[] = {{0, 0, 5}, {1, 6, 6}, {2, 13, 5}};
  for (const auto& l : lines) {
    SCOPED_TRACE(l.line);
    EXPECT_EQ(l.index, m_edit.LineIndex(l.line));
    EXPECT_EQ(l.length, m_edit.LineLength(l.index));
    EXPECT_EQ(l.line, m_edit.LineFromChar(l.index));
  }
  EXPECT_EQ(-1, m_edit.LineIndex(3));
  CString text;  // a line comes with its paragraph mark
  EXPECT_EQ(7, m_edit.GetLine(1, text));
  EXPECT_EQ(0, text.Compare(L"second\r"));
}

TEST_F(CRichEditCtrlTest, SelectsAndReplacesText) {
  m_edit.SetWindowText(L"alpha\r\nbeta");
  const struct { long start, end; const wchar_t* text; } cases[] = {
      {0, 5, L"alpha"}, {2, 2, L""}, {4, 8, L"a\rbe"}, {6, 10, L"beta"}};
  for (const auto& c : cases) {
    m_edit.SetSel(c.start, c.end);
    long start = 0, end = 0;
    m_edit.GetSel(start, end);
    EXPECT_EQ(c.start, start);
    EXPECT_EQ(c.end, end);
    EXPECT_STREQ(c.text, m_edit.GetSelText().GetString());
  }
  m_edit.ReplaceSel(L"gamma\rdelta");
  EXPECT_EQ(3, m_edit.GetLineCount());
  EXPECT_EQ(19, m_edit.GetTextLength());  // each paragraph mark counts as CR LF
}

TEST_F(CRichEditCtrlTest, TextLengthInCharactersOrWithCrLfMarks) {
  const struct { const wchar_t* text; long characters, withCrLf; } cases[] = {
      {L"", 0, 0}, {L"ab", 2, 2}, {L"ab\r\ncd", 5, 6}, {L"a\r\n\r\n", 3, 5}};
  for (const auto& c : cases) {
    SCOPED_TRACE(c.characters);
    m_edit.SetWindowText(c.text);
    EXPECT_EQ(c.characters, m_edit.GetTextLengthEx(GTL_NUMCHARS | GTL_PRECISE));
    EXPECT_EQ(c.withCrLf, m_edit.GetTextLengthEx(GTL_NUMCHARS | GTL_PRECISE | GTL_USECRLF));
  }
}

}  // namespace
