// vnreconcile/Window.h - the comparison window: the frame a host derives
// from (CVnReconcileFrame), the splitter that keeps its panes in step
// (CVnRichEditSplitterWnd), the panes (CVnPaneWnd with its text and number
// panes), a comparison shown in two panes (CVnComparisonView), find,
// encoding and printing dialogs; with the framework's windows, message
// maps and application object below them.  Windows only.
#ifndef VNRECONCILE_WINDOW_H
#define VNRECONCILE_WINDOW_H

#ifndef _WIN32
#error "vnreconcile/Window.h is part of the Windows component"
#endif

#include "vnreconcile/Compare.h"
#include "vnreconcile/Toolkit.h"

#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/AfxRes.h"
#include "afx/win32/CWinApp.h"
#include "window/VnComparisonView.h"
#include "window/VnEncodingDlg.h"
#include "window/VnFindReplaceDialog.h"
#include "window/VnLineNumPane.h"
#include "window/VnPaneMessages.h"
#include "window/VnPaneSync.h"
#include "window/VnPaneWnd.h"
#include "window/VnPrintingDialog.h"
#include "window/VnReconcileFrame.h"
#include "window/VnReconcileStatusBar.h"
#include "window/VnRichEditPane.h"
#include "window/VnRichEditSplitterWnd.h"
#include "window/VnTextPane.h"

#endif  // VNRECONCILE_WINDOW_H
