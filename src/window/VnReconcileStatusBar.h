// VnReconcileStatusBar.h - the status bar of a comparison frame.
//
// The frame's bar is the framework's status bar with one more virtual,
// SetPaneText, so a host can catch every text that reaches a pane.
#ifndef VN_WINDOW_VNRECONCILESTATUSBAR_H
#define VN_WINDOW_VNRECONCILESTATUSBAR_H

#include "afx/win32/CStatusBar.h"

class VN_API CVnReconcileStatusBar : public CStatusBar {
  DECLARE_DYNAMIC(CVnReconcileStatusBar)
public:
  CVnReconcileStatusBar() = default;

  virtual int SetPaneText(int index, LPCWSTR text, int update = TRUE);

  DECLARE_MESSAGE_MAP()
};

#endif  // VN_WINDOW_VNRECONCILESTATUSBAR_H
