// CmdLineFuzzer.cpp - random command lines and capacities.  The arguments
// array is guarded on both sides, and the result must be one of the defined
// answers: a count up to the capacity, capacity + 1, or -1.
#include "FuzzSupport.h"

#include "options/VnCmdLine.h"

#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  VnFuzzInit();
  FuzzInput in(data, size);
  int capacity = static_cast<int>(in.Byte() % 12);
  std::vector<uint8_t> bytes = in.Rest();

  // The text as 16-bit units, terminated, with nothing readable behind it
  // (ASan catches a read past the terminator).
  std::vector<WCHAR> text(bytes.size() + 1, 0);
  for (size_t i = 0; i < bytes.size(); ++i)
    text[i] = static_cast<WCHAR>(bytes[i] ? bytes[i] : ' ');

  // capacity slots with one guard on each side, each a known value.
  std::vector<CString> slots(static_cast<size_t>(capacity) + 2, CString(_T("guard")));
  int result = ParseCmdLine(text.data(), slots.data() + 1, capacity);
  FUZZ_CHECK(result == -1 || (result >= 0 && result <= capacity + 1));
  FUZZ_CHECK(slots.front() == _T("guard") && slots.back() == _T("guard"));
  return 0;
}
