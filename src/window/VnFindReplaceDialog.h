// VnFindReplaceDialog.h - the Find dialog of the text panes.
//
// The system's Find dialog with the title of the pane that opened it
// ("Find (left.txt)"), and one message more: when its window goes, it tells
// its owner pane with WM_FINDDIALOG_DESTROYED, so that the pane forgets it
// and shows its caret again.  Made with new; deletes itself with its window.
// Windows only.
#ifndef VN_WINDOW_VNFINDREPLACEDIALOG_H
#define VN_WINDOW_VNFINDREPLACEDIALOG_H

#include "afx/win32/CFindReplaceDialog.h"

// Sent to the owner as the dialog's window is destroyed; wParam and lParam 0.
constexpr UINT WM_FINDDIALOG_DESTROYED = 0x0500;

class VN_API CVnFindReplaceDialog : public CFindReplaceDialog {
  DECLARE_DYNAMIC(CVnFindReplaceDialog)
public:
  CVnFindReplaceDialog() = default;

protected:
  BOOL OnInitDialog() override;
  void OnDestroy();

  DECLARE_MESSAGE_MAP()
};

#endif  // VN_WINDOW_VNFINDREPLACEDIALOG_H
