// VnDiffArg.cpp - cutting a buffer into lines, and reading a line back.
//
// The split is mechanical: scan for the terminator unit, make a record from
// the cursor up to it, step one unit past it.  A buffer that ends in a
// terminator has no empty line behind it; two terminators in a row make an
// empty line between them.  16-bit units are read byte-wise, so a buffer
// need not be aligned; an odd last byte takes no part.
#include "engine/VnDiffArg.h"

#include <cstring>
#include <memory>

static const INT_PTR kLineGrowBy = 1000;  // keeps big files from reallocating per line

CVnDiffArg::CVnDiffArg(CVnFileInfo::FileType type, unsigned char eol) {
  m_info.m_nFlags = static_cast<uint32_t>(type);
  switch (type) {
  case CVnFileInfo::Text8:
  case CVnFileInfo::Text8Alt:
  case CVnFileInfo::Text16: m_info.m_nEOLChar = 10; break;
  case CVnFileInfo::Records8: m_info.m_nEOLChar = eol; break;
  default: break;
  }
}

void CVnDiffArg::Create(const void* data, unsigned long size) {
  if (size == 0)
    return;
  switch (m_info.GetFileType()) {
  case CVnFileInfo::Text8:
  case CVnFileInfo::Text8Alt: Create(size, static_cast<const char*>(data)); break;
  case CVnFileInfo::Text16: Create(size, static_cast<const unsigned short*>(data)); break;
  case CVnFileInfo::Records8: Create(size, static_cast<const unsigned char*>(data)); break;
  default: break;
  }
}

// Appends one record; if the array cannot grow, the record is not leaked.
// A line's length is 32 bits: a longer line (possible only where a buffer
// may exceed 4 GiB) is refused rather than cut short.
static void AddLine(CVnDiffLineArray& lines, INT_PTR index, const unsigned char* start, size_t bytes, bool wide) {
  if (bytes > 0xFFFFFFFFu)
    AfxThrowInvalidArgException();
  std::unique_ptr<CVnDiffLine> line(new CVnDiffLine(start, static_cast<uint32_t>(bytes), wide));
  lines.SetAtGrow(index, line.get());
  line.release();
}

static uint16_t UnitAt(const unsigned char* bytes, size_t unit) {
  return static_cast<uint16_t>(bytes[2 * unit] | (bytes[2 * unit + 1] << 8));
}

// The split shared by the 8-bit overloads.  Appends one record per line and
// gives whether the last byte was the terminator.
static bool SplitBytes(const unsigned char* data, size_t size, unsigned char eol, CVnDiffLineArray& lines) {
  size_t cursor = 0;
  INT_PTR count = 0;
  while (cursor < size) {
    const void* hit = memchr(data + cursor, eol, size - cursor);
    size_t end = hit ? static_cast<size_t>(static_cast<const unsigned char*>(hit) - data) : size;
    AddLine(lines, count++, data + cursor, end - cursor, false);
    cursor = end + 1;
  }
  lines.SetSize(count);
  return size > 0 && data[size - 1] == eol;
}

// The same on 16-bit units; only whole units are read.
static bool SplitUnits(const unsigned char* data, size_t units, uint16_t eol, CVnDiffLineArray& lines) {
  size_t cursor = 0;
  INT_PTR count = 0;
  while (cursor < units) {
    size_t end = cursor;
    while (end < units && UnitAt(data, end) != eol)
      ++end;
    AddLine(lines, count++, data + 2 * cursor, 2 * (end - cursor), true);
    cursor = end + 1;
  }
  lines.SetSize(count);
  return units > 0 && UnitAt(data, units - 1) == eol;
}

static void ResetLines(CVnDiffLineArray& lines) {
  lines.DeleteAllMembers();
  lines.SetSize(0, kLineGrowBy);
}

void CVnDiffArg::Create(unsigned long size, const char* data) {
  Create(size, reinterpret_cast<const unsigned char*>(data));
}

void CVnDiffArg::Create(unsigned long size, const unsigned char* data) {
  ResetLines(m_lines);
  if (SplitBytes(data, size, static_cast<unsigned char>(m_info.m_nEOLChar & 0xFF), m_lines))
    m_info.m_nFlags |= CVnFileInfo::kEndingTerminator;
}

void CVnDiffArg::Create(unsigned long size, const unsigned short* data) {
  ResetLines(m_lines);
  const unsigned char* bytes = reinterpret_cast<const unsigned char*>(data);
  if (SplitUnits(bytes, size / 2, m_info.m_nEOLChar, m_lines))
    m_info.m_nFlags |= CVnFileInfo::kEndingTerminator;
}

CString CVnDiffArg::GetLine(int index) const {
  const CVnDiffLine* line = m_lines.GetAt(index);  // raises for a bad index
  int units = static_cast<int>(line->GetLength() / static_cast<uint32_t>(m_info.GetEOLSize()));
  switch (m_info.GetFileType()) {
  case CVnFileInfo::Text8:
  case CVnFileInfo::Text8Alt:
  case CVnFileInfo::Records8:
    return CString(vn::os::MultiByteToWide(vn::os::GetACP(), reinterpret_cast<const char*>(line->GetBytes()), units));
  case CVnFileInfo::Text16: {
    CString text;
    if (units > 0) {
      WCHAR* out = text.GetBufferSetLength(units);
      memcpy(out, line->GetBytes(), static_cast<size_t>(units) * 2);
      text.ReleaseBuffer(units);
    }
    return text;
  }
  default: return CString();
  }
}
