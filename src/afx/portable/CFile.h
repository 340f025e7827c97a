// CFile.h - an open file, over the OS seam.
//
// Open() reports failure through an optional CFileException record; the
// throwing constructor and every other operation raise CFileException with
// the system's error code and the file's name.
#ifndef VN_AFX_CFILE_H
#define VN_AFX_CFILE_H

#include "afx/os/OsSeam.h"
#include "afx/portable/AfxExceptions.h"

class VN_API CFile : public CObject {
  DECLARE_DYNAMIC(CFile)
public:
  enum OpenFlags : UINT {
    modeRead = 0x0000,
    modeWrite = 0x0001,
    modeReadWrite = 0x0002,
    shareCompat = 0x0000,
    shareExclusive = 0x0010,
    shareDenyWrite = 0x0020,
    shareDenyRead = 0x0030,
    shareDenyNone = 0x0040,
    modeNoInherit = 0x0080,
    modeCreate = 0x1000,
    modeNoTruncate = 0x2000,
    typeText = 0x4000,
    typeBinary = 0x8000,
  };
  enum SeekPosition : UINT { begin = 0, current = 1, end = 2 };
  static const vn::os::FileHandle hFileNull = vn::os::kInvalidFile;

  CFile() = default;
  CFile(LPCWSTR fileName, UINT openFlags);
  ~CFile() override;

  virtual BOOL Open(LPCWSTR fileName, UINT openFlags, CFileException* error = nullptr);
  virtual UINT Read(void* buffer, UINT count);
  virtual void Write(const void* buffer, UINT count);
  virtual ULONGLONG Seek(LONGLONG offset, UINT from);
  void SeekToBegin() { Seek(0, begin); }
  ULONGLONG SeekToEnd() { return Seek(0, end); }
  virtual ULONGLONG GetLength() const;
  virtual void SetLength(ULONGLONG newLength);
  virtual ULONGLONG GetPosition() const;
  virtual void Flush();
  virtual void Close();
  // Closes without raising; for clean-up paths.
  virtual void Abort();

  bool IsOpen() const { return m_hFile != hFileNull; }
  CString GetFilePath() const { return m_strFileName; }
  CString GetFileName() const;

  static void Remove(LPCWSTR fileName);
  static void Rename(LPCWSTR oldName, LPCWSTR newName);

  vn::os::FileHandle m_hFile = hFileNull;

protected:
  [[noreturn]] void ThrowLastError() const;
  CString m_strFileName;
};

#endif  // VN_AFX_CFILE_H
