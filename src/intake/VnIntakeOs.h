// VnIntakeOs.h - what file intake asks of the platform, in Win32's terms.
//
// Each function has a Win32 form (VnIntakeOsWin32.cpp, the real calls) and a
// POSIX form (VnIntakeOsPosix.cpp).  Failures return false or an invalid
// value and leave a Win32 error code in vn::os::GetLastError().  Internal to
// the component; tests include it for the hooks marked as such.
#ifndef VN_INTAKE_VNINTAKEOS_H
#define VN_INTAKE_VNINTAKEOS_H

#include "afx/afx.h"
#include "afx/portable/COleDateTime.h"
#include "intake/VnCPInfo.h"

#include <cstdint>

#ifndef _WIN32
#define FILE_ATTRIBUTE_READONLY 0x1u
#define FILE_ATTRIBUTE_HIDDEN 0x2u
#define FILE_ATTRIBUTE_DIRECTORY 0x10u
#define FILE_ATTRIBUTE_ARCHIVE 0x20u
#define FILE_ATTRIBUTE_NORMAL 0x80u
#define INVALID_FILE_ATTRIBUTES 0xFFFFFFFFu
struct WIN32_FIND_DATAW {
  DWORD dwFileAttributes;
  FILETIME ftCreationTime;
  FILETIME ftLastAccessTime;
  FILETIME ftLastWriteTime;
  DWORD nFileSizeHigh;
  DWORD nFileSizeLow;
  DWORD dwReserved0;
  DWORD dwReserved1;
  WCHAR cFileName[MAX_PATH];
  WCHAR cAlternateFileName[14];
};
#endif

namespace vn {
namespace intake {

//===-- Code pages ---------------------------------------------------------===//

typedef int (*GetCPInfoExFn)(UINT codePage, DWORD flags, CPINFOEXW* info);
// GetCPInfoExW when the platform has it, else null.
GetCPInfoExFn FindGetCPInfoEx();
int PlatformGetCPInfo(UINT codePage, CPINFO* info);
// Test hook: true makes FindGetCPInfoEx answer null, as on a system without
// GetCPInfoExW.
void HideGetCPInfoExForTesting(bool hide);

//===-- Files by path ------------------------------------------------------===//

bool FindOne(LPCWSTR path, WIN32_FIND_DATAW& found);
DWORD GetAttributes(LPCWSTR path);
bool SetAttributes(LPCWSTR path, DWORD attributes);
bool CopyOne(LPCWSTR from, LPCWSTR to, bool failIfExists);
bool MoveOne(LPCWSTR from, LPCWSTR to);
bool DeleteOne(LPCWSTR path);
CString TempPath();
// Creates a new empty file named dir\PREuuuu.tmp and gives its name.
CString TempFileName(LPCWSTR dir, LPCWSTR prefix3);
// Null times are left as they are.
bool SetTimes(LPCWSTR path, const FILETIME* creation, const FILETIME* access, const FILETIME* modified);
bool FileTimeToSystem(const FILETIME& ft, SYSTEMTIME& st);
bool SystemToFileTime(const SYSTEMTIME& st, FILETIME& ft);

//===-- Mapping ------------------------------------------------------------===//

typedef intptr_t Handle;
const Handle kNoHandle = -1;
// Opens for mapping with the open-always disposition: a missing file is made.
Handle OpenForMapping(LPCWSTR path, bool write);
Handle HandleOfFile(const CFile& file);
bool SizeOf(Handle file, uint64_t& size);
// Moves the end of the file to `size` bytes.
bool SetEnd(Handle file, uint64_t size);
// Makes a mapping object; natively there is none and any non-zero value stands
// for it.
Handle CreateMapping(Handle file, bool write);
void* MapView(Handle file, Handle mapping, DWORD size, bool write);
bool UnmapView(void* view, DWORD size);
bool CloseMapping(Handle mapping);
bool CloseFileHandle(Handle file);

}  // namespace intake
}  // namespace vn

#endif  // VN_INTAKE_VNINTAKEOS_H
