// VnReconcileFrameWin32.cpp - the frame every comparison host derives from.
//
// Creation makes the two bars and lets the host fill them; DiffAndDisplay
// runs one comparison in its fixed order; closing saves the options of a
// window the user saw; activation hands the focus back to the text pane that
// had it; Copy and Find go to the focused text pane.
#include "window/VnReconcileFrame.h"

#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/CWinApp.h"
#include "foundation/LocalResources.h"
#include "foundation/VnFileSystem.h"
#include "window/VnRichEditSplitterWnd.h"
#include "window/VnTextPane.h"

#include <cstdlib>
#include <cwchar>

IMPLEMENT_DYNAMIC(CVnReconcileFrame, CFrameWnd)

BEGIN_MESSAGE_MAP(CVnReconcileFrame, CFrameWnd)
  ON_WM_CREATE()
  ON_WM_CLOSE()
  ON_WM_ACTIVATE()
  ON_WM_SYSCOLORCHANGE()
  ON_COMMAND(ID_HELP_FINDER, OnHelpFinder)
  ON_COMMAND(ID_HELP, OnHelp)
  ON_COMMAND(ID_CONTEXT_HELP, OnContextHelp)
  ON_COMMAND(ID_DEFAULT_HELP, OnHelpFinder)
END_MESSAGE_MAP()

CVnReconcileFrame::CVnReconcileFrame()
    : m_pSplitterWnd(nullptr), m_WindowPlacement(), m_pLastActivePane(nullptr) {
  CVnOptionState defaults;
  m_DisplayOptions = defaults.m_DisplayOptions;
  m_cfReplace = defaults.m_cfReplace;
  m_cfDelete = defaults.m_cfDelete;
  m_cfInsert = defaults.m_cfInsert;
  m_bIgnoreCase = defaults.m_bIgnoreCase;
  m_bIgnoreWhiteSpace = defaults.m_bIgnoreWhiteSpace;
  m_bEditMergedFile = defaults.m_bEditMergedFile;
  m_strEditor = defaults.m_strEditor;
  m_WindowPlacement.length = sizeof(WINDOWPLACEMENT);
}

// The temporary files go before the members do.
CVnReconcileFrame::~CVnReconcileFrame() { DeleteAllTempFiles(); }

//===-- Creation and the order of one comparison ---------------------------===//

int CVnReconcileFrame::OnCreate(LPCREATESTRUCTW create) {
  if (CFrameWnd::OnCreate(create) == -1)
    return -1;
  if (!m_wndStatusBar.Create(this, WS_CHILD | WS_VISIBLE | CBRS_BOTTOM, AFX_IDW_STATUS_BAR) || !SetupStatusBar())
    return -1;
  if (!m_wndToolBar.Create(this, WS_CHILD | WS_VISIBLE | CBRS_TOP, AFX_IDW_TOOLBAR) || !SetupToolBar())
    return -1;
  m_wndToolBar.SetBarStyle(m_wndToolBar.GetBarStyle() | CBRS_TOOLTIPS | CBRS_FLYBY | CBRS_SIZE_DYNAMIC);
  ::SetWindowLongW(m_wndToolBar.m_hWnd, GWL_STYLE,
                   ::GetWindowLongW(m_wndToolBar.m_hWnd, GWL_STYLE) | TBSTYLE_FLAT);
  m_wndToolBar.EnableDocking(CBRS_ALIGN_ANY);
  EnableDocking(CBRS_ALIGN_ANY);
  DockControlBar(&m_wndToolBar);
  return 0;
}

int CVnReconcileFrame::DiffAndDisplay() {
  GetOptionsFromRegistry();
  if (!DoDiff())
    return 0;
  if (CWinApp* app = AfxGetApp())
    app->m_nCmdShow = m_WindowPlacement.showCmd;
  SetWindowPlacement(&m_WindowPlacement);
  return DoDisplay();
}

// Only a window the user has seen has a placement and options worth keeping.
void CVnReconcileFrame::OnClose() {
  if (IsWindowVisible())
    SaveOptionsIntoRegistry();
  CFrameWnd::OnClose();
}

// Leaving: remember the pane that was active.  Coming back: give it the
// activation again, if it still lives and is a text pane.
void CVnReconcileFrame::OnActivate(UINT state, CWnd* other, BOOL minimized) {
  if (state == WA_INACTIVE && m_pSplitterWnd && m_pSplitterWnd->m_hWnd)
    m_pLastActivePane = m_pSplitterWnd->GetActivePane(nullptr, nullptr);
  CFrameWnd::OnActivate(state, other, minimized);
  if (state != WA_INACTIVE && m_pLastActivePane && ::IsWindow(m_pLastActivePane->m_hWnd) &&
      m_pLastActivePane->IsKindOf(RUNTIME_CLASS(CVnTextPane)))
    m_pSplitterWnd->SetActivePane(0, 0, m_pLastActivePane);
}

void CVnReconcileFrame::SetInitialFocus(bool secondRow) { m_pSplitterWnd->SetInitialFocus(secondRow); }

void CVnReconcileFrame::ArrangePanes() {
  const CHARFORMATW& format = GetDefaultCharFormat();
  m_pSplitterWnd->SetTabStops(format, m_DisplayOptions.GetTabSize());
  m_pSplitterWnd->ResizeInternalPanes(m_pSplitterWnd->GetLineNumWidth(format, m_DisplayOptions.GetShowLineNum()));
  m_pSplitterWnd->SetupVScrollBars();
  m_pSplitterWnd->SetupHScrollBars();
  m_pSplitterWnd->GoToBeginning();
}

//===-- Commands routed to the focused text pane ---------------------------===//

CVnTextPane* CVnReconcileFrame::GetFocusedTextPane() const {
  CWnd* focus = CWnd::GetFocus();
  if (!focus || !IsChild(focus) || !focus->IsKindOf(RUNTIME_CLASS(CVnTextPane)))
    return nullptr;
  return static_cast<CVnTextPane*>(focus);
}

void CVnReconcileFrame::OnEditCopy() {
  if (CVnTextPane* pane = GetFocusedTextPane())
    pane->OnCopy();
}

void CVnReconcileFrame::OnFindNext() {
  if (CVnTextPane* pane = GetFocusedTextPane())
    pane->FindNext();
}

void CVnReconcileFrame::OnFind() {
  if (CVnTextPane* pane = GetFocusedTextPane()) {
    pane->Find();
    return;
  }
  AfxMessageBox(LoadLocalString(GetResourceModule(), 149), MB_ICONSTOP);
}

void CVnReconcileFrame::OnUpdateFind(CCmdUI* cmdUI) {
  BOOL can = CanFind() != 0;
  cmdUI->Enable(can && GetFocusedTextPane() != nullptr);
}

// Any text pane with a selection, of this frame or another.
void CVnReconcileFrame::OnUpdateEditCopy(CCmdUI* cmdUI) {
  CWnd* focus = CWnd::GetFocus();
  BOOL on = focus && focus->IsKindOf(RUNTIME_CLASS(CVnTextPane)) &&
            LOWORD(focus->SendMessage(EM_SELECTIONTYPE)) != 0;
  cmdUI->Enable(on);
}

void CVnReconcileFrame::UpdateIndicatorPosition(CCmdUI* cmdUI, CString& format) {
  CWnd* focus = CWnd::GetFocus();
  BOOL on = focus && focus->IsKindOf(RUNTIME_CLASS(CVnTextPane));
  cmdUI->Enable(on);
  if (!on)
    return;
  long line = 0, column = 0;
  static_cast<CVnTextPane*>(focus)->GetCurrentCaret(line, column);
  CString text;
  text.Format(format, line + 1, column + 1);
  cmdUI->SetText(text);
}

//===-- Temporary files ----------------------------------------------------===//

bool CVnReconcileFrame::CopyToTemp(CString& path) {
  wchar_t* made = ::_wtempnam(nullptr, L"vn");
  if (!made)
    return false;
  CString name(reinterpret_cast<const WCHAR*>(made));
  std::free(made);
  RememberThisTempFileName(name);
  try {
    CVnFileSystem::CopyFileW(path, name, 1);
    CVnFileSystem::SetFileAttributesW(name, FILE_ATTRIBUTE_NORMAL);
  } catch (CException* e) {
    e->ReportError(0, 0);
    e->Delete();
    m_TempFiles.DeleteThisTempFile(name);
    return false;
  }
  path = name;
  return true;
}
