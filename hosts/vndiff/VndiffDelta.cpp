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
// byte the target.  A delta is checked whole before anything is written; the
// output goes to a temporary name beside OUT and is renamed at the end, so a
// refused or failed rebuild leaves no partial file.
#include "VndiffHost.h"

#include "intake/VnFile.h"

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

std::string RecordText(INT_PTR k, const CVnDiffChange& c) {
  char text[128];
  snprintf(text, sizeof text, "record %ld (%d %ld %ld %ld %ld)", static_cast<long>(k) + 1,
           static_cast<int>(c.GetAction()), c.StartSource(), c.EndSource(), c.StartTarget(), c.EndTarget());
  return text;
}

// Where the rebuilt text's last line comes from, which decides its line end.
enum class LastLine { Delta, SourceLast, SourceInner };

// Checks that the records rebuild a target from a source of n0 lines with
// `available` delta lines: known actions, ranges inside the source, both
// sides ascending.  Gives where the result's last line comes from.
LastLine CheckRecords(const std::string& dir, const CVnDiffChangeList& records, long n0, long available) {
  long srcPos = 1, tgtPos = 1, used = 0;
  LastLine last = LastLine::SourceInner;
  for (INT_PTR k = 0; k < records.GetSize(); ++k) {
    const CVnDiffChange& c = *records[k];
    const long ss = c.StartSource(), es = c.EndSource(), st = c.StartTarget(), et = c.EndTarget();
    long copied = 0;
    switch (c.GetAction()) {
    case CVnDiffChange::Insert:
      if (ss != 0 || es != 0 || st < tgtPos || et < st)
        Damaged(dir, RecordText(k, c) + " is not an ascending insertion");
      copied = st - tgtPos;
      if (srcPos + copied > n0 + 1)
        Damaged(dir, RecordText(k, c) + " lies beyond the source");
      srcPos += copied;
      tgtPos = et + 1;
      used += et - st + 1;
      break;
    case CVnDiffChange::Delete:
      if (st != 0 || et != 0 || ss < srcPos || es < ss || es > n0)
        Damaged(dir, RecordText(k, c) + " is not an ascending deletion inside the source");
      copied = ss - srcPos;
      tgtPos += copied;
      srcPos = es + 1;
      break;
    case CVnDiffChange::Change:
      if (ss < srcPos || es < ss || es > n0 || st < tgtPos || et < st || es - ss != et - st ||
          ss - srcPos != st - tgtPos)
        Damaged(dir, RecordText(k, c) + " is not an ascending change inside the source");
      copied = ss - srcPos;
      srcPos = es + 1;
      tgtPos = et + 1;
      used += et - st + 1;
      break;
    default:
      Damaged(dir, RecordText(k, c) + " has an unknown action");
    }
    if (copied > 0)
      last = LastLine::SourceInner;  // a copied line before a record is never the source's last
    if (c.GetAction() != CVnDiffChange::Delete)
      last = LastLine::Delta;
  }
  if (used != available)
    Damaged(dir, "the delta text has " + std::to_string(available) + " lines, the records need " +
                     std::to_string(used));
  if (srcPos <= n0)
    last = LastLine::SourceLast;  // the tail of the source is copied
  return last;
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

// Writes the rebuilt bytes under a temporary name beside `output`, then
// renames; on any failure the temporary file goes away.
static void WriteOutput(const std::string& output, const unsigned char* bytes, unsigned long size) {
  const std::string temp = output + ".vndiff-partial";
  try {
    WriteFile(temp, bytes, size, output);
    CVnFile::FileMove(Wide(output), Wide(temp), 0);
  } catch (...) {
    try {
      CVnFile::FileRemove(Wide(temp));
    } catch (CException* e) {
      e->Delete();
    }
    throw;
  }
}

// The ending-terminator flag of the rebuilt set: the delta text's or the
// source's when its last line is their last line, else set (a line inside a
// file always has its line end).
static void TakeEnding(CVnDiffArg& result, LastLine last, const CVnDiffArg& source, const CVnDiffArg& delta) {
  bool terminated = true;
  if (last == LastLine::Delta)
    terminated = delta.GetFileInfo().HasEndingTerminator() != 0;
  else if (last == LastLine::SourceLast)
    terminated = source.GetFileInfo().HasEndingTerminator() != 0;
  CVnFileInfo info = result.GetFileInfo();
  info.m_nFlags &= ~static_cast<uint32_t>(CVnFileInfo::kEndingTerminator);
  if (terminated)
    info.m_nFlags |= CVnFileInfo::kEndingTerminator;
  result.SetFileInfo(info);
}

void ApplyDelta(const std::string& dir, const std::string& sourcePath, const std::string& output) {
  CVnDiffChangeList records;
  LoadRecords(dir, records);
  CVnComparedFile source, delta;
  ReadRaw(source, sourcePath);
  ReadRaw(delta, Join(dir, "text"));
  unsigned char* bytes = nullptr;
  int size = 0;
  if (records.GetSize() == 1 && records[0]->IsFullFileDelta()) {
    delta.GetLines().GetBuffer(bytes, size);  // the delta text is the whole target
  } else {
    const LastLine last = CheckRecords(dir, records, source.GetLines().GetLineCount(), delta.GetLines().GetLineCount());
    CVnDiffArg result(CVnFileInfo::Text8, 10);
    int sourcePos = 1, targetPos = 1, deltaPos = 0;
    for (INT_PTR k = 0; k < records.GetSize(); ++k)
      result.ProcessChange(*records[k], source.GetLines(), delta.GetLines(), sourcePos, targetPos, deltaPos);
    result.CopyLines(source.GetLines(), sourcePos - 1, -1);
    TakeEnding(result, last, source.GetLines(), delta.GetLines());
    result.GetBuffer(bytes, size);
  }
  std::unique_ptr<unsigned char[]> owned(bytes);
  WriteOutput(output, bytes, static_cast<unsigned long>(size));
}

}  // namespace vndiff
