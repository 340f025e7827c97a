// CFindReplaceDialog.h - the system's modeless Find and Replace dialog.
//
// FindTextW / ReplaceTextW make the dialog and return at once.  The dialog
// reports to the window named as its owner with the registered message
// FINDMSGSTRING, whose lParam is this object's FINDREPLACEW record
// (GetNotifier finds the object from it); the record's flags say what the
// user asked: the next hit, a replacement, or FR_DIALOGTERM when the dialog
// closes.  The object's hook joins the dialog to the window procedure at
// WM_INITDIALOG, so a derived class can override OnInitDialog and handle
// the dialog's messages in its map.  The object lives on the heap and
// deletes itself after the dialog's last message.
#ifndef VN_AFX_WIN32_CFINDREPLACEDIALOG_H
#define VN_AFX_WIN32_CFINDREPLACEDIALOG_H

#include "afx/win32/CWnd.h"

#include <commdlg.h>

class VN_API CFindReplaceDialog : public CWnd {
  DECLARE_DYNAMIC(CFindReplaceDialog)
public:
  CFindReplaceDialog();

  // findDialogOnly: the Find dialog, else Replace.  flags: FR_* of the
  // record (FR_DOWN, FR_MATCHCASE, FR_HIDEWHOLEWORD...).  The texts are cut
  // to the record's buffers.  Gives FALSE, with no window, if the system
  // refused.
  BOOL Create(BOOL findDialogOnly, LPCWSTR findWhat, LPCWSTR replaceWith = nullptr, DWORD flags = FR_DOWN,
              CWnd* parent = nullptr);
  // The dialog whose record lParam of FINDMSGSTRING points to.
  static CFindReplaceDialog* GetNotifier(LPARAM lParam);
  // The number of the registered message FINDMSGSTRING.
  static UINT GetFindMessage();

  CString GetFindString() const { return m_fr.lpstrFindWhat; }
  CString GetReplaceString() const { return m_fr.lpstrReplaceWith; }
  BOOL SearchDown() const { return (m_fr.Flags & FR_DOWN) != 0; }
  BOOL MatchCase() const { return (m_fr.Flags & FR_MATCHCASE) != 0; }
  BOOL MatchWholeWord() const { return (m_fr.Flags & FR_WHOLEWORD) != 0; }
  BOOL FindNext() const { return (m_fr.Flags & FR_FINDNEXT) != 0; }
  BOOL ReplaceCurrent() const { return (m_fr.Flags & FR_REPLACE) != 0; }
  BOOL ReplaceAll() const { return (m_fr.Flags & FR_REPLACEALL) != 0; }
  BOOL IsTerminating() const { return (m_fr.Flags & FR_DIALOGTERM) != 0; }

  FINDREPLACEW m_fr;

protected:
  // The dialog's WM_INITDIALOG, after the system's own setup.  Gives
  // non-zero for the dialog to show.
  virtual BOOL OnInitDialog();
  void PostNcDestroy() override;

private:
  static UINT_PTR CALLBACK HookProc(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

  WCHAR m_szFindWhat[128];
  WCHAR m_szReplaceWith[128];
};

#endif  // VN_AFX_WIN32_CFINDREPLACEDIALOG_H
