// LargeBuffer.cpp - large-page alignment and advice for big arrays.
#include "afx/portable/LargeBuffer.h"

#include "afx/os/OsSeam.h"

#include <cstdint>

CVnLargeBuffer VnNewLargeBuffer(size_t capacity, size_t written) {
  const size_t page = vn::os::LargePageSize();
  // Only an array that fills a large page or more gains: below that the
  // slack would be most of the buffer.
  const size_t slack = page != 0 && written >= page ? page : 0;
  CVnLargeBuffer buffer;
  buffer.size = capacity + slack;
  buffer.base.reset(new unsigned char[buffer.size]);
  const uintptr_t at = reinterpret_cast<uintptr_t>(buffer.base.get());
  buffer.start = buffer.base.get() + (slack ? (page - at % page) % page : 0);
  if (slack)
    vn::os::PrepareLargeWrite(buffer.start, written);
  return buffer;
}
