// FrameTestSupport.cpp - the test frame's command bindings, as a host's, and
// the logging pane.
#include "window/win32/FrameTestSupport.h"

#include "window/VnPaneMessages.h"

namespace vn {
namespace test {

IMPLEMENT_DYNCREATE(LoggingPaneWnd, CVnPaneWnd)

BEGIN_MESSAGE_MAP(TestFrame, CVnReconcileFrame)
  ON_COMMAND(kFind, OnFind)
  ON_COMMAND(kFindNext, OnFindNext)
  ON_COMMAND(kCopy, OnEditCopy)
  ON_UPDATE_COMMAND_UI(kFind, OnUpdateFind)
  ON_UPDATE_COMMAND_UI(kCopy, OnUpdateEditCopy)
  ON_UPDATE_COMMAND_UI(kPosition, OnUpdatePosition)
END_MESSAGE_MAP()

LRESULT LoggingPaneWnd::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
  TestFrame* frame = static_cast<TestFrame*>(GetParentFrame());
  if (frame && GetDlgCtrlID() == CSplitterWnd::IdFromRowCol(0, 0)) {
    const CHARFORMATW* cf = reinterpret_cast<const CHARFORMATW*>(lParam);
    if (message == WM_PANE_SETDEFAULTCHARFORMAT)
      frame->Note("font " + std::to_string(cf->yHeight) + " " + VnToUtf8(CString(cf->szFaceName)));
    else if (message == WM_PANE_SETTABSTOPS)
      frame->Note("tabs " + std::to_string(wParam) + " " + std::to_string(cf->yHeight));
    else if (message == WM_PANE_RESIZEINTERNALPANES)
      frame->Note(lParam ? "resize w" : "resize 0");
  }
  return CVnPaneWnd::WindowProc(message, wParam, lParam);
}

}  // namespace test
}  // namespace vn
