// VnFileInfo.h - how a line set's buffer is read.
//
// One 32-bit flags word (low four bits: the file type, a single bit; 0x100:
// end-CR flag; 0x200: the buffer ended in a terminator), the 16-bit unit that
// ends a line, and a reserved word that travels with the record unread.
#ifndef VN_ENGINE_VNFILEINFO_H
#define VN_ENGINE_VNFILEINFO_H

#include "afx/afx.h"

#include <cstdint>

class VN_API CVnFileInfo {
public:
  enum FileType : uint32_t {
    Text8 = 1,     // 8-bit units, LF ends a line
    Text8Alt = 2,  // behaves as Text8 everywhere
    Text16 = 4,    // 16-bit little-endian units, LF ends a line
    Records8 = 8   // 8-bit units, a chosen byte ends a record
  };
  enum : uint32_t { kTypeMask = 0xF, kEndCR = 0x100, kEndingTerminator = 0x200 };

  CVnFileInfo() = default;
  CVnFileInfo(const CVnFileInfo&) = default;
  CVnFileInfo& operator=(const CVnFileInfo&) = default;

  FileType GetFileType() const { return static_cast<FileType>(m_nFlags & kTypeMask); }
  // Bytes in one unit, and so in one terminator.
  int GetEOLSize() const { return GetFileType() == Text16 ? 2 : 1; }
  int HasEndCR() const { return static_cast<int>(m_nFlags & kEndCR); }
  int HasEndingTerminator() const { return static_cast<int>(m_nFlags & kEndingTerminator); }
  // Equal when the types share a bit and the terminators agree; the end flags
  // and the reserved word take no part.
  int operator==(const CVnFileInfo& other) const;

  uint32_t m_nFlags = 0;
  uint16_t m_nEOLChar = 0;
  uint16_t m_nReserved = 0;
};

#endif  // VN_ENGINE_VNFILEINFO_H
