// LargeBuffer.cpp - large-page alignment and advice for big arrays.
#include "afx/portable/LargeBuffer.h"

#include "afx/os/OsSeam.h"

#include <cstdint>

static size_t RoundUp(size_t n, size_t page) { return (n + page - 1) / page * page; }

CVnLargeBuffer::CVnLargeBuffer(size_t capacity, size_t sure) {
  const size_t page = vn::os::LargePageSize();
  // Only an array that fills a large page or more gains: below that the
  // slack would be most of the buffer.
  if (page == 0 || capacity < page) {
    m_size = capacity;
    m_base.reset(new unsigned char[m_size]);
    m_start = m_base.get();
    return;
  }
  // Whole large pages from the start, so that the last one may be asked for
  // whole without touching anything else's memory.
  m_page = page;
  m_room = RoundUp(capacity, page);
  m_size = m_room + page;
  m_base.reset(new unsigned char[m_size]);
  const uintptr_t at = reinterpret_cast<uintptr_t>(m_base.get());
  m_start = m_base.get() + (page - at % page) % page;
  m_advised = sure / page * page;
  vn::os::PrepareLargeWrite(m_start, m_advised);
}

void CVnLargeBuffer::WillWrite(size_t end) {
  if (m_page == 0)
    return;
  size_t want = RoundUp(end, m_page);
  if (want > m_room)
    want = m_room;
  if (want <= m_advised)
    return;
  vn::os::PrepareLargeWrite(m_start + m_advised, want - m_advised);
  m_advised = want;
}

void CVnLargeBuffer::Written(size_t used) {
  if (m_page != 0 && used < m_advised)
    vn::os::DiscardPages(m_start + used, m_advised - used);
}
