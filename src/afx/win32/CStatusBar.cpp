// CStatusBar.cpp - the status bar control as a bar with indicators.
#include "afx/win32/CStatusBar.h"

#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/CFrameWnd.h"

#include <commctrl.h>

#include <cassert>

IMPLEMENT_DYNAMIC(CStatusBar, CControlBar)

BEGIN_MESSAGE_MAP(CStatusBar, CControlBar)
  ON_WM_SIZE()
END_MESSAGE_MAP()

#define VN_ASSERT_WINDOW() assert(::IsWindow(m_hWnd) && "the control exists")
#define VN_ASSERT_INDEX(i) assert((i) >= 0 && (i) < GetCount() && "a part of the bar")

// The bar is placed by its parent's layout, never by itself: the control
// neither aligns to its parent nor sizes itself.
BOOL CStatusBar::Create(CWnd* parent, DWORD style, UINT id) {
  static const bool loaded = [] {
    INITCOMMONCONTROLSEX init = {sizeof(init), ICC_BAR_CLASSES};
    return ::InitCommonControlsEx(&init) != FALSE;
  }();
  (void)loaded;
  DWORD own = CCS_NOPARENTALIGN | CCS_NOMOVEY | CCS_NODIVIDER | CCS_NORESIZE;
  m_dwStyle = style & CBRS_ALL;
  CRect none(0, 0, 0, 0);
  return CWnd::CreateEx(0, STATUSCLASSNAMEW, L"", (style & ~CBRS_ALL) | own, none, parent, id) && SubclassCreated();
}

//===-- Indicators ---------------------------------------------------------===//

BOOL CStatusBar::SetIndicators(const UINT* ids, int count, HINSTANCE module) {
  VN_ASSERT_WINDOW();
  assert((ids || count == 0) && "identifiers for every part");
  m_aParts.clear();
  HINSTANCE from = module ? module : ::GetModuleHandleW(nullptr);
  BOOL result = TRUE;
  std::vector<CString> texts;
  for (int k = 0; k < count && result; ++k) {
    WCHAR text[256] = {};
    if (ids[k] != ID_SEPARATOR && ::LoadStringW(from, ids[k], text, 256) <= 0) {
      result = FALSE;
      break;
    }
    m_aParts.push_back({ids[k], SBPS_NORMAL, TextWidth(text)});
    texts.push_back(text);
  }
  UpdateParts();
  for (int k = 0; k < GetCount(); ++k)
    SetPaneText(k, texts[k], FALSE);
  return result && GetCount() == count;
}

UINT CStatusBar::GetItemID(int index) const {
  VN_ASSERT_INDEX(index);
  return m_aParts[index].id;
}

int CStatusBar::CommandToIndex(UINT id) const {
  for (int k = 0; k < GetCount(); ++k)
    if (m_aParts[k].id == id)
      return k;
  return -1;
}

//===-- Parts --------------------------------------------------------------===//

void CStatusBar::GetPaneInfo(int index, UINT& id, UINT& style, int& width) const {
  VN_ASSERT_INDEX(index);
  id = m_aParts[index].id;
  style = m_aParts[index].style;
  width = m_aParts[index].width;
}

void CStatusBar::SetPaneInfo(int index, UINT id, UINT style, int width) {
  VN_ASSERT_INDEX(index);
  m_aParts[index].id = id;
  m_aParts[index].width = width;
  SetPaneStyle(index, style);
}

UINT CStatusBar::GetPaneStyle(int index) const {
  VN_ASSERT_INDEX(index);
  return m_aParts[index].style;
}

// The drawing bits go to the control with the part's text.
void CStatusBar::SetPaneStyle(int index, UINT style) {
  VN_ASSERT_INDEX(index);
  m_aParts[index].style = style;
  UpdateParts();
  SetPaneText(index, GetPaneText(index));
}

CString CStatusBar::GetPaneText(int index) const {
  VN_ASSERT_INDEX(index);
  int length = LOWORD(SendMessage(SB_GETTEXTLENGTHW, static_cast<WPARAM>(index)));
  CString text;
  SendMessage(SB_GETTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.GetBufferSetLength(length)));
  text.ReleaseBuffer(length);
  return text;
}

BOOL CStatusBar::SetPaneText(int index, LPCWSTR text, BOOL update) {
  VN_ASSERT_INDEX(index);
  WPARAM how = static_cast<WPARAM>(index) | (m_aParts[index].style & (SBT_NOBORDERS | SBT_POPOUT));
  BOOL done = static_cast<BOOL>(SendMessage(SB_SETTEXTW, how, reinterpret_cast<LPARAM>(text ? text : L"")));
  if (done && update)
    UpdateWindow();
  return done;
}

//===-- Layout -------------------------------------------------------------===//

// Fixed parts keep their widths; stretching parts share what is left of
// the client width, none below 0.
void CStatusBar::UpdateParts() {
  if (m_aParts.empty())
    return;
  CRect client;
  GetClientRect(&client);
  int fixed = 0, stretching = 0;
  for (const Part& part : m_aParts)
    part.style & SBPS_STRETCH ? ++stretching : fixed += part.width;
  int share = stretching && client.Width() > fixed ? (client.Width() - fixed) / stretching : 0;
  std::vector<int> edges;
  int x = 0;
  for (const Part& part : m_aParts)
    edges.push_back(x += part.style & SBPS_STRETCH ? share : part.width);
  SendMessage(SB_SETPARTS, edges.size(), reinterpret_cast<LPARAM>(edges.data()));
}

void CStatusBar::OnSize(UINT, int, int) {
  Default();
  UpdateParts();
}

// Measured in the control's font, borders included.
int CStatusBar::TextWidth(LPCWSTR text) const {
  HDC dc = ::GetDC(m_hWnd);
  HGDIOBJ old = ::SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessage(WM_GETFONT)));
  SIZE size = {0, 0};
  ::GetTextExtentPoint32W(dc, text, ::lstrlenW(text), &size);
  ::SelectObject(dc, old);
  ::ReleaseDC(m_hWnd, dc);
  int borders[3] = {0, 0, 0};
  SendMessage(SB_GETBORDERS, 0, reinterpret_cast<LPARAM>(borders));
  return size.cx + 2 * (borders[0] + borders[2]) + 2 * ::GetSystemMetrics(SM_CXEDGE);
}

// A row of the font with the control's vertical border and a part's edge
// above and below it.
CSize CStatusBar::CalcFixedLayout(BOOL stretch, BOOL horizontal) {
  if (!horizontal)
    return CControlBar::CalcFixedLayout(stretch, horizontal);
  HDC dc = ::GetDC(m_hWnd);
  HGDIOBJ old = ::SelectObject(dc, reinterpret_cast<HGDIOBJ>(SendMessage(WM_GETFONT)));
  TEXTMETRICW metrics = {};
  ::GetTextMetricsW(dc, &metrics);
  ::SelectObject(dc, old);
  ::ReleaseDC(m_hWnd, dc);
  int borders[3] = {0, 0, 0};
  SendMessage(SB_GETBORDERS, 0, reinterpret_cast<LPARAM>(borders));
  CRect client;
  GetClientRect(&client);
  return CSize(client.Width(), metrics.tmHeight + 2 * (borders[1] + ::GetSystemMetrics(SM_CYEDGE)));
}

//===-- Indicator updates --------------------------------------------------===//

void CStatusBar::OnUpdateCmdUI(CFrameWnd* target, BOOL) {
  CStatusCmdUI state;
  state.m_pOther = this;
  state.m_nIndexMax = static_cast<UINT>(GetCount());
  for (state.m_nIndex = 0; state.m_nIndex < state.m_nIndexMax; ++state.m_nIndex) {
    state.m_nID = GetItemID(state.m_nIndex);
    if (state.m_nID != ID_SEPARATOR)
      state.DoUpdate(target, FALSE);
  }
}

// Idle updates run many times a second: only a change reaches the control.
static void ChangeStyle(CStatusBar* bar, int index, UINT style) {
  if (bar->GetPaneStyle(index) != style)
    bar->SetPaneStyle(index, style);
}

// A disabled indicator keeps its text.
void CStatusCmdUI::Enable(BOOL on) {
  m_bEnableChanged = TRUE;
  UINT style = Bar()->GetPaneStyle(m_nIndex) & ~SBPS_DISABLED;
  ChangeStyle(Bar(), m_nIndex, on ? style : style | SBPS_DISABLED);
}

// A checked indicator shows popped out.
void CStatusCmdUI::SetCheck(int check) {
  UINT style = Bar()->GetPaneStyle(m_nIndex) & ~SBPS_POPOUT;
  ChangeStyle(Bar(), m_nIndex, check ? style | SBPS_POPOUT : style);
}

void CStatusCmdUI::SetText(LPCWSTR text) {
  if (Bar()->GetPaneText(m_nIndex) != CString(text ? text : L""))
    Bar()->SetPaneText(m_nIndex, text, TRUE);
}
