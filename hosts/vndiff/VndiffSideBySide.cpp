// VndiffSideBySide.cpp - the two texts level with each other, as the panes show them.
//
// The rows the panes show (CVnChangedWords: like lines of a replaced block
// level), one a line.  Each row is "NNNNNN text | NNNNNN text" with a
// middle mark: ' ' same, '|' changed, '<' deleted, '>' inserted.  Tabs are
// expanded to stops of 8.  In colour the changed words of a replaced line
// are shown in reverse video.
#include "VndiffHost.h"

#include "compare/VnChangedWords.h"

#include <algorithm>

namespace vndiff {

namespace {

const char* kReset = "\x1b[0m";
const char* kChanged = "\x1b[33m";
const char* kDeleted = "\x1b[31m";
const char* kInserted = "\x1b[32m";
const char* kMarkOn = "\x1b[7m";
const char* kMarkOff = "\x1b[27m";

// A line as UTF-8, with its marked ranges as byte offsets into it.
struct MarkedText {
  std::string text;
  std::vector<CVnUnitRange> marks;
};

MarkedText LineWithMarks(const CVnComparedFile& file, long line, CVnMarks marks) {
  MarkedText m;
  size_t units = 0;
  const void* text = file.GetLineText(line, units);
  size_t at = 0;
  auto append = [&](size_t end) {
    if (file.IsWide())
      VnAppendUtf8(static_cast<const WCHAR*>(text) + at, end - at, m.text);
    else
      m.text.append(static_cast<const char*>(text) + at, end - at);
    at = end;
  };
  for (const CVnUnitRange& r : marks) {
    append(std::min(r.m_nBegin, units));
    const size_t begin = m.text.size();
    append(std::min(r.m_nEnd, units));
    m.marks.push_back({begin, m.text.size()});
  }
  append(units);
  return m;
}

struct Layout {
  size_t textWidth;  // columns for the text of one side
  bool color;
};

bool IsContinuation(unsigned char c) { return (c & 0xC0) == 0x80; }

// The line fitted to `width` columns: tabs expanded, control bytes shown as
// '?', cut or padded with spaces; marked bytes between the mark codes.
std::string Fit(const MarkedText& m, size_t width) {
  const std::string& line = m.text;
  std::string out;
  size_t col = 0, next = 0;
  bool marking = false;
  for (size_t i = 0; i < line.size() && col < width; ++i) {
    if (marking && i == m.marks[next - 1].m_nEnd) {
      out += kMarkOff;
      marking = false;
    }
    if (!marking && next < m.marks.size() && i == m.marks[next].m_nBegin && m.marks[next].m_nEnd > i) {
      out += kMarkOn;
      marking = true;
      ++next;
    }
    const unsigned char c = static_cast<unsigned char>(line[i]);
    if (c == '\t') {
      do
        out += ' ';
      while (++col % 8 && col < width);
    } else if (c < 0x20 || c == 0x7F) {
      if (c == '\r' && i + 1 == line.size())
        break;
      out += '?';
      ++col;
    } else {
      out += static_cast<char>(c);
      while (i + 1 < line.size() && IsContinuation(static_cast<unsigned char>(line[i + 1])))
        out += line[++i];
      ++col;
    }
  }
  if (marking)
    out += kMarkOff;
  out.append(width > col ? width - col : 0, ' ');
  return out;
}

void AppendCell(const CVnComparedFile& file, long line, CVnMarks marks, const Layout& layout, const char* color,
                std::string& out) {
  std::string body;
  if (line >= 0) {
    char number[32];
    snprintf(number, sizeof number, "%6ld ", line + 1);
    body = number + Fit(LineWithMarks(file, line, layout.color ? marks : CVnMarks()), layout.textWidth);
  } else {
    body.assign(7 + layout.textWidth, ' ');
  }
  if (layout.color && color)
    out += color + body + kReset;
  else
    out += body;
}

char MarkOf(VnRowKind kind) {
  switch (kind) {
  case VnRowKind::Changed: return '|';
  case VnRowKind::Deleted: return '<';
  case VnRowKind::Inserted: return '>';
  default: return ' ';
  }
}

// One row: either side may be a gap.
void AppendRow(const CVnComparison& comparison, const CVnChangedWords& words, const CVnAlignedRow& row,
               const Layout& layout, std::string& out) {
  const char mark = MarkOf(row.m_nKind);
  const char* color = mark == '|' ? kChanged : (mark == '<' ? kDeleted : (mark == '>' ? kInserted : nullptr));
  const CVnComparison::Side source = CVnComparison::Source, target = CVnComparison::Target;
  AppendCell(comparison.GetFile(source), row.m_nSource, words.GetMarks(source, row.m_nSource), layout, color, out);
  out += ' ';
  out += mark;
  out += ' ';
  AppendCell(comparison.GetFile(target), row.m_nTarget, words.GetMarks(target, row.m_nTarget), layout, color, out);
  while (!out.empty() && out.back() == ' ')
    out.pop_back();
  out += '\n';
}

}  // namespace

void WriteSideBySide(const CVnComparison& comparison, int width, bool color, std::FILE* out) {
  Layout layout;
  const size_t column = static_cast<size_t>(width - 3) / 2;
  layout.textWidth = column > 7 ? column - 7 : 1;
  layout.color = color;
  const CVnChangedWords words(comparison);
  std::string buf;
  for (const CVnAlignedRow& row : words.GetRows()) {
    AppendRow(comparison, words, row, layout, buf);
    if (buf.size() > (1 << 16)) {
      fwrite(buf.data(), 1, buf.size(), out);
      buf.clear();
    }
  }
  fwrite(buf.data(), 1, buf.size(), out);
}

}  // namespace vndiff
