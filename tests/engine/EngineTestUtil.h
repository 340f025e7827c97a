// EngineTestUtil.h - small helpers shared by the engine's tests: line sets
// from strings that stay alive with them, change lists as compact text
// ("C2,3,2,3 I0,0,4,4") so that expected results read like the examples,
// line equality under flags, and rebuilding a target as a host does.
#ifndef VN_TESTS_ENGINE_ENGINETESTUTIL_H
#define VN_TESTS_ENGINE_ENGINETESTUTIL_H

#include "engine/VnCompareState.h"
#include "engine/VnDelta.h"
#include "engine/VnDiffArg.h"
#include "engine/VnLineIdentity.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace vn {
namespace test {

// A line set together with the bytes it points into.
struct LineSet {
  std::string bytes;
  std::unique_ptr<CVnDiffArg> arg;
};

// Raw bytes as a line set of the given type.
inline LineSet MakeSet(const std::string& bytes, CVnFileInfo::FileType type = CVnFileInfo::Text8,
                       unsigned char eol = 10) {
  LineSet set;
  set.bytes = bytes;
  set.arg.reset(new CVnDiffArg(type, eol));
  set.arg->Create(set.bytes.data(), static_cast<unsigned long>(set.bytes.size()));
  return set;
}

// Text as 16-bit little-endian units.
inline std::string Widen16(const std::string& text) {
  std::string out;
  for (unsigned char c : text) {
    out += static_cast<char>(c);
    out += '\0';
  }
  return out;
}

// One line per letter, each ended by LF: "abc" is the lines a, b, c.
inline LineSet Letters(const std::string& letters, CVnFileInfo::FileType type = CVnFileInfo::Text8) {
  std::string text;
  for (char c : letters) {
    text += c;
    text += '\n';
  }
  return MakeSet(type == CVnFileInfo::Text16 ? Widen16(text) : text, type);
}

inline std::string RecordText(const CVnDiffChange& c) {
  static const char kNames[] = "?IDCF";
  int action = static_cast<int>(c.GetAction());
  std::string s(1, action >= 1 && action <= 4 ? kNames[action] : '?');
  s += std::to_string(c.StartSource()) + "," + std::to_string(c.EndSource()) + "," +
       std::to_string(c.StartTarget()) + "," + std::to_string(c.EndTarget());
  return s;
}

inline std::string ListText(const CPtrArray& changes) {
  std::string s;
  for (INT_PTR i = 0; i < changes.GetSize(); ++i) {
    if (i)
      s += ' ';
    s += RecordText(*static_cast<const CVnDiffChange*>(changes.GetAt(i)));
  }
  return s;
}

// Compares and gives the records as text.
inline std::string CompareText(LineSet& source, LineSet& target, int ws = 0, int ic = 0, int le = 0) {
  CVnDiffChangeList changes;
  source.arg->Compare(ws, ic, le, *target.arg, changes);
  return ListText(changes);
}

inline CVnLineFlags LineFlags(bool ws, bool ic, bool le) {
  CVnLineFlags f;
  f.m_bIgnoreWhitespace = ws;
  f.m_bIgnoreCase = ic;
  f.m_bIgnoreLineEnds = le;
  return f;
}

// Hashes copies of both lines under the flags, as Compare does, and tests
// their equality; the records themselves keep the hashes they had.
inline bool LinesEqual(const CVnDiffLine& a, const CVnDiffLine& b, const CVnLineFlags& f) {
  CVnDiffLine ca = a, cb = b;
  VnHashLine(ca, f);
  VnHashLine(cb, f);
  return VnLinesEqual(ca, cb, f);
}

// The flat bytes of a set; even an empty set gives a buffer to delete.
inline std::string Flatten(CVnDiffArg& arg) {
  unsigned char* buffer = nullptr;
  int size = -1;
  arg.GetBuffer(buffer, size);
  EXPECT_NE(nullptr, buffer);
  std::string bytes(reinterpret_cast<const char*>(buffer), static_cast<size_t>(size));
  delete[] buffer;
  return bytes;
}

// The delta text of the records: the target's added lines.
inline std::string DeltaText(CVnDiffArg& target, CPtrArray& changes) {
  unsigned long size = 99;
  unsigned char* buffer = nullptr;
  target.ExtractChangedLines(changes, size, buffer);
  std::string bytes = buffer ? std::string(reinterpret_cast<const char*>(buffer), size) : std::string();
  EXPECT_EQ(size == 0, buffer == nullptr) << "an empty delta text has no buffer";
  delete[] buffer;
  return bytes;
}

// A target rebuilt from source, records and their delta text, as a host does
// it; it holds the delta text that its lines point into.
struct Rebuilt {
  Rebuilt(CPtrArray& changes, const CVnDiffArg& source, CVnDiffArg& target)
      : deltaBytes(DeltaText(target, changes)), delta(target.GetFileInfo()), result(target.GetFileInfo()) {
    delta.Create(deltaBytes.data(), static_cast<unsigned long>(deltaBytes.size()));
    ok = VnApplyDelta(changes, source, delta, result, why);
  }
  std::string deltaBytes;
  CVnDiffArg delta, result;
  bool ok;
  std::string why;
};

// Switches discarding, shifting and the wide search for the life of the
// object.
class ScopedHooks {
public:
  ScopedHooks(bool discard, bool shift, bool wideSearch = true) : m_saved(VnGetCompareHooks()) {
    CVnCompareHooks hooks;
    hooks.m_bDiscard = discard;
    hooks.m_bShift = shift;
    hooks.m_bWideSearch = wideSearch;
    VnSetCompareHooks(hooks);
  }
  ~ScopedHooks() { VnSetCompareHooks(m_saved); }

private:
  CVnCompareHooks m_saved;
};

}  // namespace test
}  // namespace vn

#endif  // VN_TESTS_ENGINE_ENGINETESTUTIL_H
