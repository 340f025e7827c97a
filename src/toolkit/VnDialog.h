// VnDialog.h - the base of the component's dialogs and of hosts' dialogs.
//
// Over CDialog: a read-only mode (the title says so, OK goes, Cancel reads
// "Close", and DoModal gives IDCANCEL whatever the dialog ended with); one
// application icon for every resizable dialog; resizing through an embedded
// CVnResizeControls; context help from the ".hlp" file beside the module
// that holds the dialog; validation helpers that show their message and put
// the focus on the offending control in one step; and the idle and menu
// command updates a frame would give to a dialog's bars and menu.
//
// CVnLocalDialog takes its template, texts and help from the module that
// GetDialogResourceModule names, loading the template itself instead of
// trusting the framework's search; all the component's own dialogs are
// local, since their templates live in the component.
#ifndef VN_TOOLKIT_VNDIALOG_H
#define VN_TOOLKIT_VNDIALOG_H

#include "afx/win32/CDialog.h"
#include "toolkit/VnResizeControls.h"

class CListBox;

class VN_API CVnDialog : public CDialog {
  DECLARE_DYNAMIC(CVnDialog)
public:
  CVnDialog();
  CVnDialog(LPCWSTR templateName, CWnd* parent);
  CVnDialog(UINT templateId, CWnd* parent);

  INT_PTR DoModal() override;
  BOOL GetReadOnly() const { return m_bReadOnly; }
  // Only ever switched on, before DoModal.
  void SetReadOnly() { m_bReadOnly = TRUE; }
  // The caller keeps the icon.
  static void SetDialogIcon(HICON icon) { m_hAppIcon = icon; }

protected:
  BOOL OnInitDialog() override;
  // Where given message numbers, templates and help come from.
  virtual HINSTANCE GetDialogResourceModule();

  void ReadOnlyDlgItem(UINT id, BOOL readOnly);
  BOOL EnableDlgItem(UINT id, BOOL enable);
  void ShowDlgItem(UINT id, BOOL show);
  // Through the dialog manager, which moves the default button as well.
  void SetDlgItemFocus(UINT id);
  // Hidden, disabled and moved 2048 pixels up and left.
  void ExileDlgItem(UINT id);
  void OffsetControl(CWnd* control, int dx, int dy);
  void OffsetControl(HWND control, int dx, int dy);
  // Lets the list scroll sideways to its widest item.
  void SetListboxHorizontalExtent(HWND listbox);

  // Each shows its message (messageId, or for (UINT)-1 the component's
  // default text) and focuses the control before it gives 0.
  bool Fail(UINT id, UINT messageId);
  BOOL ValidateNonEmptyPath(UINT id, CString& path, UINT blankMessage);
  BOOL ValidatePath(UINT id, CString& path, BOOL appendSlash, UINT blankMessage, UINT badMessage);
  BOOL ValidateFile(UINT id, CString& file, BOOL mustExist, UINT blankMessage, UINT badMessage,
                    UINT missingMessage);

  void OnContextMenu(CWnd* wnd, CPoint point);
  BOOL OnHelpInfo(HELPINFO* info);
  LRESULT OnKickIdle(WPARAM wParam, LPARAM count);
  void OnInitDlgMenuPopup(HMENU menu, LPARAM lParam);
  void OnSize(UINT type, int cx, int cy);
  void OnGetMinMaxInfo(MINMAXINFO* info);

  CVnResizeControls m_resizeControls;
  static HICON m_hAppIcon;

  DECLARE_MESSAGE_MAP()

private:
  void ShowErrorMessageBox(UINT messageId, UINT defaultId);
  BOOL m_bReadOnly = FALSE;
};

// Left-trims value, and when saving an empty one shows messageId of module
// and ends the exchange on the control.
VN_API void DDV_NotBlank(CDataExchange* dx, HINSTANCE module, CString& value, UINT messageId);

class VN_API CVnLocalDialog : public CVnDialog {
  DECLARE_DYNAMIC(CVnLocalDialog)
public:
  CVnLocalDialog() = default;
  CVnLocalDialog(LPCWSTR templateName, CWnd* parent) : CVnDialog(templateName, parent) {}
  CVnLocalDialog(UINT templateId, CWnd* parent) : CVnDialog(templateId, parent) {}
  ~CVnLocalDialog() override;

  // Modeless from the module's template, freed right after creation.
  // A template the module lacks throws AfxThrowOSException(-1).
  BOOL Create(LPCWSTR templateName, CWnd* parent) override;
  // Only the low 16 bits of the number name the template.
  BOOL Create(UINT templateId, CWnd* parent) override;
  INT_PTR DoModal() override;

protected:
  // Null: the framework's own search.  A subclass names its module.
  HINSTANCE GetDialogResourceModule() override { return nullptr; }
  // Loads the template once; it stays loaded until the destructor.
  void InitLocalModalDialog();
  BOOL OnHelpInfo(HELPINFO* info);

  DECLARE_MESSAGE_MAP()

private:
  BOOL m_bTemplateLoaded = FALSE;
};

#endif  // VN_TOOLKIT_VNDIALOG_H
