// VnPaneWndFrameWin32.cpp - what a pane asks of the windows above it: the
// frame with its values and top splitter, and the synchronisation pass.
//
// The frame is the pane's parent, or the parent of one or two splitters
// above it: panes sit in a splitter, and that splitter may sit in another
// (the merge arrangement).  A pane with no frame above it answers its own
// values, and a synchronisation it starts ends with its own number column.
//
// The pass: a text pane's selection moves; the text pane sends
// WM_PANE_SYNCHRONIZE to its pane with the pane as origin.  The origin
// brings its number column to the line and sends the message, unchanged, to
// the top splitter, which sends it to every other pane.  Each of those
// brings its number column to the line as received, scrolls its text pane
// to the line the splitter says (GetSyncLine) and replays the column.  The
// origin test ends the pass: the origin isn't sent to, and a pane that
// isn't the origin doesn't send on.
#include "window/VnPaneWnd.h"

#include "afx/win32/CScrollBar.h"
#include "window/VnLineNumPane.h"
#include "window/VnPaneMessages.h"
#include "window/VnPaneSync.h"
#include "window/VnTextPane.h"

#if __has_include("window/VnReconcileFrame.h") && __has_include("window/VnRichEditSplitterWnd.h")
#include "window/VnReconcileFrame.h"
#include "window/VnRichEditSplitterWnd.h"
#define VN_PANE_HAS_FRAME 1
#else
#define VN_PANE_HAS_FRAME 0
#endif

// The horizontal bar of the first column, which a splitter makes.
static const int kFirstHScrollBar = 0xEA00;

//===-- The frame above ----------------------------------------------------===//

CVnReconcileFrame* CVnPaneWnd::GetParentFrame() const {
#if VN_PANE_HAS_FRAME
  CWnd* parent = GetParent();
  for (int level = 0; level < 2 && parent && parent->IsKindOf(RUNTIME_CLASS(CVnRichEditSplitterWnd)); ++level)
    parent = parent->GetParent();
  if (parent && parent->IsKindOf(RUNTIME_CLASS(CVnReconcileFrame)))
    return static_cast<CVnReconcileFrame*>(parent);
#endif
  return nullptr;
}

const CHARFORMATW& CVnPaneWnd::GetDefaultCharFormat() const {
#if VN_PANE_HAS_FRAME
  if (CVnReconcileFrame* frame = GetParentFrame())
    return frame->GetDefaultCharFormat();
#endif
  return m_DisplayOptions.GetCharFormat();
}

const CVnDisplayOptions& CVnPaneWnd::GetDisplayOptions() const {
#if VN_PANE_HAS_FRAME
  if (CVnReconcileFrame* frame = GetParentFrame())
    return frame->GetDisplayOptions();
#endif
  return m_DisplayOptions;
}

CVnRichEditSplitterWnd* CVnPaneWnd::GetTopSplitter() const {
#if VN_PANE_HAS_FRAME
  if (CVnReconcileFrame* frame = GetParentFrame())
    return frame->GetSplitterWnd();
#endif
  return nullptr;
}

//===-- Synchronisation ----------------------------------------------------===//

namespace {
// A bar that no object holds, lent to HScroll for the call only.
struct LentScrollBar : CScrollBar {
  ~LentScrollBar() override { Detach(); }
};
}  // namespace

// The line number column follows the line as received, before the
// splitter's GetSyncLine: rows of the numbers and of the text are level.
LRESULT CVnPaneWnd::OnSynchronize(WPARAM wParam, LPARAM lParam) {
  if (!HasChildren())
    return 0;
  const CVnPaneSync& sync = *reinterpret_cast<const CVnPaneSync*>(wParam);
  CVnPaneWnd* origin = reinterpret_cast<CVnPaneWnd*>(lParam);
  int line = sync.GetLine();
  int numbersFirst = m_pLineNumPane->GetFirstVisibleLine();
  if (numbersFirst != line)
    m_pLineNumPane->LineScroll(line - numbersFirst);
  int target = line;
#if VN_PANE_HAS_FRAME
  CVnRichEditSplitterWnd* splitter = GetTopSplitter();
  if (origin == this && splitter)
    splitter->SendMessage(WM_PANE_SYNCHRONIZE, wParam, lParam);
  if (origin != this && splitter)
    target = splitter->GetSyncLine(this, origin, line);
#endif
  if (origin == this)
    return 0;
  int textFirst = m_pTextPane->GetFirstVisibleLine();
  if (textFirst != target)
    m_pTextPane->LineScroll(target - textFirst);
  if (m_pTextPane->GetFirstVisibleChar() != sync.GetChar()) {
    LentScrollBar lent;
    HWND parent = ::GetParent(m_hWnd);
    HWND bar = parent ? ::GetDlgItem(parent, kFirstHScrollBar) : nullptr;
    CScrollBar* given = bar ? static_cast<CScrollBar*>(CWnd::FromHandlePermanent(bar)) : nullptr;
    if (bar && !given && lent.Attach(bar))
      given = &lent;
    m_pTextPane->HScroll(sync.GetChar(), given);
  }
  return 0;
}
