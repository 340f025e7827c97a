// CPropertySheet.h - tabbed dialogs: the system's property sheet with one
// object per page.
//
// A page is a dialog whose template the sheet shows under a tab; the sheet
// makes its window the first time the page is shown.  The page's object
// joins the one window procedure at its WM_INITDIALOG, the sheet's object
// at the sheet window's creation (a thread-local CBT hook while the system
// builds it), so both see every message of their maps.  The sheet tells a
// page of its turn with WM_NOTIFY: PSN_SETACTIVE (OnSetActive), PSN_KILLACTIVE
// (OnKillActive, which validates through UpdateData), PSN_APPLY (OnApply)
// and PSN_RESET (OnCancel).
//
// DoModal runs the sheet modeless with its own modal loop
// (CWnd::RunModalLoop), which ends when the system reports no current page
// (after OK or Cancel).  Create takes the window style the sheet's
// template gets, so a sheet can have a sizing frame.
#ifndef VN_AFX_WIN32_CPROPERTYSHEET_H
#define VN_AFX_WIN32_CPROPERTYSHEET_H

#include "afx/win32/CDialog.h"

#include <commctrl.h>
#include <prsht.h>

class VN_API CPropertyPage : public CDialog {
  DECLARE_DYNAMIC(CPropertyPage)
public:
  CPropertyPage();
  explicit CPropertyPage(UINT templateId, UINT captionId = 0);
  explicit CPropertyPage(LPCWSTR templateName, UINT captionId = 0);
  // captionId 0: the template's own caption.  Texts of the captionId come
  // from the resource handle.
  void Construct(UINT templateId, UINT captionId = 0);
  void Construct(LPCWSTR templateName, UINT captionId = 0);

  // FALSE keeps the page from becoming active.
  virtual BOOL OnSetActive() { return TRUE; }
  // FALSE keeps the page in front: the default saves its data.
  virtual BOOL OnKillActive() { return UpdateData(TRUE); }
  virtual BOOL OnApply() { return TRUE; }

  PROPSHEETPAGEW m_psp;

protected:
  CString m_strCaption;
  BOOL OnNotify(WPARAM wParam, LPARAM lParam, LRESULT* result) override;
  void OnOK() override {}
  void OnCancel() override {}

private:
  friend class CPropertySheet;
  static INT_PTR CALLBACK PageProc(HWND page, UINT message, WPARAM wParam, LPARAM lParam);
};

class VN_API CPropertySheet : public CWnd {
  DECLARE_DYNAMIC(CPropertySheet)
public:
  CPropertySheet();
  explicit CPropertySheet(LPCWSTR caption, CWnd* parent = nullptr, UINT selectPage = 0);
  ~CPropertySheet() override;

  virtual INT_PTR DoModal();
  // Modeless.  style and exStyle, when not -1, replace those of the
  // system's sheet template.
  virtual BOOL Create(CWnd* parent = nullptr, DWORD style = static_cast<DWORD>(-1),
                      DWORD exStyle = static_cast<DWORD>(-1));
  void AddPage(CPropertyPage* page);
  int GetPageCount() const;
  CPropertyPage* GetPage(int index) const;
  int GetPageIndex(CPropertyPage* page) const;
  // The page in front, or null once the sheet ended.
  CPropertyPage* GetActivePage() const;
  int GetActiveIndex() const;
  BOOL SetActivePage(int index);
  BOOL SetActivePage(CPropertyPage* page);
  HWND GetTabControl() const;
  void SetTitle(LPCWSTR text, UINT style = 0);
  BOOL ContinueModal() override;

  PROPSHEETHEADERW m_psh;

protected:
  // Fills m_psh's page array from the pages' records.
  void BuildPropPageArray();
  // After the system's own WM_INITDIALOG work.
  virtual BOOL OnInitDialog() { return TRUE; }
  virtual void OnOK();
  virtual void OnCancel();
  BOOL PreTranslateMessage(MSG* msg) override;
  LRESULT HandleInitDialog(WPARAM wParam, LPARAM lParam);

  CWnd* m_pParentWnd = nullptr;
  CString m_strCaption;
  DWORD m_dwStyle = static_cast<DWORD>(-1);
  DWORD m_dwExStyle = static_cast<DWORD>(-1);

  DECLARE_MESSAGE_MAP()

private:
  static int CALLBACK SheetCallback(HWND sheet, UINT message, LPARAM lParam);
  static LRESULT CALLBACK CreateHook(int code, WPARAM wParam, LPARAM lParam);
  CPtrArray m_pages;
  PROPSHEETPAGEW* m_pageRecords = nullptr;
};

#endif  // VN_AFX_WIN32_CPROPERTYSHEET_H
