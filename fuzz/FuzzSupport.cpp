// FuzzSupport.cpp - shared pieces of the fuzz targets.
#include "FuzzSupport.h"

#include "afx/afx.h"

#include <cstdio>

size_t FuzzInput::Below(size_t limit) {
  size_t value = 0;
  for (size_t range = limit; range > 0; range >>= 8)
    value = (value << 8) | Byte();
  return limit ? value % (limit + 1) : 0;
}

std::vector<uint8_t> FuzzInput::Rest() { return Take(Left()); }

std::vector<uint8_t> FuzzInput::Take(size_t count) {
  if (count > Left())
    count = Left();
  std::vector<uint8_t> out(m_data + m_pos, m_data + m_pos + count);
  m_pos += count;
  return out;
}

static int g_answer = IDNO;
static int Answer(LPCWSTR, UINT, UINT) { return g_answer; }
void VnFuzzSetAnswer(int answer) { g_answer = answer; }

void VnFuzzInit() {
  static bool done = false;
  if (!done) {
    VnSetPromptHandler(Answer);
    done = true;
  }
}

void VnFuzzFail(const char* what, const char* file, int line) {
  fprintf(stderr, "property broken: %s at %s:%d\n", what, file, line);
  abort();
}
