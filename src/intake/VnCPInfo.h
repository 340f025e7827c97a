// VnCPInfo.h - the facts and display name of a code page.
//
// GetVnCPInfo fills a CPINFOEXW whether or not the platform has
// GetCPInfoExW: without it the facts come from GetCPInfo and the name is
// "CP" and the number.  Code pages are Win32 numbers, plus the system's own
// 70001 (UTF-16LE) and 70000 (UTF-16BE).
#ifndef VN_INTAKE_VNCPINFO_H
#define VN_INTAKE_VNCPINFO_H

#include "afx/afx.h"

// Zeroes *info, then fills it; non-zero on success.  `flags` goes to
// GetCPInfoExW and is unused without it.
VN_API int GetVnCPInfo(unsigned int codePage, unsigned long flags, CPINFOEXW* info);

#endif  // VN_INTAKE_VNCPINFO_H
