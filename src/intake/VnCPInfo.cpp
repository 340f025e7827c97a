// VnCPInfo.cpp - code page facts, with or without GetCPInfoExW.
#include "intake/VnCPInfo.h"

#include "afx/os/OsSeam.h"

#include <cassert>
#include <cstring>

// Without GetCPInfoExW the name is "CP" and the number, and the Unicode
// default character the question mark, whether GetCPInfo knew the page or not.
static int FallbackCPInfo(unsigned int codePage, CPINFOEXW* info) {
  CPINFO basic;
  memset(&basic, 0, sizeof basic);
  const int ok = vn::os::GetCPInfo(codePage, basic) ? 1 : 0;
  if (ok) {
    info->MaxCharSize = basic.MaxCharSize;
    memcpy(info->DefaultChar, basic.DefaultChar, sizeof info->DefaultChar);
    memcpy(info->LeadByte, basic.LeadByte, sizeof info->LeadByte);
  }
  info->CodePage = codePage;
  info->UnicodeDefaultChar = 63;
  CString name;
  name.Format(_T("CP%u"), codePage);
  memcpy(info->CodePageName, name.GetString(), (name.GetLength() + 1) * sizeof(WCHAR));
  return ok;
}

int GetVnCPInfo(unsigned int codePage, unsigned long flags, CPINFOEXW* info) {
  assert(info && "GetVnCPInfo needs a record to fill");
  memset(info, 0, sizeof *info);
  if (vn::os::GetCPInfoExFn ex = vn::os::FindGetCPInfoEx())
    return ex(codePage, static_cast<DWORD>(flags), info);
  return FallbackCPInfo(codePage, info);
}
