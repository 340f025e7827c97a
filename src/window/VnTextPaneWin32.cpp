// VnTextPaneWin32.cpp - a file's text in a rich edit pane: the buffer in,
// tab stops, copy, and the synchronisation a selection change starts.
//
// The intake hands over one buffer per file: UTF-16LE text, or the raw
// bytes of a binary file the user chose to see, BINARY_MARKER (1) as their
// last byte.  Text shows form feeds as "^L", so that a page break takes no
// row of its own and the line count stays that of the file.
#include "window/VnTextPane.h"

#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/CDC.h"
#include "afx/win32/CFont.h"
#include "intake/VnDiffFile.h"
#include "window/VnFindReplaceDialog.h"
#include "window/VnPaneMessages.h"
#include "window/VnPaneSync.h"
#include "window/VnPaneWnd.h"

#include <cstring>

IMPLEMENT_DYNCREATE(CVnTextPane, CVnRichEditPane)

static const UINT s_nFindMessage = CFindReplaceDialog::GetFindMessage();

BEGIN_MESSAGE_MAP(CVnTextPane, CVnRichEditPane)
  ON_REGISTERED_MESSAGE(s_nFindMessage, OnFindText)
  ON_MESSAGE(WM_FINDDIALOG_DESTROYED, OnFindReplaceDestroyed)
  ON_NOTIFY_REFLECT(EN_SELCHANGE, OnSelChange)
END_MESSAGE_MAP()

CString CVnTextPane::m_aFindString;
int CVnTextPane::m_bMatchCase = 0;
int CVnTextPane::m_bSearchDown = 1;
CVnFindReplaceDialog* CVnTextPane::m_pFindDialog = nullptr;

CVnTextPane::CVnTextPane() : m_bNewSearch(1) { m_pFindDialog = nullptr; }

//===-- Text ---------------------------------------------------------------===//

// The bytes as 8-bit text of the system's code page, one character each.
static CString EightBitText(const unsigned char* buffer, int size) {
  const char* bytes = reinterpret_cast<const char*>(buffer);
  int length = ::MultiByteToWideChar(CP_ACP, 0, bytes, size, nullptr, 0);
  CString text;
  ::MultiByteToWideChar(CP_ACP, 0, bytes, size, text.GetBufferSetLength(length), length);
  text.ReleaseBuffer(length);
  return text;
}

// size / 2 units, copied: the buffer need not be aligned for 16 bits.
static CString SixteenBitText(const unsigned char* buffer, int size) {
  int units = size / 2;
  CString text;
  std::memcpy(text.GetBufferSetLength(units), buffer, static_cast<size_t>(units) * sizeof(WCHAR));
  text.ReleaseBuffer(units);
  text.Replace(L"\f", L"^L");
  return text;
}

void CVnTextPane::SetPaneText(const unsigned char* buffer, int size) {
  if (!buffer || size <= 0)
    SetWindowText(L"");
  else if (buffer[size - 1] == CVnDiffFile::BINARY_MARKER)
    SetWindowText(EightBitText(buffer, size));
  else
    SetWindowText(SixteenBitText(buffer, size));
}

// The width of tabSize blanks in format's font, in twips.
static int TabWidthTwips(CWnd* wnd, const CHARFORMATW& format, unsigned int tabSize) {
  CClientDC dc(wnd);
  CFont font;
  font.CreatePointFont(static_cast<int>(format.yHeight / 20) * 10, format.szFaceName);
  HGDIOBJ old = dc.SelectObject(&font);
  CString blanks(L' ', static_cast<int>(tabSize));
  int width = dc.GetTextExtent(blanks, blanks.GetLength()).cx;
  int twips = ::MulDiv(1440, width, dc.GetDeviceCaps(LOGPIXELSX));
  dc.SelectObject(old);
  return twips;
}

// The whole text is selected to carry the stops, unseen and without
// notifications; the selection comes back afterwards.  32 stops are all
// the record takes: text beyond the last has none.
int CVnTextPane::SetTabStops(const CHARFORMATW& format, unsigned int tabSize) {
  if (GetTextLength() == 0)
    return 1;
  long start = 0, end = 0;
  GetSel(start, end);
  ShowWindow(SW_HIDE);
  DWORD mask = CRichEditCtrl::SetEventMask(0);
  SetSel(0, -1);
  int width = TabWidthTwips(this, format, tabSize);
  PARAFORMAT para = {};
  para.cbSize = sizeof(para);
  para.dwMask = PFM_TABSTOPS;
  para.cTabCount = MAX_TAB_STOPS;
  for (int k = 0; k < MAX_TAB_STOPS; ++k)
    para.rgxTabs[k] = (k + 1) * width;
  int result = static_cast<int>(SendMessage(EM_SETPARAFORMAT, 0, reinterpret_cast<LPARAM>(&para)));
  SetSel(start, end);
  ShowWindow(SW_SHOW);
  CRichEditCtrl::SetEventMask(mask);
  return result;
}

//===-- Copy, caption, synchronisation -------------------------------------===//

void CVnTextPane::OnCopy() {
  if (LOWORD(GetSelectionType()) != SEL_EMPTY)
    SendMessage(WM_COPY);
}

CString CVnTextPane::GetCaption() const {
  CWnd* parent = GetParent();
  if (parent && parent->IsKindOf(RUNTIME_CLASS(CVnPaneWnd)))
    return static_cast<CVnPaneWnd*>(parent)->GetCaption();
  return CString();
}

// This pane's position goes to its CVnPaneWnd, which is the origin.
void CVnTextPane::SendSynchronize() {
  CWnd* parent = GetParent();
  if (!parent || !parent->IsKindOf(RUNTIME_CLASS(CVnPaneWnd)))
    return;
  CVnPaneSync sync(GetFirstVisibleLine(), GetFirstVisibleChar());
  parent->SendMessage(WM_PANE_SYNCHRONIZE, reinterpret_cast<WPARAM>(&sync), reinterpret_cast<LPARAM>(parent));
}

// A hidden pane starts no synchronisation.
void CVnTextPane::OnSelChange(NMHDR*, LRESULT* result) {
  if (IsWindowVisible())
    SendSynchronize();
  *result = 0;
}
