// CmdLineFuzzer.cpp - arbitrary command lines against the parser.
//
// The first byte picks the capacity (0 to 32); every further byte becomes
// one 16-bit unit of the line, so blanks, tabs and quotes come up often.  The
// array has guard slots behind the capacity that must stay untouched.
// Beyond not crashing: the result lies in -1 .. capacity + 1, it counts what
// was stored, a line without quotes is never malformed and its arguments
// hold no blank, and parsing the same line twice gives the same answer.
#include "FuzzSupport.h"

#include "options/VnCmdLine.h"

#include <vector>

namespace {

const int kGuards = 4;
const WCHAR kSentinel[] = {'<', 'g', 'u', 'a', 'r', 'd', '>', 0};

struct Outcome {
  int result;
  std::vector<CString> slots;
};

Outcome Parse(const CString& line, int capacity) {
  // An exact copy, so that a read past the terminator reaches no owned byte.
  std::vector<WCHAR> text(line.GetString(), line.GetString() + line.GetLength() + 1);
  Outcome o;
  o.slots.assign(static_cast<size_t>(capacity + kGuards), CString(kSentinel));
  o.result = ParseCmdLine(text.data(), o.slots.data(), capacity);
  return o;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  VnFuzzInit();
  FuzzInput in(data, size);
  const int capacity = static_cast<int>(in.Below(32));
  CString line;
  bool quoted = false;
  for (uint8_t b : in.Rest()) {
    if (b == 0)
      continue;  // the line is a zero-terminated text
    line += static_cast<WCHAR>(b);
    quoted = quoted || b == '"';
  }

  Outcome first = Parse(line, capacity);
  FUZZ_CHECK(first.result >= -1 && first.result <= capacity + 1);
  for (int g = 0; g < kGuards; ++g)
    FUZZ_CHECK(first.slots[static_cast<size_t>(capacity + g)] == kSentinel);
  if (first.result >= 0 && first.result <= capacity)
    for (int i = first.result; i < capacity; ++i)
      FUZZ_CHECK(first.slots[static_cast<size_t>(i)] == kSentinel);
  if (!quoted) {
    FUZZ_CHECK(first.result != -1);
    for (int i = 0; i < capacity && i < first.result; ++i)
      FUZZ_CHECK(first.slots[static_cast<size_t>(i)].Find(static_cast<WCHAR>(' ')) < 0);
  }

  Outcome second = Parse(line, capacity);
  FUZZ_CHECK(second.result == first.result);
  for (int i = 0; i < capacity; ++i)
    FUZZ_CHECK(second.slots[static_cast<size_t>(i)] == first.slots[static_cast<size_t>(i)]);
  return 0;
}
