// VnFileSystemPlatform.h - the file operations behind CVnFileSystem's
// wrappers, each with the contract of the Win32 call it is named after:
// false on failure, with LastError telling why.
#ifndef VN_FOUNDATION_VNFILESYSTEMPLATFORM_H
#define VN_FOUNDATION_VNFILESYSTEMPLATFORM_H

#include "afx/afx.h"

namespace vn {
namespace filesys {

DWORD LastError();
bool Delete(LPCWSTR path);
bool SetAttributes(LPCWSTR path, DWORD attributes);
bool Copy(LPCWSTR source, LPCWSTR target, bool failIfExists);
bool Move(LPCWSTR source, LPCWSTR target);
// One level; the directory's handle is inheritable and has the default
// security descriptor.
bool MakeDirectory(LPCWSTR path);
// GetDiskFreeSpaceExW's bytes available to the caller.
bool FreeBytes(LPCWSTR path, ULONGLONG& available);

}  // namespace filesys
}  // namespace vn

#endif  // VN_FOUNDATION_VNFILESYSTEMPLATFORM_H
