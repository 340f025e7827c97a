// VnFile.h - the component's file object and its static file helpers.
//
// CVnFile is a CFile that raises instead of returning false and reads a
// whole file in one call.  Its statics copy, move and remove files, make
// temporary names, read and set attributes and time stamps (FileStatus), and
// test bytes for a NUL (the component's one test for binary data).
//
// ReadAll reads as many bytes as the low 32 bits of the file size say: a file
// of 4 GiB or more reads short.  Hosts that may meet such files check
// GetStatus's size high half first.
#ifndef VN_INTAKE_VNFILE_H
#define VN_INTAKE_VNFILE_H

#include "afx/afx.h"
#include "foundation/VnTime.h"
#include "afx/os/OsSeam.h"
#include "afx/portable/COleDateTime.h"
#include "intake/VnSmartBytePtr.h"

#include <functional>

class VN_API CVnFile : public CFile {
  DECLARE_DYNAMIC(CVnFile)
public:
  struct FileStatus {
    CVnTime m_ctime;
    CVnTime m_mtime;
    CVnTime m_atime;
    DWORD m_sizeHigh = 0;
    DWORD m_sizeLow = 0;
    DWORD m_attribute = 0;
    CString m_szFullName;
  };

  CVnFile() = default;
  // Opens path; failure raises CFileException.
  CVnFile(const CString& path, UINT flags);

  // Opens with CFile's flags; raises CFileException (cause from the system,
  // the generic cause when it gave none) instead of returning 0.
  virtual int Open(LPCWSTR path, UINT flags);
  // Up to count bytes into the array `bytes` holds; 0 for a null array.
  virtual unsigned long Read(CVnSmartBytePtr& bytes, unsigned long count);
  // The whole file (its size's low half) into a new array owned by `bytes`.
  virtual unsigned long ReadAll(CVnSmartBytePtr& bytes);
  virtual unsigned long ReadRaw(void* buffer, unsigned long count);
  // Reads from the start in 64 KiB chunks; true at the first byte 0.
  bool IsBinary();

  static bool IsBinary(unsigned long size, const unsigned char* data);
  // Through a read-only mapping; a missing file is created empty (the
  // mapping opens with the open-always disposition).
  static bool IsBinary(const CString& path);
  static int IsFile(const CString& path);
  static void FileCopy(const CString& to, const CString& from, int failIfExists);
  static void FileMove(const CString& to, const CString& from, int failIfExists);
  static void FileRemove(const CString& path);
  static CString GetTempFileNameW(const CString& directory, const CString& prefix);
  static CString GetSysTempFileName(const CString& prefix);
  static void SetAttributes(const CString& path, unsigned long attributes);
  static void EnableRW(const CString& path);
  static int GetStatus(const CString& path, FileStatus& status, bool raise);
  static int GetStatus(const CString& path, const WIN32_FIND_DATAW& found, FileStatus& status);
  static void SetStatus(const CString& path, FileStatus& status);
  static void FileTimeToVnTime(const FILETIME& fileTime, CVnTime& time);
  static void VnTimeToFileTime(const CVnTime& time, FILETIME& fileTime);

protected:
  // Bytes from the first byte 0 to the end, that byte included; 0 if none.
  static unsigned long GetBinary(unsigned long size, const unsigned char* data);

private:
  // Failures must raise: the framework's reporting form is closed off.
  BOOL Open(LPCWSTR, UINT, CFileException*) override { return 0; }
};

// Writes size bytes at data to path whole or not at all: under the name
// path + ".partial" first, then moved over path.  Any failure raises
// CFileException (or the failure that stopped it) and takes the partial
// file away; path is then as it was.
VN_API void VnWriteFileWhole(const CString& path, const void* data, unsigned long size);
// The same for a file that write fills.
VN_API void VnWriteFileWhole(const CString& path, const std::function<void(CFile&)>& write);

#endif  // VN_INTAKE_VNFILE_H
