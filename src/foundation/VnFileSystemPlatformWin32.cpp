// VnFileSystemPlatformWin32.cpp - the store's file operations over Win32,
// one call each.
#include "foundation/VnFileSystemPlatform.h"

namespace vn {
namespace filesys {

DWORD LastError() { return ::GetLastError(); }
bool Delete(LPCWSTR path) { return ::DeleteFileW(path) != 0; }
bool SetAttributes(LPCWSTR path, DWORD attributes) { return ::SetFileAttributesW(path, attributes) != 0; }
bool Copy(LPCWSTR source, LPCWSTR target, bool failIfExists) {
  return ::CopyFileW(source, target, failIfExists) != 0;
}
bool Move(LPCWSTR source, LPCWSTR target) { return ::MoveFileW(source, target) != 0; }

bool MakeDirectory(LPCWSTR path) {
  SECURITY_ATTRIBUTES inheritable = {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  return ::CreateDirectoryW(path, &inheritable) != 0;
}

// The call exists on every system the component runs on, so it is made
// directly rather than looked up at run time.
bool FreeBytes(LPCWSTR path, ULONGLONG& available) {
  ULARGE_INTEGER bytes;
  if (!::GetDiskFreeSpaceExW(path, &bytes, nullptr, nullptr))
    return false;
  available = bytes.QuadPart;
  return true;
}

}  // namespace filesys
}  // namespace vn
