// VnFileMapping.cpp - mapping a whole file, growing it first when asked.
#include "intake/VnFileMapping.h"

#include "foundation/VnException.h"
#include "intake/VnFile.h"

// Every failure of a mapping step is reported as the system's last error
// (0xFFFFFFFF asks the OS exception to take the last error at construction).
[[noreturn]] static void ThrowMappingFailure() { AfxThrowOSException(static_cast<DWORD>(-1)); }

CVnFileMapping::~CVnFileMapping() {
  try {
    Close();
  } catch (CException* e) {
    e->Delete();  // a destructor can only let it go
  }
}

CVnFileMapping& CVnFileMapping::operator=(const CVnFileMapping& other) {
  m_bOwnsFile = other.m_bOwnsFile;
  m_hFile = other.m_hFile;
  m_hMapping = other.m_hMapping;
  m_dwSize = other.m_dwSize;
  m_pView = other.m_pView;
  return *this;
}

void CVnFileMapping::Open(LPCWSTR path, unsigned long size) {
  m_bOwnsFile = 1;
  m_hFile = vn::os::OpenForMapping(path, size != 0);
  MapOpenFile(size);
}

void CVnFileMapping::Open(CVnFile& file, unsigned long size) {
  m_bOwnsFile = 0;
  m_hFile = file.m_hFile;
  MapOpenFile(size);
}

// Steps 2 to 4 of both forms of Open: size, growth, mapping and view.
void CVnFileMapping::MapOpenFile(unsigned long size) {
  if (m_hFile == vn::os::kInvalidFile)
    ThrowMappingFailure();
  uint64_t fileSize = 0;
  if (!vn::os::GetFileSize(m_hFile, fileSize))
    ThrowMappingFailure();
  m_dwSize = static_cast<DWORD>(fileSize);
  if (size > m_dwSize) {
    if (!vn::os::SetFileSize(m_hFile, size))
      ThrowMappingFailure();
    m_dwSize = static_cast<DWORD>(size);
  }
  if (m_dwSize == 0)
    return;
  const bool write = size != 0;
  m_hMapping = vn::os::CreateMapping(m_hFile, write);
  if (!m_hMapping)
    ThrowMappingFailure();
  m_pView = vn::os::MapView(m_hFile, m_hMapping, m_dwSize, write);
}

void CVnFileMapping::GetBuffer(unsigned long& size, const void*& view) const {
  size = m_dwSize;
  view = m_pView;
}

void CVnFileMapping::GetBuffer(unsigned long& size, void*& view) const {
  size = m_dwSize;
  view = m_pView;
}

void CVnFileMapping::Close() {
  bool ok = true;
  if (m_pView) {
    ok = vn::os::UnmapView(m_pView, m_dwSize) && ok;
    m_pView = nullptr;
  }
  if (m_hMapping) {
    ok = vn::os::CloseMapping(m_hMapping) && ok;
    m_hMapping = 0;
  }
  if (m_hFile != vn::os::kInvalidFile) {
    if (m_bOwnsFile)
      ok = vn::os::CloseFile(m_hFile) && ok;
    m_hFile = vn::os::kInvalidFile;
  }
  if (!ok)
    ThrowMappingFailure();
}
