// CRichEditCtrl.cpp - the rich edit control, one message a method.
#include "afx/win32/CRichEditCtrl.h"

#include <cassert>

IMPLEMENT_DYNAMIC(CRichEditCtrl, CWnd)

#define VN_ASSERT_WINDOW() assert(::IsWindow(m_hWnd) && "the control exists")

// The library stays loaded for the life of the process, as the control's
// window class lives in it.
LPCWSTR CRichEditCtrl::ClassName() {
  static HMODULE library = ::LoadLibraryW(L"riched20.dll");
  return library ? RICHEDIT_CLASSW : nullptr;
}

BOOL CRichEditCtrl::Create(DWORD style, const RECT& rect, CWnd* parent, UINT id) {
  LPCWSTR className = ClassName();
  if (!className)
    return FALSE;
  return CWnd::CreateEx(0, className, L"", style, rect, parent, id);
}

//===-- Lines --------------------------------------------------------------===//

int CRichEditCtrl::GetLineCount() const {
  VN_ASSERT_WINDOW();
  return static_cast<int>(SendMessage(EM_GETLINECOUNT));
}

int CRichEditCtrl::LineIndex(int line) const {
  VN_ASSERT_WINDOW();
  return static_cast<int>(SendMessage(EM_LINEINDEX, static_cast<WPARAM>(line)));
}

int CRichEditCtrl::LineLength(int charIndex) const {
  VN_ASSERT_WINDOW();
  return static_cast<int>(SendMessage(EM_LINELENGTH, static_cast<WPARAM>(charIndex)));
}

int CRichEditCtrl::LineFromChar(int charIndex) const {
  VN_ASSERT_WINDOW();
  return static_cast<int>(SendMessage(EM_EXLINEFROMCHAR, 0, charIndex));
}

// EM_GETLINE takes the buffer size in its first character and writes no
// terminator.
int CRichEditCtrl::GetLine(int line, CString& text) const {
  VN_ASSERT_WINDOW();
  int size = LineLength(LineIndex(line)) + 2;
  LPWSTR buffer = text.GetBufferSetLength(size < 2 ? 2 : size);
  buffer[0] = static_cast<WCHAR>(size);
  int copied = static_cast<int>(SendMessage(EM_GETLINE, static_cast<WPARAM>(line), reinterpret_cast<LPARAM>(buffer)));
  text.ReleaseBuffer(copied);
  return copied;
}

int CRichEditCtrl::GetFirstVisibleLine() const {
  VN_ASSERT_WINDOW();
  return static_cast<int>(SendMessage(EM_GETFIRSTVISIBLELINE));
}

void CRichEditCtrl::LineScroll(int lines, int chars) {
  VN_ASSERT_WINDOW();
  SendMessage(EM_LINESCROLL, static_cast<WPARAM>(chars), lines);
}

//===-- Text and selection -------------------------------------------------===//

int CRichEditCtrl::GetTextLength() const {
  VN_ASSERT_WINDOW();
  return static_cast<int>(SendMessage(WM_GETTEXTLENGTH));
}

long CRichEditCtrl::GetTextLengthEx(DWORD flags, UINT codePage) const {
  VN_ASSERT_WINDOW();
  GETTEXTLENGTHEX how = {flags, codePage};
  return static_cast<long>(SendMessage(EM_GETTEXTLENGTHEX, reinterpret_cast<WPARAM>(&how)));
}

void CRichEditCtrl::GetSel(long& start, long& end) const {
  VN_ASSERT_WINDOW();
  CHARRANGE range = {0, 0};
  SendMessage(EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&range));
  start = range.cpMin;
  end = range.cpMax;
}

void CRichEditCtrl::SetSel(long start, long end) {
  VN_ASSERT_WINDOW();
  CHARRANGE range = {start, end};
  SendMessage(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&range));
}

void CRichEditCtrl::ReplaceSel(LPCWSTR text, BOOL canUndo) {
  VN_ASSERT_WINDOW();
  SendMessage(EM_REPLACESEL, static_cast<WPARAM>(canUndo), reinterpret_cast<LPARAM>(text));
}

CString CRichEditCtrl::GetSelText() const {
  VN_ASSERT_WINDOW();
  long start = 0, end = 0;
  GetSel(start, end);
  CString text;
  int copied = static_cast<int>(SendMessage(EM_GETSELTEXT, 0,
                                            reinterpret_cast<LPARAM>(text.GetBufferSetLength(end - start + 1))));
  text.ReleaseBuffer(copied);
  return text;
}

void CRichEditCtrl::HideSelection(BOOL hide, BOOL permanent) {
  VN_ASSERT_WINDOW();
  SendMessage(EM_HIDESELECTION, static_cast<WPARAM>(hide), permanent);
}

WORD CRichEditCtrl::GetSelectionType() const {
  VN_ASSERT_WINDOW();
  return static_cast<WORD>(SendMessage(EM_SELECTIONTYPE));
}

void CRichEditCtrl::Clear() {
  VN_ASSERT_WINDOW();
  SendMessage(WM_CLEAR);
}

void CRichEditCtrl::Copy() {
  VN_ASSERT_WINDOW();
  SendMessage(WM_COPY);
}

// The rich edit form of the message: a POINTL to fill, then the index.
CPoint CRichEditCtrl::PosFromChar(UINT charIndex) const {
  VN_ASSERT_WINDOW();
  POINTL point = {0, 0};
  SendMessage(EM_POSFROMCHAR, reinterpret_cast<WPARAM>(&point), static_cast<LPARAM>(charIndex));
  return CPoint(point.x, point.y);
}

//===-- Format and behaviour -----------------------------------------------===//

DWORD CRichEditCtrl::GetEventMask() const {
  VN_ASSERT_WINDOW();
  return static_cast<DWORD>(SendMessage(EM_GETEVENTMASK));
}

DWORD CRichEditCtrl::SetEventMask(DWORD mask) {
  VN_ASSERT_WINDOW();
  return static_cast<DWORD>(SendMessage(EM_SETEVENTMASK, 0, mask));
}

BOOL CRichEditCtrl::SetReadOnly(BOOL readOnly) {
  VN_ASSERT_WINDOW();
  return static_cast<BOOL>(SendMessage(EM_SETREADONLY, static_cast<WPARAM>(readOnly)));
}

COLORREF CRichEditCtrl::SetBackgroundColor(BOOL useSystem, COLORREF color) {
  VN_ASSERT_WINDOW();
  return static_cast<COLORREF>(SendMessage(EM_SETBKGNDCOLOR, static_cast<WPARAM>(useSystem), color));
}

BOOL CRichEditCtrl::SetDefaultCharFormat(CHARFORMAT2W& format) {
  VN_ASSERT_WINDOW();
  format.cbSize = sizeof(format);
  return static_cast<BOOL>(SendMessage(EM_SETCHARFORMAT, SCF_DEFAULT, reinterpret_cast<LPARAM>(&format)));
}

BOOL CRichEditCtrl::SetSelectionCharFormat(CHARFORMAT2W& format) {
  VN_ASSERT_WINDOW();
  format.cbSize = sizeof(format);
  return static_cast<BOOL>(SendMessage(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format)));
}

DWORD CRichEditCtrl::GetSelectionCharFormat(CHARFORMAT2W& format) const {
  VN_ASSERT_WINDOW();
  format.cbSize = sizeof(format);
  return static_cast<DWORD>(SendMessage(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format)));
}

BOOL CRichEditCtrl::SetSelectionCharFormat(CHARFORMATW& format) {
  VN_ASSERT_WINDOW();
  format.cbSize = sizeof(format);
  return static_cast<BOOL>(SendMessage(EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format)));
}

DWORD CRichEditCtrl::GetSelectionCharFormat(CHARFORMATW& format) const {
  VN_ASSERT_WINDOW();
  format.cbSize = sizeof(format);
  return static_cast<DWORD>(SendMessage(EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format)));
}

BOOL CRichEditCtrl::SetModify(BOOL modified) {
  VN_ASSERT_WINDOW();
  return static_cast<BOOL>(SendMessage(EM_SETMODIFY, static_cast<WPARAM>(modified)));
}

BOOL CRichEditCtrl::GetModify() const {
  VN_ASSERT_WINDOW();
  return static_cast<BOOL>(SendMessage(EM_GETMODIFY));
}

void CRichEditCtrl::LimitText(long maxChars) {
  VN_ASSERT_WINDOW();
  SendMessage(EM_EXLIMITTEXT, 0, maxChars);
}
