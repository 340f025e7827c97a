// VnFileSystem.h - the numbered file store and throwing file operations.
//
// As an object, CVnFileSystem is a flat store below one root directory:
// every file lies directly in the root and is named by numbers alone, in one
// of three forms, the ID always as 8 upper-case hexadecimal digits:
//
//   "%08X"      ID alone            00001A2B
//   "%08X.%d"   ID and a second ID  00001A2B.7   (decimal, signed)
//   "%08X.%s"   ID and extension    00001A2B.txt
//
// Names are pure arithmetic on the numbers: the store keeps no index and
// looks at the disk only for its free space.  IDs are 32-bit values; on a
// platform whose unsigned long is wider, the bits above 32 play no part.
//
// As a class it offers static wrappers for file operations that throw a
// CFileException (with the system's error code and the first path) where
// the system call reports failure.
#ifndef VN_FOUNDATION_VNFILESYSTEM_H
#define VN_FOUNDATION_VNFILESYSTEM_H

#include "afx/afx.h"

// A 16-bit leftover of the Windows headers would swallow the member below.
#ifdef GetFreeSpace
#undef GetFreeSpace
#endif

class VN_API CVnFileSystem {
public:
  // Keeps both; a root without an end separator gets a backslash.
  CVnFileSystem(LPCWSTR root, unsigned long number);

  CString GetFileName(unsigned long id) const;
  CString GetFileName(unsigned long id, unsigned long secondId) const;
  CString GetFilePath(unsigned long id) const;
  CString GetFilePath(unsigned long id, unsigned long secondId) const;
  // An extension that would take the name beyond 259 characters raises
  // CInvalidArgException; a null extension counts as empty.
  CString GetFilePath(unsigned long id, LPCWSTR extension) const;

  // Reads the name behind the path's last separator as "%08X.%d": 1 when
  // both numbers were read.  A name "%08X" alone gives 0 with id read; the
  // references keep their values for fields that were not read.
  int GetFileIDs(LPCWSTR path, unsigned long& id, unsigned long& secondId) const;

  // Bytes free to the caller below the root; 0xFFFFFFFF on failure and for
  // 4 GiB or more alike.
  unsigned long GetFreeSpace() const;

  const CString& GetRoot() const { return m_strRoot; }
  unsigned long GetNumber() const { return m_nNumber; }

  // Writes size bytes as the whole new content of path (replacing a file
  // that is there); CFile's exception on failure.
  static void CreateFileW(LPCWSTR path, DWORD size, const void* data);
  // A file that is not there (errors 2 and 3) is no failure.
  static void DeleteFileW(LPCWSTR path);
  static void SetFileAttributesW(LPCWSTR path, DWORD attributes);
  static void CopyFileW(LPCWSTR source, LPCWSTR target, int failIfExists);
  static void MoveFileW(LPCWSTR source, LPCWSTR target);
  // One directory, no parents (that is EnsureValidPath).
  static void MakeDirectory(LPCWSTR path);

private:
  CString m_strRoot;
  unsigned long m_nNumber;
};

#endif  // VN_FOUNDATION_VNFILESYSTEM_H
