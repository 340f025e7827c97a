// VnDiffLine.h - one line of a line set: a view into the caller's buffer.
//
// The record never owns its bytes.  The length excludes the terminator and
// counts bytes (twice the units for 16-bit text).  The hash is 0 until a
// comparison writes it under that comparison's flags; copies keep it.
// Records made with new come from the line pool (VnLinePool.h): a line set
// makes one per line, and the general heap would spend a header on each.
#ifndef VN_ENGINE_VNDIFFLINE_H
#define VN_ENGINE_VNDIFFLINE_H

#include "afx/afx.h"

#include <cstdint>

class VN_API CVnDiffLine {
public:
  CVnDiffLine() = default;
  CVnDiffLine(const unsigned char* bytes, uint32_t length, bool wide)
      : m_pBytes(bytes), m_nLength(length), m_nHash(0), m_bWide(wide ? 1 : 0) {}
  CVnDiffLine(const CVnDiffLine&) = default;
  CVnDiffLine& operator=(const CVnDiffLine&) = default;

  static void* operator new(size_t size);
  static void operator delete(void* p, size_t size) noexcept;

  const unsigned char* GetBytes() const { return m_pBytes; }
  uint32_t GetLength() const { return m_nLength; }
  uint32_t GetHash() const { return m_nHash; }
  void SetHash(uint32_t hash) { m_nHash = hash; }
  bool IsWide() const { return m_bWide != 0; }
  // Units in the line: bytes, or bytes / 2 for 16-bit text.
  uint32_t GetUnitCount() const { return m_bWide ? m_nLength / 2 : m_nLength; }

private:
  const unsigned char* m_pBytes = nullptr;
  uint32_t m_nLength = 0;
  uint32_t m_nHash = 0;
  uint8_t m_bWide = 0;
};

#endif  // VN_ENGINE_VNDIFFLINE_H
