// CSplitterWnd.cpp - a static splitter.
//
// The client area is cut in this order:
//
//   1. The shared bars take a strip on the right (vertical bars, one beside
//      each row) and one at the bottom (horizontal bars, one below each
//      column); where both strips meet lies an empty corner.
//   2. The rest, the pane area, is cut into rows and columns with a
//      divider of kDividerSize pixels between two of them (Layout).
//   3. Each pane is moved to its cell; each bar along its row or column.
//
// Dragging a divider sets the ideal size of the row or column before it and
// lays the panes out again at once, so the panes follow the pointer.
#include "afx/win32/CSplitterWnd.h"

#include "afx/win32/AfxMsgMap.h"

#include <algorithm>
#include <cassert>

IMPLEMENT_DYNAMIC(CSplitterWnd, CWnd)

BEGIN_MESSAGE_MAP(CSplitterWnd, CWnd)
ON_WM_SIZE()
ON_WM_PAINT()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONUP()
ON_WM_MOUSEMOVE()
ON_WM_SETCURSOR()
ON_WM_CAPTURECHANGED()
END_MESSAGE_MAP()

//===-- Creation -----------------------------------------------------------===//

BOOL CSplitterWnd::CreateStatic(CWnd* parent, int rows, int cols, DWORD style, UINT id) {
  assert(rows >= 1 && rows <= 16 && cols >= 1 && cols <= 16 && "a grid of 1 to 16 rows and columns");
  m_aRows.assign(static_cast<size_t>(rows), CRowColInfo());
  m_aCols.assign(static_cast<size_t>(cols), CRowColInfo());
  m_dwScrollStyle = style & (WS_HSCROLL | WS_VSCROLL);
  DWORD windowStyle = (style & ~(WS_HSCROLL | WS_VSCROLL)) | WS_CLIPCHILDREN;
  if (!CreateEx(0, nullptr, L"", windowStyle, RECT{0, 0, 0, 0}, parent, id))
    return FALSE;
  if (CreateScrollBars())
    return TRUE;
  DestroyWindow();
  return FALSE;
}

BOOL CSplitterWnd::CreateScrollBars() {
  struct Kind {
    DWORD styleBit, barStyle;
    UINT firstId;
    int count;
  } kinds[] = {{WS_HSCROLL, SBS_HORZ, AFX_IDW_HSCROLL_FIRST, GetColumnCount()},
               {WS_VSCROLL, SBS_VERT, AFX_IDW_VSCROLL_FIRST, GetRowCount()}};
  for (const Kind& kind : kinds) {
    for (int k = 0; (m_dwScrollStyle & kind.styleBit) && k < kind.count; ++k) {
      m_aBars.push_back(std::make_unique<CScrollBar>());
      if (!m_aBars.back()->Create(WS_CHILD | WS_VISIBLE | kind.barStyle, RECT{0, 0, 0, 0}, this, kind.firstId + k))
        return FALSE;
    }
  }
  return TRUE;
}

BOOL CSplitterWnd::CreateView(int row, int col, CRuntimeClass* paneClass, SIZE sizeInit) {
  assert(row >= 0 && row < GetRowCount() && col >= 0 && col < GetColumnCount() && "a cell of the grid");
  assert(paneClass->IsDerivedFrom(RUNTIME_CLASS(CWnd)) && "a pane is a window");
  CObject* object = paneClass->CreateObject();
  if (!object)
    return FALSE;
  CWnd* pane = static_cast<CWnd*>(object);
  RECT rect = {0, 0, sizeInit.cx, sizeInit.cy};
  if (!pane->CreateEx(0, nullptr, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, rect, this,
                      static_cast<UINT>(IdFromRowCol(row, col)))) {
    delete pane;
    return FALSE;
  }
  m_aRows[static_cast<size_t>(row)].nIdealSize = sizeInit.cy;
  m_aCols[static_cast<size_t>(col)].nIdealSize = sizeInit.cx;
  return TRUE;
}

CWnd* CSplitterWnd::GetPane(int row, int col) const {
  assert(row >= 0 && row < GetRowCount() && col >= 0 && col < GetColumnCount() && "a cell of the grid");
  return GetDlgItem(IdFromRowCol(row, col));
}

//===-- Sizes and layout ---------------------------------------------------===//

void CSplitterWnd::GetRowInfo(int row, int& cyCur, int& cyMin) const {
  assert(row >= 0 && row < GetRowCount() && "a row of the grid");
  cyCur = m_aRows[static_cast<size_t>(row)].nCurSize;
  cyMin = m_aRows[static_cast<size_t>(row)].nMinSize;
}

void CSplitterWnd::SetRowInfo(int row, int cyIdeal, int cyMin) {
  assert(row >= 0 && row < GetRowCount() && "a row of the grid");
  m_aRows[static_cast<size_t>(row)].nIdealSize = cyIdeal;
  m_aRows[static_cast<size_t>(row)].nMinSize = cyMin;
}

void CSplitterWnd::GetColumnInfo(int col, int& cxCur, int& cxMin) const {
  assert(col >= 0 && col < GetColumnCount() && "a column of the grid");
  cxCur = m_aCols[static_cast<size_t>(col)].nCurSize;
  cxMin = m_aCols[static_cast<size_t>(col)].nMinSize;
}

void CSplitterWnd::SetColumnInfo(int col, int cxIdeal, int cxMin) {
  assert(col >= 0 && col < GetColumnCount() && "a column of the grid");
  m_aCols[static_cast<size_t>(col)].nIdealSize = cxIdeal;
  m_aCols[static_cast<size_t>(col)].nMinSize = cxMin;
}

int CSplitterWnd::PaneArea(bool rows) const {
  RECT client;
  GetClientRect(&client);
  if (rows)
    return std::max(0, static_cast<int>(client.bottom) -
                           ((m_dwScrollStyle & WS_HSCROLL) ? ::GetSystemMetrics(SM_CYHSCROLL) : 0));
  return std::max(0, static_cast<int>(client.right) -
                         ((m_dwScrollStyle & WS_VSCROLL) ? ::GetSystemMetrics(SM_CXVSCROLL) : 0));
}

// Every row but the last gets its ideal size, or its minimum if that is
// more, as far as the area reaches with room for the dividers after it; the
// last gets what is left.
void CSplitterWnd::Layout(std::vector<CRowColInfo>& info, int area) {
  int at = 0;
  for (size_t k = 0; k < info.size(); ++k) {
    int left = std::max(0, area - at - static_cast<int>(info.size() - 1 - k) * kDividerSize);
    int size = k + 1 == info.size() ? left : std::min(std::max(info[k].nIdealSize, info[k].nMinSize), left);
    info[k].nCurSize = std::max(0, size);
    at += info[k].nCurSize + kDividerSize;
  }
}

int CSplitterWnd::Start(const std::vector<CRowColInfo>& info, int index) {
  int at = 0;
  for (int k = 0; k < index; ++k)
    at += info[static_cast<size_t>(k)].nCurSize + kDividerSize;
  return at;
}

void CSplitterWnd::RecalcLayout() {
  assert(::IsWindow(m_hWnd) && "the splitter exists");
  int height = PaneArea(true), width = PaneArea(false);
  Layout(m_aRows, height);
  Layout(m_aCols, width);
  for (int r = 0; r < GetRowCount(); ++r) {
    int y = Start(m_aRows, r), cy = m_aRows[static_cast<size_t>(r)].nCurSize;
    for (int c = 0; c < GetColumnCount(); ++c) {
      if (HWND pane = ::GetDlgItem(m_hWnd, IdFromRowCol(r, c)))
        ::MoveWindow(pane, Start(m_aCols, c), y, m_aCols[static_cast<size_t>(c)].nCurSize, cy, TRUE);
    }
    if (HWND bar = ::GetDlgItem(m_hWnd, static_cast<int>(AFX_IDW_VSCROLL_FIRST) + r))
      ::MoveWindow(bar, width, y, ::GetSystemMetrics(SM_CXVSCROLL), cy, TRUE);
  }
  for (int c = 0; c < GetColumnCount(); ++c) {
    if (HWND bar = ::GetDlgItem(m_hWnd, static_cast<int>(AFX_IDW_HSCROLL_FIRST) + c))
      ::MoveWindow(bar, Start(m_aCols, c), height, m_aCols[static_cast<size_t>(c)].nCurSize,
                   ::GetSystemMetrics(SM_CYHSCROLL), TRUE);
  }
  ::InvalidateRect(m_hWnd, nullptr, TRUE);
}

void CSplitterWnd::OnSize(UINT type, int cx, int cy) {
  CWnd::OnSize(type, cx, cy);
  if (type != SIZE_MINIMIZED)
    RecalcLayout();
}

// The panes and bars cover their own parts (WS_CLIPCHILDREN); what shows
// of the splitter itself is the dividers and the corner between the bars.
void CSplitterWnd::OnPaint() {
  PAINTSTRUCT paint;
  HDC dc = ::BeginPaint(m_hWnd, &paint);
  RECT client;
  GetClientRect(&client);
  ::FillRect(dc, &client, ::GetSysColorBrush(COLOR_3DFACE));
  int height = PaneArea(true), width = PaneArea(false);
  for (int r = 0; r + 1 < GetRowCount(); ++r) {
    int y = Start(m_aRows, r + 1) - kDividerSize;
    RECT divider = {0, y, width, y + kDividerSize};
    ::DrawEdge(dc, &divider, EDGE_RAISED, BF_RECT);
  }
  for (int c = 0; c + 1 < GetColumnCount(); ++c) {
    int x = Start(m_aCols, c + 1) - kDividerSize;
    RECT divider = {x, 0, x + kDividerSize, height};
    ::DrawEdge(dc, &divider, EDGE_RAISED, BF_RECT);
  }
  ::EndPaint(m_hWnd, &paint);
}

//===-- The panes' scrolling and focus -------------------------------------===//

// A bar's index is its column; without a bar, column 0.
void CSplitterWnd::OnHScroll(UINT code, UINT pos, CScrollBar* bar) {
  int col = bar ? bar->GetDlgCtrlID() - static_cast<int>(AFX_IDW_HSCROLL_FIRST) : 0;
  LPARAM barWnd = reinterpret_cast<LPARAM>(bar ? bar->m_hWnd : nullptr);
  for (int r = 0; r < GetRowCount(); ++r) {
    if (HWND pane = ::GetDlgItem(m_hWnd, IdFromRowCol(r, col)))
      ::SendMessageW(pane, WM_HSCROLL, MAKEWPARAM(code, pos), barWnd);
  }
}

void CSplitterWnd::OnVScroll(UINT code, UINT pos, CScrollBar* bar) {
  int row = bar ? bar->GetDlgCtrlID() - static_cast<int>(AFX_IDW_VSCROLL_FIRST) : 0;
  LPARAM barWnd = reinterpret_cast<LPARAM>(bar ? bar->m_hWnd : nullptr);
  for (int c = 0; c < GetColumnCount(); ++c) {
    if (HWND pane = ::GetDlgItem(m_hWnd, IdFromRowCol(row, c)))
      ::SendMessageW(pane, WM_VSCROLL, MAKEWPARAM(code, pos), barWnd);
  }
}

// A focus window inside a pane that carries the pane's identifier (the view
// within a pane of its own making) stands for the pane itself.
CWnd* CSplitterWnd::GetActivePane(int* row, int* col) {
  HWND focus = ::GetFocus(), wnd = focus;
  while (wnd && ::GetParent(wnd) != m_hWnd)
    wnd = ::GetParent(wnd);
  int id = wnd ? ::GetDlgCtrlID(wnd) - static_cast<int>(AFX_IDW_PANE_FIRST) : -1;
  if (id < 0 || id / 16 >= GetRowCount() || id % 16 >= GetColumnCount())
    return nullptr;
  if (row)
    *row = id / 16;
  if (col)
    *col = id % 16;
  CWnd* inner = ::GetDlgCtrlID(focus) == ::GetDlgCtrlID(wnd) ? FromHandlePermanent(focus) : nullptr;
  return inner ? inner : FromHandlePermanent(wnd);
}

void CSplitterWnd::SetActivePane(int row, int col, CWnd* wnd) {
  CWnd* target = wnd ? wnd : GetPane(row, col);
  if (target)
    target->SetFocus();
}

//===-- Dragging a divider -------------------------------------------------===//

CSplitterWnd::TrackKind CSplitterWnd::HitDivider(CPoint point, int* index) const {
  for (int r = 0; r + 1 < GetRowCount(); ++r) {
    int y = Start(m_aRows, r + 1) - kDividerSize;
    if (point.y >= y && point.y < y + kDividerSize && point.x < PaneArea(false)) {
      *index = r;
      return TrackRow;
    }
  }
  for (int c = 0; c + 1 < GetColumnCount(); ++c) {
    int x = Start(m_aCols, c + 1) - kDividerSize;
    if (point.x >= x && point.x < x + kDividerSize && point.y < PaneArea(true)) {
      *index = c;
      return TrackCol;
    }
  }
  return TrackNone;
}

// The divider's leading edge follows the pointer, held so that the row or
// column before it keeps its minimum and those after it keep 0 or more.
void CSplitterWnd::TrackTo(CPoint point) {
  bool rows = m_eTrack == TrackRow;
  std::vector<CRowColInfo>& info = rows ? m_aRows : m_aCols;
  int start = Start(info, m_nTrackIndex);
  int end = PaneArea(rows) - (static_cast<int>(info.size()) - 1 - m_nTrackIndex) * kDividerSize;
  for (size_t k = static_cast<size_t>(m_nTrackIndex) + 2; k < info.size(); ++k)
    end -= info[k].nCurSize;
  CRowColInfo& cell = info[static_cast<size_t>(m_nTrackIndex)];
  int size = (rows ? point.y : point.x) - m_nTrackOffset - start;
  cell.nIdealSize = std::max(cell.nMinSize, std::min(size, end - start));
  RecalcLayout();
  ::UpdateWindow(m_hWnd);
}

void CSplitterWnd::OnLButtonDown(UINT flags, CPoint point) {
  int index = 0;
  TrackKind kind = HitDivider(point, &index);
  if (kind == TrackNone) {
    CWnd::OnLButtonDown(flags, point);
    return;
  }
  m_eTrack = kind;
  m_nTrackIndex = index;
  bool rows = kind == TrackRow;
  m_nTrackOffset = (rows ? point.y : point.x) - (Start(rows ? m_aRows : m_aCols, index + 1) - kDividerSize);
  ::SetCapture(m_hWnd);
}

void CSplitterWnd::OnMouseMove(UINT flags, CPoint point) {
  if (m_eTrack != TrackNone)
    TrackTo(point);
  else
    CWnd::OnMouseMove(flags, point);
}

// The capture is let go of after the last move, so OnCaptureChanged finds
// no drag in progress.
void CSplitterWnd::OnLButtonUp(UINT flags, CPoint point) {
  if (m_eTrack == TrackNone) {
    CWnd::OnLButtonUp(flags, point);
    return;
  }
  TrackTo(point);
  m_eTrack = TrackNone;
  ::ReleaseCapture();
}

void CSplitterWnd::OnCaptureChanged(CWnd* wnd) {
  m_eTrack = TrackNone;
  CWnd::OnCaptureChanged(wnd);
}

BOOL CSplitterWnd::OnSetCursor(CWnd* wnd, UINT hitTest, UINT message) {
  POINT point;
  ::GetCursorPos(&point);
  ::ScreenToClient(m_hWnd, &point);
  int index = 0;
  TrackKind kind = m_eTrack != TrackNone ? m_eTrack : HitDivider(point, &index);
  if (hitTest != HTCLIENT || kind == TrackNone)
    return CWnd::OnSetCursor(wnd, hitTest, message);
  ::SetCursor(::LoadCursorW(nullptr, kind == TrackRow ? IDC_SIZENS : IDC_SIZEWE));
  return TRUE;
}
