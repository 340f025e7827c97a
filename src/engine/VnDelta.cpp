// VnDelta.cpp - rebuilding a target from its source and a stored delta.
//
// 1. Check: walk the records with the next line of each side, as the
//    rebuild will, and refuse the first record that does not fit; count
//    the delta lines they use.  The walk also tells where the target's last
//    line comes from, which decides whether it ends in a terminator.
// 2. Rebuild: replay each record (ProcessChange), copy the source's tail,
//    and set the ending flag.
#include "engine/VnDelta.h"

#include <cstdio>

namespace {

// Where the rebuilt text's last line comes from.
enum class LastLine { Delta, SourceLast, SourceInner };

// The walk of the check: 1-based next lines of source and target.
struct Walk {
  long src = 1, tgt = 1, used = 0;
  LastLine last = LastLine::SourceInner;
};

std::string RecordText(INT_PTR k, const CVnDiffChange& c, const char* what) {
  char text[160];
  snprintf(text, sizeof text, "record %ld (%d %ld %ld %ld %ld) %s", static_cast<long>(k) + 1,
           static_cast<int>(c.GetAction()), c.StartSource(), c.EndSource(), c.StartTarget(), c.EndTarget(), what);
  return text;
}

// One record against the walk; null when it fits, else what is wrong.
// `copied` is how many unchanged lines stand before it.
const char* Step(const CVnDiffChange& c, long n0, Walk& w, long& copied) {
  const long ss = c.StartSource(), es = c.EndSource(), st = c.StartTarget(), et = c.EndTarget();
  switch (c.GetAction()) {
  case CVnDiffChange::Insert:
    if (ss != 0 || es != 0 || st < w.tgt || et < st)
      return "is not an ascending insertion";
    copied = st - w.tgt;
    if (w.src + copied > n0 + 1)
      return "lies beyond the source";
    w.src += copied;
    w.tgt = et + 1;
    w.used += et - st + 1;
    return nullptr;
  case CVnDiffChange::Delete:
    if (st != 0 || et != 0 || ss < w.src || es < ss || es > n0)
      return "is not an ascending deletion inside the source";
    copied = ss - w.src;
    w.tgt += copied;
    w.src = es + 1;
    return nullptr;
  case CVnDiffChange::Change:
    if (ss < w.src || es < ss || es > n0 || st < w.tgt || et < st || es - ss != et - st || ss - w.src != st - w.tgt)
      return "is not an ascending change inside the source";
    copied = ss - w.src;
    w.src = es + 1;
    w.tgt = et + 1;
    w.used += et - st + 1;
    return nullptr;
  default:
    return "has an unknown action";
  }
}

bool Check(const CPtrArray& records, long n0, long available, LastLine& last, std::string& why) {
  Walk w;
  for (INT_PTR k = 0; k < records.GetSize(); ++k) {
    const CVnDiffChange& c = *static_cast<const CVnDiffChange*>(records.GetAt(k));
    long copied = 0;
    if (const char* what = Step(c, n0, w, copied)) {
      why = RecordText(k, c, what);
      return false;
    }
    if (copied > 0)
      w.last = LastLine::SourceInner;  // a copied line before a record is never the source's last
    if (c.GetAction() != CVnDiffChange::Delete)
      w.last = LastLine::Delta;
  }
  if (w.used != available) {
    why = "the delta text has " + std::to_string(available) + " lines, the records need " + std::to_string(w.used);
    return false;
  }
  last = w.src <= n0 ? LastLine::SourceLast : w.last;  // the tail of the source is copied
  return true;
}

// The ending-terminator flag of the rebuilt set: the delta text's or the
// source's when its last line is their last line, else set (a line inside a
// file always has its line end).
void TakeEnding(CVnDiffArg& result, LastLine last, const CVnDiffArg& source, const CVnDiffArg& delta) {
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

bool IsFullFile(const CPtrArray& records) {
  return records.GetSize() == 1 && static_cast<const CVnDiffChange*>(records.GetAt(0))->IsFullFileDelta();
}

}  // namespace

bool VnApplyDelta(const CPtrArray& records, const CVnDiffArg& source, const CVnDiffArg& delta, CVnDiffArg& result,
                  std::string& why) {
  LastLine last = LastLine::Delta;
  if (IsFullFile(records)) {
    result.CopyLines(delta, 0, -1);
  } else {
    if (!Check(records, source.GetLineCount(), delta.GetLineCount(), last, why))
      return false;
    int sourcePos = 1, targetPos = 1, deltaPos = 0;
    for (INT_PTR k = 0; k < records.GetSize(); ++k)
      result.ProcessChange(*static_cast<const CVnDiffChange*>(records.GetAt(k)), source, delta, sourcePos,
                           targetPos, deltaPos);
    result.CopyLines(source, sourcePos - 1, -1);
  }
  TakeEnding(result, last, source, delta);
  return true;
}
