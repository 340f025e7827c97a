// VnComparison.h - the comparison of two files, as every host runs it.
//
// A host names two files; the comparison reads each through the intake
// (CVnDiffFile), cuts each buffer into a line set, runs Compare and places
// the records into aligned rows: row n shows one line of the source or a
// gap, and one line of the target or a gap, so that equal lines stand level.
// Side-by-side output prints the rows; a window host fills its panes from
// the same buffers and records.
//
// Reading:
//   - decoded text (the default): the intake's buffer, UTF-16LE with CR LF
//     line ends, cut as Text16.  The line end each line had in the file is
//     kept beside it (GetLineEnd), so that output can put it back.
//   - raw (m_bRaw): the bytes as they stand, cut at LF as Text8.
//   - a binary file the user let through: a comparison needs one unit width
//     on both sides, so Compare reads the other side again as raw bytes.
// Failures are the intake's: a file that can't be read raises CException*
// from Open (from Compare when a text side must be read again as bytes);
// the binary question goes to the replaceable prompt (VnSetPromptHandler).
//
// Use:
//   CVnCompareOptions options;
//   options.m_bIgnoreCase = true;
//   CVnComparison comparison(options);
//   if (!comparison.Open(CVnComparison::Source, oldPath) ||
//       !comparison.Open(CVnComparison::Target, newPath))
//     return;  // the user declined a binary file
//   comparison.Compare();
//   for (const CVnAlignedRow& row : comparison.GetRows())
//     Show(row.m_nSource, row.m_nTarget, row.m_nKind);  // -1: a gap
// A window host gives each pane GetFile(side).GetBuffer() and GetBufferSize()
// (SetDefaultText), and walks GetChanges() or GetRows() to fill the gaps.
//
// Line numbers in rows, spans and GetLineEnd are 0-based; the records
// (GetChanges) are the engine's, 1-based and inclusive.
#ifndef VN_COMPARE_VNCOMPARISON_H
#define VN_COMPARE_VNCOMPARISON_H

#include "afx/afx.h"
#include "compare/VnEncodingByContent.h"
#include "engine/VnDiffArg.h"
#include "engine/VnDiffChange.h"
#include "intake/VnDiffFile.h"
#include "intake/VnSmartBytePtr.h"

#include <memory>
#include <string>
#include <vector>

// How a line ended in the file's own bytes.  As a file's style, Mixed means
// more than one kind and None a file without any line end.
enum class VnLineEnd : unsigned char { None, LF, CRLF, CR, LFCR, Mixed };

// What one side is, as a host reports it.
struct CVnFileFacts {
  CString m_strDisplayName;  // the path, unless the host set another
  int m_nFileType = CVnDiffFile::TypeText;  // CVnDiffFile::FileType; raw bytes count as TypeText
  unsigned m_nCodePage = 0;  // 0 for raw bytes
  CString m_strEncoding;     // the intake's description; empty for raw bytes
  VnEncodingSource m_nEncodingSource = VnEncodingSource::Default;
  bool m_bAscii = false;     // plain ASCII without a byte order mark: reads alike in any 8-bit page
  bool m_bHasBOM = false;
  VnLineEnd m_nLineEnds = VnLineEnd::None;  // the one kind every line end had, or Mixed
  bool m_bFinalNewline = true;  // the last line has a line end (also true for an empty file)
  long m_nLineCount = 0;
};

// One side of a comparison: the file, its buffer, its line set.
class VN_API CVnComparedFile {
public:
  CVnComparedFile();
  ~CVnComparedFile();
  CVnComparedFile(const CVnComparedFile&) = delete;
  CVnComparedFile& operator=(const CVnComparedFile&) = delete;

  // Reads path through the intake, in codePage (0: detect; with byContent,
  // choose by the bytes first, VnEncodingByContent.h).  False when the user
  // declined a binary file; CException* when it can't be read.
  bool Read(const CString& path, unsigned codePage, bool byContent = false);
  // Reads path's bytes as they stand, cut at LF.
  void ReadRaw(const CString& path);
  // Takes bytes held in memory as ReadRaw takes a file's; the side has no
  // path then, and `name` is its display name.
  void ReadBytes(const std::string& bytes, const CString& name);
  void SetDisplayName(const CString& name) { m_facts.m_strDisplayName = name; }

  const CVnFileFacts& GetFacts() const { return m_facts; }
  // The intake that read the file, for a host that lets the user choose
  // its encoding (CVnReconcileFrame::OnEncoding).
  CVnDiffFile& GetIntake();
  const CString& GetPath() const { return m_strPath; }
  // True for decoded text (Text16 lines); false for raw or binary bytes.
  bool IsWide() const { return m_bWide; }
  // The buffer the lines point into: for decoded text and binary files what
  // CVnDiffFile::GetFileContents gave (a pane's SetDefaultText takes it).
  const unsigned char* GetBuffer() const { return m_pBuffer; }
  unsigned long GetBufferSize() const { return m_nBufferSize; }
  const CVnDiffArg& GetLines() const { return *m_pLines; }
  CVnDiffArg& GetLines() { return *m_pLines; }
  long GetLineCount() const { return m_facts.m_nLineCount; }
  // How line (0-based) ended in the file: None for an unterminated last
  // line, LF for every other line of raw bytes.
  VnLineEnd GetLineEnd(long line) const;
  // Line's own text where it lies in the buffer: 16-bit units for decoded
  // text (without the CR the intake gave it), bytes otherwise; `units`
  // counts them.
  const void* GetLineText(long line, size_t& units) const;
  // Appends line's text as UTF-8 (raw bytes as they are), without the line
  // end and without the CR the intake gave it.
  void AppendLineUtf8(long line, std::string& out) const;
  // Appends line as a reader that splits the file's bytes at LF sees it: a
  // CR in front when the line before ended LF CR (the intake reads LF CR as
  // one line end), the text, then "\r\n" for a CR LF end, "\n" for any
  // other (a lone CR ends no line for such a reader), nothing for an
  // unterminated last line.
  void AppendLineAsRead(long line, std::string& out) const;

private:
  void Reset();
  void TakeRaw(CVnSmartBytePtr& bytes, unsigned long size, const CString& path, const CString& name);

  struct State;
  std::unique_ptr<State> m_pState;  // intake, owned bytes, line ends
  CString m_strPath;
  CVnFileFacts m_facts;
  std::unique_ptr<CVnDiffArg> m_pLines;
  const unsigned char* m_pBuffer = nullptr;
  unsigned long m_nBufferSize = 0;
  bool m_bWide = false;
};

struct CVnCompareOptions {
  bool m_bIgnoreCase = false;
  bool m_bIgnoreWhitespace = false;
  bool m_bIgnoreLineEnds = false;
  // Files that differ only in encoding or byte order mark count as the same
  // (VnFormDifference.h); the comparison of the text is not touched.
  bool m_bIgnoreEncoding = false;
  unsigned m_nSourceCodePage = 0;  // 0: detect
  unsigned m_nTargetCodePage = 0;
  // A side without a byte order mark or a code page of the user's is read
  // in the encoding its bytes show (VnEncodingByContent.h), not always in
  // the ANSI code page.
  bool m_bEncodingByContent = false;
  // Both sides as bytes, cut at LF, without the intake.
  bool m_bRaw = false;
  // Lines Compare pairs as equal that end differently in the files' bytes
  // (LF against CR LF, a final newline against none) become Change records,
  // so that the records rebuild the target byte for byte.  Off, the records
  // are Compare's own.  m_bIgnoreLineEnds overrides it.
  bool m_bExactLineEnds = false;
};

enum class VnRowKind : unsigned char { Same, Inserted, Deleted, Changed };

// One row of the side-by-side view: a 0-based line of each side, or -1 for
// a gap on that side.
struct CVnAlignedRow {
  long m_nSource;
  long m_nTarget;
  VnRowKind m_nKind;
};

// One changed region, 0-based and half-open on both sides.  An empty side
// still has its place: the line before which the other side's lines stand.
struct CVnChangeSpan {
  long m_nSourceBegin, m_nSourceCount, m_nTargetBegin, m_nTargetCount;
};

// The records of Compare as spans.  An Insert or Delete names lines on one
// side only; its place on the other comes from the running difference
// between the two sides.  With join, records that touch form one span.
VN_API std::vector<CVnChangeSpan> VnChangeSpans(const CVnDiffChangeList& changes, bool join);

// Why path can't be one side of a comparison before any reading is tried:
// "is a directory", or "file of 4 GiB or more" (the intake's limit); empty
// when nothing stands in the way.  A file that can't be opened at all is
// left to the reading, which says why.
VN_API CString VnWhyNotComparable(const CString& path);
// Line (0-based) of a line set as a pane shows it: without the carriage
// return the intake's text keeps at each line end.
VN_API CString VnLineText(const CVnDiffArg& lines, long line);

// Whether two files hold the same bytes: how binary files are compared
// when the user doesn't have them compared as lines.  CFileException when
// either can't be read.
VN_API bool VnSameBytes(const CString& a, const CString& b);
// The reason a file or a stream of 4 GiB or more is refused.
VN_API CString VnTooLargeText();

class VN_API CVnComparison {
public:
  enum Side { Source = 0, Target = 1 };

  explicit CVnComparison(const CVnCompareOptions& options = CVnCompareOptions());
  ~CVnComparison();
  CVnComparison(const CVnComparison&) = delete;
  CVnComparison& operator=(const CVnComparison&) = delete;

  // Reads one side as the options say.  False when the user declined a
  // binary file; CException* when the file can't be read.
  bool Open(Side side, const CString& path);
  // Compares the two opened sides and fills the records.  Runs once.
  void Compare();

  const CVnCompareOptions& GetOptions() const { return m_options; }
  const CVnComparedFile& GetFile(Side side) const { return m_files[side]; }
  CVnComparedFile& GetFile(Side side) { return m_files[side]; }
  const CVnDiffChangeList& GetChanges() const { return m_changes; }
  // No records: the texts are the same, as the options compare them.
  bool IsSame() const { return m_changes.GetSize() == 0; }
  // Records, or a difference in form the options don't ignore.
  bool Differs() const;

  // Every line of both sides in rows, in order.
  std::vector<CVnAlignedRow> GetRows() const;
  // The records as spans; with join, records that touch form one span.
  std::vector<CVnChangeSpan> GetSpans(bool join) const;

private:
  void MatchWidths();

  CVnCompareOptions m_options;
  CVnComparedFile m_files[2];
  CVnDiffChangeList m_changes;
  bool m_bCompared = false;
};

#endif  // VN_COMPARE_VNCOMPARISON_H
