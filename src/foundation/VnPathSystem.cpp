// VnPathSystem.cpp - the path functions that ask the file system: existence
// and openability, the kind of a root, the validity tests that resolve a
// path to its full form and make its directories, and the three getters of
// well-known directories.
//
// The limits are those of the fixed buffers the full form is written into:
// 261 characters (EnsureValidPath, so paths of up to 260) and 259
// (ResolveValidatePath, up to 258).  Only the getters throw; every other
// function answers 1 or 0 and says no more.
#include "foundation/VnPath.h"

#include "foundation/VnException.h"
#include "afx/os/OsSeam.h"

#include <cwctype>
#include <vector>

using namespace vn;

static const DWORD kAttrDirectory = 0x10;
static const DWORD kNoAttributes = 0xFFFFFFFF;
static const UINT kDriveRemote = 4;

static bool IsSep(WCHAR c) { return c == '\\' || c == '/'; }

//===-- Existence -----------------------------------------------------------===//

// The file opens for reading, sharing reading and writing; directories fail.
static bool CanOpenForReading(LPCWSTR path) {
  const vn::os::FileHandle h = vn::os::OpenFile(path, vn::os::kRead, vn::os::kOpenExisting);
  return h != vn::os::kInvalidFile && vn::os::CloseFile(h);
}

// A new file can be created for reading and writing; it is gone again on
// return.  An existing file is never touched.
static bool CanCreateAndDiscard(LPCWSTR path) {
  const vn::os::FileHandle h = vn::os::OpenFile(path, vn::os::kReadWrite, vn::os::kCreateNew);
  if (h == vn::os::kInvalidFile)
    return false;
  vn::os::CloseFile(h);
  vn::os::DeleteFile(path);
  return true;
}

int IsDir(LPCWSTR path) {
  DWORD attrs = vn::os::GetFileAttributes(path);
  return attrs != kNoAttributes && (attrs & kAttrDirectory) ? 1 : 0;
}

int IsFile(LPCWSTR path) { return CanOpenForReading(path) ? 1 : 0; }

// The length test looks at the text as given, so a drive with blanks around
// it ("  c:  ") still names its root; what is left after trimming must hold
// at least a drive's two characters.
int GetRootDirType(LPCWSTR path) {
  CString root(path);
  if (root.GetLength() < 3)
    return 0;
  root.Trim();
  if (root.GetLength() < 2)
    return 0;
  if (!PathHasEndSlash(root))
    AppendEndSlash(root);
  if (IsSep(root[0]) && IsSep(root[1]))
    return static_cast<int>(kDriveRemote);
  UINT type = vn::os::DriveType(root.Left(3));
  if (type == kDriveRemote && std::iswalpha(static_cast<wint_t>(root[0])) && root[1] == ':')
    return VN_ROOT_MAPPED_DRIVE;
  return static_cast<int>(type);
}

//===-- Full forms and directories ------------------------------------------===//

DWORD GetFullPathChecked(LPCWSTR path, DWORD bufferLength, LPWSTR buffer) {
  // "c: x" would resolve against the drive's current directory; it is a
  // typing slip, not a path.
  if (path && path[0] && path[1] == ':' && path[2] == ' ')
    return 0;
  const vn::os::WideText full = vn::os::FullPathName(path);
  if (full.empty())
    return 0;
  const DWORD length = static_cast<DWORD>(full.size());
  if (!buffer || bufferLength <= length)
    return length + 1;  // the size needed, with the terminator
  full.copy(buffer, length);
  buffer[length] = 0;
  return length;
}

// The full form into a buffer of capacity characters; false when empty or
// too long for it.
static bool FullFormWithin(LPCWSTR path, DWORD capacity, CString& full) {
  std::vector<WCHAR> buffer(capacity, 0);
  DWORD length = GetFullPathChecked(path, capacity, buffer.data());
  if (length == 0 || length >= capacity)
    return false;
  full = CString(buffer.data(), static_cast<int>(length));
  return true;
}

int CreatePathTree(LPCWSTR dir) {
  CString path(dir);
  // A root keeps its separator: without it, it would name no directory.
  if (path.GetLength() > 1)
    TrimEndSlash(path);
  if (IsDir(path))
    return 1;
  CString parent, name;
  SeparatePathAndFile(path, parent, name);
  if (parent.Compare(path) != 0 && !CreatePathTree(parent))
    return 0;
  return vn::os::CreateDirectory(path) ? 1 : 0;
}

int GetValidPathName(CString& path) {
  if (path.FindOneOf(_T("*?")) >= 0)
    return 0;
  DWORD size = GetFullPathChecked(path, 0, nullptr);
  if (size == 0)
    return 0;
  CString full;
  if (!FullFormWithin(path, size, full))
    return 0;
  // A path that does not exist is no objection; an unusable name is.
  if (vn::os::GetFileAttributes(full) == kNoAttributes && vn::os::GetLastError() == ERROR_INVALID_NAME)
    return 0;
  int colons = 0;
  for (int i = 0; i < full.GetLength(); ++i)
    colons += full[i] == ':' ? 1 : 0;
  if (colons > 1)
    return 0;
  path = full;
  return 1;
}

int ResolveValidatePath(CString& path) {
  CString full;
  if (!FullFormWithin(path, MAX_PATH - 1, full) || !CreatePathTree(full))
    return 0;
  path = full;
  return 1;
}

int EnsureValidPath(LPCWSTR path) {
  CString full;
  return FullFormWithin(path, MAX_PATH + 1, full) && CreatePathTree(full) ? 1 : 0;
}

int EnsureValidFile(LPCWSTR path) {
  CString dir, file;
  SeparatePathAndFile(path, dir, file);
  if (!EnsureValidPath(dir))
    return 0;
  if (CanOpenForReading(path))
    return 1;
  return CanCreateAndDiscard(path) ? 1 : 0;
}

//===-- Well-known directories ----------------------------------------------===//

// A directory from the seam; a failure throws the system's error, a text
// longer than capacity - 1 characters throws "file name too long".
static CString GetDirectory(vn::os::WideText (*getter)(), DWORD capacity) {
  const vn::os::WideText text = getter();
  if (text.empty())
    AfxThrowOSException(0xFFFFFFFF);
  if (text.size() >= capacity)
    AfxThrowOSException(ERROR_FILENAME_EXCED_RANGE);
  return CString(text.c_str());
}

void GetCurrentPath(CString& path) {
  path = GetDirectory(vn::os::CurrentDirectory, MAX_PATH + 1);
  AppendEndSlash(path);
}

void GetTemporaryPath(CString& path) {
  path = GetDirectory(vn::os::TempDirectory, MAX_PATH + 1);
  if (!PathHasEndSlash(path))
    AppendEndSlash(path);
}

void GetAppPath(CString& path) {
  path = GetDirectory(vn::os::ModuleFileName, MAX_PATH);
  LPCWSTR lastSep = FindLastSlash(path);
  path = lastSep ? path.Left(static_cast<int>(lastSep - path.GetString()) + 1) : CString();
}
