// VnPropertySheet.h - the bases of all tabbed dialogs.
//
// Over CPropertySheet and CPropertyPage: a read-only mode, a sheet that
// really resizes, context help from the module that holds the sheet or
// page, and validators on pages that bring the offending page to the front
// before they focus its control.  The system cannot run a modal sheet with
// a sizing frame, so a resizable sheet makes itself modeless with a frame
// of its choosing and runs the modal loop itself (CustomModalDlg).  On a
// resize the tab control grows, the buttons follow the bottom right corner
// and only the active page is stretched; a page's own controls follow
// through its CVnResizeControls.
//
// The local variants take templates and captions from the module that
// GetPageResourceModule names (CVnLocalPropertyPage::LocalizePage, run by
// CVnLocalPropertySheet::AddPage).  By default a sheet has neither a Help
// nor an Apply button.
#ifndef VN_TOOLKIT_VNPROPERTYSHEET_H
#define VN_TOOLKIT_VNPROPERTYSHEET_H

#include "afx/win32/CPropertySheet.h"
#include "toolkit/VnResizeControls.h"

class CVnPropertySheet;

class VN_API CVnPropertyPage : public CPropertyPage {
  DECLARE_DYNAMIC(CVnPropertyPage)
public:
  CVnPropertyPage();
  explicit CVnPropertyPage(UINT templateId, UINT captionId = 0);
  explicit CVnPropertyPage(LPCWSTR templateName, UINT captionId = 0);

  // The parent window's object, taken as the sheet.
  CVnPropertySheet* GetSheet();

protected:
  BOOL OnInitDialog() override;
  virtual HINSTANCE GetPageResourceModule();
  BOOL MustVisit() const { return m_bMustVisit; }

  void ReadOnlyDlgItem(UINT id, BOOL readOnly);
  BOOL EnableDlgItem(UINT id, BOOL enable);
  void ShowDlgItem(UINT id, BOOL show);
  void OffsetControl(HWND control, int dx, int dy);
  // Brings this page to the front if it is not, then focuses the item.
  void SetDlgItemFocus(UINT id);
  void ShowErrorMessageBox(UINT messageId, UINT defaultId);
  // Each shows its message ((UINT)-1: the component's default), brings the
  // page forward, focuses the item and gives 0 on failure.
  int Fail(UINT id, UINT messageId);
  BOOL ValidateNonEmptyPath(UINT id, CString& path, UINT blankMessage);
  // Passes when wcstod gives non-zero or the text (after blanks and tabs)
  // starts with '0'; where wcstod stopped is not looked at.
  BOOL ValidateDouble(UINT id, CString& text, UINT messageId);
  BOOL ValidateEmptyString(UINT id, UINT messageId);

  void OnContextMenu(CWnd* wnd, CPoint point);
  BOOL OnHelpInfo(HELPINFO* info);
  void OnSize(UINT type, int cx, int cy);
  LRESULT OnKickIdle(WPARAM wParam, LPARAM count);

  BOOL m_bMustVisit = FALSE;
  CVnResizeControls m_resizeControls;

  DECLARE_MESSAGE_MAP()
};

class VN_API CVnPropertySheet : public CPropertySheet {
  DECLARE_DYNAMIC(CVnPropertySheet)
public:
  explicit CVnPropertySheet(BOOL canResize = FALSE);
  CVnPropertySheet(LPCWSTR caption, CWnd* parent, UINT selectPage, BOOL canResize);

  // IDCANCEL for a read-only sheet, whatever it ended with.
  INT_PTR DoModal() override;
  void EnableButton(UINT id, BOOL enable);
  BOOL GetReadOnly() const { return m_bReadOnly; }
  void SetReadOnly(BOOL readOnly) { m_bReadOnly = readOnly; }
  BOOL CanResize() const { return m_bCanResize; }
  void SetResize(bool canResize) { m_bCanResize = canResize; }
  // Also refreshes the cached size.
  void GetClientSize(CPoint& size);
  // The template field of the page's record: the resource ID of a page
  // built by number.  An index outside the pages throws.
  LONG_PTR GetPageID(int index);
  // A read-only sheet's title says so.
  void SetTitle(LPCWSTR text, UINT style);
  // Deletes the page objects; the sheet's last act on them.
  void DeleteAllPages();

protected:
  BOOL OnInitDialog() override;
  void OnOK() override;
  virtual HINSTANCE GetSheetResourceModule();
  // Tells the user that every page must be visited.
  virtual BOOL OnMustVisitAllPages();
  int CustomModalDlg();
  void CacheClientSize();

  int OnCreate(LPCREATESTRUCTW create);
  void OnContextMenu(CWnd* wnd, CPoint point);
  BOOL OnHelpInfo(HELPINFO* info);
  void OnSize(UINT type, int cx, int cy);
  void OnGetMinMaxInfo(MINMAXINFO* info);
  LRESULT OnKickIdle(WPARAM wParam, LPARAM count);

  CVnResizeControls m_resizeControls;
  BOOL m_bReadOnly = FALSE;
  BOOL m_bCanResize;
  int m_nClientWidth = 0, m_nClientHeight = 0;
  BOOL m_bInitialised = FALSE;

  DECLARE_MESSAGE_MAP()
};

class VN_API CVnLocalPropertyPage : public CVnPropertyPage {
  DECLARE_DYNAMIC(CVnLocalPropertyPage)
public:
  CVnLocalPropertyPage() = default;
  CVnLocalPropertyPage(UINT templateId, UINT captionId);
  CVnLocalPropertyPage(LPCWSTR templateName, UINT captionId);
  void Construct(UINT templateId, UINT captionId);
  void Construct(LPCWSTR templateName, UINT captionId);

  // Points the page's record at the module's template and caption.
  virtual void LocalizePage();

protected:
  // Null unless a subclass names its module.
  HINSTANCE GetPageResourceModule() override { return nullptr; }
  UINT m_nCaptionId = 0;
};

class VN_API CVnLocalPropertySheet : public CVnPropertySheet {
  DECLARE_DYNAMIC(CVnLocalPropertySheet)
public:
  CVnLocalPropertySheet() : CVnPropertySheet(FALSE) {}
  CVnLocalPropertySheet(LPCWSTR caption, CWnd* parent, UINT selectPage, BOOL canResize)
      : CVnPropertySheet(caption, parent, selectPage, canResize) {}
  // A local page is localised first; others pass untouched.
  void AddPage(CPropertyPage* page);

protected:
  HINSTANCE GetSheetResourceModule() override { return nullptr; }
};

#endif  // VN_TOOLKIT_VNPROPERTYSHEET_H
