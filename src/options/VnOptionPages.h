// VnOptionPages.h - the sheet on which the user edits a frame's options.
//
// CVnReconcileFrame::OnOptions runs one modal CVnOptionsPS with up to four
// pages: Display, Color, Merge and Compare.  Each page works on its own
// copy of the values; the frame learns of them only after OK, when
// OnOptions sets off exactly the work each change needs (see
// VnFrameOptionsWin32.cpp).  The templates (142 to 145) and the font
// dialog's (132) live in the component's resources.
#ifndef VN_OPTIONS_VNOPTIONPAGES_H
#define VN_OPTIONS_VNOPTIONPAGES_H

#include "options/VnDisplayOptions.h"
#include "toolkit/VnFilePickers.h"
#include "toolkit/VnPropertySheet.h"

// OK and Cancel, no Apply.
class VN_API CVnOptionsPS : public CVnLocalPropertySheet {
  DECLARE_DYNAMIC(CVnOptionsPS)
public:
  CVnOptionsPS(LPCWSTR title, CWnd* parent, UINT selectPage);
};

// The component's own pages: templates and tab titles from its module.
class VN_API CVnOptionPage : public CVnLocalPropertyPage {
  DECLARE_DYNAMIC(CVnOptionPage)
public:
  explicit CVnOptionPage(UINT templateId);

protected:
  HINSTANCE GetPageResourceModule() override;
};

class VN_API CVnOptDisplayPP : public CVnOptionPage {
  DECLARE_DYNAMIC(CVnOptDisplayPP)
public:
  // reduced: the sheet of a window without comparison settings, which
  // hides "Display differences only" (its value passes through).
  CVnOptDisplayPP(const CVnDisplayOptions& options, int reduced);
  // The five flags, the tab size and the character format.
  CVnDisplayOptions GetDisplayOptions() const;

protected:
  BOOL OnInitDialog() override;
  void DoDataExchange(CDataExchange* dx) override;
  void OnFont();

  int m_bDisplayDiffOnly;
  int m_bDisplaySplashScreen;
  int m_bShowLineNum;
  int m_bDisplayStatusBar;
  int m_bDisplayToolbar;
  CString m_strFontName;
  UINT m_nTabSize;
  CHARFORMATW m_cf;
  int m_bReduced;

  DECLARE_MESSAGE_MAP()
};

class VN_API CVnOptColorPP : public CVnOptionPage {
  DECLARE_DYNAMIC(CVnOptColorPP)
public:
  enum { Default, Replace, Insert, Delete, ColorCount };
  CVnOptColorPP(COLORREF defaultColor, COLORREF replaceColor, COLORREF insertColor, COLORREF deleteColor);
  COLORREF GetColor(int index) const { return m_colors[index]; }

protected:
  BOOL OnInitDialog() override;
  void OnSelectionChange();
  void OnSelectColor();
  void OnDefaultColors();
  void RefreshSample();
  int Selected() const;

  COLORREF m_colors[ColorCount];

  DECLARE_MESSAGE_MAP()
};

class VN_API CVnOptComparePP : public CVnOptionPage {
  DECLARE_DYNAMIC(CVnOptComparePP)
public:
  CVnOptComparePP(int ignoreCase, int ignoreWhitespace);
  int GetIgnoreCase() const { return m_bIgnoreCase; }
  int GetIgnoreWhitespace() const { return m_bIgnoreWhitespace; }

protected:
  BOOL OnInitDialog() override;
  void DoDataExchange(CDataExchange* dx) override;

  int m_bIgnoreCase;
  int m_bIgnoreWhitespace;
};

class VN_API CVnOptMergePP : public CVnOptionPage {
  DECLARE_DYNAMIC(CVnOptMergePP)
public:
  CVnOptMergePP(int editMergedFile, const CString& editor);
  int GetEditMergedFile() const { return m_bEditMergedFile; }
  const CString& GetEditor() const { return m_strEditor; }

protected:
  BOOL OnInitDialog() override;
  void DoDataExchange(CDataExchange* dx) override;
  void OnBrowse();

  CString m_strEditor;
  int m_bEditMergedFile;
  CVnFileBrowser m_browser;

  DECLARE_MESSAGE_MAP()
};

#endif  // VN_OPTIONS_VNOPTIONPAGES_H
