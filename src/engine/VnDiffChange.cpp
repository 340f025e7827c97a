// VnDiffChange.cpp - the saved form of a change record.
//
// Five 32-bit little-endian integers in field order, each written or read by
// its own 4-byte call, whatever the host's byte order.  Load doesn't check
// the count Read returns: a short file leaves the remaining bytes zero.
#include "engine/VnDiffChange.h"

static void PutField(CFile& file, int32_t value) {
  uint32_t u = static_cast<uint32_t>(value);
  unsigned char bytes[4] = {static_cast<unsigned char>(u), static_cast<unsigned char>(u >> 8),
                            static_cast<unsigned char>(u >> 16), static_cast<unsigned char>(u >> 24)};
  file.Write(bytes, 4);
}

static int32_t GetField(CFile& file) {
  unsigned char bytes[4] = {0, 0, 0, 0};
  file.Read(bytes, 4);
  uint32_t u = bytes[0] | (bytes[1] << 8) | (bytes[2] << 16) | (static_cast<uint32_t>(bytes[3]) << 24);
  return static_cast<int32_t>(u);
}

void CVnDiffChange::Save(CFile& file, unsigned long, unsigned long) {
  PutField(file, static_cast<int32_t>(m_nAction));
  PutField(file, static_cast<int32_t>(m_nStartSource));
  PutField(file, static_cast<int32_t>(m_nEndSource));
  PutField(file, static_cast<int32_t>(m_nStartTarget));
  PutField(file, static_cast<int32_t>(m_nEndTarget));
}

void CVnDiffChange::Load(CFile& file, unsigned long) {
  m_nAction = static_cast<Action>(GetField(file));
  m_nStartSource = GetField(file);
  m_nEndSource = GetField(file);
  m_nStartTarget = GetField(file);
  m_nEndTarget = GetField(file);
}

void CVnDiffChange::MarkFullFileDelta() {
  m_nAction = FullFile;
  m_nStartSource = m_nEndSource = m_nStartTarget = m_nEndTarget = -1;
}
