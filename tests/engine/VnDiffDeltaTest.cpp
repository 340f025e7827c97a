// VnDiffDeltaTest.cpp - the delta operations: saved records, delta text,
// rebuilding a target from source plus delta, flattening and saving.
#include "EngineTestUtil.h"
#include "TestSupport.h"

#include "engine/VnDelta.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

using vn::test::DeltaText;
using vn::test::Flatten;
using vn::test::LineSet;
using vn::test::MakeSet;
using vn::test::RaisesInvalidArg;

namespace {

// Rebuilds the target from source, records and delta text, as a host does.
std::string Rebuild(LineSet& source, LineSet& target, CPtrArray& changes) {
  vn::test::Rebuilt rebuilt(changes, *source.arg, *target.arg);
  EXPECT_TRUE(rebuilt.ok) << rebuilt.why;
  return Flatten(rebuilt.result);
}

std::string ReadAll(const CString& path) { return vn::test::ReadBytes(vn::test::FsPath(path)); }

}  // namespace

TEST(VnDiffDeltaTest, SavedRecordIsTwentyLittleEndianBytes) {
  vn::test::ScratchDir dir;
  const CString wide = dir.Path() + _T("records.bin");
  CVnDiffChange records[3] = {CVnDiffChange(CVnDiffChange::Change, 2, 3, 0x01020304, 5),
                              CVnDiffChange(CVnDiffChange::Delete, 7, 9, 0, 0), CVnDiffChange()};
  records[2].MarkFullFileDelta();
  {
    CFile file(wide, CFile::modeCreate | CFile::modeWrite);
    for (int i = 0; i < 3; ++i) {
      records[i].Save(file, 0, 0);
      EXPECT_EQ(static_cast<ULONGLONG>(20 * (i + 1)), file.GetLength());
    }
  }
  std::string bytes = ReadAll(wide);
  ASSERT_EQ(60u, bytes.size());
  EXPECT_EQ(std::string("\x03\0\0\0\x02\0\0\0\x03\0\0\0\x04\x03\x02\x01\x05\0\0\0", 20), bytes.substr(0, 20));
  EXPECT_EQ(std::string("\x04\0\0\0", 4) + std::string(16, '\xFF'), bytes.substr(40));
  {
    CFile file(wide, CFile::modeRead);
    for (int i = 0; i < 3; ++i) {
      CVnDiffChange loaded;
      loaded.Load(file, 0);
      EXPECT_EQ(vn::test::RecordText(records[i]), vn::test::RecordText(loaded));
    }
  }
}

// The delta text holds the target's inserted and changed lines, ended by
// the set's own terminator; with the records it rebuilds the target, and an
// empty record list gives back the source whole.
TEST(VnDiffDeltaTest, DeltaTextHoldsTheAddedLinesAndRebuildsTheTarget) {
  struct {
    const char* source;
    const char* target;
    const char* delta;
    CVnFileInfo::FileType type;
  } kCases[] = {
      {"a\nb\nc\n", "a\nx\nc\n", "x\n", CVnFileInfo::Text8},
      {"a\nb\n", "a\nb\nc", "c", CVnFileInfo::Text8},  // no terminator behind the target's last line
      {"a\nb\nc\n", "a\nc\n", "", CVnFileInfo::Text8},  // deletions only
      {"", "p\nq\n", "p\nq\n", CVnFileInfo::Text8},
      {"a\nb\nc\nd\n", "a\nx\ny\nz\nd\n", "x\ny\nz\n", CVnFileInfo::Text8},
      {"a\nb\nc", "a\nb\nc", "", CVnFileInfo::Text8},
      {"a;b;c;", "a;x;c;", "x;", CVnFileInfo::Records8},
      {"a\nb\nc\n", "a\nx\nc\n", "x\n", CVnFileInfo::Text16},
  };
  for (const auto& c : kCases) {
    const bool wide = c.type == CVnFileInfo::Text16;
    auto source = MakeSet(wide ? vn::test::Widen16(c.source) : c.source, c.type, ';');
    auto target = MakeSet(wide ? vn::test::Widen16(c.target) : c.target, c.type, ';');
    CVnDiffChangeList changes;
    source.arg->Compare(0, 0, 0, *target.arg, changes);
    EXPECT_EQ(wide ? vn::test::Widen16(c.delta) : c.delta, DeltaText(*target.arg, changes)) << c.target;
    EXPECT_EQ(target.bytes, Rebuild(source, target, changes)) << c.target;
  }
}

// Copies are of the records: they point at the same bytes and keep the
// hash a comparison left in them.
TEST(VnDiffDeltaTest, CopyLinesTakesAHalfOpenRangeOfRecords) {
  auto from = MakeSet("a\nb\nc\nd\n");
  auto other = MakeSet("a\nx\nc\nd\n");
  vn::test::CompareText(from, other);
  struct {
    int first, end;
    const char* flat;
  } kCases[] = {{2, 2, ""}, {3, 1, ""}, {1, 3, "b\nc\n"}, {0, -1, "a\nb\nc\nd\n"}, {2, -1, "c\nd\n"}};
  for (const auto& c : kCases) {
    CVnDiffArg to(from.arg->GetFileInfo());
    to.CopyLines(*from.arg, c.first, c.end);
    EXPECT_EQ(c.flat, Flatten(to)) << c.first << ".." << c.end;
    for (int k = 0; k < to.GetLineCount(); ++k) {
      const CVnDiffLine *copy = to.GetLines().GetAt(k), *original = from.arg->GetLines().GetAt(c.first + k);
      EXPECT_EQ(original->GetBytes(), copy->GetBytes());
      EXPECT_EQ(original->GetHash(), copy->GetHash());
    }
  }
  EXPECT_NE(0u, from.arg->GetLines().GetAt(1)->GetHash());
}

TEST(VnDiffDeltaTest, BadIndexesRaiseInvalidArgument) {
  auto source = MakeSet("a\nb\n");
  auto delta = MakeSet("x\n");
  CVnDiffArg to(source.arg->GetFileInfo());
  EXPECT_TRUE(RaisesInvalidArg([&] { to.CopyLines(*source.arg, 1, 3); }));
  EXPECT_EQ(1, to.GetLineCount()) << "lines copied before the failure stay";

  CVnDiffChange full;
  full.MarkFullFileDelta();
  int sp = 1, tp = 1, dp = 0;
  CVnDiffArg rebuilt(source.arg->GetFileInfo());
  EXPECT_TRUE(RaisesInvalidArg([&] { rebuilt.ProcessChange(full, *source.arg, *delta.arg, sp, tp, dp); }));

  CVnDiffChange tooMany(CVnDiffChange::Insert, 0, 0, 1, 2);
  sp = 1, tp = 1, dp = 0;
  EXPECT_TRUE(RaisesInvalidArg([&] { rebuilt.ProcessChange(tooMany, *source.arg, *delta.arg, sp, tp, dp); }));

  CVnDiffChangeList changes;
  changes.Add(new CVnDiffChange(CVnDiffChange::Insert, 0, 0, 2, 5));
  unsigned long size = 0;
  unsigned char* buffer = nullptr;
  EXPECT_TRUE(RaisesInvalidArg([&] { source.arg->ExtractChangedLines(changes, size, buffer); }));
  EXPECT_EQ(nullptr, buffer);
}

// Many short lines and one long one cross the staging block; a second save,
// through the 16-bit path form, replaces the earlier content.  A failed
// save leaves no file.
TEST(VnDiffDeltaTest, SaveToFileWritesTheFlatLinesOrNoFile) {
  std::string big;
  for (int i = 0; i < 20000; ++i)
    big += "line " + std::to_string(i) + "\n";
  big += std::string(200000, 'L') + "\nend";
  vn::test::ScratchDir dir;
  const CString wide = dir.Path() + _T("saved.txt");
  std::vector<unsigned short> units(wide.GetString(), wide.GetString() + wide.GetLength() + 1);
  for (const std::string& text : {std::string("one\ntwo\r\nthree"), big}) {
    auto set = MakeSet(text);
    set.arg->SaveToFile(static_cast<LPCWSTR>(wide));
    EXPECT_EQ(text, ReadAll(wide));
    auto shorter = MakeSet("x\n");
    shorter.arg->SaveToFile(units.data());
    EXPECT_EQ("x\n", ReadAll(wide));
  }
  const CString nowhere = dir.Path() + _T("no\\such\\out.txt");
  EXPECT_TRUE(vn::test::RaisesKindOf(RUNTIME_CLASS(CFileException),
                                     [&] { MakeSet("a\n").arg->SaveToFile(static_cast<LPCWSTR>(nowhere)); }));
  EXPECT_FALSE(std::filesystem::exists(vn::test::FsPath(nowhere)));
}

namespace {

std::string Applied(const std::vector<CVnDiffChange>& records, const std::string& source, const std::string& delta,
                    std::string& why) {
  LineSet s = MakeSet(source), d = MakeSet(delta);
  CVnDiffChangeList list;
  for (const CVnDiffChange& c : records)
    list.Add(new CVnDiffChange(c));
  CVnDiffArg result(CVnFileInfo::Text8, 10);
  if (!VnApplyDelta(list, *s.arg, *d.arg, result, why))
    return "refused";
  return Flatten(result);
}

// Stored records are checked whole before a line is built: every case that
// doesn't fit the source and the delta text is refused with its reason; a
// rebuilt last line ends as the line it came from.
TEST(VnDiffDeltaTest, ApplyChecksTheRecordsAndEndsTheLastLineAsItsOrigin) {
  using A = CVnDiffChange;
  const struct {
    const char* name;
    std::vector<CVnDiffChange> records;
    const char *source, *delta, *result, *why;
  } cases[] = {
      {"change", {A(A::Change, 2, 2, 2, 2)}, "a\nb\nc\n", "B\n", "a\nB\nc\n", ""},
      {"source tail unterminated", {A(A::Change, 1, 1, 1, 1)}, "a\nb", "A\n", "A\nb", ""},
      {"delta last", {A(A::Insert, 0, 0, 3, 3)}, "a\nb\n", "c", "a\nb\nc", ""},
      {"inner source line last", {A(A::Delete, 3, 3, 0, 0)}, "a\nb\nc", "", "a\nb\n", ""},
      {"full file", {A(A::FullFile, -1, -1, -1, -1)}, "a\n", "x\ny", "x\ny", ""},
      {"action", {A(static_cast<A::Action>(5), 2, 2, 2, 2)}, "a\nb\nc\n", "x\n", "refused", "unknown action"},
      {"outside", {A(A::Delete, 3, 9, 0, 0)}, "a\nb\nc\n", "", "refused", "deletion inside the source"},
      {"descending", {A(A::Delete, 3, 3, 0, 0), A(A::Delete, 1, 1, 0, 0)}, "a\nb\nc\n", "", "refused",
       "record 2 (2 1 1 0 0) is not an ascending deletion"},
      {"beyond", {A(A::Insert, 0, 0, 9, 9)}, "a\n", "x\n", "refused", "lies beyond the source"},
      {"short text", {A(A::Insert, 0, 0, 2, 4)}, "a\nb\nc\n", "x\n", "refused",
       "the delta text has 1 lines, the records need 3"},
      {"uneven change", {A(A::Change, 1, 1, 1, 2)}, "a\nb\nc\n", "x\ny\n", "refused", "ascending change"},
      {"unused text", {}, "a\n", "x\n", "refused", "the records need 0"},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    std::string why;
    EXPECT_EQ(c.result, Applied(c.records, c.source, c.delta, why));
    EXPECT_NE(std::string::npos, why.find(c.why)) << why;
  }
}

}  // namespace
