// MinimalCompare.cpp - the smallest host of Vn Reconcile with a window:
// two files side by side in the library's comparison frame.
//
//   minimal-compare OLD NEW        exit status 0 same, 1 different, 2 trouble
//
// The frame (CVnReconcileFrame) runs a comparison in a fixed order: the
// options from the registry, DoDiff, the window placed where it was last
// left, DoDisplay.  A host supplies those pure operations: its bars
// (SetupStatusBar, SetupToolBar), the comparison (DoDiff, a CVnComparison),
// the filling of the panes (DoDisplay: a CVnComparisonView into the two
// CVnPaneWnd of a synchronised splitter), and the answers to changed
// options (Redisplay, Recompare).  F2 opens the option sheet; the options
// persist under HKCU\Software\VnReconcile\minimal-compare.  The status bar
// counts the differences and the lines the change records remove and add.
#include <vnreconcile/Compare.h>
#include <vnreconcile/Options.h>
#include <vnreconcile/Window.h>

#include <memory>

namespace {

class CMinimalFrame : public CVnReconcileFrame {
public:
  CMinimalFrame(const CString& source, const CString& target) : m_strSource(source), m_strTarget(target) {}
  int GetExitStatus() const { return m_nExitStatus; }
  BOOL PreTranslateMessage(MSG* msg) override;

protected:
  int CanFind() override { return m_pComparison != nullptr; }
  int SetupStatusBar() override;
  int SetupToolBar() override { return 1; }  // no buttons: the bar stays hidden
  int DoDiff() override;
  int DoDisplay() override;
  void Redisplay() override;
  void Recompare() override;

  int OnCreate(LPCREATESTRUCTW create);
  DECLARE_MESSAGE_MAP()

private:
  CVnPaneWnd* Pane(int column) const { return static_cast<CVnPaneWnd*>(m_wndSplitter.GetPane(0, column)); }
  void Show();

  CString m_strSource, m_strTarget;
  CVnRichEditSplitterWnd m_wndSplitter;
  std::unique_ptr<CVnComparison> m_pComparison;
  CVnComparisonView m_view;
  int m_nExitStatus = 2;
};

BEGIN_MESSAGE_MAP(CMinimalFrame, CVnReconcileFrame)
  ON_WM_CREATE()
END_MESSAGE_MAP()

// The client area: one row of two panes that scroll as one.
int CMinimalFrame::OnCreate(LPCREATESTRUCTW create) {
  if (CVnReconcileFrame::OnCreate(create) == -1)
    return -1;
  if (!m_wndSplitter.CreateStatic(this, 1, 2, WS_CHILD | WS_VISIBLE | WS_HSCROLL | WS_VSCROLL) ||
      !m_wndSplitter.CreateView(0, 0, RUNTIME_CLASS(CVnPaneWnd), CSize(300, 300)) ||
      !m_wndSplitter.CreateView(0, 1, RUNTIME_CLASS(CVnPaneWnd), CSize(300, 300)))
    return -1;
  m_pSplitterWnd = &m_wndSplitter;
  return 0;
}

int CMinimalFrame::SetupStatusBar() {
  static const UINT indicators[] = {ID_SEPARATOR};
  if (!m_wndStatusBar.SetIndicators(indicators, 1))
    return 0;
  m_wndStatusBar.SetPaneStyle(0, SBPS_STRETCH | SBPS_NOBORDERS);
  return 1;
}

// Reading fails with a CException* (reported here); a binary file the user
// declined makes Open give false.
int CMinimalFrame::DoDiff() {
  m_nExitStatus = 2;
  CVnCompareOptions options;
  options.m_bIgnoreCase = m_bIgnoreCase != 0;  // from the registry or the option sheet
  options.m_bIgnoreWhitespace = m_bIgnoreWhiteSpace != 0;
  auto comparison = std::make_unique<CVnComparison>(options);
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
  m_nExitStatus = m_pComparison->IsSame() ? 0 : 1;
  return 1;
}

int CMinimalFrame::DoDisplay() {
  ShowControlBar(&m_wndToolBar, FALSE, FALSE);
  SetWindowText(m_strSource + L" - " + m_strTarget + L" - minimal-compare");
  ShowWindow(SW_SHOW);
  Show();
  UpdateWindow();
  return 1;
}

// Fills both panes with the present display options, then hands the font,
// tab size and number column to the splitter and sets up its bars.
void CMinimalFrame::Show() {
  m_view.Show(*m_pComparison, *Pane(0), *Pane(1), *this, m_DisplayOptions.GetDisplayDiffOnly() != 0);
  ArrangePanes();
  SetInitialFocus(false);

  // The engine's records are 1-based and inclusive; the side an Insert or
  // a Delete does not touch counts for nothing.
  long removed = 0, added = 0;
  const CVnDiffChangeList& changes = m_pComparison->GetChanges();
  for (INT_PTR i = 0; i < changes.GetSize(); ++i) {
    const CVnDiffChange& change = *changes[i];
    if (change.GetAction() != CVnDiffChange::Insert)
      removed += change.SourceChangeLen();
    if (change.GetAction() != CVnDiffChange::Delete)
      added += change.TargetChangeLen();
  }
  CString text;
  text.Format(L"%d differences, %ld lines removed, %ld added", static_cast<int>(m_view.GetBlocks().size()),
              removed, added);
  m_wndStatusBar.SetPaneText(0, m_pComparison->IsSame() ? CString(L"Files are identical") : text);
}

// The option sheet calls these after OK: display options need the panes
// filled again, comparison options a new comparison.
void CMinimalFrame::Redisplay() {
  if (m_pComparison)
    Show();
}

void CMinimalFrame::Recompare() {
  if (DoDiff())
    Show();
}

BOOL CMinimalFrame::PreTranslateMessage(MSG* msg) {
  if (msg->message == WM_KEYDOWN && msg->wParam == VK_F2) {
    OnOptions(0);
    return TRUE;
  }
  return CVnReconcileFrame::PreTranslateMessage(msg);
}

class CMinimalApp : public CVnReconcileApp {
public:
  CMinimalApp() { SetRegistryKey(L"Software\\VnReconcile\\minimal-compare"); }

  BOOL InitInstance() override {
    CString files[2];
    if (ParseCmdLine(files, 2) != 2) {
      AfxMessageBox(L"Usage: minimal-compare OLD NEW", MB_ICONSTOP);
      return FALSE;
    }
    // The frame deletes itself when its window goes.
    auto* frame = new CMinimalFrame(files[0], files[1]);
    if (!frame->Create(nullptr, L"minimal-compare")) {
      delete frame;
      return FALSE;
    }
    m_pMainWnd = frame;
    BOOL shown = frame->DiffAndDisplay();
    m_nStatus = frame->GetExitStatus();
    if (!shown)
      frame->DestroyWindow();
    return shown;
  }

  int ExitInstance() override {
    CVnReconcileApp::ExitInstance();
    return m_nStatus;
  }

private:
  int m_nStatus = 2;
};

CMinimalApp theApp;

}  // namespace

extern "C" int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previous, LPWSTR cmdLine, int cmdShow) {
  return AfxWinMain(instance, previous, cmdLine, cmdShow);
}
