// LargeBuffer.h - memory for big arrays that are filled from the start.
//
// An array of megabytes (decoded text, the class table of a comparison)
// costs a page fault for every small page it touches, and its random reads
// miss the address cache once per small page.  Where the system backs
// memory with large pages on request, a buffer from here starts on a
// large-page boundary and asks for them: for the bytes its owner says will
// surely be written, and, as a writer goes, for the pages it is about to
// reach.  The slack in front of the start is never touched, so it costs
// address space only; when writing stops, the rest of the last large page
// goes back, so no more stays resident than was written.
#ifndef VN_AFX_LARGEBUFFER_H
#define VN_AFX_LARGEBUFFER_H

#include "afx/portable/AfxTypes.h"

#include <cstddef>
#include <memory>

class VN_API CVnLargeBuffer {
public:
  CVnLargeBuffer() = default;
  // Room for `capacity` bytes at Start(), of which the first `sure` will be
  // written.  Raises std::bad_alloc when the memory can't be had.
  CVnLargeBuffer(size_t capacity, size_t sure);

  unsigned char* Start() const { return m_start; }
  // Bytes allocated, the slack included.
  size_t Allocated() const { return m_size; }
  // Hands the allocation over (free it with delete[]); Start() stays valid.
  unsigned char* Release() { return m_base.release(); }

  // Bytes up to `end` (counted from Start()) are about to be written: the
  // large pages that cover them are asked for, the last one whole.
  void WillWrite(size_t end);
  // Writing stopped at `used`: whatever part of the large pages asked for
  // lies behind it goes back to the system.
  void Written(size_t used);

private:
  std::unique_ptr<unsigned char[]> m_base;
  unsigned char* m_start = nullptr;
  size_t m_size = 0;
  size_t m_page = 0;     // the large page, 0 when this buffer doesn't use them
  size_t m_room = 0;     // bytes from Start() inside the allocation: whole large pages
  size_t m_advised = 0;  // bytes from Start() asked for as large pages
};

#endif  // VN_AFX_LARGEBUFFER_H
