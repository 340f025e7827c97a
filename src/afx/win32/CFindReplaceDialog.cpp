// CFindReplaceDialog.cpp - the modeless Find and Replace dialog.
#include "afx/win32/CFindReplaceDialog.h"

#include <cassert>

IMPLEMENT_DYNAMIC(CFindReplaceDialog, CWnd)

CFindReplaceDialog::CFindReplaceDialog() : m_fr(), m_szFindWhat(), m_szReplaceWith() {
  m_fr.lStructSize = sizeof(m_fr);
  m_fr.lpstrFindWhat = m_szFindWhat;
  m_fr.wFindWhatLen = static_cast<WORD>(sizeof(m_szFindWhat) / sizeof(WCHAR));
  m_fr.lpstrReplaceWith = m_szReplaceWith;
  m_fr.wReplaceWithLen = static_cast<WORD>(sizeof(m_szReplaceWith) / sizeof(WCHAR));
  m_fr.lCustData = reinterpret_cast<LPARAM>(this);
  m_fr.lpfnHook = &CFindReplaceDialog::HookProc;
}

BOOL CFindReplaceDialog::Create(BOOL findDialogOnly, LPCWSTR findWhat, LPCWSTR replaceWith, DWORD flags,
                                CWnd* parent) {
  assert(!m_hWnd && "one dialog per object");
  ::lstrcpynW(m_szFindWhat, findWhat ? findWhat : L"", m_fr.wFindWhatLen);
  ::lstrcpynW(m_szReplaceWith, replaceWith ? replaceWith : L"", m_fr.wReplaceWithLen);
  m_fr.Flags = flags | FR_ENABLEHOOK;
  m_fr.hwndOwner = parent ? parent->m_hWnd : nullptr;
  HWND dialog = findDialogOnly ? ::FindTextW(&m_fr) : ::ReplaceTextW(&m_fr);
  return dialog != nullptr;
}

CFindReplaceDialog* CFindReplaceDialog::GetNotifier(LPARAM lParam) {
  assert(lParam && "FINDMSGSTRING carries the dialog's record");
  return reinterpret_cast<CFindReplaceDialog*>(reinterpret_cast<FINDREPLACEW*>(lParam)->lCustData);
}

UINT CFindReplaceDialog::GetFindMessage() {
  static const UINT message = ::RegisterWindowMessageW(FINDMSGSTRINGW);
  return message;
}

BOOL CFindReplaceDialog::OnInitDialog() { return TRUE; }

void CFindReplaceDialog::PostNcDestroy() { delete this; }

// At WM_INITDIALOG the dialog joins the one window procedure (its own
// procedure doing the default work); every other message is left to the
// system's dialog procedure.
UINT_PTR CALLBACK CFindReplaceDialog::HookProc(HWND dialog, UINT message, WPARAM, LPARAM lParam) {
  if (message != WM_INITDIALOG)
    return 0;
  CFindReplaceDialog* self = GetNotifier(lParam);
  if (!self->SubclassWindow(dialog))
    return TRUE;
  return self->OnInitDialog();
}
