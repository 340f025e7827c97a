// VnPaneWndWin32.cpp - a pane: its caption and children, their layout, and
// the line operations forwarded to both children.
//
// The children are made in OnCreate: the caption first (a status bar with
// one stretched indicator), then the text pane over the whole client area
// and the number column with no width at all.  The column gets its width
// from WM_PANE_RESIZEINTERNALPANES (0 hides it) and keeps it across
// WM_SIZE.  Everything that adds or removes rows goes to both children, so
// that row n of the numbers stays beside row n of the text; what changes a
// single row's content goes to the text pane only.
#include "window/VnPaneWnd.h"

#include "afx/win32/AfxMsgMap.h"
#include "foundation/LocalResources.h"
#include "window/VnLineNumPane.h"
#include "window/VnPaneMessages.h"
#include "window/VnTextPane.h"

#include <commctrl.h>
#include <uxtheme.h>

#include <cassert>

IMPLEMENT_DYNCREATE(CVnPaneWnd, CWnd)

BEGIN_MESSAGE_MAP(CVnPaneWnd, CWnd)
  ON_WM_CREATE()
  ON_WM_DESTROY()
  ON_WM_CLOSE()
  ON_WM_SIZE()
  ON_MESSAGE(WM_PANE_SYNCHRONIZE, OnSynchronize)
  ON_MESSAGE(WM_PANE_SETDEFAULTCHARFORMAT, OnSetDefaultCharFormat)
  ON_MESSAGE(WM_PANE_SETTABSTOPS, OnSetTabStops)
  ON_MESSAGE(WM_PANE_GOTOBEGINNING, OnGoToBeginning)
  ON_MESSAGE(WM_PANE_RESIZEINTERNALPANES, OnResizeInternalPanes)
  ON_MESSAGE(WM_PANE_GETMAXLINECOUNT, OnGetMaxLineCount)
END_MESSAGE_MAP()

// The children's style: no scroll bars of their own.
static const DWORD kChildStyle = WS_CHILD | WS_VISIBLE | ES_MULTILINE | ES_AUTOVSCROLL | ES_AUTOHSCROLL | ES_WANTRETURN;
// The caption's one indicator: "File Name goes here".
static const UINT kCaptionIndicator = 152;

CString GetLineTerminator(unsigned char*, unsigned int) { return CString(L"\r\n"); }

CVnPaneWnd::CVnPaneWnd() : m_pTextPane(nullptr), m_pLineNumPane(nullptr), m_bDoubleLineNum(0) {}

CVnPaneWnd::~CVnPaneWnd() { DestroyWindow(); }

void CVnPaneWnd::SetLineTerminator(LPCWSTR terminator) { m_strLineTerminator = terminator ? terminator : L""; }

//===-- Creation -----------------------------------------------------------===//

// A caption without its indicator leaves the pane without children; the
// window exists all the same, and layout leaves it alone.
int CVnPaneWnd::OnCreate(LPCREATESTRUCTW create) {
  if (CWnd::OnCreate(create) == -1)
    return -1;
  m_wndCaption.Create(this, WS_CHILD | WS_VISIBLE | CBRS_TOP, AFX_IDW_STATUS_BAR);
  if (!m_wndCaption.SetIndicators(&kCaptionIndicator, 1, GetResourceModule()))
    return 0;
  m_wndCaption.SetPaneStyle(0, SBPS_STRETCH | SBPS_POPOUT);
  CreateInternalPanes();
  return 0;
}

// The children never take an edit from the user, so they keep no undo and
// no limit on their length: all their text comes from the line operations.
// (An undo record of each replaced text makes a long file's text cost time
// in the square of its length in some builds of the control.)
static void HoldAnyLengthWithoutUndo(CRichEditCtrl& child) {
  child.SendMessage(EM_SETUNDOLIMIT, 0);
  child.SendMessage(EM_EXLIMITTEXT, 0, 0x7FFFFFFE);
}

int CVnPaneWnd::CreateInternalPanes() {
  CRect client;
  GetClientRect(&client);
  CRect text(0, 0, client.Width(), client.Height());
  if (!CreateTextPane(text))
    return 0;
  CRect numbers(0, 0, 0, client.Height());
  if (!CreateLineNumPane(numbers))
    return 0;
  m_pTextPane->SetEventMask(m_pTextPane->GetEventMask() | ENM_SELCHANGE);
  SetReadOnly(1, 1);
  HoldAnyLengthWithoutUndo(*m_pTextPane);
  HoldAnyLengthWithoutUndo(*m_pLineNumPane);
  return 1;
}

int CVnPaneWnd::CreateTextPane(CRect& rect) {
  m_pTextPane = new CVnTextPane;
  return m_pTextPane->Create(kChildStyle, rect, this, GetDlgCtrlID());
}

int CVnPaneWnd::CreateLineNumPane(CRect& rect) {
  m_pLineNumPane = new CVnLineNumPane;
  return m_pLineNumPane->Create(kChildStyle, rect, this, GetDlgCtrlID() + 1);
}

// Text pane first, then the number column: each window, then its object.
void CVnPaneWnd::OnDestroy() {
  CWnd::OnDestroy();
  CVnRichEditPane* children[] = {m_pTextPane, m_pLineNumPane};
  for (CVnRichEditPane* child : children) {
    if (child && child->m_hWnd)
      child->DestroyWindow();
    delete child;
  }
  m_pTextPane = nullptr;
  m_pLineNumPane = nullptr;
}

// The pane never closes itself: the request goes up to the frame.
void CVnPaneWnd::OnClose() {
  if (HWND parent = ::GetParent(m_hWnd))
    ::PostMessageW(parent, WM_CLOSE, 0, 0);
}

//===-- Caption ------------------------------------------------------------===//

int CVnPaneWnd::SetCaption(LPCWSTR text, int update) {
  if (text)
    m_wndCaption.SetPaneText(0, text, update);
  return 1;
}

// A themed status bar paints its own background whatever colour it is
// given: a coloured caption is drawn without the theme.
void CVnPaneWnd::SetCaptionColor(COLORREF color) {
  if (color == CLR_DEFAULT)
    ::SetWindowTheme(m_wndCaption.m_hWnd, nullptr, nullptr);
  else
    ::SetWindowTheme(m_wndCaption.m_hWnd, L" ", L" ");
  m_wndCaption.SendMessage(SB_SETBKCOLOR, 0, static_cast<LPARAM>(color));
}

CString CVnPaneWnd::GetCaption() const { return m_wndCaption.GetCount() ? m_wndCaption.GetPaneText(0) : CString(); }

//===-- Layout -------------------------------------------------------------===//

bool CVnPaneWnd::HasChildren() const {
  return m_pTextPane && m_pTextPane->m_hWnd && m_pLineNumPane && m_pLineNumPane->m_hWnd;
}

int CVnPaneWnd::CaptionHeight() const {
  CRect caption;
  m_wndCaption.GetWindowRect(&caption);
  return caption.Height();
}

// The number column keeps its width and runs the whole client height: the
// part below the pane's edge is clipped.
void CVnPaneWnd::OnSize(UINT type, int cx, int cy) {
  CWnd::OnSize(type, cx, cy);
  if (type == SIZE_MINIMIZED || !HasChildren())
    return;
  CRect client;
  GetClientRect(&client);
  RepositionBars(AFX_IDW_STATUS_BAR, AFX_IDW_STATUS_BAR, 0);
  int h = CaptionHeight();
  CRect numbers;
  m_pLineNumPane->GetClientRect(&numbers);
  int w = numbers.Width();
  m_pLineNumPane->MoveWindow(0, h, w, client.Height());
  m_pTextPane->MoveWindow(w, h, client.Width() - w, client.Height() - h);
}

// How the number column gets its width (lParam, pixels; 0 hides it).
LRESULT CVnPaneWnd::OnResizeInternalPanes(WPARAM, LPARAM lParam) {
  if (!HasChildren())
    return 0;
  int width = static_cast<int>(lParam);
  CRect client, left;
  GetClientRect(&client);
  RepositionBars(AFX_IDW_STATUS_BAR, AFX_IDW_STATUS_BAR, 0, reposQuery, &left);
  RepositionBars(AFX_IDW_STATUS_BAR, AFX_IDW_STATUS_BAR, 0);
  int h = CaptionHeight();
  m_pTextPane->MoveWindow(width, h, client.Width() - width, client.Height() - h);
  m_pLineNumPane->MoveWindow(0, h, width, client.Height() - h);
  return 0;
}
