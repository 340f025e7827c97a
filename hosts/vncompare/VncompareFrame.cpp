// VncompareFrame.cpp - the compare tool's window.
#include "VncompareFrame.h"

#include "VncompareResource.h"
#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/CWinApp.h"
#include "compare/VnFileCaption.h"
#include "foundation/LocalResources.h"
#include "toolkit/VnFilePickers.h"
#include "toolkit/VnDlgAbout.h"
#include "window/VnPaneMessages.h"
#include "window/VnPaneSync.h"
#include "window/VnPaneWnd.h"
#include "window/VnTextPane.h"

BEGIN_MESSAGE_MAP(CVnCompareFrame, CVnReconcileFrame)
  ON_WM_CREATE()
  ON_COMMAND(ID_EDIT_COPY, OnEditCopy)
  ON_UPDATE_COMMAND_UI(ID_EDIT_COPY, OnUpdateEditCopy)
  ON_COMMAND(ID_EDIT_FIND, OnFind)
  ON_UPDATE_COMMAND_UI(ID_EDIT_FIND, OnUpdateFind)
  ON_COMMAND(ID_EDIT_REPEAT, OnFindNext)
  ON_UPDATE_COMMAND_UI(ID_EDIT_REPEAT, OnUpdateFind)
  ON_COMMAND(ID_VIEW_NEXTDIFF, OnNextDiff)
  ON_COMMAND(ID_VIEW_PREVDIFF, OnPreviousDiff)
  ON_COMMAND(ID_VIEW_FIRSTDIFF, OnFirstDiff)
  ON_COMMAND(ID_VIEW_LASTDIFF, OnLastDiff)
  ON_UPDATE_COMMAND_UI(ID_VIEW_NEXTDIFF, OnUpdateNextDiff)
  ON_UPDATE_COMMAND_UI(ID_VIEW_LASTDIFF, OnUpdateNextDiff)
  ON_UPDATE_COMMAND_UI(ID_VIEW_PREVDIFF, OnUpdatePreviousDiff)
  ON_UPDATE_COMMAND_UI(ID_VIEW_FIRSTDIFF, OnUpdatePreviousDiff)
  ON_COMMAND(ID_VIEW_DIFFONLY, OnDifferencesOnly)
  ON_UPDATE_COMMAND_UI(ID_VIEW_DIFFONLY, OnUpdateDifferencesOnly)
  ON_UPDATE_COMMAND_UI(ID_INDICATOR_POS, OnUpdatePosition)
  ON_UPDATE_COMMAND_UI(ID_INDICATOR_DIFFS, OnUpdateDifferences)
  ON_COMMAND(ID_FILE_PRINT, OnPrint)
  ON_COMMAND(ID_APP_ABOUT, OnAbout)
  ON_COMMAND(ID_APP_EXIT, OnExit)
  ON_COMMAND(ID_FILE_OPEN, OnOpen)
  ON_COMMAND(ID_TOOLS_OPTIONS, OnToolsOptions)
  ON_COMMAND(ID_TOOLS_ENCODING, OnToolsEncoding)
  ON_UPDATE_COMMAND_UI(ID_TOOLS_ENCODING, OnUpdateHasComparison)
  ON_UPDATE_COMMAND_UI(ID_FILE_PRINT, OnUpdateHasComparison)
END_MESSAGE_MAP()

CVnCompareFrame::CVnCompareFrame(const CString& source, const CString& target, const CVnCompareOptions& options,
                                 bool differencesOnly)
    : m_strSource(source), m_strTarget(target), m_options(options) {
  m_DisplayOptions.SetDisplayDiffOnly(differencesOnly ? 1 : 0);
}

BOOL CVnCompareFrame::CreateFrame() { return LoadFrame(IDR_MAINFRAME, WS_OVERLAPPEDWINDOW); }

// The client area: two panes side by side, sharing the splitter's bars.
int CVnCompareFrame::OnCreate(LPCREATESTRUCTW create) {
  if (CVnReconcileFrame::OnCreate(create) == -1)
    return -1;
  if (!m_wndSplitter.CreateStatic(this, 1, 2, WS_CHILD | WS_VISIBLE | WS_HSCROLL | WS_VSCROLL) ||
      !m_wndSplitter.CreateView(0, 0, RUNTIME_CLASS(CVnPaneWnd), CSize(300, 300)) ||
      !m_wndSplitter.CreateView(0, 1, RUNTIME_CLASS(CVnPaneWnd), CSize(300, 300)))
    return -1;
  m_pSplitterWnd = &m_wndSplitter;
  return 0;
}

int CVnCompareFrame::SetupStatusBar() {
  static const UINT indicators[] = {ID_SEPARATOR, ID_INDICATOR_DIFFS, ID_INDICATOR_POS};
  if (!m_wndStatusBar.SetIndicators(indicators, 3))
    return 0;
  m_wndStatusBar.SetPaneStyle(0, SBPS_STRETCH | SBPS_NOBORDERS);
  return 1;
}

int CVnCompareFrame::SetupToolBar() { return m_wndToolBar.LoadToolBar(IDR_MAINFRAME); }

//===-- The comparison -----------------------------------------------------===//

// A file that can't be read is reported in the library's words; a binary
// file the user declined ends the run as trouble too.
int CVnCompareFrame::DoDiff() {
  m_nExitStatus = 2;
  auto comparison = std::make_unique<CVnComparison>(m_options);
  for (const CString* path : {&m_strSource, &m_strTarget}) {
    CString why = VnWhyNotComparable(*path);
    if (!why.IsEmpty()) {
      AfxMessageBox(*path + _T(": ") + why, MB_ICONSTOP);
      return 0;
    }
  }
  try {
    if (!comparison->Open(CVnComparison::Source, m_strSource) ||
        !comparison->Open(CVnComparison::Target, m_strTarget))
      return 0;
    comparison->Compare();
  } catch (CException* e) {
    e->ReportError(MB_ICONSTOP);
    e->Delete();
    return 0;
  }
  m_pComparison = std::move(comparison);
  m_nExitStatus = m_pComparison->Differs() ? 1 : 0;
  return 1;
}

int CVnCompareFrame::DoDisplay() {
  ShowControlBar(&m_wndToolBar, m_DisplayOptions.GetDisplayToolbar() ? 1 : 0, FALSE);
  ShowControlBar(&m_wndStatusBar, m_DisplayOptions.GetDisplayStatusBar() ? 1 : 0, FALSE);
  CString title;
  title.Format(_T("%s - %s - vncompare"), m_strSource.GetString(), m_strTarget.GetString());
  SetWindowText(title);
  ShowWindow(SW_SHOW);
  Show();
  UpdateWindow();
  return 1;
}

// Fills both panes with the present options, then sets the number columns,
// tab stops and bars, and goes to the first difference.
void CVnCompareFrame::Show() {
  m_view.Show(*m_pComparison, *Pane(0), *Pane(1), *this, m_DisplayOptions.GetDisplayDiffOnly() != 0);
  m_wndStatusBar.SetPaneText(0, VnFormSummary(VnFormDifferences(m_pComparison->GetFile(CVnComparison::Source).GetFacts(),
                                                                m_pComparison->GetFile(CVnComparison::Target).GetFacts()),
                                              m_pComparison->IsSame()));
  ArrangePanes();
  SetInitialFocus(false);
  m_nBlock = -1;
  if (!m_view.GetBlocks().empty())
    GoToBlock(0);
}

void CVnCompareFrame::Redisplay() {
  if (m_pComparison)
    Show();
}

void CVnCompareFrame::Recompare() {
  m_options.m_bIgnoreCase = m_bIgnoreCase != 0;
  m_options.m_bIgnoreWhitespace = m_bIgnoreWhiteSpace != 0;
  if (DoDiff())
    Show();
}

// The encodings the user chose in the File Encoding dialog hold for every
// later comparison of these files; a page of 0 is the system's.
void CVnCompareFrame::ReopenFiles() {
  if (!m_pComparison)
    return;
  unsigned* pages[2] = {&m_options.m_nSourceCodePage, &m_options.m_nTargetCodePage};
  for (int side = 0; side < 2; ++side) {
    CVnDiffFile& intake = m_pComparison->GetFile(static_cast<CVnComparison::Side>(side)).GetIntake();
    if (intake.IsEncodingSet())
      *pages[side] = intake.GetCodePage() ? intake.GetCodePage() : ::GetACP();
  }
  if (DoDiff())
    Show();
}

//===-- Stepping through the differences -----------------------------------===//

CVnPaneWnd* CVnCompareFrame::Pane(int column) const {
  return static_cast<CVnPaneWnd*>(m_wndSplitter.GetPane(0, column));
}

// The row of the caret in the focused text pane, else of the block last
// gone to.
long CVnCompareFrame::CurrentRow() const {
  CWnd* focus = CWnd::GetFocus();
  if (focus && focus->IsKindOf(RUNTIME_CLASS(CVnTextPane))) {
    long line = 0, column = 0;
    static_cast<CVnTextPane*>(focus)->GetCurrentCaret(line, column);
    return line;
  }
  return m_nBlock >= 0 ? m_view.GetBlocks()[m_nBlock].m_nFirst : -1;
}

// The block is selected in both panes; the text pane with the focus then
// brings every pane to it through the synchronisation.
void CVnCompareFrame::GoToBlock(int block) {
  if (block < 0 || block >= static_cast<int>(m_view.GetBlocks().size()))
    return;
  m_nBlock = block;
  const CVnRowBlock& rows = m_view.GetBlocks()[block];
  int first = static_cast<int>(rows.m_nFirst) + 1, last = static_cast<int>(rows.m_nLast) + 1;
  CVnTextPane* focused = Pane(0)->GetTextPane();
  for (int column = 1; column >= 0; --column) {
    CVnTextPane* text = Pane(column)->GetTextPane();
    int visible = text->GetVisibleLineCount();
    int top = first - 1 - (visible > 6 ? visible / 4 : 0);
    text->LineScroll((top < 0 ? 0 : top) - text->GetFirstVisibleLine(), 0);
    text->SelectLines(first, last);
    if (CWnd::GetFocus() == text)
      focused = text;
  }
  focused->SetFocus();
  focused->SelectLines(first, last);
  // The selection may have scrolled the pane after it told the others:
  // bring them to where it rests now.
  auto* pane = static_cast<CVnPaneWnd*>(focused->GetParent());
  CVnPaneSync sync(focused->GetFirstVisibleLine(), focused->GetFirstVisibleChar());
  pane->SendMessage(WM_PANE_SYNCHRONIZE, reinterpret_cast<WPARAM>(&sync), reinterpret_cast<LPARAM>(pane));
}

void CVnCompareFrame::OnNextDiff() { GoToBlock(VnNextBlock(m_view.GetBlocks(), CurrentRow())); }
void CVnCompareFrame::OnPreviousDiff() { GoToBlock(VnPreviousBlock(m_view.GetBlocks(), CurrentRow())); }
void CVnCompareFrame::OnFirstDiff() { GoToBlock(0); }
void CVnCompareFrame::OnLastDiff() { GoToBlock(static_cast<int>(m_view.GetBlocks().size()) - 1); }

void CVnCompareFrame::OnUpdateNextDiff(CCmdUI* cmdUI) {
  cmdUI->Enable(m_pComparison && VnNextBlock(m_view.GetBlocks(), CurrentRow()) >= 0);
}

void CVnCompareFrame::OnUpdatePreviousDiff(CCmdUI* cmdUI) {
  cmdUI->Enable(m_pComparison && VnPreviousBlock(m_view.GetBlocks(), CurrentRow()) >= 0);
}

void CVnCompareFrame::OnDifferencesOnly() {
  CVnDisplayOptions options = m_DisplayOptions;
  options.SetDisplayDiffOnly(!options.GetDisplayDiffOnly());
  ApplyDisplayOptions(options, 0);
}

void CVnCompareFrame::OnUpdateDifferencesOnly(CCmdUI* cmdUI) {
  cmdUI->Enable(m_pComparison != nullptr);
  cmdUI->SetCheck(m_DisplayOptions.GetDisplayDiffOnly() ? 1 : 0);
}

//===-- Status, printing, exit ---------------------------------------------===//

void CVnCompareFrame::OnUpdatePosition(CCmdUI* cmdUI) {
  CString format = LoadLocalString(::GetModuleHandleW(nullptr), IDS_POSITION);
  UpdateIndicatorPosition(cmdUI, format);
}

void CVnCompareFrame::OnUpdateDifferences(CCmdUI* cmdUI) {
  if (!m_pComparison)
    return;
  int count = static_cast<int>(m_view.GetBlocks().size());
  CString text;
  if (!m_pComparison->Differs())
    text = LoadLocalString(::GetModuleHandleW(nullptr), IDS_SAME);
  else if (count == 0)
    text = LoadLocalString(::GetModuleHandleW(nullptr), IDS_SAME_TEXT);
  else
    text.Format(LoadLocalString(::GetModuleHandleW(nullptr), IDS_DIFFERENCES), count);
  cmdUI->SetText(text);
}

// Both panes side by side in a hidden pane of their own, printed page by
// page; a selection in the right pane prints only its rows.
void CVnCompareFrame::OnPrint() {
  if (!m_pComparison)
    return;
  CVnPaneWnd print;
  if (!print.CreateEx(0, nullptr, L"", WS_CHILD, CRect(0, 0, 400, 300), this, AFX_IDW_PANE_LAST))
    return;
  print.SetLineTerminator(L"\r\n");
  print.GetTextPane()->CombineForPrint(Pane(0)->GetTextPane(), Pane(1)->GetTextPane(), Pane(1)->GetCaption(),
                                       Pane(0)->GetCaption(), GetDefaultCharFormat());
  print.GetTextPane()->OnFilePrint(this);
  print.DestroyWindow();
}

// The library's box, with this tool's caption and name from its own texts.
void CVnCompareFrame::OnAbout() {
  CVnAboutDlgParams params;
  CVnDlgAbout::Execute(params);
}

void CVnCompareFrame::OnExit() { PostMessage(WM_CLOSE); }

void CVnCompareFrame::OnUpdateHasComparison(CCmdUI* cmdUI) { cmdUI->Enable(m_pComparison != nullptr); }

//===-- Other files, options, encodings ------------------------------------===//

bool CVnCompareFrame::AskForFiles(CString& source, CString& target) {
  CVnMultipleFileRetriever retriever(LoadLocalString(::GetModuleHandleW(nullptr), IDS_OPEN_FILTER), 2);
  CVnStringArray names;
  if (!retriever.GetFileNames(names) || names.GetSize() != 2)
    return false;
  source = names[0];
  target = names[1];
  return true;
}

// Cancel leaves the window as it was; files that can't be compared leave
// the window on the old pair, after the message.
void CVnCompareFrame::OnOpen() {
  CString source, target;
  if (!AskForFiles(source, target))
    return;
  std::swap(source, m_strSource);
  std::swap(target, m_strTarget);
  const CVnCompareOptions options = m_options;
  m_options.m_nSourceCodePage = m_options.m_nTargetCodePage = 0;
  std::unique_ptr<CVnComparison> old = std::move(m_pComparison);
  if (DoDiff()) {
    DoDisplay();
    return;
  }
  m_strSource = source;
  m_strTarget = target;
  m_options = options;
  m_pComparison = std::move(old);
  if (m_pComparison)
    m_nExitStatus = m_pComparison->Differs() ? 1 : 0;
}

void CVnCompareFrame::OnToolsOptions() { OnOptions(0); }

void CVnCompareFrame::OnToolsEncoding() {
  if (m_pComparison)
    OnEncoding(m_pComparison->GetFile(CVnComparison::Source).GetIntake(),
               m_pComparison->GetFile(CVnComparison::Target).GetIntake());
}
