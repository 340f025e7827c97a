// VnTreeCtrlWin32.cpp - the tree view: walks, state, dragging with
// scrolling at the edge, counts, and the selection kept visible.
//
// The walks and the state run in VnTreeWalk.cpp over TreeAccess, which
// answers their questions with the control's messages.
//
// A drag runs from TVN_BEGINDRAG to the button's release (or WM_CANCELMODE):
//   1. begin: capture the mouse, start the scroll timer, highlight the
//      dragged item as the drop target, show the drag image;
//   2. each move: hit-test, highlight the target if the subclass allows a
//      drop there, clear the highlight otherwise;
//   3. end: hit-test again, clear the highlight, stop the timer, release the
//      mouse, and drop if the subclass allows it.
// The drag image is hidden around every change of the highlight and every
// scroll, so it never leaves a trace in the control's painting.
#include "toolkit/VnTreeCtrl.h"

#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/CImageList.h"
#include "toolkit/VnDragImage.h"

IMPLEMENT_DYNAMIC(CVnTreeCtrl, CTreeCtrl)

BEGIN_MESSAGE_MAP(CVnTreeCtrl, CTreeCtrl)
  ON_WM_MOUSEMOVE()
  ON_WM_LBUTTONUP()
  ON_WM_TIMER()
  ON_WM_CANCELMODE()
  ON_NOTIFY_REFLECT(TVN_BEGINDRAGW, OnBeginDrag)
  ON_NOTIFY_REFLECT(NM_CUSTOMDRAW, OnCustomDraw)
END_MESSAGE_MAP()

namespace {
// The walks' questions, answered by the control.
class TreeAccess : public CVnTreeAccess {
public:
  explicit TreeAccess(CVnTreeCtrl& tree) : m_tree(tree) {}

  HTREEITEM GetRootItem() const override { return m_tree.GetRootItem(); }
  HTREEITEM GetChildItem(HTREEITEM item) const override { return m_tree.GetChildItem(item); }
  HTREEITEM GetNextSiblingItem(HTREEITEM item) const override { return m_tree.GetNextSiblingItem(item); }
  HTREEITEM GetPrevSiblingItem(HTREEITEM item) const override { return m_tree.GetPrevSiblingItem(item); }
  DWORD GetTreeItemID(HTREEITEM item) override { return m_tree.GetTreeItemID(item); }
  bool IsExpanded(HTREEITEM item) const override {
    return (m_tree.GetItemState(item, TVIS_SELECTED | TVIS_EXPANDED) & TVIS_EXPANDED) != 0;
  }
  void Expand(HTREEITEM item, bool expand) override { m_tree.Expand(item, expand ? TVE_EXPAND : TVE_COLLAPSE); }
  HTREEITEM GetSelectedItem() const override { return m_tree.GetSelectedItem(); }
  void SelectItem(HTREEITEM item) override { m_tree.Select(item, TVGN_CARET); }
  void DeleteItem(HTREEITEM item) override { m_tree.DeleteItem(item); }

private:
  CVnTreeCtrl& m_tree;
};
}  // namespace

CVnTreeCtrl::~CVnTreeCtrl() {
  if (m_nScrollTimer && m_hWnd)
    KillTimer(m_nScrollTimer);
  delete m_pDragImage;
  delete m_pTreeState;
}

//===-- Walks and searches -------------------------------------------------===//

int CVnTreeCtrl::EnumerateItem_EnumerateWrapper(HTREEITEM item, void* walk) {
  Walk* w = static_cast<Walk*>(walk);
  return w->callback(*w->tree, item, w->param);
}

int CVnTreeCtrl::EnumerateItem_FindWrapper(HTREEITEM item, void* walk) {
  Walk* w = static_cast<Walk*>(walk);
  return w->callback(*w->tree, item, w->param) == 0 ? 1 : 0;
}

int CVnTreeCtrl::MatchItem(CTreeCtrl&, HTREEITEM item, void* wanted) { return item == wanted; }

int CVnTreeCtrl::MatchParam(CTreeCtrl& tree, HTREEITEM item, void* data) {
  return tree.GetItemData(item) == reinterpret_cast<DWORD_PTR>(data);
}

int CVnTreeCtrl::MatchText(CTreeCtrl& tree, HTREEITEM item, void* text) {
  return tree.GetItemText(item) == CString(static_cast<LPCWSTR>(text));
}

HTREEITEM CVnTreeCtrl::EnumerateItems(VnTreeVisit wrapper, EnumerateProc callback, void* param, HTREEITEM start,
                                      SearchType type) {
  Walk walk = {this, callback, param};
  return VnWalkTree(TreeAccess(*this), start, type, wrapper, &walk);
}

bool CVnTreeCtrl::EnumerateItems(EnumerateProc callback, void* param, HTREEITEM start, SearchType type) {
  return EnumerateItems(&EnumerateItem_EnumerateWrapper, callback, param, start, type) == nullptr;
}

HTREEITEM CVnTreeCtrl::FindItem(EnumerateProc callback, void* param, HTREEITEM start, SearchType type) {
  return EnumerateItems(&EnumerateItem_FindWrapper, callback, param, start, type);
}

HTREEITEM CVnTreeCtrl::FindItem(LPCWSTR text, HTREEITEM start, SearchType type) {
  return FindItem(&MatchText, const_cast<LPWSTR>(text), start, type);
}

HTREEITEM CVnTreeCtrl::FindItem(void* itemData, HTREEITEM start, SearchType type) {
  return FindItem(&MatchParam, itemData, start, type);
}

BOOL CVnTreeCtrl::IsItemInTree(HTREEITEM start, HTREEITEM item) {
  if (!GetRootItem())
    return FALSE;
  return FindItem(&MatchItem, item, start, SearchDepthFirst) != nullptr;
}

//===-- Counts and bulk operations -----------------------------------------===//

int CVnTreeCtrl::GetRootCount() const {
  int count = 0;
  for (HTREEITEM root = GetRootItem(); root; root = GetNextSiblingItem(root))
    ++count;
  return count;
}

void CVnTreeCtrl::GetChildNodeCount(HTREEITEM item, int& count) { count += VnCountNodes(TreeAccess(*this), item); }

int CVnTreeCtrl::GetTotalNodeCount() {
  int count = 0;
  for (HTREEITEM root = GetRootItem(); root; root = GetNextSiblingItem(root))
    GetChildNodeCount(root, count);
  return count;
}

int CVnTreeCtrl::GetTotalLeafCount() { return static_cast<int>(GetCount()) - GetTotalNodeCount(); }

void CVnTreeCtrl::ExpandCollapseAll(HTREEITEM item, bool expand) {
  TreeAccess access(*this);
  VnExpandBranch(access, item, expand);
}

void CVnTreeCtrl::ExpandAll(HTREEITEM item) {
  if (item != TVI_ROOT) {
    ExpandCollapseAll(item, true);
    return;
  }
  for (HTREEITEM root = GetRootItem(); root; root = GetNextSiblingItem(root))
    ExpandCollapseAll(root, true);
}

void CVnTreeCtrl::CollapseAll(HTREEITEM item) {
  if (item != TVI_ROOT) {
    ExpandCollapseAll(item, false);
    return;
  }
  for (HTREEITEM root = GetRootItem(); root; root = GetNextSiblingItem(root))
    ExpandCollapseAll(root, false);
}

void CVnTreeCtrl::DeleteAll() {
  TreeAccess access(*this);
  VnDeleteRoots(access);
}

void CVnTreeCtrl::SelectItemAndMakeVisible(HTREEITEM item, bool asFirstVisible) {
  if (asFirstVisible) {
    Select(item, TVGN_FIRSTVISIBLE);
    return;
  }
  Select(item, TVGN_CARET);
  EnsureVisible(item);
}

//===-- The open-branch state ----------------------------------------------===//

DWORD CVnTreeCtrl::GetTreeItemID(HTREEITEM item) { return static_cast<DWORD>(GetItemData(item)); }

void CVnTreeCtrl::SaveTreeState(CVnTreeState& state, HTREEITEM item) {
  TreeAccess access(*this);
  VnSaveBranchState(access, state, item);
}

void CVnTreeCtrl::SaveTreeState(CVnTreeState& state) {
  state.RemoveAll();
  state.m_dwSelectedID = CVnTreeState::NoSelection;
  if (!GetRootItem())
    return;
  for (HTREEITEM root = GetRootItem(); root; root = GetNextSiblingItem(root))
    SaveTreeState(state, root);
  if (HTREEITEM selected = GetSelectedItem())
    state.m_dwSelectedID = GetTreeItemID(selected);
}

void CVnTreeCtrl::SaveTreeState() {
  if (!m_pTreeState)
    m_pTreeState = new CVnTreeState;
  SaveTreeState(*m_pTreeState);
}

void CVnTreeCtrl::RestoreTreeState(const CVnTreeState& state, HTREEITEM item) {
  TreeAccess access(*this);
  VnRestoreBranchState(access, state, item);
}

void CVnTreeCtrl::RestoreTreeState(const CVnTreeState& state) {
  if (state.IsEmpty())
    return;
  for (HTREEITEM root = GetRootItem(); root; root = GetNextSiblingItem(root))
    RestoreTreeState(state, root);
}

void CVnTreeCtrl::RestoreTreeState() {
  if (m_pTreeState)
    RestoreTreeState(*m_pTreeState);
}

//===-- Dragging -----------------------------------------------------------===//

BOOL CVnTreeCtrl::OnQueryItemDrag(HTREEITEM) { return FALSE; }
BOOL CVnTreeCtrl::OnQueryItemDrop(HTREEITEM, HTREEITEM) { return FALSE; }
void CVnTreeCtrl::OnItemDrop(HTREEITEM, HTREEITEM) {}
CImageList* CVnTreeCtrl::OnCreateDragImage(HTREEITEM item) { return CTreeCtrl::CreateDragImage(item); }

void CVnTreeCtrl::OnBeginDrag(NMHDR* notify, LRESULT* result) {
  *result = 0;
  const NMTREEVIEWW* view = reinterpret_cast<const NMTREEVIEWW*>(notify);
  if (OnQueryItemDrag(view->itemNew.hItem))
    DoBeginDrag(view->itemNew.hItem, CPoint(view->ptDrag));
}

HTREEITEM CVnTreeCtrl::FindDropTarget(const CPoint& point) { return HitTest(point); }

void CVnTreeCtrl::DoBeginDrag(HTREEITEM item, const CPoint& point) {
  ::SetCapture(m_hWnd);
  StartAutoScrollTimer();
  m_hDragItem = item;
  SelectDropTarget(item);
  OnBeginDragImage(item, point);
}

void CVnTreeCtrl::DoContinueDrag(const CPoint& point) {
  OnMoveDragImage(point);
  HTREEITEM target = FindDropTarget(point);
  bool allowed = target && target != m_hDragItem && OnQueryItemDrop(m_hDragItem, target);
  if (m_pDragImage)
    CImageList::DragLeave(this);
  SelectDropTarget(allowed ? target : nullptr);
  if (m_pDragImage)
    CImageList::DragEnter(this, point);
}

// The target isn't compared with the dragged item here: a drop on itself is
// the subclass's to refuse.
void CVnTreeCtrl::DoEndDrag(const CPoint& point) {
  OnEndDragImage();
  HTREEITEM target = FindDropTarget(point);
  SelectDropTarget(nullptr);
  StopAutoScrollTimer();
  ::ReleaseCapture();
  if (target && OnQueryItemDrop(m_hDragItem, target))
    OnItemDrop(m_hDragItem, target);
  m_hDragItem = nullptr;
}

void CVnTreeCtrl::OnMouseMove(UINT flags, CPoint point) {
  if (m_hDragItem)
    DoContinueDrag(point);
  CTreeCtrl::OnMouseMove(flags, point);
}

void CVnTreeCtrl::OnLButtonUp(UINT flags, CPoint point) {
  if (m_hDragItem)
    DoEndDrag(point);
  CTreeCtrl::OnLButtonUp(flags, point);
}

// Another window takes the mouse (a message box, a menu): the drag ends
// where no item can be.
void CVnTreeCtrl::OnCancelMode() {
  if (m_hDragItem)
    DoEndDrag(CPoint(-1, -1));
  CTreeCtrl::OnCancelMode();
}

void CVnTreeCtrl::OnBeginDragImage(HTREEITEM item, const CPoint& point) {
  m_pDragImage = OnCreateDragImage(item);
  VnShowDragImage(m_pDragImage, this, point);
}

void CVnTreeCtrl::OnMoveDragImage(const CPoint& point) {
  if (m_pDragImage)
    CImageList::DragMove(point);
}

void CVnTreeCtrl::OnEndDragImage() { VnEndDragImage(m_pDragImage, this); }

//===-- Scrolling at the edge ----------------------------------------------===//

// The border is measured once, on the client area as the drag began.
void CVnTreeCtrl::StartAutoScrollTimer() {
  if (!m_nScrollTimer)
    m_nScrollTimer = SetTimer(kAutoScrollTimer, kAutoScrollInterval);
  GetClientRect(&m_rcOuterScroll);
  m_rcInnerScroll = m_rcOuterScroll;
  ::InflateRect(&m_rcInnerScroll, -kAutoScrollBorder, -kAutoScrollBorder);
}

void CVnTreeCtrl::StopAutoScrollTimer() {
  if (m_nScrollTimer)
    KillTimer(m_nScrollTimer);
  m_nScrollTimer = 0;
}

void CVnTreeCtrl::OnTimer(UINT_PTR id) {
  CTreeCtrl::OnTimer(id);
  if (id == kAutoScrollTimer)
    OnAutoScrollTimer();
}

// One line towards each edge whose border band holds the cursor; nothing
// while it rests inside the band or outside the control.
void CVnTreeCtrl::OnAutoScrollTimer() {
  POINT cursor;
  ::GetCursorPos(&cursor);
  ::ScreenToClient(m_hWnd, &cursor);
  if (!::PtInRect(&m_rcOuterScroll, cursor) || ::PtInRect(&m_rcInnerScroll, cursor))
    return;
  int horizontal = -1, vertical = -1;
  if (cursor.x < m_rcInnerScroll.left)
    horizontal = SB_LINELEFT;
  if (cursor.x >= m_rcInnerScroll.right)
    horizontal = SB_LINERIGHT;
  if (cursor.y < m_rcInnerScroll.top)
    vertical = SB_LINEUP;
  if (cursor.y >= m_rcInnerScroll.bottom)
    vertical = SB_LINEDOWN;
  if (m_pDragImage)
    CImageList::DragLeave(this);
  if (horizontal >= 0)
    SendMessage(WM_HSCROLL, static_cast<WPARAM>(horizontal), 0);
  if (vertical >= 0)
    SendMessage(WM_VSCROLL, static_cast<WPARAM>(vertical), 0);
  if (m_pDragImage)
    CImageList::DragEnter(this, CPoint(cursor));
}

//===-- The selection without the focus ------------------------------------===//

// With the focus elsewhere the control asks to hear of each item after it
// is painted, and frames the selected one's text.
void CVnTreeCtrl::OnCustomDraw(NMHDR* notify, LRESULT* result) {
  if (::GetFocus() == m_hWnd) {
    *result = CDRF_DODEFAULT;
    return;
  }
  NMTVCUSTOMDRAW* draw = reinterpret_cast<NMTVCUSTOMDRAW*>(notify);
  switch (draw->nmcd.dwDrawStage) {
  case CDDS_PREPAINT:
    *result = CDRF_NOTIFYITEMDRAW;
    break;
  case CDDS_ITEMPREPAINT:
    *result = CDRF_NOTIFYPOSTPAINT;
    break;
  case CDDS_ITEMPOSTPAINT:
    if (draw->nmcd.uItemState & CDIS_SELECTED) {
      RECT text;
      if (GetItemRect(reinterpret_cast<HTREEITEM>(draw->nmcd.dwItemSpec), &text, TRUE))
        ::FrameRect(draw->nmcd.hdc, &text, ::GetSysColorBrush(COLOR_HIGHLIGHT));
    }
    break;
  default:
    break;
  }
}
