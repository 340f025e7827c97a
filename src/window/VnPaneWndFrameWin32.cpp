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

#include "afx/win32/AfxRes.h"
#include "afx/win32/CScrollBar.h"
#include "window/VnLineNumPane.h"
#include "window/VnPaneMessages.h"
#include "window/VnPaneSync.h"
#include "window/VnTextPane.h"

#include "window/VnReconcileFrame.h"
#include "window/VnRichEditSplitterWnd.h"

//===-- The frame above ----------------------------------------------------===//

CVnReconcileFrame* CVnPaneWnd::GetParentFrame() const {
  CWnd* parent = GetParent();
  for (int level = 0; level < 2 && parent && parent->IsKindOf(RUNTIME_CLASS(CVnRichEditSplitterWnd)); ++level)
    parent = parent->GetParent();
  if (parent && parent->IsKindOf(RUNTIME_CLASS(CVnReconcileFrame)))
    return static_cast<CVnReconcileFrame*>(parent);
  return nullptr;
}

const CHARFORMATW& CVnPaneWnd::GetDefaultCharFormat() const {
  if (CVnReconcileFrame* frame = GetParentFrame())
    return frame->GetDefaultCharFormat();
  return m_DisplayOptions.GetCharFormat();
}

const CVnDisplayOptions& CVnPaneWnd::GetDisplayOptions() const {
  if (CVnReconcileFrame* frame = GetParentFrame())
    return frame->GetDisplayOptions();
  return m_DisplayOptions;
}

CVnRichEditSplitterWnd* CVnPaneWnd::GetTopSplitter() const {
  if (CVnReconcileFrame* frame = GetParentFrame())
    return frame->GetSplitterWnd();
  return nullptr;
}

//===-- Synchronisation ----------------------------------------------------===//

namespace {
// A bar that no object holds, lent to HScroll for the call only.
struct LentScrollBar : CScrollBar {
  ~LentScrollBar() override { Detach(); }
};
}  // namespace

// The bar 0xEA00 of the parent (a splitter's first horizontal bar), as the
// object that holds it or lent; null if the parent has none.
CScrollBar* CVnPaneWnd::GetParentHScrollBar(CScrollBar& lent) const {
  HWND parent = ::GetParent(m_hWnd);
  HWND bar = parent ? ::GetDlgItem(parent, AFX_IDW_HSCROLL_FIRST) : nullptr;
  CWnd* held = CWnd::FromHandlePermanent(bar);
  if (held && held->IsKindOf(RUNTIME_CLASS(CScrollBar)))
    return static_cast<CScrollBar*>(held);
  return bar && lent.Attach(bar) ? &lent : nullptr;
}

// Scrolling by lines keeps whatever part of a line a control was scrolled
// into (a selection or the caret can scroll a rich edit control by pixels),
// so after the lines the number column takes the text's own pixel
// position: a row of numbers then stands level with its row of text.
void CVnPaneWnd::LevelNumbersWithText() {
  POINT text = {}, numbers = {};
  m_pTextPane->SendMessage(EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&text));
  m_pLineNumPane->SendMessage(EM_GETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&numbers));
  if (numbers.y == text.y)
    return;
  numbers.y = text.y;
  m_pLineNumPane->SendMessage(EM_SETSCROLLPOS, 0, reinterpret_cast<LPARAM>(&numbers));
}

// The line number column follows the line as received, before the
// splitter's GetSyncLine, and then its text to the pixel: rows of the
// numbers and of the text are level.
LRESULT CVnPaneWnd::OnSynchronize(WPARAM wParam, LPARAM lParam) {
  if (!HasChildren())
    return 0;
  const CVnPaneSync& sync = *reinterpret_cast<const CVnPaneSync*>(wParam);
  CVnPaneWnd* origin = reinterpret_cast<CVnPaneWnd*>(lParam);
  int line = sync.GetLine();
  int numbersFirst = m_pLineNumPane->GetFirstVisibleLine();
  if (numbersFirst != line)
    m_pLineNumPane->LineScroll(line - numbersFirst);
  CVnRichEditSplitterWnd* splitter = GetTopSplitter();
  if (origin == this) {
    LevelNumbersWithText();
    if (splitter)
      splitter->SendMessage(WM_PANE_SYNCHRONIZE, wParam, lParam);
    return 0;
  }
  int target = splitter ? splitter->GetSyncLine(this, origin, line) : line;
  int textFirst = m_pTextPane->GetFirstVisibleLine();
  if (textFirst != target)
    m_pTextPane->LineScroll(target - textFirst);
  if (m_pTextPane->GetFirstVisibleChar() != sync.GetChar()) {
    LentScrollBar lent;
    m_pTextPane->HScroll(sync.GetChar(), GetParentHScrollBar(lent));
  }
  LevelNumbersWithText();
  return 0;
}
