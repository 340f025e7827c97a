// AfxPrompt.cpp - the replaceable prompt behind AfxMessageBox.
#include "afx/portable/AfxPrompt.h"

#include "afx/portable/CString.h"

#include <cstdio>

int VnDefaultAnswer(UINT type) {
  bool second = (type & MB_DEFMASK) == MB_DEFBUTTON2;
  switch (type & MB_TYPEMASK) {
  case MB_OKCANCEL: return second ? IDCANCEL : IDOK;
  case MB_YESNO: return second ? IDNO : IDYES;
  case MB_YESNOCANCEL: return second ? IDNO : IDYES;
  default: return IDOK;
  }
}

static int DefaultPrompt(LPCWSTR text, UINT type, UINT helpId) {
#ifdef _WIN32
  return ::MessageBoxW(::GetActiveWindow(), text, nullptr, type);
#else
  fprintf(stderr, "%s\n", VnToUtf8(text).c_str());
  return VnDefaultAnswer(type);
#endif
}

static VnPromptHandler g_prompt = DefaultPrompt;

VnPromptHandler VnSetPromptHandler(VnPromptHandler handler) {
  VnPromptHandler previous = g_prompt;
  g_prompt = handler ? handler : DefaultPrompt;
  return previous;
}

int AfxMessageBox(LPCWSTR text, UINT type, UINT helpId) { return g_prompt(text ? text : _T(""), type, helpId); }
