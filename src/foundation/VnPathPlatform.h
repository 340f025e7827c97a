// VnPathPlatform.h - what the path functions ask of the file system.
//
// One small call per platform operation, each with the contract of the
// Win32 call it is named after (results, buffer sizes, error codes).
// VnPathPlatformWin32.cpp makes the real calls; VnPathPlatformPosix.cpp
// answers through the OS seam and emulates what Linux lacks (drives, the
// full path of a Windows-style path) by text.
#ifndef VN_FOUNDATION_VNPATHPLATFORM_H
#define VN_FOUNDATION_VNPATHPLATFORM_H

#include "afx/afx.h"

namespace vn {
namespace pathsys {

// GetFullPathNameW: the length written, the size needed (with the
// terminator) when bufferLength is too small, 0 on failure.
DWORD FullPathName(LPCWSTR path, DWORD bufferLength, LPWSTR buffer);
// GetFileAttributesW: 0xFFFFFFFF on failure, with LastError set.
DWORD FileAttributes(LPCWSTR path);
DWORD LastError();
// CreateDirectoryW with default security: one level.
bool CreateOneDirectory(LPCWSTR path);
// The file opens for reading, sharing reading and writing; directories fail.
bool CanOpenForReading(LPCWSTR path);
// A new file can be created for reading and writing; it is gone again on
// return.  An existing file is never touched.
bool CanCreateAndDiscard(LPCWSTR path);
// GetDriveTypeW of a root ("c:\").
UINT DriveType(LPCWSTR root);
// GetCurrentDirectoryW, GetTempPathW, GetModuleFileNameW of the program:
// the length written, or 0 on failure.
DWORD CurrentDirectory(DWORD bufferLength, LPWSTR buffer);
DWORD TempPath(DWORD bufferLength, LPWSTR buffer);
DWORD ModuleFileName(DWORD bufferLength, LPWSTR buffer);

}  // namespace pathsys
}  // namespace vn

#endif  // VN_FOUNDATION_VNPATHPLATFORM_H
