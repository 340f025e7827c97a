// VnTempFilesManager.cpp - the list of a frame's temporary files.
#include "window/VnTempFilesManager.h"

#include "foundation/VnFileSystem.h"

// A missing file counts as deleted; any other failure is swallowed.
static void DeleteQuietly(const CString& name) {
  try {
    CVnFileSystem::DeleteFileW(name);
  } catch (CException* e) {
    e->Delete();
  }
}

CVnTempFilesManager::~CVnTempFilesManager() { DeleteAllTempFiles(); }

void CVnTempFilesManager::AddNewTempFileName(const CString& name) { m_aNames.Add(name); }

void CVnTempFilesManager::DeleteThisTempFile(const CString& name) {
  for (INT_PTR i = 0; i < m_aNames.GetSize(); ++i) {
    if (m_aNames[i].CompareNoCase(name) == 0)
      m_aNames[i].Empty();
  }
  DeleteQuietly(name);
}

void CVnTempFilesManager::DeleteAllTempFiles() {
  for (INT_PTR i = 0; i < m_aNames.GetSize(); ++i) {
    if (!m_aNames[i].IsEmpty())
      DeleteQuietly(m_aNames[i]);
  }
  m_aNames.RemoveAll();
}
