// CResizeCtrl.h - makes any top-level window resizable from outside.
//
// The object subclasses the window it serves (dialog, property sheet,
// wizard) and, on each WM_SIZE, moves and sizes the registered children by
// fixed shares of the change: four whole numbers per child, for left, top,
// width and height, on a scale of maxPart (100 unless told).  The fractions
// that do not make a whole pixel are carried per child (ResizeShare.h), so a
// long drag loses nothing.  A window without a sizing frame gets one
// (WS_THICKFRAME, the client area kept in place on the screen) and its
// frame drag is done here.  While subclassed, the window holds this object
// in the property "___CResizeCtrl___Class___" and answers the registered
// message "WM_GETRESIZECTRL" with it.
//
// Positions are always taken from where a child stands now: a child that
// someone else moved keeps that move; only the remainders are remembered.
#ifndef VN_TOOLKIT_CRESIZECTRL_H
#define VN_TOOLKIT_CRESIZECTRL_H

#include "afx/win32/CWnd.h"

class CPropertySheet;

struct CResizeItem {
  HWND hWnd;
  int xRest, yRest, cxRest, cyRest;  // carried, in 1/maxPart pixel
  int xPart, yPart, cxPart, cyPart;
};

// One record of a table for Add; a controlId below 1 ends the table.
struct CResizeInfo {
  int controlId;
  int xPart, yPart, cxPart, cyPart;
};

class VN_API CResizeCtrl {
public:
  CResizeCtrl();
  CResizeCtrl(HWND hWnd, BOOL enable = TRUE, int maxPart = 100, BOOL hasResizingBorder = FALSE);
  // A null window leaves the object without one.
  CResizeCtrl(CWnd* wnd, BOOL enable = TRUE, int maxPart = 100);
  // Disables (puts the window procedure back) before it goes.
  virtual ~CResizeCtrl();
  // Each object serves its own window with its own records.
  CResizeCtrl(const CResizeCtrl&) = delete;
  CResizeCtrl& operator=(const CResizeCtrl&) = delete;

  // Once per object: a second call gives 0.  hasResizingBorder: the window
  // sizes through a frame of its own (taken from WS_THICKFRAME when 0).
  BOOL Create(HWND hWnd, BOOL enable = TRUE, int maxPart = 100, BOOL hasResizingBorder = FALSE);
  // A property page sizes through its sheet, so counts as having a frame.
  BOOL Create(CWnd* wnd, BOOL enable = TRUE, int maxPart = 100);

  // 0, adding nothing, for a share outside 0..maxPart, a position plus size
  // share above maxPart, or a handle that is not a window.
  BOOL Add(HWND hWnd, int xPart, int yPart, int cxPart, int cyPart);
  BOOL Add(int controlId, int xPart, int yPart, int cxPart, int cyPart);
  BOOL Add(CWnd* wnd, int xPart, int yPart, int cxPart, int cyPart);
  // The whole table, stopping at the first failure.
  BOOL Add(const CResizeInfo* table);
  // The first record of the window goes; 0 when there is none.
  BOOL Remove(HWND hWnd);
  BOOL Remove(int controlId);
  BOOL Remove(CWnd* wnd);

  // 0 when nothing changed (no Create yet, or already so).
  BOOL SetEnabled(BOOL enable);
  BOOL GetEnabled() const { return enabled; }
  // Always gives 0.
  BOOL SetGripEnabled(BOOL showGrip);
  BOOL GetGripEnabled() const { return gripEnabled; }
  // The window's rectangle at the last change of the enabled state.
  BOOL GetWindowRect(RECT* rect);
  // -1 in a member stands for the system's value.
  BOOL SetMinimumTrackingSize(const CSize& size);
  // The window's present outer size.
  BOOL SetMinimumTrackingSize();
  CSize GetMinimumTrackingSize() const { return minTrackingSize; }
  BOOL SetMaximumTrackingSize(const CSize& size);
  CSize GetMaximumTrackingSize() const { return maxTrackingSize; }

  // The object serving the window, asked through the registered message;
  // null for something that is not a window.
  static CResizeCtrl* GetResizeCtrl(HWND hWnd);
  static CResizeCtrl* GetResizeCtrl(CWnd* wnd);

  // Property sheets and wizards; each gives 0 for a null sheet.  Prepare
  // creates every page's window (before AddPages, which needs them).
  BOOL PropertySheetPrepare(CPropertySheet* sheet);
  BOOL PropertySheetAddButtons(CPropertySheet* sheet, int xPart, int yPart, int cxPart, int cyPart);
  BOOL PropertySheetAddPages(CPropertySheet* sheet, int xPart, int yPart, int cxPart, int cyPart);
  BOOL WizardAddEtchedBar(CPropertySheet* sheet, int xPart, int yPart, int cxPart, int cyPart);
  BOOL WizardSaveMargins(CPropertySheet* sheet);
  BOOL WizardAdjustPage(CPropertySheet* sheet);

private:
  BOOL CalcValue(int delta, int part, int& rest, int& value, BOOL clamp);
  void Resize(int cx, int cy);
  void ChangeStyle(BOOL enable);
  void GetGripRect(RECT& rect, BOOL invalidate);
  void StartDrag(WPARAM hitTest);
  void DragStep();
  BOOL ProcessMessage(UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);
  static LRESULT CALLBACK WndProc(HWND hWnd, UINT message, WPARAM wParam, LPARAM lParam);

  BOOL hasResizingBorder = FALSE;
  WNDPROC oldWndProc = nullptr;
  BOOL enabled = FALSE;
  int maxPart = 100;
  HWND hWndParent = nullptr;
  int lastClientSize[2] = {0, 0};
  CArray<CResizeItem, const CResizeItem&>* items = nullptr;
  CSize maxTrackingSize{-1, -1};
  CSize minTrackingSize{-1, -1};
  BOOL inResize = FALSE;
  int hitCode = 0;
  int trackDelta[2] = {0, 0};
  BOOL inMouseMove = FALSE;
  RECT gripRect = {0, 0, 0, 0};
  BOOL gripEnabled = FALSE;
  RECT windowRect = {0, 0, 0, 0};
  RECT* wizardMargins = nullptr;
};

#endif  // VN_TOOLKIT_CRESIZECTRL_H
