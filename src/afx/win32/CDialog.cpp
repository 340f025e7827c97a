// CDialog.cpp - dialogs from templates.
#include "afx/win32/CDialog.h"

#include <cassert>

IMPLEMENT_DYNAMIC(CDialog, CWnd)

CDialog::CDialog(UINT templateId, CWnd* parent) : m_nIDTemplate(templateId), m_pParentWnd(parent) {}

// The module that holds this code: the component's DLL, or the program.
static HINSTANCE ThisModule() {
  HMODULE module = nullptr;
  ::GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCWSTR>(&ThisModule), &module);
  return module;
}

HINSTANCE CDialog::FindTemplate(UINT templateId) {
  for (HINSTANCE candidate : {::GetModuleHandleW(nullptr), ThisModule()})
    if (candidate && ::FindResourceW(candidate, MAKEINTRESOURCEW(templateId), MAKEINTRESOURCEW(5)))  // RT_DIALOG
      return candidate;
  return nullptr;
}

BOOL CDialog::Create(UINT templateId, CWnd* parent) {
  assert(!m_hWnd && "one dialog per object");
  m_nIDTemplate = templateId;
  m_pParentWnd = parent;
  HINSTANCE found = FindTemplate(templateId);
  if (!found)
    return FALSE;
  HWND owner = parent ? parent->GetSafeHwnd() : nullptr;
  return ::CreateDialogParamW(found, MAKEINTRESOURCEW(templateId), owner, &CDialog::DialogProc,
                              reinterpret_cast<LPARAM>(this)) != nullptr;
}

INT_PTR CDialog::DoModal() {
  assert(!m_hWnd && "one dialog per object");
  HINSTANCE found = FindTemplate(m_nIDTemplate);
  if (!found)
    return -1;
  HWND owner = m_pParentWnd ? m_pParentWnd->GetSafeHwnd() : nullptr;
  return ::DialogBoxParamW(found, MAKEINTRESOURCEW(m_nIDTemplate), owner, &CDialog::DialogProc,
                           reinterpret_cast<LPARAM>(this));
}

void CDialog::EndDialog(int result) {
  assert(::IsWindow(m_hWnd) && "the object holds a live window");
  ::EndDialog(m_hWnd, result);
}

BOOL CDialog::OnInitDialog() { return TRUE; }

void CDialog::OnOK() { EndDialog(IDOK); }

void CDialog::OnCancel() { EndDialog(IDCANCEL); }

BOOL CDialog::OnCommand(WPARAM wParam, LPARAM lParam) {
  UINT id = LOWORD(wParam);
  if (HIWORD(wParam) == BN_CLICKED && (id == IDOK || id == IDCANCEL)) {
    if (id == IDOK)
      OnOK();
    else
      OnCancel();
    return TRUE;
  }
  return CWnd::OnCommand(wParam, lParam);
}

// WM_INITDIALOG ties the dialog to its object; every other message is left
// to the system's dialog procedure.
INT_PTR CALLBACK CDialog::DialogProc(HWND dialog, UINT message, WPARAM, LPARAM lParam) {
  if (message != WM_INITDIALOG)
    return FALSE;
  CDialog* self = reinterpret_cast<CDialog*>(lParam);
  if (!self->SubclassWindow(dialog))
    return TRUE;
  return self->OnInitDialog();
}
