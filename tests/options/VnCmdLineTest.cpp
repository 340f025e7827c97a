// VnCmdLineTest.cpp - the command line parser: the table of lines, the
// capacity limits and random lines that must never overrun the array.
#include "options/VnCmdLine.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

struct Parsed {
  int result;
  std::vector<std::string> args;  // what was stored, in UTF-8
};

// Parses with an array one larger than the capacity whose last slot holds a
// sentinel; the sentinel must survive every call.
Parsed Parse(const char* line, int capacity) {
  std::vector<CString> slots(static_cast<size_t>(capacity) + 1, CString(_T("<untouched>")));
  Parsed p;
  p.result = ParseCmdLine(VnFromUtf8(line), slots.data(), capacity);
  EXPECT_EQ("<untouched>", VnToUtf8(slots[static_cast<size_t>(capacity)])) << "line: " << line;
  for (int i = 0; i < capacity; ++i)
    if (slots[static_cast<size_t>(i)] != _T("<untouched>"))
      p.args.push_back(VnToUtf8(slots[static_cast<size_t>(i)]));
  return p;
}

struct Case { const char* line; int capacity; int result; std::vector<std::string> args; };

// The result counts a surplus argument as capacity + 1 and a malformed
// quote as -1; either way what was stored before stays.
TEST(VnCmdLineTest, ParsesTheTableOfLines) {
  const Case cases[] = {
      // Blanks separate; runs of them are one separator.
      {"", 2, 0, {}}, {"   ", 2, 0, {}}, {" \t \r\n", 2, 0, {}}, {"a", 2, 1, {"a"}}, {"a b", 2, 2, {"a", "b"}},
      {"a   b", 2, 2, {"a", "b"}}, {"a b c", 2, 3, {"a", "b"}}, {"a b ", 2, 2, {"a", "b"}}, {"a b  ", 2, 3, {"a", "b"}},
      {"  \tlead", 2, 1, {"lead"}},
      // Quoted arguments keep blanks and may be empty.
      {"\"a b\" c", 2, 2, {"a b", "c"}}, {"\"a b\"", 2, 1, {"a b"}}, {"\"\"", 2, 1, {""}},
      {"\"\" \"\"", 2, 2, {"", ""}}, {"x \"a b\"", 2, 2, {"x", "a b"}}, {"\"a\" ", 2, 1, {"a"}},
      {"\"a\"   b", 2, 2, {"a", "b"}}, {"\"a\tb\"", 2, 1, {"a\tb"}},
      // Malformed quotes.
      {"\"a", 2, -1, {}}, {"\"a\"b", 2, -1, {"a"}}, {"x \"unclosed", 2, -1, {"x"}}, {"\"a\"\tb", 2, -1, {"a"}},
      {"\"", 2, -1, {}},
      // Quotes inside plain arguments are ordinary.
      {"x y\"z w", 2, 3, {"x", "y\"z"}}, {"a\"b c", 2, 2, {"a\"b", "c"}}, {"ab\" c", 2, 2, {"ab\"", "c"}},
      // Only the blank separates.  A tab at the start of a piece is trimmed
      // and a piece of tabs only is none, but in the last piece of a line
      // even a leading tab stays.
      {"a\tb", 2, 1, {"a\tb"}}, {"a \tb c", 3, 3, {"a", "b", "c"}}, {"a \t c", 3, 2, {"a", "c"}},
      {"a b \tc", 3, 3, {"a", "b", "\tc"}},
      // Capacities zero and three.
      {"", 0, 0, {}}, {"   ", 0, 0, {}}, {"a", 0, 1, {}}, {"\"", 0, 1, {}}, {"a b  ", 3, 2, {"a", "b"}},
      {"a b c", 3, 3, {"a", "b", "c"}},
  };
  for (const Case& c : cases) {
    Parsed p = Parse(c.line, c.capacity);
    EXPECT_EQ(c.result, p.result) << "line: [" << c.line << "] capacity " << c.capacity;
    EXPECT_EQ(c.args, p.args) << "line: [" << c.line << "] capacity " << c.capacity;
  }
}

TEST(VnCmdLineTest, CallerFaultsGiveMinusOne) {
  CString one[1];
  EXPECT_EQ(-1, ParseCmdLine(_T("a"), one, -1));
  EXPECT_EQ(-1, ParseCmdLine(_T("a"), nullptr, 1));
  EXPECT_EQ(0, ParseCmdLine(nullptr, one, 1));
  EXPECT_EQ(1, ParseCmdLine(_T("a"), nullptr, 0));
  EXPECT_TRUE(one[0].IsEmpty());
}

TEST(VnCmdLineTest, LongRunsOfBlanksParseInOnePass) {
  // A million blanks between two arguments: every blank is an empty piece,
  // so a parser that copied the rest of the line per piece would never end.
  std::string line = "first" + std::string(1000000, ' ') + "second";
  Parsed p = Parse(line.c_str(), 2);
  EXPECT_EQ(2, p.result);
  EXPECT_EQ((std::vector<std::string>{"first", "second"}), p.args);
}

// Random lines over the characters that matter: the result stays within
// -1 .. capacity + 1, the slot behind the array is never written, stored
// plain arguments hold no blank, and a line without quotes is never
// malformed.
TEST(VnCmdLineTest, RandomLinesStayWithinTheArray) {
  std::mt19937 rng(20261122);
  const char alphabet[] = {' ', ' ', ' ', '"', '\t', 'a', 'b', '\n', 'x'};
  for (int round = 0; round < 20000; ++round) {
    std::string line(rng() % 24, ' ');
    for (char& c : line)
      c = alphabet[rng() % sizeof alphabet];
    const int capacity = static_cast<int>(rng() % 5);
    Parsed p = Parse(line.c_str(), capacity);
    ASSERT_GE(p.result, -1) << line;
    ASSERT_LE(p.result, capacity + 1) << line;
    ASSERT_LE(static_cast<int>(p.args.size()), capacity) << line;
    if (p.result >= 0 && p.result <= capacity) {
      ASSERT_EQ(static_cast<size_t>(p.result), p.args.size()) << line;
    }
    if (line.find('"') == std::string::npos) {
      ASSERT_NE(-1, p.result) << line;
      for (const std::string& a : p.args)
        ASSERT_EQ(std::string::npos, a.find(' ')) << line;
    }
  }
}

}  // namespace
