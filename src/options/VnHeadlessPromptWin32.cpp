// VnHeadlessPromptWin32.cpp - messages on standard error instead of boxes.
#include "options/VnReconcileApp.h"

#include <string>

static CString g_programName;

static int AnswerOnStandardError(LPCWSTR text, UINT type, UINT) {
  HANDLE error = ::GetStdHandle(STD_ERROR_HANDLE);
  if (error && error != INVALID_HANDLE_VALUE) {
    CString line = (type & MB_ICONMASK) == MB_ICONINFORMATION ? CString(text) : g_programName + L": " + text;
    std::string bytes = VnToUtf8(line.GetString()) + "\n";
    DWORD written = 0;
    ::WriteFile(error, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
  }
  return VnDefaultAnswer(type);
}

void VnUseHeadlessPrompt(LPCWSTR programName) {
  g_programName = programName;
  VnSetPromptHandler(&AnswerOnStandardError);
}
