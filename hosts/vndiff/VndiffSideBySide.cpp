// VndiffSideBySide.cpp - the two texts level with each other, as the panes show them.
//
// The comparison's aligned rows, one a line.  Each row is
// "NNNNNN text | NNNNNN text" with a middle mark: ' ' same, '|' changed,
// '<' deleted, '>' inserted.  Tabs are expanded to stops of 8.
#include "VndiffHost.h"

namespace vndiff {

namespace {

const char* kReset = "\x1b[0m";
const char* kChanged = "\x1b[33m";
const char* kDeleted = "\x1b[31m";
const char* kInserted = "\x1b[32m";

struct Layout {
  size_t textWidth;  // columns for the text of one side
  bool color;
};

bool IsContinuation(unsigned char c) { return (c & 0xC0) == 0x80; }

// The line fitted to `width` columns: tabs expanded, control bytes shown as
// '?', cut or padded with spaces.
std::string Fit(const std::string& line, size_t width) {
  std::string out;
  size_t col = 0;
  for (size_t i = 0; i < line.size() && col < width; ++i) {
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
  out.append(width > col ? width - col : 0, ' ');
  return out;
}

void AppendCell(const CVnComparedFile& file, long line, const Layout& layout, const char* color, std::string& out) {
  std::string body;
  if (line >= 0) {
    char number[32];
    snprintf(number, sizeof number, "%6ld ", line + 1);
    std::string content;
    file.AppendLineUtf8(line, content);
    body = number + Fit(content, layout.textWidth);
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
void AppendRow(const CVnComparison& comparison, const CVnAlignedRow& row, const Layout& layout, std::string& out) {
  const char mark = MarkOf(row.m_nKind);
  const char* color = mark == '|' ? kChanged : (mark == '<' ? kDeleted : (mark == '>' ? kInserted : nullptr));
  AppendCell(comparison.GetFile(CVnComparison::Source), row.m_nSource, layout, color, out);
  out += ' ';
  out += mark;
  out += ' ';
  AppendCell(comparison.GetFile(CVnComparison::Target), row.m_nTarget, layout, color, out);
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
  std::string buf;
  for (const CVnAlignedRow& row : comparison.GetRows()) {
    AppendRow(comparison, row, layout, buf);
    if (buf.size() > (1 << 16)) {
      fwrite(buf.data(), 1, buf.size(), out);
      buf.clear();
    }
  }
  fwrite(buf.data(), 1, buf.size(), out);
}

}  // namespace vndiff
