// VnListCtrlWin32.cpp - the list view: reordering rows by dragging, and the
// column helpers.
//
// A drag runs from LVN_BEGINDRAG to the button's release: the mouse is
// captured, each move highlights the row a drop would go to (or none), and
// the release drops on the highlighted row.  A row can't be dropped where it
// would stay in place: on itself, or on the row next to it on the side it
// would land (below it when rows land before the target, above it when they
// land after).
#include "toolkit/VnListCtrl.h"

#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/CImageList.h"
#include "toolkit/VnDragImage.h"

IMPLEMENT_DYNAMIC(CVnListCtrl, CListCtrl)

BEGIN_MESSAGE_MAP(CVnListCtrl, CListCtrl)
  ON_NOTIFY_REFLECT(LVN_BEGINDRAG, OnBeginDrag)
  ON_WM_LBUTTONUP()
  ON_WM_MOUSEMOVE()
END_MESSAGE_MAP()

// The row states that travel with a moved row: focus, selection, overlay
// and state images.
static const UINT kMovedStates = LVIS_FOCUSED | LVIS_SELECTED | LVIS_OVERLAYMASK | LVIS_STATEIMAGEMASK;

CVnListCtrl::~CVnListCtrl() { delete m_pDragImage; }

//===-- Style and columns --------------------------------------------------===//

// LVS_REPORT's bit is set in LVS_LIST too; the icon views lack it.
bool CVnListCtrl::CanDragAndDrop() {
  DWORD style = GetStyle();
  return (style & LVS_REPORT) && (style & LVS_SINGLESEL) && !(style & (LVS_SORTASCENDING | LVS_SORTDESCENDING));
}

void CVnListCtrl::EnableDragDrop(bool enable) { m_bDragEnabled = enable && CanDragAndDrop(); }

int CVnListCtrl::GetColumnCount() const {
  HWND header = GetHeaderCtrl();
  return header ? static_cast<int>(::SendMessageW(header, HDM_GETITEMCOUNT, 0, 0)) : 0;
}

int CVnListCtrl::GetTotalColumnWidths() const {
  int total = 0;
  for (int column = 0, count = GetColumnCount(); column < count; ++column)
    total += GetColumnWidth(column);
  return total;
}

void CVnListCtrl::SetFullRowSelect() { SetExtendedStyle(GetExtendedStyle() | LVS_EX_FULLROWSELECT); }

//===-- Dragging -----------------------------------------------------------===//

BOOL CVnListCtrl::OnQueryItemDrag(int) { return m_bDragEnabled; }
BOOL CVnListCtrl::OnQueryItemDrop(int, int) { return m_bDragEnabled; }

CImageList* CVnListCtrl::OnCreateDragImage(int item) { return CreateDragImage(item, nullptr); }

void CVnListCtrl::OnBeginDrag(NMHDR* notify, LRESULT* result) {
  *result = 0;
  const NMLISTVIEW* view = reinterpret_cast<const NMLISTVIEW*>(notify);
  if (!CanDragAndDrop() || !OnQueryItemDrag(view->iItem))
    return;
  DoBeginDrag(view->iItem, CPoint(view->ptAction));
}

int CVnListCtrl::FindDropTarget(const CPoint& point) { return HitTest(point); }

void CVnListCtrl::DoBeginDrag(int item, const CPoint& point) {
  ::SetCapture(m_hWnd);
  m_nDragItem = item;
  OnBeginDragImage(item, point);
}

void CVnListCtrl::OnMouseMove(UINT flags, CPoint point) {
  if (m_nDragItem != -1) {
    point.x = 0;
    DoContinueDrag(point);
  }
  CListCtrl::OnMouseMove(flags, point);
}

void CVnListCtrl::DoContinueDrag(const CPoint& point) {
  OnMoveDragImage(point);
  int target = FindDropTarget(point);
  int inPlace = m_bInsertBefore ? m_nDragItem + 1 : m_nDragItem - 1;
  bool allowed = target != -1 && target != m_nDragItem && target != inPlace &&
                 OnQueryItemDrop(m_nDragItem, target);
  if (m_pDragImage)
    CImageList::DragLeave(this);
  SelectDropTarget(allowed ? target : -1);
  if (m_pDragImage)
    CImageList::DragEnter(this, point);
}

void CVnListCtrl::SelectDropTarget(int index) {
  if (index == -1) {
    int lit = GetNextItem(-1, LVNI_DROPHILITED);
    if (lit == -1) {
      Update(-1);
      return;
    }
    SetItemState(lit, 0, LVIS_DROPHILITED);
    Update(lit);
    return;
  }
  if (GetItemState(index, LVIS_DROPHILITED) & LVIS_DROPHILITED)
    return;
  SelectDropTarget(-1);
  SetItemState(index, LVIS_DROPHILITED, LVIS_DROPHILITED);
  Update(index);
}

void CVnListCtrl::OnLButtonUp(UINT flags, CPoint point) {
  if (m_nDragItem != -1)
    DoEndDrag(point);
  CListCtrl::OnLButtonUp(flags, point);
}

// The target is the highlighted row: the last move decided it.
void CVnListCtrl::DoEndDrag(const CPoint&) {
  OnEndDragImage();
  int target = GetNextItem(-1, LVNI_DROPHILITED);
  if (target != -1) {
    SetItemState(target, 0, LVIS_DROPHILITED);
    Update(target);
  }
  ::ReleaseCapture();
  if (target != -1 && OnQueryItemDrop(m_nDragItem, target))
    OnItemDrop(m_nDragItem, target);
  m_nDragItem = -1;
}

// The row is copied to its new place, then the old one is deleted: its
// index has grown by one if the copy went in above it.
void CVnListCtrl::OnItemDrop(int dragged, int target) {
  LVITEMW row = {};
  row.mask = LVIF_IMAGE | LVIF_PARAM | LVIF_STATE;
  row.iItem = dragged;
  row.stateMask = kMovedStates;
  if (!GetItem(&row))
    return;
  CString text = GetItemText(dragged, 0);
  CStringArray columns;
  for (int column = 1, count = GetColumnCount(); column < count; ++column)
    columns.Add(GetItemText(dragged, column));

  int index = m_bInsertBefore ? target : target + 1;
  row.mask |= LVIF_TEXT;
  row.iItem = index;
  row.pszText = const_cast<LPWSTR>(text.GetString());
  int inserted = InsertItem(&row);
  if (inserted == -1)
    return;
  for (INT_PTR column = 0; column < columns.GetSize(); ++column)
    SetItemText(inserted, static_cast<int>(column) + 1, columns[column]);
  DeleteItem(dragged > index ? dragged + 1 : dragged);
}

void CVnListCtrl::OnBeginDragImage(int item, const CPoint& point) {
  m_pDragImage = OnCreateDragImage(item);
  VnShowDragImage(m_pDragImage, this, point);
}

void CVnListCtrl::OnMoveDragImage(const CPoint& point) {
  if (m_pDragImage)
    CImageList::DragMove(point);
}

void CVnListCtrl::OnEndDragImage() { VnEndDragImage(m_pDragImage, this); }
