// VnDiffArgTest.cpp - cutting buffers into lines and reading lines back.
#include "EngineTestUtil.h"
#include "TestSupport.h"

#include "afx/os/OsSeam.h"

#include <gtest/gtest.h>

using vn::test::MakeSet;

namespace {

// The lines of a set as "|"-joined UTF-8, and whether the flag is set.
std::string Joined(const CVnDiffArg& arg) {
  std::string s;
  for (int i = 0; i < arg.GetLineCount(); ++i) {
    if (i)
      s += '|';
    s += VnToUtf8(arg.GetLine(i));
  }
  return s;
}

struct SplitCase {
  std::string bytes;
  CVnFileInfo::FileType type;
  unsigned char eol;
  uint16_t eolChar;  // what the type makes of eol
  int lines;
  const char* joined;
  bool endingTerminator;
};

const CVnFileInfo::FileType kUnknownType = static_cast<CVnFileInfo::FileType>(3);

}  // namespace

// Only Records8 takes the caller's terminator; a set of no known type
// makes no lines.
TEST(VnDiffArgTest, SplitsAtTheTerminatorOfItsTypeOnly) {
  const SplitCase kCases[] = {
      {"a\nb\n", CVnFileInfo::Text8, 0, 10, 2, "a|b", true},
      {"a\nb", CVnFileInfo::Text8, 0, 10, 2, "a|b", false},
      {"\n", CVnFileInfo::Text8, 0, 10, 1, "", true},
      {"\n\n", CVnFileInfo::Text8, 0, 10, 2, "|", true},
      {"a\r\nb\r\n", CVnFileInfo::Text8, 0, 10, 2, "a\r|b\r", true},
      {"a\nb", CVnFileInfo::Text8Alt, 7, 10, 2, "a|b", false},
      {std::string("a\0b\nc\0", 6), CVnFileInfo::Records8, 0, 0, 2, "a|b\nc", true},
      {"a;b", CVnFileInfo::Records8, ';', ';', 2, "a|b", false},
      {std::string("a\0\n\0b\0", 6), CVnFileInfo::Text16, 0, 10, 2, "a|b", false},
      {std::string("a\0\n\0b", 5), CVnFileInfo::Text16, 0, 10, 1, "a", true},  // odd byte ignored
      {std::string("a", 1), CVnFileInfo::Text16, 0, 10, 0, "", false},
      {std::string("\n\0\n\0", 4), CVnFileInfo::Text16, 0, 10, 2, "|", true},
      {"a\nb\n", kUnknownType, ';', 0, 0, "", false},
  };
  for (const auto& c : kCases) {
    auto set = MakeSet(c.bytes, c.type, c.eol);
    EXPECT_EQ(c.lines, set.arg->GetLineCount()) << c.joined;
    EXPECT_EQ(c.joined, Joined(*set.arg));
    EXPECT_EQ(c.endingTerminator, set.arg->GetFileInfo().HasEndingTerminator() != 0) << c.joined;
    EXPECT_EQ(c.eolChar, set.arg->GetFileInfo().m_nEOLChar) << c.joined;
    EXPECT_EQ(c.type, set.arg->GetFileInfo().GetFileType()) << c.joined;
  }
}

// Lines of 0 to 9 units, so that terminators fall in every lane of the
// four-unit search, in buffers at even and odd addresses; units whose high
// byte is 10 (0x0A61) or whose low byte is 10 (0x610A) are no terminators.
TEST(VnDiffArgTest, SplitsSixteenBitUnitsAtEveryOffset) {
  for (size_t offset = 0; offset < 2; ++offset) {
    std::string text, expected;
    for (int len = 0; len <= 9; ++len) {
      for (int k = 0; k < len; ++k)
        text += k % 3 == 0 ? std::string("a\x0A", 2) : k % 3 == 1 ? std::string("\x0A" "a", 2) : std::string("b\0", 2);
      text += std::string("\n\0", 2);
    }
    text += std::string("z\0", 2);  // an unterminated last line
    std::string buffer = std::string(offset, 'x') + text;
    CVnDiffArg arg(CVnFileInfo::Text16, 0);
    arg.Create(buffer.data() + offset, static_cast<unsigned long>(text.size()));
    const CVnDiffLineArray& lines = arg.GetLines();
    ASSERT_EQ(11, lines.GetSize()) << offset;
    for (int len = 0; len <= 9; ++len)
      EXPECT_EQ(2u * len, lines.GetAt(len)->GetLength()) << "offset " << offset << " line " << len;
    EXPECT_EQ(2u, lines.GetAt(10)->GetLength());
    EXPECT_FALSE(arg.GetFileInfo().HasEndingTerminator());
  }
}

// The line count runs eight units at a time in 16-bit lane counters that
// are emptied every 32767 rounds: a buffer of nothing but terminators fills
// every lane to the limit, more than once, with a tail behind the last round.
TEST(VnDiffArgTest, CountsLongRunsOfTerminators) {
  for (size_t units : {size_t(8 * 32767), size_t(8 * 32767 * 2 + 5)}) {
    std::string text;
    for (size_t k = 0; k < units; ++k)
      text += std::string("\n\0", 2);
    text += std::string("z\0", 2);
    CVnDiffArg arg(CVnFileInfo::Text16, 0);
    arg.Create(text.data(), static_cast<unsigned long>(text.size()));
    ASSERT_EQ(static_cast<INT_PTR>(units + 1), arg.GetLines().GetSize()) << units;
    EXPECT_EQ(0u, arg.GetLines().GetAt(0)->GetLength());
    EXPECT_EQ(2u, arg.GetLines().GetAt(static_cast<INT_PTR>(units))->GetLength());
  }
}

TEST(VnDiffArgTest, LineRecordsPointIntoTheBuffer) {
  auto set = MakeSet("ab\n\ncd", CVnFileInfo::Text8);
  const CVnDiffLineArray& lines = set.arg->GetLines();
  ASSERT_EQ(3, lines.GetSize());
  const unsigned char* base = reinterpret_cast<const unsigned char*>(set.bytes.data());
  EXPECT_EQ(base, lines.GetAt(0)->GetBytes());
  EXPECT_EQ(base + 3, lines.GetAt(1)->GetBytes());  // the empty line stands where it is
  EXPECT_EQ(0u, lines.GetAt(1)->GetLength());
  EXPECT_EQ(base + 4, lines.GetAt(2)->GetBytes());
  auto wide = MakeSet(vn::test::Widen16("xyz\n"), CVnFileInfo::Text16);
  EXPECT_EQ(6u, wide.arg->GetLines().GetAt(0)->GetLength());
  EXPECT_TRUE(wide.arg->GetLines().GetAt(0)->IsWide());
}

// Create with no bytes changes nothing; a second Create replaces the lines
// but keeps the ending flag it had.
TEST(VnDiffArgTest, CreateAgainReplacesLinesAndNothingChangesNothing) {
  auto set = MakeSet("a\nb");
  set.arg->Create("x", 0);
  EXPECT_EQ("a|b", Joined(*set.arg));
  auto ended = MakeSet("a\n");
  ended.arg->Create("x\ny\nz", 5);
  EXPECT_EQ("x|y|z", Joined(*ended.arg));
  EXPECT_TRUE(ended.arg->GetFileInfo().HasEndingTerminator());
  for (int index : {-1, 2, 1000})
    EXPECT_TRUE(vn::test::RaisesInvalidArg([&] { set.arg->GetLine(index); })) << index;
}

TEST(VnDiffArgTest, GetLineWidensThroughTheAnsiCodePage) {
  auto set = MakeSet("caf\xE9\n");
  vn::os::SetAnsiCodePage(1252);
  CString text = set.arg->GetLine(0);
  vn::os::SetAnsiCodePage(0);
  ASSERT_EQ(4, text.GetLength());
  EXPECT_EQ(0xE9, static_cast<int>(text[3]));

  auto wide = MakeSet(std::string("\xE9\x00\x3A\x26", 4), CVnFileInfo::Text16);
  CString units = wide.arg->GetLine(0);
  ASSERT_EQ(2, units.GetLength());
  EXPECT_EQ(0x00E9, static_cast<int>(units[0]));
  EXPECT_EQ(0x263A, static_cast<int>(units[1]));
}

TEST(VnDiffArgTest, FileInfoEqualityLooksAtTypeAndTerminatorOnly) {
  CVnFileInfo none1, none2;
  EXPECT_FALSE(none1 == none2);  // no type bit in common

  CVnFileInfo a = CVnDiffArg(CVnFileInfo::Text16, 0).GetFileInfo();
  CVnFileInfo b = a;
  b.m_nFlags |= CVnFileInfo::kEndingTerminator | CVnFileInfo::kEndCR;
  b.m_nReserved = 7;
  EXPECT_TRUE(a == b);
  EXPECT_TRUE(b.HasEndCR() != 0);

  CVnFileInfo r1 = CVnDiffArg(CVnFileInfo::Records8, ';').GetFileInfo();
  CVnFileInfo r2 = CVnDiffArg(CVnFileInfo::Records8, ',').GetFileInfo();
  EXPECT_FALSE(r1 == r2);
  EXPECT_FALSE(a == CVnDiffArg(CVnFileInfo::Text8, 0).GetFileInfo());
  EXPECT_EQ(2, a.GetEOLSize());
  EXPECT_EQ(1, r1.GetEOLSize());
}

TEST(VnDiffArgTest, OwnerArrayDeletesItsMembers) {
  static int alive = 0;
  struct Counted {
    Counted() { ++alive; }
    ~Counted() { --alive; }
  };
  {
    CTypedOwnerPtrArray<Counted> array;
    for (int i = 0; i < 5; ++i)
      array.Add(new Counted);
    EXPECT_EQ(5, alive);
    array.DeleteAllMembers();
    EXPECT_EQ(0, alive);
    EXPECT_EQ(0, array.GetSize());
    array.Add(new Counted);
  }
  EXPECT_EQ(0, alive);
}
