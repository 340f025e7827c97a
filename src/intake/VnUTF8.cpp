// VnUTF8.cpp - storage choice and the two conversions of CVnUTF8.
#include "intake/VnUTF8.h"

#include <cstring>

CVnUTF8::CVnUTF8() : m_pBytes(nullptr), m_nOwnership(0), m_nSize(0), m_bTerminated(0) {}

CVnUTF8::CVnUTF8(const CString& text) : CVnUTF8() { ConvertFromUTF16(text); }

CVnUTF8::CVnUTF8(const unsigned char* bytes, int size)
    : m_pBytes(const_cast<unsigned char*>(bytes)), m_nOwnership(2), m_nSize(size), m_bTerminated(0) {}

CVnUTF8::~CVnUTF8() { ClearUTF8(); }

CVnUTF8::CVnUTF8(const CVnUTF8& other) : CVnUTF8() { *this = other; }

CVnUTF8& CVnUTF8::operator=(const CVnUTF8& other) {
  if (this == &other)
    return *this;
  if (other.m_nOwnership == 2) {
    SetUTF8(other.m_pBytes, other.m_nSize);  // foreign bytes stay foreign
  } else if (!other.m_pBytes) {
    ClearUTF8();
  } else {
    AllocAndSetUTF8(other.m_pBytes, other.m_nSize);
    m_bTerminated = other.m_bTerminated;
  }
  return *this;
}

void CVnUTF8::ClearUTF8() {
  if (m_nOwnership == 1)
    delete[] m_pBytes;
  m_pBytes = nullptr;
  m_nOwnership = 0;
  m_nSize = 0;
  m_bTerminated = 0;
}

void CVnUTF8::AllocStorage(int n) {
  if (n >= kInlineSize) {
    m_pBytes = new unsigned char[static_cast<size_t>(n) + 1];
    m_nOwnership = 1;
  } else {
    m_pBytes = m_inline;
    m_nOwnership = 0;
  }
}

unsigned char* CVnUTF8::AllocUTF8(int size) {
  ClearUTF8();
  if (size < 0)
    size = 0;
  AllocStorage(size);
  m_nSize = size;
  m_pBytes[size] = 0;
  m_bTerminated = 1;
  return m_pBytes;
}

void CVnUTF8::SetUTF8(const unsigned char* bytes, int size) {
  ClearUTF8();
  m_pBytes = const_cast<unsigned char*>(bytes);
  m_nOwnership = 2;
  m_nSize = size;
}

unsigned char* CVnUTF8::AllocAndSetUTF8(const unsigned char* bytes, int size) {
  unsigned char* out = AllocUTF8(size);
  if (size > 0)
    memcpy(out, bytes, static_cast<size_t>(size));
  return out;
}

unsigned char* CVnUTF8::Detach(int* size) {
  if (size)
    *size = m_nSize;
  if (m_nOwnership == 1)
    m_nOwnership = 2;
  return m_pBytes;
}

void CVnUTF8::SetText(const CString& text) {
  ClearUTF8();
  ConvertFromUTF16(text);
}

// The length asked of the converter counts the terminator, so a text of
// 4,095 bytes goes to the heap here while AllocUTF8(4095) stays inline.
void CVnUTF8::ConvertFromUTF16(const CString& text) {
#ifdef _WIN32
  const int needed = WideCharToMultiByte(CP_UTF8, 0, text.GetString(), -1, nullptr, 0, nullptr, nullptr);
  AllocStorage(needed > 0 ? needed : 1);
  const int done = needed > 0 ? WideCharToMultiByte(CP_UTF8, 0, text.GetString(), -1,
                                                    reinterpret_cast<char*>(m_pBytes), needed, nullptr, nullptr)
                              : 0;
#else
  const std::string bytes = vn::os::WideToMultiByte(CP_UTF8, text.GetString(), text.GetLength());
  const int needed = static_cast<int>(bytes.size()) + 1;
  AllocStorage(needed);
  memcpy(m_pBytes, bytes.data(), bytes.size());
  m_pBytes[bytes.size()] = 0;
  const int done = needed;
#endif
  if (done > 0) {
    m_nSize = done - 1;
  } else {
    m_pBytes[0] = 0;
    m_nSize = 0;
  }
  m_bTerminated = 1;
}

const CString CVnUTF8::Text() const {
  if (!m_pBytes || m_nSize <= 0)
    return CString();
#ifdef _WIN32
  const char* src = reinterpret_cast<const char*>(m_pBytes);
  const int units = MultiByteToWideChar(CP_UTF8, 0, src, m_nSize, nullptr, 0);
  if (units <= 0)
    return CString();
  CString out;
  wchar_t* buf = out.GetBuffer(units);
  const int done = MultiByteToWideChar(CP_UTF8, 0, src, m_nSize, buf, units);
  out.ReleaseBuffer(done > 0 ? done : 0);
  return out;
#else
  vn::os::WideText wide = vn::os::MultiByteToWide(CP_UTF8, reinterpret_cast<const char*>(m_pBytes), m_nSize);
  return CString(wide);
#endif
}
