// VnSmartBytePtr.h - the owner of one byte array allocated with new[].
//
// Assigning a new array releases the old one; Detach gives the pointer up.
#ifndef VN_INTAKE_VNSMARTBYTEPTR_H
#define VN_INTAKE_VNSMARTBYTEPTR_H

#include "afx/afx.h"

class VN_API CVnSmartBytePtr {
public:
  CVnSmartBytePtr() = default;
  explicit CVnSmartBytePtr(unsigned char* bytes) : m_pBytes(bytes) {}
  ~CVnSmartBytePtr() { delete[] m_pBytes; }
  CVnSmartBytePtr(const CVnSmartBytePtr&) = delete;
  CVnSmartBytePtr& operator=(const CVnSmartBytePtr&) = delete;

  CVnSmartBytePtr& operator=(unsigned char* bytes) {
    if (bytes != m_pBytes) {
      delete[] m_pBytes;
      m_pBytes = bytes;
    }
    return *this;
  }
  unsigned char* Get() const { return m_pBytes; }
  operator unsigned char*() const { return m_pBytes; }
  unsigned char* Detach() {
    unsigned char* bytes = m_pBytes;
    m_pBytes = nullptr;
    return bytes;
  }

private:
  unsigned char* m_pBytes = nullptr;
};

#endif  // VN_INTAKE_VNSMARTBYTEPTR_H
