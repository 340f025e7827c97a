// CStringA.h - a string of 8-bit units with value semantics.
//
// The narrow sibling of CString, for the few places that keep bytes as they
// came (8-bit string arrays).  Its text is never converted: Compare orders
// the bytes as unsigned values, as strcmp does.
#ifndef VN_AFX_CSTRINGA_H
#define VN_AFX_CSTRINGA_H

#include "afx/portable/AfxTypes.h"

#include <string>

class VN_API CStringA {
public:
  CStringA() = default;
  CStringA(LPCSTR text);
  CStringA(LPCSTR text, int length);
  explicit CStringA(const std::string& s) : m_str(s) {}

  int GetLength() const { return static_cast<int>(m_str.size()); }
  bool IsEmpty() const { return m_str.empty(); }
  void Empty() { m_str.clear(); }
  char GetAt(int index) const;
  operator LPCSTR() const { return m_str.c_str(); }
  LPCSTR GetString() const { return m_str.c_str(); }

  CStringA& operator+=(const CStringA& s) { m_str += s.m_str; return *this; }
  CStringA& operator+=(LPCSTR s);

  // Negative, zero or positive as this orders before, with or after s.
  int Compare(LPCSTR s) const;

private:
  std::string m_str;
};

bool operator==(const CStringA& a, const CStringA& b);
bool operator!=(const CStringA& a, const CStringA& b);

#endif  // VN_AFX_CSTRINGA_H
