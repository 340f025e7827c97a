// VnmergeFrame.cpp - the merge tool's window.
#include "VnmergeFrame.h"

#include "VnmergeResource.h"
#include "afx/win32/AfxMsgMap.h"
#include "afx/win32/CWinApp.h"
#include "compare/VnChangedWords.h"
#include "compare/VnFileCaption.h"
#include "foundation/LocalResources.h"
#include "foundation/VnProcess.h"
#include "toolkit/VnDlgAbout.h"
#include "window/VnLineNumPane.h"
#include "window/VnPaneMessages.h"
#include "window/VnPaneSync.h"
#include "window/VnComparisonView.h"
#include "window/VnPaneWnd.h"
#include "window/VnRichEditPane.h"
#include "window/VnTextPane.h"

#include <algorithm>
#include <string>

BEGIN_MESSAGE_MAP(CVnMergeFrame, CVnReconcileFrame)
  ON_WM_CREATE()
  ON_COMMAND(ID_EDIT_COPY, OnEditCopy)
  ON_UPDATE_COMMAND_UI(ID_EDIT_COPY, OnUpdateEditCopy)
  ON_COMMAND(ID_EDIT_FIND, OnFind)
  ON_UPDATE_COMMAND_UI(ID_EDIT_FIND, OnUpdateFind)
  ON_COMMAND(ID_EDIT_REPEAT, OnFindNext)
  ON_UPDATE_COMMAND_UI(ID_EDIT_REPEAT, OnUpdateFind)
  ON_COMMAND(ID_VIEW_NEXTCONFLICT, OnNextConflict)
  ON_COMMAND(ID_VIEW_PREVCONFLICT, OnPreviousConflict)
  ON_COMMAND(ID_VIEW_FIRSTCONFLICT, OnFirstConflict)
  ON_COMMAND(ID_VIEW_LASTCONFLICT, OnLastConflict)
  ON_UPDATE_COMMAND_UI(ID_VIEW_NEXTCONFLICT, OnUpdateNextConflict)
  ON_UPDATE_COMMAND_UI(ID_VIEW_LASTCONFLICT, OnUpdateNextConflict)
  ON_UPDATE_COMMAND_UI(ID_VIEW_PREVCONFLICT, OnUpdatePreviousConflict)
  ON_UPDATE_COMMAND_UI(ID_VIEW_FIRSTCONFLICT, OnUpdatePreviousConflict)
  ON_COMMAND_RANGE(ID_MERGE_LOCAL, ID_MERGE_REMOTE_LOCAL, OnTake)
  ON_UPDATE_COMMAND_UI_RANGE(ID_MERGE_LOCAL, ID_MERGE_REMOTE_LOCAL, OnUpdateTake)
  ON_COMMAND(ID_FILE_SAVE, OnSave)
  ON_UPDATE_COMMAND_UI(ID_INDICATOR_POS, OnUpdatePosition)
  ON_UPDATE_COMMAND_UI(ID_INDICATOR_CONFLICTS, OnUpdateConflicts)
  ON_COMMAND(ID_APP_ABOUT, OnAbout)
  ON_COMMAND(ID_APP_EXIT, OnExit)
  ON_COMMAND(ID_TOOLS_OPTIONS, OnToolsOptions)
END_MESSAGE_MAP()

namespace {

CString LocalString(UINT id) { return LoadLocalString(::GetModuleHandleW(nullptr), id); }

CString Marker(const wchar_t* sign, const CString& label) {
  return label.IsEmpty() ? CString(sign) : CString(sign) + L" " + label;
}

// One pane's rows as they are built: text, numbers, coloured runs.
struct PaneRows {
  CString text, numbers;
  long rows = 0;
  struct Run {
    long first, last;  // 0-based, inclusive
    const CHARFORMATW* format;
  };
  std::vector<Run> runs;
  struct Mark {
    long row;
    size_t begin, end;
    const CHARFORMAT2W* format;
  };
  std::vector<Mark> marks;

  void Add(const CString& line, long number) {
    if (rows) {
      text += L"\r\n";
      numbers += L"\r\n";
    }
    text += line;
    if (number > 0) {
      CString n;
      n.Format(_T("%ld"), number);
      numbers += n;
    }
    ++rows;
  }
  void AddLines(const CVnDiffArg& lines, const CVnLineRange& range, const CHARFORMATW* format, bool numbered) {
    long first = rows;
    for (long i = range.m_nBegin; i < range.End(); ++i)
      Add(VnLineText(lines, i), numbered ? i + 1 : rows + 1);
    Colour(first, format);
  }
  void Colour(long first, const CHARFORMATW* format) {
    if (format && rows > first)
      runs.push_back({first, rows - 1, format});
  }
  // A line of a block, or a blank row for its gap; its marks in format.
  void AddRow(const CVnDiffArg& lines, long line, const std::vector<CVnUnitRange>& ranges,
              const CHARFORMATW* lineFormat, const CHARFORMAT2W* markFormat) {
    if (line < 0) {
      Add(CString(), 0);
      return;
    }
    Add(VnLineText(lines, line), line + 1);
    Colour(rows - 1, lineFormat);
    if (markFormat)
      for (const CVnUnitRange& r : ranges)
        marks.push_back({rows - 1, r.m_nBegin, r.m_nEnd, markFormat});
  }
  void PadTo(long count) {
    while (rows < count)
      Add(CString(), 0);
  }
  void Into(CVnPaneWnd& pane, const CHARFORMATW& format) const {
    long mask = pane.SetEventMask(0);
    const WCHAR* units = text.GetString();
    pane.SetDefaultText(reinterpret_cast<unsigned char*>(const_cast<WCHAR*>(units)),
                        text.GetLength() * static_cast<int>(sizeof(WCHAR)), format);
    pane.GetLineNumPane()->SetWindowText(numbers);
    for (const Run& run : runs)
      pane.ColorSelection(static_cast<int>(run.first) + 1, static_cast<int>(run.last) + 1, *run.format);
    for (const Mark& mark : marks)
      pane.ColorCharacters(static_cast<int>(mark.row) + 1, static_cast<int>(mark.begin), static_cast<int>(mark.end),
                           *mark.format);
    pane.SetEventMask(mask);
  }
};

}  // namespace

//===-- Rows above and below -----------------------------------------------===//

long CVnMergeLayout::Map(long row, bool fromMerged) const {
  const std::vector<long>& from = fromMerged ? m_merged : m_top;
  const std::vector<long>& to = fromMerged ? m_top : m_merged;
  const std::vector<long>& toCount = fromMerged ? m_topCount : m_mergedCount;
  if (from.empty())
    return row;
  size_t k = static_cast<size_t>(std::upper_bound(from.begin(), from.end(), row) - from.begin());
  k = k ? k - 1 : 0;
  long offset = std::min(row - from[k], std::max(toCount[k] - 1, 0L));
  return to[k] + std::max(offset, 0L);
}

int CVnMergeSplitterWnd::GetSyncLine(CVnPaneWnd* pane, CVnPaneWnd* origin, int line) {
  auto merged = [this](CVnPaneWnd* p) { return p == GetPane(1, 0); };
  if (!m_pLayout || merged(pane) == merged(origin))
    return line;
  return static_cast<int>(m_pLayout->Map(line, merged(origin)));
}

CString VnWhyNotWritable(const CString& path) {
  std::wstring name = path.GetString();
  DWORD attributes = ::GetFileAttributesW(name.c_str());
  if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY))
    return _T("is a folder");
  size_t slash = name.find_last_of(L"\\/");
  std::wstring folder = slash == std::wstring::npos ? L"." : name.substr(0, slash + 1);
  attributes = ::GetFileAttributesW(folder.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_DIRECTORY))
    return _T("its folder does not exist");
  // A file made and removed at once: the only sure test of a folder's rights.
  wchar_t probe[MAX_PATH + 16] = {};
  if (folder.size() >= MAX_PATH - 14 || !::GetTempFileNameW(folder.c_str(), L"vnm", 0, probe))
    return _T("its folder can't be written");
  ::DeleteFileW(probe);
  return CString();
}

//===-- The window ---------------------------------------------------------===//

CVnMergeFrame::CVnMergeFrame(const CString& base, const CString& local, const CString& remote,
                             const CString& merged, int& status)
    : m_strBase(base), m_strLocal(local), m_strRemote(remote), m_strMerged(merged), m_nExitStatus(status) {
  m_nExitStatus = 2;
}

BOOL CVnMergeFrame::CreateFrame() { return LoadFrame(IDR_MAINFRAME, WS_OVERLAPPEDWINDOW); }

// LOCAL and REMOTE in a nested splitter above, the merged pane below; the
// outer splitter's bars serve all three.
int CVnMergeFrame::OnCreate(LPCREATESTRUCTW create) {
  if (CVnReconcileFrame::OnCreate(create) == -1)
    return -1;
  const DWORD style = WS_CHILD | WS_VISIBLE;
  if (!m_wndSplitter.CreateStatic(this, 2, 1, style | WS_HSCROLL | WS_VSCROLL) ||
      !m_wndTop.CreateStatic(&m_wndSplitter, 1, 2, style, static_cast<UINT>(m_wndSplitter.IdFromRowCol(0, 0))) ||
      !m_wndTop.CreateView(0, 0, RUNTIME_CLASS(CVnPaneWnd), CSize(300, 200)) ||
      !m_wndTop.CreateView(0, 1, RUNTIME_CLASS(CVnPaneWnd), CSize(300, 200)) ||
      !m_wndSplitter.CreateView(1, 0, RUNTIME_CLASS(CVnPaneWnd), CSize(600, 200)))
    return -1;
  m_wndSplitter.m_pLayout = &m_layout;
  m_pSplitterWnd = &m_wndSplitter;
  return 0;
}

int CVnMergeFrame::SetupStatusBar() {
  static const UINT indicators[] = {ID_SEPARATOR, ID_INDICATOR_CONFLICTS, ID_INDICATOR_POS};
  if (!m_wndStatusBar.SetIndicators(indicators, 3))
    return 0;
  m_wndStatusBar.SetPaneStyle(0, SBPS_STRETCH | SBPS_NOBORDERS);
  return 1;
}

int CVnMergeFrame::SetupToolBar() { return m_wndToolBar.LoadToolBar(IDR_MAINFRAME); }

CVnPaneWnd* CVnMergeFrame::Pane(int k) const {
  return static_cast<CVnPaneWnd*>(k < 2 ? m_wndTop.GetPane(0, k) : m_wndSplitter.GetPane(1, 0));
}

//===-- The merge ----------------------------------------------------------===//

// Every reason to refuse comes before the window shows: a file that can't
// be read, a MERGED that can't be written, sides in different encodings.
int CVnMergeFrame::DoDiff() {
  m_nExitStatus = 2;
  const CString* inputs[3] = {&m_strBase, &m_strLocal, &m_strRemote};
  for (const CString* path : inputs) {
    if (path->IsEmpty())
      continue;
    CString why = VnWhyNotComparable(*path);
    if (!why.IsEmpty()) {
      AfxMessageBox(*path + _T(": ") + why, MB_ICONSTOP);
      return 0;
    }
  }
  CString why = VnWhyNotWritable(m_strMerged);
  if (!why.IsEmpty()) {
    AfxMessageBox(m_strMerged + _T(": ") + why, MB_ICONSTOP);
    return 0;
  }
  CVnMergeOptions options;
  options.m_bEncodingByContent = true;
  auto merge = std::make_unique<CVnMerge>(options);
  try {
    if (!merge->Open(CVnMerge::Local, m_strLocal) || (!m_strBase.IsEmpty() && !merge->Open(CVnMerge::Base, m_strBase)) ||
        !merge->Open(CVnMerge::Remote, m_strRemote))
      return 0;
    // Lines of bytes merged into text would make a file nobody asked for:
    // a binary side the user let through still ends the run.
    for (CVnMerge::Side side : {CVnMerge::Local, CVnMerge::Base, CVnMerge::Remote}) {
      const CString& path = side == CVnMerge::Local ? m_strLocal : side == CVnMerge::Base ? m_strBase : m_strRemote;
      if (!path.IsEmpty() && merge->GetFile(side).GetIntake().IsBinary()) {
        AfxMessageBox(path + _T(": a binary file; vnmerge merges text only"), MB_ICONSTOP);
        return 0;
      }
    }
    if (!merge->Merge(why)) {
      AfxMessageBox(why, MB_ICONSTOP);
      return 0;
    }
  } catch (CException* e) {
    e->ReportError(MB_ICONSTOP);
    e->Delete();
    return 0;
  }
  m_pMerge = std::move(merge);
  m_nExitStatus = 1;
  return 1;
}

int CVnMergeFrame::DoDisplay() {
  ShowControlBar(&m_wndToolBar, m_DisplayOptions.GetDisplayToolbar() ? 1 : 0, FALSE);
  ShowControlBar(&m_wndStatusBar, m_DisplayOptions.GetDisplayStatusBar() ? 1 : 0, FALSE);
  SetWindowText(m_strMerged + _T(" - vnmerge"));
  ShowWindow(SW_SHOW);
  Show();
  UpdateWindow();
  return 1;
}

// The three panes from the regions (see the header for the rows and
// colours); the conflicts' rows are kept for stepping and choosing.
void CVnMergeFrame::Fill() {
  const CVnDiffArg& local = m_pMerge->GetFile(CVnMerge::Local).GetLines();
  const CVnDiffArg& remote = m_pMerge->GetFile(CVnMerge::Remote).GetLines();
  const CVnDiffArg& base = m_pMerge->GetFile(CVnMerge::Base).GetLines();
  const CHARFORMATW* fromLocal = &GetInsertCharFormat();
  const CHARFORMATW* fromRemote = &GetReplaceCharFormat();
  // The delete colour without its strike-through: a conflict's lines are
  // not gone, they wait for a choice.
  CHARFORMATW conflictFormat = GetDeleteCharFormat();
  conflictFormat.dwEffects &= ~CFE_STRIKEOUT;
  const CHARFORMATW* conflict = &conflictFormat;
  const CHARFORMAT2W localMarks = VnChangedWordsFormat(*fromLocal), remoteMarks = VnChangedWordsFormat(*fromRemote),
                     conflictMarks = VnChangedWordsFormat(conflictFormat);
  const CVnComparedFile& localFile = m_pMerge->GetFile(CVnMerge::Local);
  const CVnComparedFile& remoteFile = m_pMerge->GetFile(CVnMerge::Remote);
  const bool wide = localFile.IsWide() && remoteFile.IsWide();
  PaneRows left, right, merged;
  m_layout = CVnMergeLayout();
  m_conflicts.clear();
  m_topBlocks.clear();
  m_mergedBlocks.clear();
  const std::vector<CVnMergeRegion>& regions = m_pMerge->GetRegions();
  for (size_t k = 0; k < regions.size(); ++k) {
    const CVnMergeRegion& r = regions[k];
    bool isConflict = r.m_nKind == VnMergeKind::Conflict;
    const CHARFORMATW* leftFormat = isConflict ? conflict
                                    : r.m_nKind == VnMergeKind::Local || r.m_nKind == VnMergeKind::Both ? fromLocal
                                                                                                         : nullptr;
    const CHARFORMATW* rightFormat = isConflict ? conflict
                                     : r.m_nKind == VnMergeKind::Remote || r.m_nKind == VnMergeKind::Both ? fromRemote
                                                                                                           : nullptr;
    long top = left.rows;
    if (r.m_local.m_nCount && r.m_remote.m_nCount && r.m_nKind != VnMergeKind::Unchanged &&
        r.m_nKind != VnMergeKind::Both && wide) {
      // Like lines of the two sides level, the words that changed marked
      // on each side that changed.
      const CHARFORMAT2W* leftMarks = leftFormat == conflict ? &conflictMarks : leftFormat ? &localMarks : nullptr;
      const CHARFORMAT2W* rightMarks = rightFormat == conflict ? &conflictMarks : rightFormat ? &remoteMarks : nullptr;
      const CVnChangeSpan block = {r.m_local.m_nBegin, r.m_local.m_nCount, r.m_remote.m_nBegin, r.m_remote.m_nCount};
      for (const CVnMarkedRow& row : VnBlockRows(localFile, remoteFile, block, CVnWordOptions())) {
        left.AddRow(local, row.m_row.m_nSource, row.m_source, leftFormat, leftMarks);
        right.AddRow(remote, row.m_row.m_nTarget, row.m_target, rightFormat, rightMarks);
      }
    } else {
      left.AddLines(local, r.m_local, leftFormat, true);
      right.AddLines(remote, r.m_remote, rightFormat, true);
    }
    long rows = std::max(std::max(left.rows, right.rows), top + (isConflict ? 1 : 0));
    left.PadTo(rows);
    right.PadTo(rows);
    m_layout.m_top.push_back(top);
    m_layout.m_topCount.push_back(rows - top);

    long below = merged.rows;
    switch (isConflict ? r.m_nChoice : VnMergeChoice::Local) {
    case VnMergeChoice::None: {
      merged.Add(Marker(L"<<<<<<<", m_markers.m_strLocal), merged.rows + 1);
      merged.AddLines(local, r.m_local, nullptr, false);
      if (m_markers.m_bShowBase && m_pMerge->HasBase()) {
        merged.Add(Marker(L"|||||||", m_markers.m_strBase), merged.rows + 1);
        merged.AddLines(base, r.m_base, nullptr, false);
      }
      merged.Add(L"=======", merged.rows + 1);
      merged.AddLines(remote, r.m_remote, nullptr, false);
      merged.Add(Marker(L">>>>>>>", m_markers.m_strRemote), merged.rows + 1);
      merged.Colour(below, conflict);
      break;
    }
    case VnMergeChoice::Local:
      if (r.m_nKind == VnMergeKind::Remote)
        merged.AddLines(remote, r.m_remote, fromRemote, false);
      else
        merged.AddLines(local, r.m_local, r.m_nKind == VnMergeKind::Unchanged ? nullptr : fromLocal, false);
      break;
    case VnMergeChoice::Remote:
      merged.AddLines(remote, r.m_remote, fromRemote, false);
      break;
    case VnMergeChoice::LocalThenRemote:
      merged.AddLines(local, r.m_local, fromLocal, false);
      merged.AddLines(remote, r.m_remote, fromRemote, false);
      break;
    case VnMergeChoice::RemoteThenLocal:
      merged.AddLines(remote, r.m_remote, fromRemote, false);
      merged.AddLines(local, r.m_local, fromLocal, false);
      break;
    }
    m_layout.m_merged.push_back(below);
    m_layout.m_mergedCount.push_back(merged.rows - below);
    if (isConflict) {
      m_conflicts.push_back(k);
      m_topBlocks.push_back({top, rows - 1});
      m_mergedBlocks.push_back({below, merged.rows - 1});
    }
  }
  const CHARFORMATW& format = GetDefaultCharFormat();
  left.Into(*Pane(0), format);
  right.Into(*Pane(1), format);
  merged.Into(*Pane(2), format);
}

void CVnMergeFrame::Show() {
  for (int k = 0; k < 3; ++k)
    Pane(k)->SetLineTerminator(L"\r\n");
  Pane(0)->SetCaption(_T("LOCAL: ") + VnFileCaption(m_pMerge->GetFile(CVnMerge::Local).GetFacts()));
  Pane(1)->SetCaption(_T("REMOTE: ") + VnFileCaption(m_pMerge->GetFile(CVnMerge::Remote).GetFacts()));
  Pane(2)->SetCaption(_T("MERGED: ") + m_strMerged);
  const bool formsDiffer = !VnFormDifferences(m_pMerge->GetFile(CVnMerge::Local).GetFacts(),
                                              m_pMerge->GetFile(CVnMerge::Remote).GetFacts())
                                 .empty();
  for (int k = 0; k < 2; ++k)
    Pane(k)->SetCaptionColor(formsDiffer ? kVnFormWarningColor : CLR_DEFAULT);
  int conflict = m_nConflict;
  Fill();
  ArrangePanes();
  // Pane (0, 0) is the nested splitter: LOCAL's text is reached through it.
  Pane(0)->GetTextPane()->SetFocus();
  m_nConflict = -1;
  if (!m_conflicts.empty())
    GoToConflict(conflict >= 0 && conflict < static_cast<int>(m_conflicts.size()) ? conflict : 0);
}

void CVnMergeFrame::Redisplay() {
  if (m_pMerge)
    Show();
}

//===-- The current conflict -----------------------------------------------===//

bool CVnMergeFrame::FocusIsMerged() const {
  CWnd* focus = CWnd::GetFocus();
  return focus && focus == Pane(2)->GetTextPane();
}

// The caret's row in the focused text pane's arrangement, else the first
// row above of the conflict last gone to.
long CVnMergeFrame::CurrentRow() const {
  CVnTextPane* focus = GetFocusedTextPane();
  if (focus) {
    long line = 0, column = 0;
    focus->GetCurrentCaret(line, column);
    return line;
  }
  return m_nConflict >= 0 ? m_topBlocks[m_nConflict].m_nFirst : -1;
}

int CVnMergeFrame::CurrentConflict() const {
  if (GetFocusedTextPane()) {
    const std::vector<CVnRowBlock>& blocks = FocusIsMerged() ? m_mergedBlocks : m_topBlocks;
    long row = CurrentRow();
    for (size_t i = 0; i < blocks.size(); ++i)
      if (row >= blocks[i].m_nFirst && row <= blocks[i].m_nLast)
        return static_cast<int>(i);
  }
  return m_nConflict;
}

// The conflict's rows are selected in all three panes.  LOCAL's pane takes
// the focus and brings the others to it; the merged pane's own selection
// then goes in with its notifications off, so that it moves nothing.
void CVnMergeFrame::GoToConflict(int conflict) {
  if (conflict < 0 || conflict >= static_cast<int>(m_conflicts.size()))
    return;
  m_nConflict = conflict;
  auto place = [](CVnTextPane* text, const CVnRowBlock& rows) {
    int visible = text->GetVisibleLineCount();
    long top = rows.m_nFirst - (visible > 6 ? visible / 4 : 0);
    text->LineScroll(static_cast<int>(top < 0 ? 0 : top) - text->GetFirstVisibleLine(), 0);
    if (rows.m_nLast >= rows.m_nFirst) {
      text->SelectLines(static_cast<int>(rows.m_nFirst) + 1, static_cast<int>(rows.m_nLast) + 1);
    } else {
      LRESULT at = text->SendMessage(EM_LINEINDEX, static_cast<WPARAM>(rows.m_nFirst));
      text->SetSel(static_cast<long>(at), static_cast<long>(at));
    }
  };
  const CVnRowBlock& top = m_topBlocks[conflict];
  place(Pane(1)->GetTextPane(), top);
  CVnTextPane* focused = Pane(0)->GetTextPane();
  focused->SetFocus();
  place(focused, top);
  auto* pane = static_cast<CVnPaneWnd*>(focused->GetParent());
  CVnPaneSync sync(focused->GetFirstVisibleLine(), focused->GetFirstVisibleChar());
  pane->SendMessage(WM_PANE_SYNCHRONIZE, reinterpret_cast<WPARAM>(&sync), reinterpret_cast<LPARAM>(pane));
  long mask = Pane(2)->SetEventMask(0);
  place(Pane(2)->GetTextPane(), m_mergedBlocks[conflict]);
  Pane(2)->SetEventMask(mask);
}

void CVnMergeFrame::OnNextConflict() {
  GoToConflict(VnNextBlock(FocusIsMerged() ? m_mergedBlocks : m_topBlocks, CurrentRow()));
}
void CVnMergeFrame::OnPreviousConflict() {
  GoToConflict(VnPreviousBlock(FocusIsMerged() ? m_mergedBlocks : m_topBlocks, CurrentRow()));
}
void CVnMergeFrame::OnFirstConflict() { GoToConflict(0); }
void CVnMergeFrame::OnLastConflict() { GoToConflict(static_cast<int>(m_conflicts.size()) - 1); }

void CVnMergeFrame::OnUpdateNextConflict(CCmdUI* cmdUI) {
  cmdUI->Enable(m_pMerge && VnNextBlock(FocusIsMerged() ? m_mergedBlocks : m_topBlocks, CurrentRow()) >= 0);
}

void CVnMergeFrame::OnUpdatePreviousConflict(CCmdUI* cmdUI) {
  cmdUI->Enable(m_pMerge && VnPreviousBlock(FocusIsMerged() ? m_mergedBlocks : m_topBlocks, CurrentRow()) >= 0);
}

//===-- Choosing and saving ------------------------------------------------===//

void CVnMergeFrame::OnTake(UINT id) {
  int conflict = CurrentConflict();
  if (!m_pMerge || conflict < 0)
    return;
  static const VnMergeChoice choices[] = {VnMergeChoice::Local, VnMergeChoice::Remote,
                                          VnMergeChoice::LocalThenRemote, VnMergeChoice::RemoteThenLocal};
  m_pMerge->Resolve(m_conflicts[conflict], choices[id - ID_MERGE_LOCAL]);
  m_nConflict = conflict;
  Show();
  // The count of conflicts left changes now, not at the next idle time: a
  // command sent from another program leaves the tool no idle turn.
  SendMessageToDescendants(WM_IDLEUPDATECMDUI, TRUE);
}

void CVnMergeFrame::OnUpdateTake(CCmdUI* cmdUI) { cmdUI->Enable(m_pMerge && CurrentConflict() >= 0); }

// Conflicts left are written with their markers only when the user says
// so; the file is written whole or not at all, then handed to the editor.
void CVnMergeFrame::OnSave() {
  if (!m_pMerge)
    return;
  int left = m_pMerge->GetConflictCount();
  if (left) {
    CString question;
    question.Format(LocalString(IDS_SAVE_WITH_CONFLICTS), left);
    if (AfxMessageBox(question, MB_YESNO | MB_ICONQUESTION) != IDYES)
      return;
  }
  try {
    m_pMerge->Save(m_strMerged, m_markers);
  } catch (CException* e) {
    e->ReportError(MB_ICONSTOP);
    e->Delete();
    return;
  }
  m_nExitStatus = left ? 1 : 0;
  if (!m_bEditMergedFile || m_strEditor.IsEmpty())
    return;
  try {
    RunApp(m_strEditor + _T(" \"") + m_strMerged + _T("\""), SW_SHOWNORMAL, FALSE, TRUE, FALSE);
  } catch (CException* e) {
    e->ReportError(MB_ICONSTOP);
    e->Delete();
  }
}

//===-- Status, dialogs, exit ----------------------------------------------===//

void CVnMergeFrame::OnUpdatePosition(CCmdUI* cmdUI) {
  CString format = LocalString(IDS_POSITION);
  UpdateIndicatorPosition(cmdUI, format);
}

void CVnMergeFrame::OnUpdateConflicts(CCmdUI* cmdUI) {
  if (!m_pMerge)
    return;
  int left = m_pMerge->GetConflictCount();
  CString text;
  if (left)
    text.Format(LocalString(IDS_CONFLICTS), left);
  else
    text = LocalString(IDS_NO_CONFLICTS);
  cmdUI->SetText(text);
}

void CVnMergeFrame::OnAbout() {
  CVnAboutDlgParams params;
  CVnDlgAbout::Execute(params);
}

void CVnMergeFrame::OnExit() { PostMessage(WM_CLOSE); }

void CVnMergeFrame::OnToolsOptions() { OnOptions(0); }
