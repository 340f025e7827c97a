// VnCmdLine.cpp - the command line parser.
//
// The line is walked once with an index, after leading whitespace is trimmed
// the way CString::TrimLeft does.  Each round looks at the first character of
// what is left: a quote starts a quoted argument, anything else a piece that
// runs to the next blank.  A piece that is empty after trimming (an extra
// blank between arguments) is no argument and does not count, which is why a
// second trailing blank behind a full array still counts as text left over.
#include "options/VnCmdLine.h"

#include <cassert>

namespace {

const WCHAR kBlank = 0x20;
const WCHAR kQuote = 0x22;

// Outcome of reading one argument from position pos.
enum Step { kStored, kSkipped, kMalformed };

}  // namespace

// A quoted argument: pos is at the opening quote.  Stores the text between
// the quotes and moves pos behind the closing quote; what may follow that is
// checked apart (SkipQuoteFollower), after the argument has been stored.
static Step ReadQuoted(const CString& line, int& pos, CString& out) {
  const int close = line.Find(kQuote, pos + 1);
  if (close < 0)
    return kMalformed;
  out = line.Mid(pos + 1, close - pos - 1);
  pos = close + 1;
  return kStored;
}

// Behind a closing quote stands the end of the line or one blank, which is
// removed.  Anything else makes the line malformed: gives false.
static bool SkipQuoteFollower(const CString& line, int& pos) {
  if (pos == line.GetLength())
    return true;
  if (line[pos] != kBlank)
    return false;
  ++pos;
  return true;
}

// A plain piece: runs to the next blank.  Without a blank the whole rest is
// the last argument, untrimmed.  Otherwise the piece is trimmed on the left
// (a tab can stand there) and counts only when something is left.
static Step ReadPlain(const CString& line, int& pos, CString& out) {
  const int blank = line.Find(kBlank, pos);
  if (blank < 0) {
    out = line.Mid(pos);
    pos = line.GetLength();
    return kStored;
  }
  CString piece = line.Mid(pos, blank - pos);
  piece.TrimLeft();
  pos = blank + 1;
  if (piece.IsEmpty())
    return kSkipped;
  out = piece;
  return kStored;
}

int ParseCmdLine(LPCWSTR cmdLine, CString* args, int capacity) {
  if (capacity < 0 || (!args && capacity > 0))
    return -1;
  CString line(cmdLine);
  line.TrimLeft();

  int count = 0;
  int pos = 0;
  while (pos < line.GetLength()) {
    if (count == capacity)
      return capacity + 1;
    assert(count < capacity && "never write beyond the caller's array");
    CString arg;
    const bool quoted = line[pos] == kQuote;
    const Step step = quoted ? ReadQuoted(line, pos, arg) : ReadPlain(line, pos, arg);
    if (step == kMalformed)
      return -1;
    if (step == kStored)
      args[count++] = arg;
    // The argument stays stored even when what follows its quote is wrong.
    if (quoted && !SkipQuoteFollower(line, pos))
      return -1;
  }
  return count;
}
