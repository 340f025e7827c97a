// VnResizeControlsWin32.cpp - controls that follow the client size by whole
// or half changes.
#include "toolkit/VnResizeControls.h"

#include "afx/win32/CDialog.h"
#include "afx/win32/CFrameWnd.h"
#include "afx/win32/CPropertySheet.h"

// Applies one word's choice to an axis: lo and hi are the control's two
// edges on it, bits the move, grow and centre bits of that word.
static void ApplyAxis(DWORD word, int delta, LONG& lo, LONG& hi) {
  if (word & 0x1) {
    lo += delta;
    hi += delta;
  } else if (word & 0x2) {
    hi += delta;
  } else if (word & 0x4) {
    lo += delta / 2;
    hi += delta / 2;
  }
}

void CVnResizeElement::OnSize(CWnd* parent, int dx, int dy) {
  HWND control = ::GetDlgItem(parent->m_hWnd, static_cast<int>(m_nControlId));
  if (!control)
    return;
  RECT rect;
  ::GetWindowRect(control, &rect);
  ::MapWindowPoints(nullptr, parent->m_hWnd, reinterpret_cast<POINT*>(&rect), 2);
  ApplyAxis(LOWORD(m_dwFlags), dx, rect.left, rect.right);
  ApplyAxis(HIWORD(m_dwFlags), dy, rect.top, rect.bottom);
  ::MoveWindow(control, rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top, TRUE);
}

void CVnResizeControls::Reset() {
  m_bAllowHorizontal = m_bAllowVertical = FALSE;
  m_nMinWidth = m_nMinHeight = m_nLastWidth = m_nLastHeight = -1;
  m_elements.DeleteAllMembers();
}

void CVnResizeControls::AllowResizing(BOOL horizontal, BOOL vertical) {
  m_bAllowHorizontal = horizontal;
  m_bAllowVertical = vertical;
}

void CVnResizeControls::SetMinDlgSize(int width, int height) {
  m_nMinWidth = width;
  m_nMinHeight = height;
}

void CVnResizeControls::InitResizer(const CWnd* window, BOOL horizontal, BOOL vertical, BOOL storeMinimum) {
  AllowResizing(horizontal, vertical);
  RECT rect;
  ::GetClientRect(window->m_hWnd, &rect);
  m_nLastWidth = rect.right - rect.left;
  m_nLastHeight = rect.bottom - rect.top;
  if (!storeMinimum)
    return;
  ::GetWindowRect(window->m_hWnd, &rect);
  SetMinDlgSize(rect.right - rect.left, rect.bottom - rect.top);
}

void CVnResizeControls::OnInitDialog(CDialog* dialog, BOOL horizontal, BOOL vertical) {
  InitResizer(dialog, horizontal, vertical, TRUE);
}

void CVnResizeControls::OnInitDialog(CPropertySheet* sheet, BOOL horizontal, BOOL vertical) {
  InitResizer(sheet, horizontal, vertical, TRUE);
}

void CVnResizeControls::OnInitDialog(CFrameWnd* frame, BOOL horizontal, BOOL vertical) {
  InitResizer(frame, horizontal, vertical, TRUE);
}

void CVnResizeControls::OnInitDialog(CPropertyPage* page, BOOL horizontal, BOOL vertical) {
  InitResizer(page, horizontal, vertical, FALSE);
}

void CVnResizeControls::RegisterControl(DWORD flags, UINT controlId) {
  m_elements.Add(new CVnResizeElement(flags, controlId));
}

void CVnResizeControls::UnregisterControl(UINT controlId) {
  for (INT_PTR i = 0; i < m_elements.GetSize(); ++i)
    if (m_elements[i]->IsControl(controlId)) {
      delete m_elements[i];
      m_elements.RemoveAt(i);
      return;
    }
}

void CVnResizeControls::OnSize(CWnd* window, UINT sizeType, int cx, int cy) {
  if (m_nLastWidth == -1 || m_nLastHeight == -1)
    return;
  if (sizeType != SIZE_RESTORED && sizeType != SIZE_MAXIMIZED)
    return;
  for (INT_PTR i = 0; i < m_elements.GetSize(); ++i)
    m_elements[i]->OnSize(window, cx - m_nLastWidth, cy - m_nLastHeight);
  m_nLastWidth = cx;
  m_nLastHeight = cy;
  ::InvalidateRect(window->m_hWnd, nullptr, TRUE);
}

void CVnResizeControls::OnGetMinMaxInfo(MINMAXINFO* info) {
  if (m_nLastWidth == -1 || m_nLastHeight == -1)
    return;
  info->ptMinTrackSize = {m_nMinWidth, m_nMinHeight};
  if (!m_bAllowHorizontal)
    info->ptMaxTrackSize.x = m_nMinWidth;
  if (!m_bAllowVertical)
    info->ptMaxTrackSize.y = m_nMinHeight;
}
