// VnResizeControls.h - the layout helper embedded in the component's
// dialogs, property pages and sheets.
//
// The owner registers controls with a flag word and passes WM_SIZE and
// WM_GETMINMAXINFO on.  The low word says what a control does with a width
// change dx, the high word with a height change dy; within a word the first
// bit that is set wins.  A control moves or grows by the whole change, or
// moves by half of it (truncated toward zero, and not carried, so a centred
// control drifts a pixel per odd change).  No subclassing, no shares: for
// proportional layouts see CResizeCtrl.h.
#ifndef VN_TOOLKIT_VNRESIZECONTROLS_H
#define VN_TOOLKIT_VNRESIZECONTROLS_H

#include "afx/win32/CWnd.h"
#include "engine/TypedOwnerPtrArray.h"

class CDialog;
class CFrameWnd;
class CPropertyPage;
class CPropertySheet;

enum : DWORD {
  VN_RESIZE_MOVE_X = 0x1,      // left and right edges by dx
  VN_RESIZE_GROW_X = 0x2,      // right edge by dx
  VN_RESIZE_CENTRE_X = 0x4,    // left and right edges by dx / 2
  VN_RESIZE_MOVE_Y = 0x10000,  // top and bottom edges by dy
  VN_RESIZE_GROW_Y = 0x20000,  // bottom edge by dy
  VN_RESIZE_CENTRE_Y = 0x40000,
  VN_RESIZE_CORNER = 0x10001,  // buttons: the bottom right corner
  VN_RESIZE_GROW = 0x20002,    // lists and tab controls
};

class VN_API CVnResizeElement {
public:
  CVnResizeElement(DWORD flags, UINT controlId) : m_nControlId(controlId), m_dwFlags(flags) {}
  BOOL IsControl(UINT controlId) const { return m_nControlId == controlId; }
  // Moves the parent's item; an ID without a window is skipped.
  void OnSize(CWnd* parent, int dx, int dy);

private:
  UINT m_nControlId;
  DWORD m_dwFlags;
};

class VN_API CVnResizeControls {
public:
  CVnResizeControls() { Reset(); }

  // Back to unset: nothing allowed, no sizes, no controls.
  void Reset();
  void AllowResizing(BOOL horizontal, BOOL vertical);
  void SetMinDlgSize(int width, int height);
  // The forms for windows with a frame also take the present outer size
  // as the minimum; a page sizes with its sheet and takes none.
  void OnInitDialog(CDialog* dialog, BOOL horizontal, BOOL vertical);
  void OnInitDialog(CPropertySheet* sheet, BOOL horizontal, BOOL vertical);
  void OnInitDialog(CFrameWnd* frame, BOOL horizontal, BOOL vertical);
  void OnInitDialog(CPropertyPage* page, BOOL horizontal, BOOL vertical);
  // The same ID registered twice moves twice.
  void RegisterControl(DWORD flags, UINT controlId);
  // The first element of that ID goes; an unknown ID is ignored.
  void UnregisterControl(UINT controlId);
  // Only a restore or maximise moves anything; a minimised window keeps
  // the last size, so restoring it changes nothing.
  void OnSize(CWnd* window, UINT sizeType, int cx, int cy);
  // Holds the window at its minimum, and at its initial size on an axis
  // that may not change.
  void OnGetMinMaxInfo(MINMAXINFO* info);

private:
  void InitResizer(const CWnd* window, BOOL horizontal, BOOL vertical, BOOL storeMinimum);

  BOOL m_bAllowHorizontal;
  BOOL m_bAllowVertical;
  int m_nMinWidth, m_nMinHeight;
  int m_nLastWidth, m_nLastHeight;
  CTypedOwnerPtrArray<CVnResizeElement> m_elements;
};

#endif  // VN_TOOLKIT_VNRESIZECONTROLS_H
