// VnFileMapping.h - a file's bytes as a memory view.
//
// Open with size 0 maps read-only; any other size maps for reading and
// writing and first grows the file to at least that many bytes.  Opening by
// path uses the open-always disposition, so a missing file is created.  An
// empty file gets neither mapping nor view: GetBuffer gives 0 and null.
// Failures raise the OS exception with the system's last error.
#ifndef VN_INTAKE_VNFILEMAPPING_H
#define VN_INTAKE_VNFILEMAPPING_H

#include "afx/afx.h"

class CVnFile;

class VN_API CVnFileMapping {
public:
  CVnFileMapping() = default;
  ~CVnFileMapping();
  CVnFileMapping(const CVnFileMapping&) = delete;
  // Copies the five fields as they stand: the two objects then share handles,
  // and only one of them may close them.
  CVnFileMapping& operator=(const CVnFileMapping& other);

  void Open(LPCWSTR path, unsigned long size);
  // Maps a file that stays open (and owned by the caller) after Close.
  void Open(CVnFile& file, unsigned long size);
  void GetBuffer(unsigned long& size, const void*& view) const;
  void GetBuffer(unsigned long& size, void*& view) const;
  // Unmaps, closes the mapping and (when owned) the file; all three are
  // tried, and a failure of any is raised afterwards.
  void Close();

private:
  void MapOpenFile(unsigned long size);

  int m_bOwnsFile = 0;
  vn::os::FileHandle m_hFile = vn::os::kInvalidFile;
  vn::os::FileHandle m_hMapping = 0;
  DWORD m_dwSize = 0;
  void* m_pView = nullptr;
};

#endif  // VN_INTAKE_VNFILEMAPPING_H
