// VnProcess.cpp - the parts of the process and OS services that are plain
// functions of their inputs: the system's name from its version, the family
// tests, and the name of the help file beside a module.
#include "foundation/VnProcess.h"

namespace {

const DWORD kPlatformNT = 2;       // VER_PLATFORM_WIN32_NT
const DWORD kPlatformWindows = 1;  // VER_PLATFORM_WIN32_WINDOWS

}  // namespace

static CString DescribeNT(DWORD major, DWORD minor) {
  if (major < 5)
    return CString(_T("Windows NT"));
  if (major > 5)
    return CString(_T("Windows"));
  switch (minor) {
  case 0: return CString(_T("Windows 2000"));
  case 1: return CString(_T("Windows XP"));
  case 2: return CString(_T("Windows 2003"));
  default: return CString(_T("Windows"));
  }
}

static CString Describe9x(DWORD minor) {
  switch (minor) {
  case 0: return CString(_T("Windows 95"));
  case 10: return CString(_T("Windows 98"));
  case 90: return CString(_T("Windows ME"));
  default: return CString(_T("Windows"));
  }
}

CString VnDescribeOS(DWORD platformId, DWORD major, DWORD minor) {
  if (platformId == kPlatformNT)
    return DescribeNT(major, minor);
  if (platformId == kPlatformWindows)
    return Describe9x(minor);
  return CString(_T("Windows"));
}

int VnIsWin2KVersion(DWORD platformId, DWORD major) {
  return platformId == kPlatformNT && major == 5;
}

// The last dot of the whole name, as the module name is taken: a dot in a
// directory counts when the file name has none.
CString VnHelpFileFor(const CString& moduleName) {
  const int dot = moduleName.ReverseFind('.');
  return (dot < 0 ? moduleName : moduleName.Left(dot)) + _T(".hlp");
}
