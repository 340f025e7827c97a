// CRichEditCtrlTest.cpp - the real rich edit control, driven by its messages.
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
  const struct {
    int line;
    int index;
    int length;
  } lines[] = {{0, 0, 5}, {1, 6, 6}, {2, 13, 5}};
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
  m_edit.SetWindowText(L"alpha beta");
  m_edit.SetSel(6, 10);
  long start = 0, end = 0;
  m_edit.GetSel(start, end);
  EXPECT_EQ(6, start);
  EXPECT_EQ(10, end);
  EXPECT_EQ(0, m_edit.GetSelText().Compare(L"beta"));
  m_edit.ReplaceSel(L"gamma\rdelta");
  EXPECT_EQ(2, m_edit.GetLineCount());
  EXPECT_EQ(18, m_edit.GetTextLength());  // the paragraph mark counts as CR LF
}

TEST_F(CRichEditCtrlTest, EventMaskAndReadOnlyAreTheControls) {
  m_edit.SetEventMask(ENM_SELCHANGE);
  EXPECT_EQ(static_cast<DWORD>(ENM_SELCHANGE), m_edit.GetEventMask());
  EXPECT_EQ(static_cast<DWORD>(ENM_SELCHANGE), m_edit.SetEventMask(0));
  m_edit.SetReadOnly(TRUE);
  EXPECT_NE(0, ::GetWindowLongW(m_edit, GWL_STYLE) & ES_READONLY);
}

}  // namespace
