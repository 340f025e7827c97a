// VnTextPaneSearchWin32.cpp - search in a text pane, and its Find dialog.
//
// The control's EM_FINDTEXTEXW searches a range toward its end.  A search
// never wraps around, and the way up is made of forward searches:
//
//   1. Down: from the selection's start to the end of the text, or from one
//      past it when the selection isn't empty, so that a hit that is
//      selected isn't found again while one that overlaps it is.
//   2. Up: from 0 to the selection's start, again from one past each hit,
//      until no hit is left; the last hit is the nearest in front of the
//      selection.  That costs one search per hit in front of it.
//   3. A hit is selected and synchronised; the first of a new search also
//      brings its line to the top.  No hit collapses the selection at its
//      end in the search direction, and FindNext says so.
//
// The search text, direction and case are shared by all panes and outlive
// the dialog; the dialog belongs to the pane that opened it.
#include "window/VnTextPane.h"

#include "foundation/LocalResources.h"
#include "window/VnFindReplaceDialog.h"

// The message of a search without a hit.
static const UINT IDS_SEARCH_NOT_FOUND = 147;

//===-- The dialog ---------------------------------------------------------===//

void CVnTextPane::Find() {
  if (m_pFindDialog) {
    m_pFindDialog->SetFocus();
    return;
  }
  HideSelection(FALSE, TRUE);
  m_pFindDialog = new CVnFindReplaceDialog;
  DWORD flags = FR_HIDEWHOLEWORD | (m_bMatchCase ? FR_MATCHCASE : 0) | (m_bSearchDown ? FR_DOWN : 0);
  if (!m_pFindDialog->Create(TRUE, m_aFindString, nullptr, flags, this)) {
    delete m_pFindDialog;
    m_pFindDialog = nullptr;
  }
  m_bNewSearch = 1;
}

// The dialog of this message may be an older one than m_pFindDialog (see
// the constructor): its record is what counts.
LRESULT CVnTextPane::OnFindText(WPARAM, LPARAM lParam) {
  CFindReplaceDialog* dialog = CFindReplaceDialog::GetNotifier(lParam);
  CString text = dialog->GetFindString();
  if (text.Compare(m_aFindString) != 0)
    m_bNewSearch = 1;
  m_aFindString = text;
  m_bSearchDown = dialog->SearchDown() ? 1 : 0;
  m_bMatchCase = dialog->MatchCase() ? 1 : 0;
  if (dialog->IsTerminating()) {
    CollapseSelection();
    HideSelection(TRUE, TRUE);
  } else {
    FindNext();
  }
  return 0;
}

LRESULT CVnTextPane::OnFindReplaceDestroyed(WPARAM, LPARAM) {
  m_pFindDialog = nullptr;
  ShowCaret();
  return 0;
}

void CVnTextPane::CloseFindReplace() {
  if (m_pFindDialog)
    m_pFindDialog->SendMessage(WM_CLOSE);
}

//===-- Searching ----------------------------------------------------------===//

void CVnTextPane::FindNext() {
  if (m_aFindString.IsEmpty()) {
    Find();
    return;
  }
  if (FindTextInPane() != -1) {
    m_bNewSearch = 0;
    return;
  }
  AfxMessageBox(LoadLocalString(GetResourceModule(), IDS_SEARCH_NOT_FOUND), 0);
  m_bNewSearch = 1;
}

// At the selection's end when searching down, else at its start.
void CVnTextPane::CollapseSelection() {
  long start = 0, end = 0;
  GetSel(start, end);
  long at = m_bSearchDown ? end : start;
  SetSel(at, at);
}

long CVnTextPane::FindDown(DWORD flags, long start, FINDTEXTEXW& hit) {
  hit.chrg.cpMin = start;
  hit.chrg.cpMax = -1;
  hit.lpstrText = m_aFindString;
  return static_cast<long>(SendMessage(EM_FINDTEXTEXW, flags, reinterpret_cast<LPARAM>(&hit)));
}

// The last hit that starts in front of before; hit holds its range.
long CVnTextPane::FindUp(DWORD flags, long before, FINDTEXTEXW& hit) {
  long found = -1;
  FINDTEXTEXW probe = {};
  probe.lpstrText = m_aFindString;
  for (long from = 0; from <= before; from = found + 1) {
    probe.chrg.cpMin = from;
    probe.chrg.cpMax = before;
    long at = static_cast<long>(SendMessage(EM_FINDTEXTEXW, flags, reinterpret_cast<LPARAM>(&probe)));
    if (at == -1 || (found != -1 && at <= found))
      return found;
    found = at;
    hit = probe;
  }
  return found;
}

long CVnTextPane::FindTextInPane() {
  DWORD flags = FR_DOWN | (m_bMatchCase ? FR_MATCHCASE : 0);
  long start = 0, end = 0;
  GetSel(start, end);
  FINDTEXTEXW hit = {};
  long found = m_bSearchDown ? FindDown(flags, start == end ? start : start + 1, hit) : FindUp(flags, start, hit);
  if (found == -1) {
    CollapseSelection();
    return -1;
  }
  SendMessage(EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&hit.chrgText));
  if (m_bNewSearch)
    LineScroll(LineFromChar(hit.chrgText.cpMin) - GetFirstVisibleLine());
  SendSynchronize();
  return found;
}
