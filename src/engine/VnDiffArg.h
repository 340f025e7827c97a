// VnDiffArg.h - a line set: a caller's buffer cut into lines, and the
// operations that compare two line sets and replay their differences.
//
// A line ends at one terminator unit and nothing else; a CR in front of an LF
// is line content.  The set owns its line records, never the text: the buffer
// given to Create must outlive the set and every copy of its lines.
#ifndef VN_ENGINE_VNDIFFARG_H
#define VN_ENGINE_VNDIFFARG_H

#include "afx/afx.h"
#include "engine/TypedOwnerPtrArray.h"
#include "engine/VnDiffChange.h"
#include "engine/VnDiffLine.h"
#include "engine/VnFileInfo.h"

typedef CTypedOwnerPtrArray<CVnDiffLine> CVnDiffLineArray;

class VN_API CVnDiffArg {
public:
  CVnDiffArg() = default;
  // Types 1, 2 and 4 end lines at LF and ignore eol; type 8 ends them at eol;
  // any other type leaves the terminator 0.
  CVnDiffArg(CVnFileInfo::FileType type, unsigned char eol);
  explicit CVnDiffArg(const CVnFileInfo& info) : m_info(info) {}
  ~CVnDiffArg() = default;  // the line array deletes its records
  CVnDiffArg(const CVnDiffArg&) = delete;
  CVnDiffArg& operator=(const CVnDiffArg&) = delete;

  // Cuts size bytes at data into lines by the file type.  A size of 0, or a
  // type the set doesn't know, leaves the set exactly as it was.  Sets the
  // ending-terminator flag when the last unit is a terminator; never clears it.
  void Create(const void* data, unsigned long size);

  const CVnFileInfo& GetFileInfo() const { return m_info; }
  void SetFileInfo(const CVnFileInfo& info) { m_info = info; }
  int GetLineCount() const { return static_cast<int>(m_lines.GetSize()); }
  // Line index (0-based) as text without its terminator; a CR before the
  // terminator is included.  8-bit types widen through the ANSI code page.
  // An index outside the set raises the invalid-argument failure.
  CString GetLine(int index) const;
  // The records themselves, for the panes and for inspection.
  const CVnDiffLineArray& GetLines() const { return m_lines; }

  // Appends to changes (never emptying it) the records that turn this line
  // set into target, under the three equality flags.  Writes the hash field
  // of the compared lines of both sets.
  void Compare(int ignoreWhitespace, int ignoreCase, int ignoreLineEnds, CVnDiffArg& target,
               CPtrArray& changes);

  // Delta operations: building the delta text from the target, replaying one
  // record onto the set being rebuilt, copying lines, flattening to bytes.
  void ExtractChangedLines(CPtrArray& changes, unsigned long& size, unsigned char*& buffer);
  void ProcessChange(const CVnDiffChange& change, const CVnDiffArg& source, const CVnDiffArg& delta,
                     int& sourcePos, int& targetPos, int& deltaPos);
  void CopyLines(const CVnDiffArg& from, int first, int end);
  void GetBuffer(unsigned char*& buffer, int& size);
  void SaveToFile(const unsigned short* path);
  void SaveToFile(LPCWSTR path);

protected:
  void Create(unsigned long size, const char* data);
  void Create(unsigned long size, const unsigned short* data);
  void Create(unsigned long size, const unsigned char* data);

private:
  // Bytes the set flattens to, and the writing of each line in that form.
  size_t FlatSize(int first, int end) const;
  size_t LineOutSize(int index) const;
  unsigned char* WriteLine(int index, unsigned char* out) const;
  void AppendCopy(const CVnDiffArg& from, int index);

  CVnFileInfo m_info;
  CVnDiffLineArray m_lines;
};

#endif  // VN_ENGINE_VNDIFFARG_H
