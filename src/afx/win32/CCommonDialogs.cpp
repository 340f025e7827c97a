// CCommonDialogs.cpp - the Font and Color dialogs, and the list box.
#include "afx/win32/CCommonDialogs.h"

#include <cassert>

//===-- Font ---------------------------------------------------------------===//

// Twips are 1/20 point; the logical font's height is negative pixels of the
// screen's vertical resolution.
static LONG PixelsFromTwips(LONG twips) {
  HDC screen = ::GetDC(nullptr);
  int dpi = screen ? ::GetDeviceCaps(screen, LOGPIXELSY) : 96;
  if (screen)
    ::ReleaseDC(nullptr, screen);
  return -::MulDiv(twips, dpi, 1440);
}

CFontDialog::CFontDialog(const CHARFORMATW& format, DWORD flags, HDC, CWnd* parent)
    : m_cf(), m_lf(), m_pParentWnd(parent) {
  m_cf.lStructSize = sizeof(m_cf);
  m_cf.lpLogFont = &m_lf;
  m_cf.Flags = flags | CF_INITTOLOGFONTSTRUCT;
  if (format.dwMask & CFM_FACE)
    ::lstrcpynW(m_lf.lfFaceName, format.szFaceName, LF_FACESIZE);
  if (format.dwMask & CFM_SIZE)
    m_lf.lfHeight = PixelsFromTwips(format.yHeight);
  m_lf.lfWeight = (format.dwMask & CFM_BOLD) && (format.dwEffects & CFE_BOLD) ? FW_BOLD : FW_NORMAL;
  m_lf.lfItalic = (format.dwMask & CFM_ITALIC) && (format.dwEffects & CFE_ITALIC) ? 1 : 0;
  m_lf.lfCharSet = format.bCharSet;
  m_lf.lfPitchAndFamily = format.bPitchAndFamily;
  m_cf.rgbColors = format.crTextColor;
}

INT_PTR CFontDialog::DoModal() {
  m_cf.hwndOwner = CDialog::GetSafeOwnerHwnd(m_pParentWnd);
  return ::ChooseFontW(&m_cf) ? IDOK : IDCANCEL;
}

// iPointSize is in tenths of a point, so twips are twice that.
void CFontDialog::GetCharFormat(CHARFORMATW& format) const {
  format.dwMask |= CFM_FACE | CFM_SIZE | CFM_BOLD | CFM_ITALIC;
  ::lstrcpynW(format.szFaceName, m_lf.lfFaceName, LF_FACESIZE);
  format.yHeight = m_cf.iPointSize * 2;
  format.dwEffects &= ~(CFE_BOLD | CFE_ITALIC);
  if (m_lf.lfWeight >= FW_BOLD)
    format.dwEffects |= CFE_BOLD;
  if (m_lf.lfItalic)
    format.dwEffects |= CFE_ITALIC;
  format.bCharSet = m_lf.lfCharSet;
  format.bPitchAndFamily = m_lf.lfPitchAndFamily;
}

//===-- Color --------------------------------------------------------------===//

// The sixteen custom colours live as long as the process, as the system's
// own dialog keeps them between runs.
static COLORREF g_customColors[16] = {
    0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF,
    0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF, 0xFFFFFF};

CColorDialog::CColorDialog(COLORREF initial, DWORD flags, CWnd* parent) : m_cc(), m_pParentWnd(parent) {
  m_cc.lStructSize = sizeof(m_cc);
  m_cc.rgbResult = initial;
  m_cc.Flags = flags;
  m_cc.lpCustColors = g_customColors;
}

INT_PTR CColorDialog::DoModal() {
  m_cc.hwndOwner = CDialog::GetSafeOwnerHwnd(m_pParentWnd);
  return ::ChooseColorW(&m_cc) ? IDOK : IDCANCEL;
}

//===-- List box -----------------------------------------------------------===//

int CListBox::GetCount() const {
  assert(::IsWindow(m_hWnd));
  return static_cast<int>(::SendMessageW(m_hWnd, LB_GETCOUNT, 0, 0));
}

int CListBox::AddString(LPCWSTR text) {
  assert(::IsWindow(m_hWnd));
  return static_cast<int>(::SendMessageW(m_hWnd, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text)));
}

int CListBox::GetCurSel() const {
  assert(::IsWindow(m_hWnd));
  return static_cast<int>(::SendMessageW(m_hWnd, LB_GETCURSEL, 0, 0));
}

int CListBox::SetCurSel(int index) {
  assert(::IsWindow(m_hWnd));
  return static_cast<int>(::SendMessageW(m_hWnd, LB_SETCURSEL, index, 0));
}

int CListBox::SetTopIndex(int index) {
  assert(::IsWindow(m_hWnd));
  return static_cast<int>(::SendMessageW(m_hWnd, LB_SETTOPINDEX, index, 0));
}

DWORD_PTR CListBox::GetItemData(int index) const {
  assert(::IsWindow(m_hWnd));
  return static_cast<DWORD_PTR>(::SendMessageW(m_hWnd, LB_GETITEMDATA, index, 0));
}

int CListBox::SetItemData(int index, DWORD_PTR data) {
  assert(::IsWindow(m_hWnd));
  return static_cast<int>(::SendMessageW(m_hWnd, LB_SETITEMDATA, index, static_cast<LPARAM>(data)));
}

void CListBox::ResetContent() {
  assert(::IsWindow(m_hWnd));
  ::SendMessageW(m_hWnd, LB_RESETCONTENT, 0, 0);
}
