// LargeBufferTest.cpp - big arrays on large pages: where they start, and
// that asking for pages ahead and giving back the rest never costs a byte
// that was written.
#include "afx/portable/LargeBuffer.h"

#include "afx/os/OsSeam.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace {

// Byte i of the pattern the tests write.
unsigned char Pattern(size_t i) { return static_cast<unsigned char>(i * 131 + 7); }

}  // namespace

TEST(LargeBufferTest, BigBuffersStartOnALargePageSmallOnesDoNot) {
  const size_t page = vn::os::LargePageSize();
  const size_t big = 5 * 1024 * 1024 + 123;
  CVnLargeBuffer buffer(big, big);
  ASSERT_NE(nullptr, buffer.Start());
  EXPECT_GE(buffer.Allocated(), big);
  if (page != 0) {
    EXPECT_EQ(0u, reinterpret_cast<uintptr_t>(buffer.Start()) % page);
  }
  CVnLargeBuffer small(100, 100);
  EXPECT_EQ(100u, small.Allocated()) << "no slack below a large page";
}

// A writer that asks ahead chunk by chunk and stops at an odd place: every
// byte it wrote is still there after the rest is given back, and the
// buffer's memory can be taken over and freed as a plain array.
TEST(LargeBufferTest, GivingBackTheRestKeepsEveryWrittenByte) {
  const size_t capacity = 9 * 1024 * 1024;
  const size_t kMiB = 1024 * 1024;
  for (size_t used : {size_t(0), size_t(1), size_t(4095), 2 * kMiB + 1, 6 * kMiB + 4097}) {
    SCOPED_TRACE(used);
    CVnLargeBuffer buffer(capacity, 0);
    unsigned char* start = buffer.Start();
    for (size_t at = 0; at < used; at += 65536) {
      const size_t end = at + 65536 < used ? at + 65536 : used;
      buffer.WillWrite(end);
      for (size_t i = at; i < end; ++i)
        start[i] = Pattern(i);
    }
    buffer.Written(used);
    size_t wrong = 0;
    for (size_t i = 0; i < used; ++i)
      wrong += start[i] != Pattern(i) ? 1 : 0;
    EXPECT_EQ(0u, wrong);
    start[capacity - 1] = 1;  // the whole capacity stays writable
    delete[] buffer.Release();
  }
}
