// FuzzSupport.h - what every fuzz target shares.
//
// FuzzInput takes decisions off the front of the fuzzer's bytes and leaves the
// rest as data, so one input drives both the choices and the text.  Targets
// call VnFuzzInit once: it answers every message box in silence (with "no"
// unless VnFuzzSetAnswer says otherwise), since a question is an expected
// result of hostile input, not a fault.
#ifndef VN_FUZZ_FUZZSUPPORT_H
#define VN_FUZZ_FUZZSUPPORT_H

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

class FuzzInput {
public:
  FuzzInput(const uint8_t* data, size_t size) : m_data(data), m_size(size) {}

  uint8_t Byte() { return m_pos < m_size ? m_data[m_pos++] : 0; }
  // A number in [0, limit], from as many bytes as it needs.
  size_t Below(size_t limit);
  bool Flag() { return Byte() & 1; }
  // Everything not yet taken.
  std::vector<uint8_t> Rest();
  // The next `count` bytes (fewer at the end).
  std::vector<uint8_t> Take(size_t count);
  size_t Left() const { return m_size - m_pos; }

private:
  const uint8_t* m_data;
  size_t m_size;
  size_t m_pos = 0;
};

void VnFuzzInit();
// The answer the next message boxes get (IDNO unless a target says otherwise).
void VnFuzzSetAnswer(int answer);

// Fails loudly: a broken property is a finding, like a crash.
#define FUZZ_CHECK(cond)                                                       \
  do {                                                                         \
    if (!(cond))                                                               \
      VnFuzzFail(#cond, __FILE__, __LINE__);                                   \
  } while (0)
[[noreturn]] void VnFuzzFail(const char* what, const char* file, int line);

#endif  // VN_FUZZ_FUZZSUPPORT_H
