// VnDeltaStore.cpp - records and delta text on disk.
#include "compare/VnDeltaStore.h"

#include "afx/os/OsSeam.h"
#include "compare/VnComparison.h"
#include "engine/VnDelta.h"
#include "intake/VnFile.h"

#include <memory>
#include <string>

namespace {

const unsigned long kRecordSize = 20;

CString Join(const CString& dir, const TCHAR* name) {
  const int n = dir.GetLength();
  if (n > 0 && (dir[n - 1] == L'/' || dir[n - 1] == L'\\'))
    return dir + name;
  return dir + _T("/") + name;
}

void MakeDirectory(const CString& dir) {
  if (!vn::os::CreateDirectory(dir) && vn::os::GetLastError() != ERROR_ALREADY_EXISTS)
    CFileException::ThrowOsError(static_cast<LONG>(vn::os::GetLastError()), dir);
  const DWORD attributes = vn::os::GetFileAttributes(dir);
  if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_DIRECTORY))
    CFileException::ThrowOsError(ERROR_ALREADY_EXISTS, dir);  // a file stands in the way
}

// False, with why, when the records file can't hold whole records.
bool LoadRecords(const CString& path, CVnDiffChangeList& records, CString& why) {
  CFile file(path, CFile::modeRead);
  const ULONGLONG size = file.GetLength();
  if (size % kRecordSize != 0) {
    why.Format(_T("records file size %llu is not a multiple of 20"), static_cast<unsigned long long>(size));
    return false;
  }
  for (ULONGLONG k = 0; k < size / kRecordSize; ++k) {
    CVnDiffChange* change = new CVnDiffChange();
    records.Add(change);
    change->Load(file, 0);
  }
  return true;
}

}  // namespace

void VnSaveDelta(const CString& dir, const CString& source, const CString& target) {
  CVnCompareOptions options;
  options.m_bRaw = true;
  options.m_bExactLineEnds = true;
  CVnComparison comparison(options);
  comparison.Open(CVnComparison::Source, source);
  comparison.Open(CVnComparison::Target, target);
  comparison.Compare();
  CVnDiffChangeList& changes = const_cast<CVnDiffChangeList&>(comparison.GetChanges());

  MakeDirectory(dir);
  VnWriteFileWhole(Join(dir, _T("records")), [&](CFile& file) {
    for (INT_PTR k = 0; k < changes.GetSize(); ++k)
      changes[k]->Save(file, 0, 0);
  });

  unsigned long size = 0;
  unsigned char* text = nullptr;
  comparison.GetFile(CVnComparison::Target).GetLines().ExtractChangedLines(changes, size, text);
  std::unique_ptr<unsigned char[]> owned(text);
  VnWriteFileWhole(Join(dir, _T("text")), text, size);
}

bool VnRebuildFromDelta(const CString& dir, const CString& sourcePath, const CString& output, CString& why) {
  CVnDiffChangeList records;
  if (!LoadRecords(Join(dir, _T("records")), records, why))
    return false;
  CVnComparedFile source, delta;
  source.ReadRaw(sourcePath);
  delta.ReadRaw(Join(dir, _T("text")));
  CVnDiffArg result(CVnFileInfo::Text8, 10);
  std::string reason;
  if (!VnApplyDelta(records, source.GetLines(), delta.GetLines(), result, reason)) {
    why = VnFromUtf8(reason);
    return false;
  }
  unsigned char* bytes = nullptr;
  int size = 0;
  result.GetBuffer(bytes, size);
  std::unique_ptr<unsigned char[]> owned(bytes);
  VnWriteFileWhole(output, bytes, static_cast<unsigned long>(size));
  return true;
}
