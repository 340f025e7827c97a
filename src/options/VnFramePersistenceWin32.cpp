// VnFramePersistenceWin32.cpp - a comparison frame's options between runs,
// and a changed set of options brought onto the running window.
//
// The registry tree below HKEY_CURRENT_USER\<application registry key>:
//
//   Display         the window placement, ten DWORDs
//   DisplayOptions  TabSize, FontHeight, FontFaceName (a string),
//                   ShowLineNum, ShowDiffOnly, DisplayToolBar, DisplayStatusBar
//   ColorOptions    Default, Replace, Insert, Delete
//   MergeOptions    EditMergedFile (0 or 1), Editor (a string: the command
//                   a merge tool runs on the merged file after saving it)
//
// Every read takes the frame's present value as its default, so a first run
// with no tree keeps the constructor's values (and showCmd 1).  Nothing is
// range-checked here: the option pages bind what the user types, and the
// registry readers already give the default on any damaged value.
//
// ApplyDisplayOptions runs its steps in a fixed order, because every step
// after the font measures with the new font: font, tab stops, line number
// width, bars, differences-only view, and last the focus back to the text
// pane that had it.
#include "window/VnReconcileFrame.h"

#include "afx/win32/CWinApp.h"
#include "foundation/VnRegistry.h"
#include "window/VnRichEditSplitterWnd.h"
#include "window/VnTextPane.h"

// The ten placement values, in the order they are read and written.
static LONG* PlacementField(WINDOWPLACEMENT& placement, int index) {
  switch (index) {
  case 0: return reinterpret_cast<LONG*>(&placement.flags);
  case 1: return reinterpret_cast<LONG*>(&placement.showCmd);
  case 2: return &placement.ptMinPosition.x;
  case 3: return &placement.ptMinPosition.y;
  case 4: return &placement.ptMaxPosition.x;
  case 5: return &placement.ptMaxPosition.y;
  case 6: return &placement.rcNormalPosition.left;
  case 7: return &placement.rcNormalPosition.top;
  case 8: return &placement.rcNormalPosition.right;
  default: return &placement.rcNormalPosition.bottom;
  }
}

static const LPCWSTR kPlacementNames[10] = {
    L"WndPlcmntFlags", L"WndPlcmntShow", L"WndPlcmntMinX",  L"WndPlcmntMinY", L"WndPlcmntMaxX",
    L"WndPlcmntMaxY",  L"WndPlcmntLeft", L"WndPlcmntTop",   L"WndPlcmntRight", L"WndPlcmntBottom"};

// The face name stops at the end of its array even when unterminated.
static CString FaceName(const CHARFORMATW& format) {
  int length = 0;
  while (length < LF_FACESIZE && format.szFaceName[length])
    ++length;
  return CString(format.szFaceName, length);
}

static LPCWSTR RegistryKey() {
  CWinApp* app = AfxGetApp();
  return app ? app->m_pszRegistryKey : nullptr;
}

//===-- Reading ------------------------------------------------------------===//

void CVnReconcileFrame::GetOptionsFromRegistry() {
  CVnRegistry registry(HKEY_CURRENT_USER, RegistryKey(), L"Display", KEY_ALL_ACCESS);
  GetWindowPlacement(&m_WindowPlacement);
  for (int i = 0; i < 10; ++i) {
    LONG* field = PlacementField(m_WindowPlacement, i);
    DWORD fallback = i == 1 ? SW_SHOWNORMAL : static_cast<DWORD>(*field);
    *field = static_cast<LONG>(registry.GetInt(kPlacementNames[i], fallback));
  }
  registry.CloseSection();

  registry.OpenSection(L"DisplayOptions");
  m_DisplayOptions.SetTabSize(registry.GetInt(L"TabSize", m_DisplayOptions.GetTabSize()));
  CHARFORMATW format = m_DisplayOptions.GetCharFormat();
  format.yHeight = static_cast<LONG>(registry.GetInt(L"FontHeight", static_cast<DWORD>(format.yHeight)));
  VnSetFaceName(format, registry.GetString(L"FontFaceName", FaceName(format)));
  m_DisplayOptions.SetCharFormat(format);
  m_DisplayOptions.SetShowLineNum(registry.GetInt(L"ShowLineNum", m_DisplayOptions.GetShowLineNum()));
  m_DisplayOptions.SetDisplayDiffOnly(registry.GetInt(L"ShowDiffOnly", m_DisplayOptions.GetDisplayDiffOnly()));
  m_DisplayOptions.SetDisplayToolbar(registry.GetInt(L"DisplayToolBar", m_DisplayOptions.GetDisplayToolbar()));
  m_DisplayOptions.SetDisplayStatusBar(
      registry.GetInt(L"DisplayStatusBar", m_DisplayOptions.GetDisplayStatusBar()));
  registry.CloseSection();

  // Text is never loaded in the colour of its own background.
  registry.OpenSection(L"ColorOptions");
  format = m_DisplayOptions.GetCharFormat();
  COLORREF text = registry.GetInt(L"Default", format.crTextColor);
  if (text == ::GetSysColor(COLOR_WINDOW))
    text = ::GetSysColor(COLOR_WINDOWTEXT);
  format.crTextColor = text;
  m_DisplayOptions.SetCharFormat(format);
  m_cfReplace.crTextColor = registry.GetInt(L"Replace", m_cfReplace.crTextColor);
  m_cfInsert.crTextColor = registry.GetInt(L"Insert", m_cfInsert.crTextColor);
  m_cfDelete.crTextColor = registry.GetInt(L"Delete", m_cfDelete.crTextColor);
  registry.CloseSection();

  registry.OpenSection(L"MergeOptions");
  m_bEditMergedFile = registry.GetInt(L"EditMergedFile", m_bEditMergedFile) ? 1 : 0;
  m_strEditor = registry.GetString(L"Editor", m_strEditor);
  registry.CloseSection();
}

//===-- Writing ------------------------------------------------------------===//

// A window closed while minimised comes back restored.
void CVnReconcileFrame::SaveOptionsIntoRegistry() {
  CVnRegistry registry(HKEY_CURRENT_USER, RegistryKey(), L"Display", KEY_ALL_ACCESS);
  GetWindowPlacement(&m_WindowPlacement);
  if (m_WindowPlacement.showCmd == SW_SHOWMINIMIZED)
    m_WindowPlacement.showCmd = SW_RESTORE;
  for (int i = 0; i < 10; ++i)
    registry.PutInt(kPlacementNames[i], static_cast<DWORD>(*PlacementField(m_WindowPlacement, i)));
  registry.CloseSection();

  registry.OpenSection(L"DisplayOptions");
  const CHARFORMATW& format = m_DisplayOptions.GetCharFormat();
  registry.PutInt(L"TabSize", m_DisplayOptions.GetTabSize());
  registry.PutInt(L"FontHeight", static_cast<DWORD>(format.yHeight));
  registry.PutString(L"FontFaceName", FaceName(format));
  registry.PutBool(L"ShowLineNum", m_DisplayOptions.GetShowLineNum());
  registry.PutBool(L"ShowDiffOnly", m_DisplayOptions.GetDisplayDiffOnly());
  registry.PutBool(L"DisplayToolBar", m_DisplayOptions.GetDisplayToolbar());
  registry.PutBool(L"DisplayStatusBar", m_DisplayOptions.GetDisplayStatusBar());
  registry.CloseSection();

  registry.OpenSection(L"ColorOptions");
  registry.PutInt(L"Default", format.crTextColor);
  registry.PutInt(L"Replace", m_cfReplace.crTextColor);
  registry.PutInt(L"Insert", m_cfInsert.crTextColor);
  registry.PutInt(L"Delete", m_cfDelete.crTextColor);
  registry.CloseSection();

  registry.OpenSection(L"MergeOptions");
  registry.PutBool(L"EditMergedFile", m_bEditMergedFile);
  registry.PutString(L"Editor", m_strEditor);
  registry.CloseSection();
}

//===-- Applying a changed set ---------------------------------------------===//

void CVnReconcileFrame::ResizeLineNumbers(const CVnDisplayOptions& options) {
  long width = m_pSplitterWnd->GetLineNumWidth(m_DisplayOptions.GetCharFormat(), options.GetShowLineNum());
  m_pSplitterWnd->ResizeInternalPanes(width);
}

void CVnReconcileFrame::ApplyDisplayOptions(const CVnDisplayOptions& options, int force) {
  HWND focus = ::GetFocus();
  bool resize = true;
  const CHARFORMATW& now = m_DisplayOptions.GetCharFormat();
  const CHARFORMATW& wanted = options.GetCharFormat();
  bool font = force || wanted.yHeight != now.yHeight || VnCompareFaceName(wanted, now) != 0;
  if (font) {
    m_DisplayOptions.SetCharFormat(wanted);
    m_pSplitterWnd->SetDefaultCharFormat(m_DisplayOptions.GetCharFormat());
    if (IsWindowVisible()) {
      ResizeLineNumbers(options);
      resize = false;
    }
  }
  if (font || force || options.GetTabSize() != m_DisplayOptions.GetTabSize())
    m_pSplitterWnd->SetTabStops(m_DisplayOptions.GetCharFormat(), options.GetTabSize());
  if (options.GetShowLineNum() != m_DisplayOptions.GetShowLineNum() && resize)
    ResizeLineNumbers(options);
  if (force || options.GetDisplayToolbar() != m_DisplayOptions.GetDisplayToolbar() ||
      options.GetDisplayStatusBar() != m_DisplayOptions.GetDisplayStatusBar()) {
    m_DisplayOptions.SetDisplayToolbar(options.GetDisplayToolbar());
    m_DisplayOptions.SetDisplayStatusBar(options.GetDisplayStatusBar());
    ShowControlBar(&m_wndToolBar, options.GetDisplayToolbar() ? 1 : 0, FALSE);
    ShowControlBar(&m_wndStatusBar, options.GetDisplayStatusBar() ? 1 : 0, FALSE);
  }
  if (options.GetDisplayDiffOnly() != m_DisplayOptions.GetDisplayDiffOnly()) {
    m_DisplayOptions.SetDisplayDiffOnly(options.GetDisplayDiffOnly());
    Redisplay();
  }
  if (!IsWindowVisible())
    ResizeLineNumbers(options);
  CWnd* had = CWnd::FromHandlePermanent(focus);
  if (had && had->IsKindOf(RUNTIME_CLASS(CVnTextPane)))
    had->SetFocus();
}

void CVnReconcileFrame::SetColors(unsigned long defaultColor, unsigned long replaceColor, unsigned long insertColor,
                                  unsigned long deleteColor, bool guard) {
  if (guard && defaultColor == ::GetSysColor(COLOR_WINDOW))
    defaultColor = ::GetSysColor(COLOR_WINDOWTEXT);
  CHARFORMATW format = m_DisplayOptions.GetCharFormat();
  format.crTextColor = defaultColor;
  m_DisplayOptions.SetCharFormat(format);
  m_cfReplace.crTextColor = replaceColor;
  m_cfInsert.crTextColor = insertColor;
  m_cfDelete.crTextColor = deleteColor;
  Redisplay();
}

void CVnReconcileFrame::OnSysColorChange() {
  CFrameWnd::OnSysColorChange();
  SetColors(m_DisplayOptions.GetCharFormat().crTextColor, m_cfReplace.crTextColor, m_cfInsert.crTextColor,
            m_cfDelete.crTextColor, true);
}
