// VnPaneWndLinesWin32.cpp - what a pane forwards to its children: the text
// of a file, formats, counts, the line operations, scrolling and the
// private messages.
//
// Rows go to both children or to neither: a gap (InsertBlankLines) and the
// other file's lines (InsertDeletedLines) add rows to the text, and as many
// empty rows to the numbers, so that the column keeps the file's own
// numbers.  The number column follows every vertical movement of the text,
// but never scrolls sideways.
#include "window/VnPaneWnd.h"

#include "afx/win32/CScrollBar.h"
#include "window/VnLineNumPane.h"
#include "window/VnTextPane.h"

#include <cassert>

#define VN_ASSERT_CHILDREN() assert(HasChildren() && "the pane has its children")

//===-- Counts -------------------------------------------------------------===//

int CVnPaneWnd::GetLineCount() const {
  VN_ASSERT_CHILDREN();
  return m_pTextPane->GetLineCount();
}

int CVnPaneWnd::GetVisibleLineCount() {
  VN_ASSERT_CHILDREN();
  return m_pTextPane->GetVisibleLineCount();
}

int CVnPaneWnd::GetTotalLineCount(CPtrArray& first, CPtrArray& second) {
  VN_ASSERT_CHILDREN();
  return m_pTextPane->GetTotalLineCount(first, second);
}

long CVnPaneWnd::GetLineNumWidth(const CHARFORMATW& format, long count) {
  VN_ASSERT_CHILDREN();
  return m_pLineNumPane->CalcTextWidth(format, count, m_bDoubleLineNum);
}

//===-- Text and formats ---------------------------------------------------===//

// Text that replaces the whole text takes the control's default format, not
// that of the text it replaces: the format becomes the default as well.
static void SetFormatOfNewText(CVnRichEditPane& child, CHARFORMATW& format) {
  child.SendMessage(EM_SETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format));
}

void CVnPaneWnd::SetDefaultText(unsigned char* buffer, int size, const CHARFORMATW& format) {
  VN_ASSERT_CHILDREN();
  CHARFORMATW cf = format;
  m_pTextPane->SetDefaultCharFormat(cf);
  m_pLineNumPane->SetDefaultCharFormat(cf);
  SetFormatOfNewText(*m_pTextPane, cf);
  SetFormatOfNewText(*m_pLineNumPane, cf);
  m_pTextPane->SetPaneText(buffer, size);
  int count = size == 0 ? 0 : m_pTextPane->GetLineCount();
  m_pLineNumPane->DisplayLineNumbers(count);
}

int CVnPaneWnd::SetDefaultCharFormat(const CHARFORMATW& format) {
  VN_ASSERT_CHILDREN();
  if (!m_pTextPane->ChangeCharFormat(format))
    return 0;
  return m_pLineNumPane->ChangeCharFormat(format);
}

int CVnPaneWnd::SetTabStops(const CHARFORMATW& format, unsigned int tabSize) {
  VN_ASSERT_CHILDREN();
  return m_pTextPane->SetTabStops(format, tabSize);
}

//===-- Line operations ----------------------------------------------------===//

void CVnPaneWnd::ColorSelection(int first, int last, const CHARFORMATW& format) {
  VN_ASSERT_CHILDREN();
  m_pTextPane->ColorSelection(first, last, format);
  m_pLineNumPane->ColorSelection(first, last, format);
}

int CVnPaneWnd::InsertBlankLines(int line, int count, int flag, int limit) {
  VN_ASSERT_CHILDREN();
  int rows = m_pTextPane->InsertBlankLines(line, count, flag, limit);
  m_pLineNumPane->InsertBlankLines(line, count, flag, limit);
  return rows;
}

// Lines of the other file have no number here: empty rows beside them.
int CVnPaneWnd::InsertDeletedLines(const CVnDiffArg& arg, int source, int count, int line, int noLeadingBreak,
                                   int lastLineBreak, const CHARFORMATW& format) {
  VN_ASSERT_CHILDREN();
  int rows = m_pTextPane->InsertDeletedLines(arg, source, count, line, noLeadingBreak, lastLineBreak, format);
  m_pLineNumPane->InsertBlankLines(line, rows, 0, 0);
  return rows;
}

void CVnPaneWnd::InsertLine(int line, LPCWSTR text) {
  VN_ASSERT_CHILDREN();
  m_pTextPane->InsertLine(line, text);
}

void CVnPaneWnd::ColorCharacters(int line, int start, int end, const CHARFORMAT2W& format) {
  VN_ASSERT_CHILDREN();
  m_pTextPane->ColorCharacters(line, start, end, format);
}

void CVnPaneWnd::DeleteLine(int line) {
  VN_ASSERT_CHILDREN();
  m_pTextPane->DeleteLine(line);
}

void CVnPaneWnd::HideSelection(int hide, int permanent) {
  VN_ASSERT_CHILDREN();
  m_pTextPane->HideSelection(hide, permanent);
  m_pLineNumPane->HideSelection(hide, permanent);
}

int CVnPaneWnd::SetReadOnly(int textPane, int lineNumPane) {
  VN_ASSERT_CHILDREN();
  if (!m_pTextPane->SetReadOnly(textPane))
    return 0;
  return m_pLineNumPane->SetReadOnly(lineNumPane);
}

long CVnPaneWnd::SetEventMask(long mask) {
  VN_ASSERT_CHILDREN();
  return static_cast<long>(m_pTextPane->SetEventMask(static_cast<DWORD>(mask)));
}

void CVnPaneWnd::CloseFindReplace() {
  VN_ASSERT_CHILDREN();
  m_pTextPane->CloseFindReplace();
}

//===-- Scrolling ----------------------------------------------------------===//

// The number column comes to the text's first line, whatever the text pane
// made of the message.
void CVnPaneWnd::OnVScroll(UINT code, UINT pos, CScrollBar* bar) {
  if (!HasChildren())
    return;
  m_pTextPane->SendMessage(WM_VSCROLL, MAKEWPARAM(code, pos), reinterpret_cast<LPARAM>(bar ? bar->m_hWnd : nullptr));
  int difference = m_pTextPane->GetFirstVisibleLine() - m_pLineNumPane->GetFirstVisibleLine();
  if (difference != 0)
    m_pLineNumPane->LineScroll(difference);
}

void CVnPaneWnd::OnHScroll(UINT code, UINT pos, CScrollBar* bar) {
  if (!HasChildren())
    return;
  m_pTextPane->SendMessage(WM_HSCROLL, MAKEWPARAM(code, pos), reinterpret_cast<LPARAM>(bar ? bar->m_hWnd : nullptr));
}

//===-- Private messages ---------------------------------------------------===//

LRESULT CVnPaneWnd::OnSetDefaultCharFormat(WPARAM, LPARAM lParam) {
  assert(lParam && "the message carries a format");
  return SetDefaultCharFormat(*reinterpret_cast<const CHARFORMATW*>(lParam));
}

LRESULT CVnPaneWnd::OnSetTabStops(WPARAM wParam, LPARAM lParam) {
  assert(lParam && "the message carries a format");
  return SetTabStops(*reinterpret_cast<const CHARFORMATW*>(lParam), static_cast<unsigned int>(wParam));
}

LRESULT CVnPaneWnd::OnGoToBeginning(WPARAM, LPARAM) {
  VN_ASSERT_CHILDREN();
  m_pLineNumPane->GoToBeginning();
  m_pTextPane->GoToBeginning();
  return 0;
}

// Alignment rows included.
LRESULT CVnPaneWnd::OnGetMaxLineCount(WPARAM, LPARAM) {
  VN_ASSERT_CHILDREN();
  return m_pTextPane->GetLineCount();
}
