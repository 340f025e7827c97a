// VnOptionPagesWin32.cpp - the option sheet and its four pages.
//
// Every page exchanges its values with its controls through the dialog
// data exchange, which refuses a bad tab size with the platform's own range
// message and keeps the sheet open on that page.  The Color page keeps its
// four colours itself: the list shows their names, the sample the colour of
// the selected row, and the Font and Color dialogs are the system's.
#include "options/VnOptionPages.h"

#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/CCommonDialogs.h"
#include "afx/win32/CRichEditCtrl.h"
#include "foundation/LocalResources.h"

namespace {

enum : UINT {
  IDC_DIFF_ONLY = 1033, IDC_SPLASH = 1034, IDC_LINE_NUMBERS = 1004, IDC_STATUS_BAR = 1055,
  IDC_TOOLBAR = 1054, IDC_FONT_NAME = 1056, IDC_TAB_SIZE = 1001, IDC_FONT = 4,
  IDC_COLOR_LIST = 1044, IDC_SAMPLE = 1045, IDC_SELECT_COLOR = 1041, IDC_DEFAULT_COLORS = 1051,
  IDC_IGNORE_CASE = 1006, IDC_IGNORE_WHITESPACE = 1007,
  IDC_EDIT_MERGED = 1048, IDC_EDITOR = 1046, IDC_BROWSE = 1047,
  IDD_DISPLAY_FONT = 132, IDS_FIRST_COLOR_NAME = 155, IDS_SAMPLE_TEXT = 159,
};

// The face name stops at the end of its array even when unterminated.
CString FaceName(const CHARFORMATW& format) {
  int length = 0;
  while (length < LF_FACESIZE && format.szFaceName[length])
    ++length;
  return CString(format.szFaceName, length);
}

}  // namespace

//===-- The sheet and the component's pages --------------------------------===//

IMPLEMENT_DYNAMIC(CVnOptionsPS, CVnLocalPropertySheet)

CVnOptionsPS::CVnOptionsPS(LPCWSTR title, CWnd* parent, UINT selectPage)
    : CVnLocalPropertySheet(title, parent, selectPage, FALSE) {
  m_psh.dwFlags |= PSH_NOAPPLYNOW;
}

IMPLEMENT_DYNAMIC(CVnOptionPage, CVnLocalPropertyPage)

CVnOptionPage::CVnOptionPage(UINT templateId) : CVnLocalPropertyPage(templateId, 0) {}

HINSTANCE CVnOptionPage::GetPageResourceModule() { return GetResourceModule(); }

//===-- Display ------------------------------------------------------------===//

IMPLEMENT_DYNAMIC(CVnOptDisplayPP, CVnOptionPage)

BEGIN_MESSAGE_MAP(CVnOptDisplayPP, CVnOptionPage)
  ON_BN_CLICKED(IDC_FONT, OnFont)
END_MESSAGE_MAP()

CVnOptDisplayPP::CVnOptDisplayPP(const CVnDisplayOptions& options, int reduced)
    : CVnOptionPage(142),
      m_bDisplayDiffOnly(options.GetDisplayDiffOnly()),
      m_bDisplaySplashScreen(options.GetDisplaySplashScreen()),
      m_bShowLineNum(options.GetShowLineNum()),
      m_bDisplayStatusBar(options.GetDisplayStatusBar()),
      m_bDisplayToolbar(options.GetDisplayToolbar()),
      m_strFontName(FaceName(options.GetCharFormat())),
      m_nTabSize(options.GetTabSize()),
      m_cf(options.GetCharFormat()),
      m_bReduced(reduced) {}

CVnDisplayOptions CVnOptDisplayPP::GetDisplayOptions() const {
  CVnDisplayOptions options;
  options.SetDisplayDiffOnly(m_bDisplayDiffOnly);
  options.SetDisplaySplashScreen(m_bDisplaySplashScreen);
  options.SetShowLineNum(m_bShowLineNum);
  options.SetDisplayStatusBar(m_bDisplayStatusBar);
  options.SetDisplayToolbar(m_bDisplayToolbar);
  options.SetTabSize(m_nTabSize);
  options.SetCharFormat(m_cf);
  return options;
}

BOOL CVnOptDisplayPP::OnInitDialog() {
  CVnOptionPage::OnInitDialog();
  ShowDlgItem(IDC_DIFF_ONLY, m_bReduced ? FALSE : TRUE);
  return TRUE;
}

void CVnOptDisplayPP::DoDataExchange(CDataExchange* dx) {
  DDX_Check(dx, IDC_DIFF_ONLY, m_bDisplayDiffOnly);
  DDX_Check(dx, IDC_SPLASH, m_bDisplaySplashScreen);
  DDX_Check(dx, IDC_LINE_NUMBERS, m_bShowLineNum);
  DDX_Check(dx, IDC_STATUS_BAR, m_bDisplayStatusBar);
  DDX_Check(dx, IDC_TOOLBAR, m_bDisplayToolbar);
  DDX_Text(dx, IDC_FONT_NAME, m_strFontName);
  DDV_MaxChars(dx, m_strFontName, 64);
  DDX_Text(dx, IDC_TAB_SIZE, m_nTabSize);
  DDV_MinMaxUInt(dx, m_nTabSize, 1, 8);
}

// Fixed-pitch fonts only, without effects or colour, on the component's
// own template.
void CVnOptDisplayPP::OnFont() {
  CFontDialog dialog(m_cf, CF_SCREENFONTS, nullptr, nullptr);
  dialog.m_cf.Flags &= ~CF_EFFECTS;
  dialog.m_cf.Flags |= CF_ENABLETEMPLATE | CF_INITTOLOGFONTSTRUCT | CF_FIXEDPITCHONLY | CF_FORCEFONTEXIST;
  dialog.m_cf.hInstance = GetPageResourceModule();
  dialog.m_cf.lpTemplateName = MAKEINTRESOURCEW(IDD_DISPLAY_FONT);
  if (dialog.DoModal() != IDOK)
    return;
  dialog.GetCharFormat(m_cf);
  m_strFontName = FaceName(m_cf);
  ::SetDlgItemTextW(m_hWnd, IDC_FONT_NAME, m_strFontName);
}

//===-- Color --------------------------------------------------------------===//

IMPLEMENT_DYNAMIC(CVnOptColorPP, CVnOptionPage)

BEGIN_MESSAGE_MAP(CVnOptColorPP, CVnOptionPage)
  ON_LBN_SELCHANGE(IDC_COLOR_LIST, OnSelectionChange)
  ON_BN_CLICKED(IDC_SELECT_COLOR, OnSelectColor)
  ON_BN_CLICKED(IDC_DEFAULT_COLORS, OnDefaultColors)
END_MESSAGE_MAP()

CVnOptColorPP::CVnOptColorPP(COLORREF defaultColor, COLORREF replaceColor, COLORREF insertColor,
                             COLORREF deleteColor)
    : CVnOptionPage(144), m_colors{defaultColor, replaceColor, insertColor, deleteColor} {}

BOOL CVnOptColorPP::OnInitDialog() {
  CVnOptionPage::OnInitDialog();
  CListBox list;
  list.Attach(::GetDlgItem(m_hWnd, IDC_COLOR_LIST));
  for (int i = 0; i < ColorCount; ++i)
    list.AddString(LoadLocalString(GetPageResourceModule(), IDS_FIRST_COLOR_NAME + i));
  list.SetCurSel(0);
  HWND sample = ::GetDlgItem(m_hWnd, IDC_SAMPLE);
  ::SetWindowTextW(sample, LoadLocalString(GetPageResourceModule(), IDS_SAMPLE_TEXT));
  ::SendMessageW(sample, EM_SETREADONLY, TRUE, 0);
  RefreshSample();
  return TRUE;
}

int CVnOptColorPP::Selected() const {
  int index = static_cast<int>(::SendDlgItemMessageW(m_hWnd, IDC_COLOR_LIST, LB_GETCURSEL, 0, 0));
  return index >= 0 && index < ColorCount ? index : Default;
}

// The whole sample in the selected row's colour, and nothing else.
void CVnOptColorPP::RefreshSample() {
  CHARFORMATW format = {};
  format.cbSize = sizeof(format);
  format.dwMask = CFM_COLOR;
  format.crTextColor = m_colors[Selected()];
  HWND sample = ::GetDlgItem(m_hWnd, IDC_SAMPLE);
  ::SendMessageW(sample, EM_HIDESELECTION, 1, 1);
  ::SendMessageW(sample, EM_SETSEL, 0, -1);
  ::SendMessageW(sample, EM_SETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
}

void CVnOptColorPP::OnSelectionChange() { RefreshSample(); }

void CVnOptColorPP::OnSelectColor() {
  int index = Selected();
  CColorDialog dialog(m_colors[index], CC_RGBINIT, this);
  if (dialog.DoModal() != IDOK)
    return;
  m_colors[index] = dialog.GetColor();
  RefreshSample();
}

// Plain black for matching text, not the system's window text colour a
// new frame starts from.
void CVnOptColorPP::OnDefaultColors() {
  m_colors[Default] = 0x000000;
  m_colors[Replace] = 0xFF0000;
  m_colors[Insert] = 0x008000;
  m_colors[Delete] = 0x0000FF;
  RefreshSample();
}

//===-- Compare ------------------------------------------------------------===//

IMPLEMENT_DYNAMIC(CVnOptComparePP, CVnOptionPage)

CVnOptComparePP::CVnOptComparePP(int ignoreCase, int ignoreWhitespace)
    : CVnOptionPage(143), m_bIgnoreCase(ignoreCase), m_bIgnoreWhitespace(ignoreWhitespace) {}

BOOL CVnOptComparePP::OnInitDialog() {
  CVnOptionPage::OnInitDialog();
  ::CheckDlgButton(m_hWnd, IDC_IGNORE_CASE, m_bIgnoreCase ? BST_CHECKED : BST_UNCHECKED);
  ::CheckDlgButton(m_hWnd, IDC_IGNORE_WHITESPACE, m_bIgnoreWhitespace ? BST_CHECKED : BST_UNCHECKED);
  return TRUE;
}

void CVnOptComparePP::DoDataExchange(CDataExchange* dx) {
  DDX_Check(dx, IDC_IGNORE_CASE, m_bIgnoreCase);
  DDX_Check(dx, IDC_IGNORE_WHITESPACE, m_bIgnoreWhitespace);
}

//===-- Merge --------------------------------------------------------------===//

IMPLEMENT_DYNAMIC(CVnOptMergePP, CVnOptionPage)

BEGIN_MESSAGE_MAP(CVnOptMergePP, CVnOptionPage)
  ON_BN_CLICKED(IDC_BROWSE, OnBrowse)
END_MESSAGE_MAP()

CVnOptMergePP::CVnOptMergePP(int editMergedFile, const CString& editor)
    : CVnOptionPage(145), m_strEditor(editor), m_bEditMergedFile(editMergedFile) {}

BOOL CVnOptMergePP::OnInitDialog() {
  CVnOptionPage::OnInitDialog();
  ::CheckDlgButton(m_hWnd, IDC_EDIT_MERGED, m_bEditMergedFile ? BST_CHECKED : BST_UNCHECKED);
  m_browser.Attach(*this, IDC_EDITOR, 0);
  return TRUE;
}

// The editor is not checked: an empty name is the user's to give.
void CVnOptMergePP::DoDataExchange(CDataExchange* dx) {
  DDX_Text(dx, IDC_EDITOR, m_strEditor);
  DDX_Check(dx, IDC_EDIT_MERGED, m_bEditMergedFile);
}

void CVnOptMergePP::OnBrowse() { m_browser.OnBrowse(0, L"*.*", L"All Files (*.*)|*.*||"); }
