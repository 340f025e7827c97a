// OsPosixInternal.h - what the POSIX files of the OS seam share: the error
// translation and the path and attribute rules.  Native only; internal to
// the seam.
#ifndef VN_AFX_OS_OSPOSIXINTERNAL_H
#define VN_AFX_OS_OSPOSIXINTERNAL_H

#include "afx/os/OsSeam.h"

#include <string>
#include <sys/stat.h>

namespace vn {
namespace os {

// The Win32 error code for an errno value.
DWORD Win32FromErrno(int e);
// Sets the last error from errno and gives false.
bool FailWithErrno();
// The same, telling a missing file (2) from a missing directory (3).
void FailOnMissing(const std::string& native);
// The path as the file system here takes it: UTF-8, slashes.
std::string PathToNative(LPCWSTR path);
// Attributes in Win32's terms of a file stat found at native.
DWORD AttributesOf(const std::string& native, const struct stat& st);

}  // namespace os
}  // namespace vn

#endif  // VN_AFX_OS_OSPOSIXINTERNAL_H
