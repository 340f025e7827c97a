// VnFileInfo.cpp - comparison of two file descriptions.
#include "engine/VnFileInfo.h"

int CVnFileInfo::operator==(const CVnFileInfo& other) const {
  bool typesMeet = (m_nFlags & other.m_nFlags & kTypeMask) != 0;
  return typesMeet && m_nEOLChar == other.m_nEOLChar;
}
