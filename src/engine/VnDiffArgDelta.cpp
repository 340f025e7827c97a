// VnDiffArgDelta.cpp - storing and replaying the difference of two line sets.
//
// A delta is the change records plus the delta text: the lines that Insert
// and Change records add, in record order, each with its terminator.  A line
// is written as its bytes and then the set's terminator (GetEOLSize() bytes
// of the EOL character, low byte first), except that the last line of a set
// without an ending terminator gets none.  Rebuilding copies line records,
// never text: the result points into the source and the delta text.
#include "engine/VnDiffArg.h"

#include <cstring>
#include <memory>

//===-- Writing lines ------------------------------------------------------===//

size_t CVnDiffArg::LineOutSize(int index) const {
  size_t size = m_lines.GetAt(index)->GetLength();
  bool last = index == GetLineCount() - 1;
  if (!(last && !m_info.HasEndingTerminator()))
    size += static_cast<size_t>(m_info.GetEOLSize());
  return size;
}

unsigned char* CVnDiffArg::WriteLine(int index, unsigned char* out) const {
  const CVnDiffLine* line = m_lines.GetAt(index);
  if (line->GetLength())
    memcpy(out, line->GetBytes(), line->GetLength());
  out += line->GetLength();
  bool last = index == GetLineCount() - 1;
  if (!(last && !m_info.HasEndingTerminator())) {
    *out++ = static_cast<unsigned char>(m_info.m_nEOLChar & 0xFF);
    if (m_info.GetEOLSize() == 2)
      *out++ = static_cast<unsigned char>(m_info.m_nEOLChar >> 8);
  }
  return out;
}

size_t CVnDiffArg::FlatSize(int first, int end) const {
  size_t size = 0;
  for (int i = first; i < end; ++i)
    size += LineOutSize(i);
  return size;
}

//===-- Delta text ---------------------------------------------------------===//

static bool AddsLines(const CVnDiffChange& c) {
  return c.GetAction() == CVnDiffChange::Insert || c.GetAction() == CVnDiffChange::Change;
}

void CVnDiffArg::ExtractChangedLines(CPtrArray& changes, unsigned long& size, unsigned char*& buffer) {
  size = 0;
  buffer = nullptr;
  size_t total = 0;
  for (INT_PTR r = 0; r < changes.GetSize(); ++r) {
    const CVnDiffChange* c = static_cast<const CVnDiffChange*>(changes.GetAt(r));
    if (AddsLines(*c))
      total += FlatSize(static_cast<int>(c->StartTarget() - 1), static_cast<int>(c->EndTarget()));
  }
  if (total == 0)
    return;
  std::unique_ptr<unsigned char[]> out(new unsigned char[total]);
  unsigned char* p = out.get();
  for (INT_PTR r = 0; r < changes.GetSize(); ++r) {
    const CVnDiffChange* c = static_cast<const CVnDiffChange*>(changes.GetAt(r));
    if (AddsLines(*c))
      for (long i = c->StartTarget() - 1; i < c->EndTarget(); ++i)
        p = WriteLine(static_cast<int>(i), p);
  }
  size = static_cast<unsigned long>(total);
  buffer = out.release();
}

//===-- Rebuilding ---------------------------------------------------------===//

// The copy is made only after the index has passed its check, so a bad index
// leaves nothing behind.
void CVnDiffArg::AppendCopy(const CVnDiffArg& from, int index) {
  std::unique_ptr<CVnDiffLine> copy(new CVnDiffLine(*from.m_lines.GetAt(index)));
  m_lines.Add(copy.get());
  copy.release();
}

void CVnDiffArg::ProcessChange(const CVnDiffChange& change, const CVnDiffArg& source, const CVnDiffArg& delta,
                               int& sourcePos, int& targetPos, int& deltaPos) {
  // Unchanged lines in front of the record.  The 0 of an unused side never
  // equals a position, so only the used side ends this loop.
  while (sourcePos != change.StartSource() && targetPos != change.StartTarget()) {
    AppendCopy(source, sourcePos - 1);
    ++sourcePos;
    ++targetPos;
  }
  switch (change.GetAction()) {
  case CVnDiffChange::Delete: sourcePos += static_cast<int>(change.SourceChangeLen()); return;
  case CVnDiffChange::Change: sourcePos += static_cast<int>(change.SourceChangeLen()); break;
  case CVnDiffChange::Insert: break;
  default: return;
  }
  const int n = static_cast<int>(change.TargetChangeLen());
  for (int k = 0; k < n; ++k)
    AppendCopy(delta, deltaPos++);
  targetPos += n;
}

void CVnDiffArg::CopyLines(const CVnDiffArg& from, int first, int end) {
  if (end == -1)
    end = from.GetLineCount();
  for (int i = first; i < end; ++i)
    AppendCopy(from, i);
}

//===-- Flattening ---------------------------------------------------------===//

void CVnDiffArg::GetBuffer(unsigned char*& buffer, int& size) {
  const int count = GetLineCount();
  const size_t total = FlatSize(0, count);
  std::unique_ptr<unsigned char[]> out(new unsigned char[total]);
  unsigned char* p = out.get();
  for (int i = 0; i < count; ++i)
    p = WriteLine(i, p);
  size = static_cast<int>(total);
  buffer = out.release();
}

void CVnDiffArg::SaveToFile(const unsigned short* path) { SaveToFile(reinterpret_cast<LPCWSTR>(path)); }

// Lines go out through a staging block so that a file of many short lines
// costs few writes.
static const size_t kStageSize = 64 * 1024;

void CVnDiffArg::SaveToFile(LPCWSTR path) {
  const UINT kCreateWriteExclusive = 0x1011;
  CFile file;
  try {
    CFileException error;
    if (!file.Open(path, kCreateWriteExclusive, &error))
      AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
    std::unique_ptr<unsigned char[]> stage(new unsigned char[kStageSize]);
    size_t used = 0;
    for (int i = 0; i < GetLineCount(); ++i) {
      size_t need = LineOutSize(i);
      if (used + need > kStageSize && used) {
        file.Write(stage.get(), static_cast<UINT>(used));
        used = 0;
      }
      if (need > kStageSize) {  // a line larger than the block goes out alone
        std::unique_ptr<unsigned char[]> big(new unsigned char[need]);
        WriteLine(i, big.get());
        file.Write(big.get(), static_cast<UINT>(need));
        continue;
      }
      WriteLine(i, stage.get() + used);
      used += need;
    }
    if (used)
      file.Write(stage.get(), static_cast<UINT>(used));
    file.Close();
  } catch (...) {
    file.Abort();
    vn::os::DeleteFile(path);  // no partial file, and no earlier one of that name
    throw;
  }
}
