// VnFileSystem.cpp - names of the numbered file store, reading them back,
// the free space below the root, and the throwing file wrappers.
#include "foundation/VnFileSystem.h"

#include "afx/os/OsSeam.h"
#include "foundation/VnPath.h"

using namespace vn;

// The names are formatted into a buffer of this many characters, the
// terminator included.
static const int kNameBuffer = 260;
static const unsigned long kNoSpace = 0xFFFFFFFFul;

static UINT Id32(unsigned long id) { return static_cast<UINT>(id & 0xFFFFFFFFul); }

CVnFileSystem::CVnFileSystem(LPCWSTR root, unsigned long number) : m_strRoot(root), m_nNumber(number) {
  if (!PathHasEndSlash(m_strRoot))
    AppendEndSlash(m_strRoot);
}

//===-- Names ---------------------------------------------------------------===//

CString CVnFileSystem::GetFileName(unsigned long id) const {
  CString name;
  name.Format(_T("%08X"), Id32(id));
  return name;
}

// The second ID is written as the signed 32-bit number of its bits.
CString CVnFileSystem::GetFileName(unsigned long id, unsigned long secondId) const {
  CString name;
  name.Format(_T("%08X.%d"), Id32(id), static_cast<int>(Id32(secondId)));
  return name;
}

CString CVnFileSystem::GetFilePath(unsigned long id) const { return m_strRoot + GetFileName(id); }

CString CVnFileSystem::GetFilePath(unsigned long id, unsigned long secondId) const {
  return m_strRoot + GetFileName(id, secondId);
}

CString CVnFileSystem::GetFilePath(unsigned long id, LPCWSTR extension) const {
  CString name;
  name.Format(_T("%08X.%s"), Id32(id), extension ? extension : _T(""));
  if (name.GetLength() >= kNameBuffer)
    AfxThrowInvalidArgException();
  return m_strRoot + name;
}

//===-- Reading a name back -------------------------------------------------===//

static bool IsBlank(WCHAR c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\v' || c == '\f'; }

static int HexValue(WCHAR c) {
  if (c >= '0' && c <= '9')
    return c - '0';
  if (c >= 'a' && c <= 'f')
    return c - 'a' + 10;
  if (c >= 'A' && c <= 'F')
    return c - 'A' + 10;
  return -1;
}

// Up to 8 hexadecimal digits after optional blanks, as the scanner reads
// "%08X"; false when there is no digit.
static bool ReadHex(LPCWSTR& p, UINT& value) {
  while (IsBlank(*p))
    ++p;
  int digits = 0;
  value = 0;
  for (; digits < 8 && HexValue(*p) >= 0; ++digits, ++p)
    value = value << 4 | static_cast<UINT>(HexValue(*p));
  return digits > 0;
}

// A signed decimal number after optional blanks, as "%d" reads it; the
// value wraps to 32 bits.
static bool ReadDecimal(LPCWSTR& p, UINT& value) {
  while (IsBlank(*p))
    ++p;
  bool negative = *p == '-';
  if (*p == '-' || *p == '+')
    ++p;
  if (*p < '0' || *p > '9')
    return false;
  value = 0;
  for (; *p >= '0' && *p <= '9'; ++p)
    value = value * 10u + static_cast<UINT>(*p - '0');
  if (negative)
    value = 0u - value;
  return true;
}

int CVnFileSystem::GetFileIDs(LPCWSTR path, unsigned long& id, unsigned long& secondId) const {
  if (!path)
    return 0;
  LPCWSTR lastSep = FindLastSlash(path);
  LPCWSTR p = lastSep ? lastSep + 1 : path;
  UINT first = 0, second = 0;
  if (!ReadHex(p, first))
    return 0;
  id = first;
  if (*p != '.')
    return 0;
  ++p;
  if (!ReadDecimal(p, second))
    return 0;
  secondId = second;
  return 1;
}

//===-- Free space ----------------------------------------------------------===//

unsigned long CVnFileSystem::GetFreeSpace() const {
  uint64_t available = 0;
  if (!vn::os::DiskFreeSpace(m_strRoot, available) || available > 0xFFFFFFFFull)
    return kNoSpace;
  return static_cast<unsigned long>(available);
}

//===-- Throwing wrappers ---------------------------------------------------===//

// The last error as a CFileException naming path; a failure that left no
// code still throws.
[[noreturn]] static void ThrowLastError(LPCWSTR path) {
  DWORD code = vn::os::GetLastError();
  CFileException::ThrowOsError(static_cast<LONG>(code ? code : ERROR_INVALID_FUNCTION), path);
  AfxThrowFileException(CFileException::genericException, -1, path);
}

void CVnFileSystem::CreateFileW(LPCWSTR path, DWORD size, const void* data) {
  if (size && !data)
    AfxThrowInvalidArgException();
  CFile file(path, CFile::modeCreate | CFile::modeReadWrite | CFile::shareExclusive);
  file.Write(data, size);
  file.Close();
}

void CVnFileSystem::DeleteFileW(LPCWSTR path) {
  if (vn::os::DeleteFile(path))
    return;
  DWORD code = vn::os::GetLastError();
  if (code == ERROR_FILE_NOT_FOUND || code == ERROR_PATH_NOT_FOUND)
    return;
  ThrowLastError(path);
}

void CVnFileSystem::SetFileAttributesW(LPCWSTR path, DWORD attributes) {
  if (!vn::os::SetFileAttributes(path, attributes))
    ThrowLastError(path);
}

void CVnFileSystem::CopyFileW(LPCWSTR source, LPCWSTR target, int failIfExists) {
  if (!vn::os::CopyFile(source, target, failIfExists != 0))
    ThrowLastError(source);
}

void CVnFileSystem::MoveFileW(LPCWSTR source, LPCWSTR target) {
  if (!vn::os::MoveFile(source, target))
    ThrowLastError(source);
}

void CVnFileSystem::MakeDirectory(LPCWSTR path) {
  if (!vn::os::CreateDirectory(path))
    ThrowLastError(path);
}
