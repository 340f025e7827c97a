// VnUTF8.h - one string as UTF-8 bytes, converted to and from 16-bit text.
//
// Short strings (below 4096 bytes with their terminator) live in a buffer
// inside the object and cost no allocation; longer ones in an owned heap
// array of size + 1 bytes.  The object can also wrap bytes that belong to
// someone else without copying them (ownership 2); only an owned heap array
// is ever released.
#ifndef VN_INTAKE_VNUTF8_H
#define VN_INTAKE_VNUTF8_H

#include "afx/afx.h"

class VN_API CVnUTF8 {
public:
  enum { kInlineSize = 4096 };

  CVnUTF8();
  explicit CVnUTF8(const CString& text);
  // Wraps foreign bytes: no copy, not terminated.
  CVnUTF8(const unsigned char* bytes, int size);
  ~CVnUTF8();
  CVnUTF8(const CVnUTF8& other);
  // Takes over the other object's value into storage of its own.
  CVnUTF8& operator=(const CVnUTF8& other);

  const CString Text() const;
  void SetText(const CString& text);
  const unsigned char* UTF8Bytes() const { return m_pBytes; }
  const char* UTF8Str() const { return m_bTerminated ? reinterpret_cast<const char*>(m_pBytes) : nullptr; }
  int Size() const { return m_nSize; }

  // Room for size bytes, terminated at size; the caller fills it.
  unsigned char* AllocUTF8(int size);
  void SetUTF8(const unsigned char* bytes, int size);
  unsigned char* AllocAndSetUTF8(const unsigned char* bytes, int size);
  // Gives the bytes up: the object still shows them but no longer releases
  // them.  Bytes in the inline buffer live only as long as the object.
  unsigned char* Detach(int* size);

private:
  void ClearUTF8();
  // Picks inline storage or a heap array for n bytes; sets bytes and ownership.
  void AllocStorage(int n);
  void ConvertFromUTF16(const CString& text);

  unsigned char m_inline[kInlineSize];
  unsigned char* m_pBytes;
  int m_nOwnership;  // 0 inline or none, 1 owned heap array, 2 foreign
  int m_nSize;
  unsigned char m_bTerminated;
};

#endif  // VN_INTAKE_VNUTF8_H
