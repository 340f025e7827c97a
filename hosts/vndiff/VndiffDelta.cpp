// VndiffDelta.cpp - saving a delta and rebuilding a target from one.
//
// A delta directory holds two files:
//   records  the change records, 20 bytes each (five 32-bit little-endian
//            fields: action, start and end source line, start and end target
//            line), in the order Compare gave them;
//   text     the delta text: the lines the Insert and Change records add,
//            each with its LF, the last one without it when the target's last
//            line had none.
// Both sides are read as raw bytes cut at LF, so the rebuild is byte for
// byte the target.  The engine checks a delta whole before anything is
// written (VnApplyDelta), and the output is written whole or not at all
// (VnWriteFileWhole), so a refused or failed rebuild leaves no partial file.
#include "VndiffHost.h"

#include "engine/VnDelta.h"
#include "intake/VnFile.h"

#include <memory>

#ifdef _WIN32
#include <direct.h>
#else
#include <sys/stat.h>
#endif

namespace vndiff {

namespace {

const unsigned long kRecordSize = 20;

std::string Join(const std::string& dir, const char* name) {
  if (!dir.empty() && (dir.back() == '/' || dir.back() == '\\'))
    return dir + name;
  return dir + "/" + name;
}

void MakeDirectory(const std::string& dir) {
#ifdef _WIN32
  _wmkdir(reinterpret_cast<const wchar_t*>(Wide(dir).GetString()));
#else
  mkdir(dir.c_str(), 0777);
#endif
  CVnFile::FileStatus status;
  if (!CVnFile::GetStatus(Wide(dir), status, false) || !(status.m_attribute & FILE_ATTRIBUTE_DIRECTORY))
    throw Failure(dir + ": cannot create the delta directory");
}

// Writes the bytes to path; a failure names `label` (the file the user asked for).
void WriteFile(const std::string& path, const void* data, unsigned long size, const std::string& label) {
  try {
    CFile file(Wide(path), CFile::modeCreate | CFile::modeWrite);
    if (size)
      file.Write(data, static_cast<UINT>(size));
    file.Close();
  } catch (CException* e) {
    throw Failure(DescribeException(e, label));
  }
}

[[noreturn]] void Damaged(const std::string& dir, const std::string& why) {
  throw Failure(dir + ": damaged delta: " + why);
}

// The file's bytes cut at LF, or Failure naming it.
void ReadRaw(CVnComparedFile& file, const std::string& path) {
  CheckReadable(path);
  try {
    file.ReadRaw(Wide(path));
  } catch (CException* e) {
    throw Failure(DescribeException(e, path));
  }
}

// Reads the records through CVnDiffChange::Load after checking the size.
void LoadRecords(const std::string& dir, CVnDiffChangeList& records) {
  const std::string path = Join(dir, "records");
  CheckReadable(path);
  try {
    CFile file(Wide(path), CFile::modeRead);
    const ULONGLONG size = file.GetLength();
    if (size % kRecordSize != 0) {
      file.Close();
      Damaged(dir, "records file size " + std::to_string(size) + " is not a multiple of 20");
    }
    for (ULONGLONG k = 0; k < size / kRecordSize; ++k) {
      CVnDiffChange* change = new CVnDiffChange();
      records.Add(change);
      change->Load(file, 0);
    }
    file.Close();
  } catch (CException* e) {
    throw Failure(DescribeException(e, path));
  }
}

}  // namespace

// Raw bytes on both sides, line ends exact, so that the records and the
// delta text rebuild the target byte for byte.
void SaveDelta(const std::string& dir, const std::string& sourcePath, const std::string& targetPath) {
  CVnCompareOptions options;
  options.m_bRaw = true;
  options.m_bExactLineEnds = true;
  CVnComparison comparison(options);
  OpenSide(comparison, CVnComparison::Source, sourcePath);
  OpenSide(comparison, CVnComparison::Target, targetPath);
  comparison.Compare();
  const CVnDiffChangeList& changes = comparison.GetChanges();

  MakeDirectory(dir);
  const std::string recordsPath = Join(dir, "records");
  try {
    CFile file(Wide(recordsPath), CFile::modeCreate | CFile::modeWrite);
    for (INT_PTR k = 0; k < changes.GetSize(); ++k)
      changes[k]->Save(file, 0, 0);
    file.Close();
  } catch (CException* e) {
    throw Failure(DescribeException(e, recordsPath));
  }
  unsigned long size = 0;
  unsigned char* text = nullptr;
  comparison.GetFile(CVnComparison::Target).GetLines().ExtractChangedLines(const_cast<CVnDiffChangeList&>(changes), size, text);
  std::unique_ptr<unsigned char[]> owned(text);
  WriteFile(Join(dir, "text"), text, size, Join(dir, "text"));
}

void ApplyDelta(const std::string& dir, const std::string& sourcePath, const std::string& output) {
  CVnDiffChangeList records;
  LoadRecords(dir, records);
  CVnComparedFile source, delta;
  ReadRaw(source, sourcePath);
  ReadRaw(delta, Join(dir, "text"));
  CVnDiffArg result(CVnFileInfo::Text8, 10);
  std::string why;
  if (!VnApplyDelta(records, source.GetLines(), delta.GetLines(), result, why))
    Damaged(dir, why);
  unsigned char* bytes = nullptr;
  int size = 0;
  result.GetBuffer(bytes, size);
  std::unique_ptr<unsigned char[]> owned(bytes);
  try {
    VnWriteFileWhole(Wide(output), bytes, static_cast<unsigned long>(size));
  } catch (CException* e) {
    throw Failure(DescribeException(e, output));
  }
}

}  // namespace vndiff
