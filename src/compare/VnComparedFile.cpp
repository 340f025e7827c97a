// VnComparedFile.cpp - one side of a comparison: a file read into a line set.
//
// Decoded text comes from the intake as UTF-16LE with CR LF line ends and
// is cut as Text16; the line end each line had in the file is read beside
// it.  Raw bytes, and the bytes of a binary file the user let through, are
// cut at LF as Text8.  The side owns whatever buffer its lines point into:
// the intake's, or the raw bytes.
#include "compare/VnComparison.h"

#include "compare/VnOriginalLineEnds.h"
#include "afx/os/OsSeam.h"
#include "intake/VnFile.h"
#include "intake/VnSmartBytePtr.h"

#include <cassert>
#include <cstring>

struct CVnComparedFile::State {
  CVnDiffFile intake;
  CVnSmartBytePtr raw;
  std::vector<VnLineEnd> ends;  // decoded text only: one per line
  unsigned contentPage = 0;     // the code page the bytes chose at the last read, if any
};

CVnComparedFile::CVnComparedFile() : m_pState(new State), m_pLines(new CVnDiffArg(CVnFileInfo::Text8, 10)) {}

CVnComparedFile::~CVnComparedFile() = default;

// A fresh line set over the buffer; the old set goes before its buffer does.
static std::unique_ptr<CVnDiffArg> CutLines(CVnFileInfo::FileType type, const unsigned char* data,
                                            unsigned long size) {
  std::unique_ptr<CVnDiffArg> lines(new CVnDiffArg(type, 10));
  lines->Create(data, size);
  return lines;
}

// The one kind every line end has, Mixed for more, None for none.
static VnLineEnd StyleOf(const std::vector<VnLineEnd>& ends) {
  VnLineEnd style = VnLineEnd::None;
  for (VnLineEnd end : ends) {
    if (end == VnLineEnd::None || end == style)
      continue;
    if (style != VnLineEnd::None)
      return VnLineEnd::Mixed;
    style = end;
  }
  return style;
}

// The name to show for a read of path: the host's, if it set one.
static CString NameFor(const CVnFileFacts& facts, const CString& oldPath, const CString& path) {
  const CString& name = facts.m_strDisplayName;
  return name.IsEmpty() || name == oldPath ? path : name;
}

// Facts shared by every way of reading: name, count, final newline.
static void CountLines(CVnFileFacts& facts, const CVnDiffArg& lines, const CString& name) {
  facts.m_strDisplayName = name;
  facts.m_nLineCount = lines.GetLineCount();
  facts.m_bFinalNewline = facts.m_nLineCount == 0 || lines.GetFileInfo().HasEndingTerminator() != 0;
}

// Empties the side before a read: the lines go before the buffer they
// point into, so that a failed or declined read leaves nothing dangling.
void CVnComparedFile::Reset() {
  m_pLines.reset(new CVnDiffArg(CVnFileInfo::Text8, 10));
  m_pBuffer = nullptr;
  m_nBufferSize = 0;
  m_bWide = false;
  m_pState->raw = nullptr;
  m_pState->ends.clear();
}

CVnDiffFile& CVnComparedFile::GetIntake() { return m_pState->intake; }

// Sets the intake's code page as the user or the bytes choose, and says
// which did; a byte order mark or the default is told after the reading.
static VnEncodingSource ChooseEncoding(CVnDiffFile& intake, unsigned codePage, bool byContent,
                                       CVnContentScan& scan, unsigned& contentPage) {
  // The page the bytes chose last time is no user's choice: a file that
  // changed since is chosen for afresh.
  if (contentPage && intake.IsEncodingSet() && intake.GetCodePage() == contentPage) {
    const CString name = intake.GetFileName();
    intake = CVnDiffFile();
    intake.SetFileName(name);
  }
  contentPage = 0;
  if (codePage)
    intake.SetFileEncoding(codePage);
  if (intake.IsEncodingSet())
    return VnEncodingSource::User;
  if (!byContent)
    return VnEncodingSource::Default;
  scan = VnScanFile(intake.GetFileName());
  contentPage = VnCodePageByContent(scan, vn::os::GetACP());
  if (contentPage)
    intake.SetFileEncoding(contentPage);
  return VnEncodingSource::Content;
}

bool CVnComparedFile::Read(const CString& path, unsigned codePage, bool byContent) {
  CVnDiffFile& intake = m_pState->intake;
  Reset();
  intake.SetFileName(path);
  CVnContentScan scan;
  scan.m_bAscii = false;
  VnEncodingSource source = ChooseEncoding(intake, codePage, byContent, scan, m_pState->contentPage);
  unsigned char* data = nullptr;
  unsigned long size = 0;
  if (!intake.GetFileContents(data, size))
    return false;
  const CString name = NameFor(m_facts, m_strPath, path);
  m_pLines = CutLines(intake.IsBinary() ? CVnFileInfo::Text8 : CVnFileInfo::Text16, data, size);
  m_strPath = path;
  m_pBuffer = data;
  m_nBufferSize = size;
  m_bWide = !intake.IsBinary();
  m_facts = CVnFileFacts();
  CountLines(m_facts, *m_pLines, name);
  m_facts.m_nFileType = intake.GetFileType();
  m_facts.m_nCodePage = intake.GetCodePage();
  m_facts.m_strEncoding = intake.GetEncodingDescription();
  m_facts.m_bHasBOM = intake.HasByteOrderMark();
  m_facts.m_nEncodingSource = m_facts.m_bHasBOM ? VnEncodingSource::ByteOrderMark : source;
  m_facts.m_bAscii = scan.m_bAscii && !scan.m_bByteOrderMark && !scan.m_bNul;
  if (m_bWide)
    m_pState->ends = VnOriginalLineEnds(intake, m_facts.m_nLineCount, m_facts.m_bFinalNewline);
  m_facts.m_nLineEnds = m_bWide ? StyleOf(m_pState->ends) : GetLineEnd(0);
  return true;
}

void CVnComparedFile::ReadRaw(const CString& path) {
  CVnSmartBytePtr bytes;
  CVnFile file(path, CFile::modeRead);
  const unsigned long size = file.ReadAll(bytes);
  file.Close();
  TakeRaw(bytes, size, path, NameFor(m_facts, m_strPath, path));
}

void CVnComparedFile::ReadBytes(const std::string& bytes, const CString& name) {
  CVnSmartBytePtr copy(new unsigned char[bytes.size() + 1]);
  memcpy(copy.Get(), bytes.data(), bytes.size());
  TakeRaw(copy, static_cast<unsigned long>(bytes.size()), CString(), name);
}

// Cuts raw bytes into lines; the side owns them from here on.
void CVnComparedFile::TakeRaw(CVnSmartBytePtr& bytes, unsigned long size, const CString& path, const CString& name) {
  Reset();
  m_pLines = CutLines(CVnFileInfo::Text8, bytes, size);
  m_pState->raw = bytes.Detach();
  m_strPath = path;
  m_pBuffer = m_pState->raw;
  m_nBufferSize = size;
  m_bWide = false;
  m_facts = CVnFileFacts();
  CountLines(m_facts, *m_pLines, name);
  m_facts.m_nLineEnds = GetLineEnd(0);
}

VnLineEnd CVnComparedFile::GetLineEnd(long line) const {
  if (line < 0 || line >= m_facts.m_nLineCount)
    return VnLineEnd::None;
  if (m_bWide)
    return m_pState->ends[static_cast<size_t>(line)];
  const bool last = line == m_facts.m_nLineCount - 1;
  return last && !m_facts.m_bFinalNewline ? VnLineEnd::None : VnLineEnd::LF;
}

const void* CVnComparedFile::GetLineText(long line, size_t& units) const {
  assert(line >= 0 && line < m_facts.m_nLineCount && "a line of this side");
  const CVnDiffLine* record = m_pLines->GetLines()[static_cast<INT_PTR>(line)];
  units = record->GetUnitCount();
  // Every line of the intake's text ends CR LF; the CR is not the line's own.
  const WCHAR* text = reinterpret_cast<const WCHAR*>(record->GetBytes());
  if (m_bWide && GetLineEnd(line) != VnLineEnd::None && units > 0 && text[units - 1] == 13)
    --units;
  return record->GetBytes();
}

void CVnComparedFile::AppendLineUtf8(long line, std::string& out) const {
  size_t units = 0;
  const void* text = GetLineText(line, units);
  if (m_bWide)
    VnAppendUtf8(static_cast<const WCHAR*>(text), units, out);
  else
    out.append(static_cast<const char*>(text), units);
}

void CVnComparedFile::AppendLineAsRead(long line, std::string& out) const {
  if (line > 0 && GetLineEnd(line - 1) == VnLineEnd::LFCR)
    out += '\r';
  AppendLineUtf8(line, out);
  const VnLineEnd end = GetLineEnd(line);
  if (end != VnLineEnd::None)
    out += end == VnLineEnd::CRLF ? "\r\n" : "\n";
}
