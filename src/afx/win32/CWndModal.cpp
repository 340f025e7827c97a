// CWndModal.cpp - the modal loop of dialogs and sheets that run modeless.
//
// The loop waits for messages as the application's loop does; while the
// queue is empty it shows the window once (MLF_SHOWONIDLE) and sends it
// WM_KICKIDLE with a growing count until the window answers 0.  Each message
// is offered to the window's PreTranslateMessage (the dialog manager's keys)
// before it is dispatched.  WM_QUIT ends the loop and is posted again for
// the loop outside.
#include "afx/win32/AfxRes.h"
#include "afx/win32/CWnd.h"

#include <cassert>

// Runs the idle phase; gives whether another idle pass is wanted.
static bool KickIdle(HWND hWnd, DWORD flags, LONG& count, bool& shown) {
  if ((flags & CWnd::MLF_SHOWONIDLE) && !shown) {
    ::ShowWindow(hWnd, SW_SHOWNORMAL);
    ::UpdateWindow(hWnd);
    shown = true;
  }
  if (flags & CWnd::MLF_NOKICKIDLE)
    return false;
  return ::SendMessageW(hWnd, WM_KICKIDLE, MSGF_DIALOGBOX, count++) != 0;
}

int CWnd::RunModalLoop(DWORD flags) {
  assert(::IsWindow(m_hWnd) && "the loop serves a live window");
  m_bContinueModal = TRUE;
  bool idle = true, shown = (::GetWindowLongW(m_hWnd, GWL_STYLE) & WS_VISIBLE) != 0;
  LONG count = 0;
  MSG msg;
  while (m_bContinueModal) {
    while (idle && !::PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE))
      idle = KickIdle(m_hWnd, flags, count, shown);
    if (::GetMessageW(&msg, nullptr, 0, 0) <= 0) {
      ::PostQuitMessage(static_cast<int>(msg.wParam));
      break;
    }
    if (!PreTranslateMessage(&msg)) {
      ::TranslateMessage(&msg);
      ::DispatchMessageW(&msg);
    }
    if (!ContinueModal())
      break;
    if (msg.message != WM_TIMER && msg.message != WM_MOUSEMOVE && msg.message != WM_NCMOUSEMOVE) {
      idle = true;
      count = 0;
    }
  }
  m_bContinueModal = FALSE;
  return m_nModalResult;
}

// Wakes the loop, which may be waiting, so that it sees the end.
void CWnd::EndModalLoop(int result) {
  m_nModalResult = result;
  if (!m_bContinueModal)
    return;
  m_bContinueModal = FALSE;
  ::PostMessageW(m_hWnd, WM_NULL, 0, 0);
}
