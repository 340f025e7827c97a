// VnFileSystemPlatformPosix.cpp - the store's file operations through the
// OS seam, which speaks Win32's error codes.
#include "foundation/VnFileSystemPlatform.h"

#include "afx/os/OsSeam.h"

namespace vn {
namespace filesys {

DWORD LastError() { return os::GetLastError(); }
bool Delete(LPCWSTR path) { return os::DeleteFile(path); }
bool SetAttributes(LPCWSTR path, DWORD attributes) { return os::SetFileAttributes(path, attributes); }
bool Copy(LPCWSTR source, LPCWSTR target, bool failIfExists) { return os::CopyFile(source, target, failIfExists); }
bool Move(LPCWSTR source, LPCWSTR target) { return os::MoveFile(source, target); }
// Handles are not inherited here; the directory itself is all there is.
bool MakeDirectory(LPCWSTR path) { return os::CreateDirectory(path); }

bool FreeBytes(LPCWSTR path, ULONGLONG& available) {
  uint64_t bytes = 0;
  if (!os::DiskFreeSpace(path, bytes))
    return false;
  available = bytes;
  return true;
}

}  // namespace filesys
}  // namespace vn
