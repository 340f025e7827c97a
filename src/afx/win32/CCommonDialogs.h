// CCommonDialogs.h - the system's Font and Color dialogs, and the list box.
//
// Both dialogs are modal and run by the system: DoModal fills the record,
// calls ChooseFontW / ChooseColorW with the owner CDialog would choose, and
// gives IDOK or IDCANCEL.  A caller changes the record (m_cf, m_cc) between
// construction and DoModal, as it would on the system's own structure: for a
// template of its own it sets CF_ENABLETEMPLATE, hInstance and
// lpTemplateName in m_cf.
//
// CListBox holds the handle of a list box the dialog manager made; each
// method is one message.
#ifndef VN_AFX_WIN32_CCOMMONDIALOGS_H
#define VN_AFX_WIN32_CCOMMONDIALOGS_H

#include "afx/win32/CDialog.h"

#include <commdlg.h>
#include <richedit.h>

class VN_API CFontDialog {
public:
  // The choice starts from the character format's face, height, bold and
  // italic; printer is ignored (screen fonts only).
  CFontDialog(const CHARFORMATW& format, DWORD flags = CF_SCREENFONTS, HDC printer = nullptr,
              CWnd* parent = nullptr);
  CFontDialog(const CFontDialog&) = delete;
  CFontDialog& operator=(const CFontDialog&) = delete;

  INT_PTR DoModal();
  // The choice as a character format: face, height in twips, bold, italic,
  // and the mask that names them.
  void GetCharFormat(CHARFORMATW& format) const;

  CHOOSEFONTW m_cf;
  LOGFONTW m_lf;

private:
  CWnd* m_pParentWnd;
};

class VN_API CColorDialog {
public:
  CColorDialog(COLORREF initial = 0, DWORD flags = 0, CWnd* parent = nullptr);
  CColorDialog(const CColorDialog&) = delete;
  CColorDialog& operator=(const CColorDialog&) = delete;

  INT_PTR DoModal();
  COLORREF GetColor() const { return m_cc.rgbResult; }

  CHOOSECOLORW m_cc;

private:
  CWnd* m_pParentWnd;
};

class VN_API CListBox {
public:
  HWND m_hWnd = nullptr;

  void Attach(HWND listBox) { m_hWnd = listBox; }
  void Detach() { m_hWnd = nullptr; }
  int GetCount() const;
  int AddString(LPCWSTR text);
  int GetCurSel() const;
  int SetCurSel(int index);
  int SetTopIndex(int index);
  DWORD_PTR GetItemData(int index) const;
  int SetItemData(int index, DWORD_PTR data);
  void ResetContent();
};

#endif  // VN_AFX_WIN32_CCOMMONDIALOGS_H
