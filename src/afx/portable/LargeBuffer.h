// LargeBuffer.h - memory for big arrays that are filled from the start.
//
// An array of megabytes (decoded text, the class table of a comparison)
// costs a page fault for every small page it touches, and its random reads
// miss the address cache once per small page.  Where the system backs
// memory with large pages on request, a buffer from here starts on a
// large-page boundary and asks for them over its first `written` bytes.
// The slack in front of the start is never touched, so it costs address
// space only; past the bytes that are written, at most part of one large
// page is resident that would not have been.
#ifndef VN_AFX_LARGEBUFFER_H
#define VN_AFX_LARGEBUFFER_H

#include "afx/portable/AfxTypes.h"

#include <cstddef>
#include <memory>

struct VN_API CVnLargeBuffer {
  std::unique_ptr<unsigned char[]> base;  // what was allocated; free this
  unsigned char* start = nullptr;         // where the array begins, inside it
  size_t size = 0;                        // bytes allocated, the slack included
};

// Room for `capacity` bytes at `start`, of which the first `written` will be
// written.  Raises std::bad_alloc when the memory can't be had.
VN_API CVnLargeBuffer VnNewLargeBuffer(size_t capacity, size_t written);

#endif  // VN_AFX_LARGEBUFFER_H
