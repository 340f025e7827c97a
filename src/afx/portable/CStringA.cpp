// CStringA.cpp - the 8-bit string.
#include "afx/portable/CStringA.h"

#include "afx/portable/AfxExceptions.h"

#include <cstring>

CStringA::CStringA(LPCSTR text) : m_str(text ? text : "") {}

CStringA::CStringA(LPCSTR text, int length) {
  if (text && length > 0)
    m_str.assign(text, static_cast<size_t>(length));
}

char CStringA::GetAt(int index) const {
  if (index < 0 || index >= GetLength())
    AfxThrowInvalidArgException();
  return m_str[static_cast<size_t>(index)];
}

CStringA& CStringA::operator+=(LPCSTR s) {
  if (s)
    m_str += s;
  return *this;
}

// strcmp compares as unsigned char; so does std::string's char_traits<char>
// only by accident of the platform, hence the explicit call.
int CStringA::Compare(LPCSTR s) const {
  return std::strcmp(m_str.c_str(), s ? s : "");
}

bool operator==(const CStringA& a, const CStringA& b) { return a.Compare(b) == 0 && a.GetLength() == b.GetLength(); }
bool operator!=(const CStringA& a, const CStringA& b) { return !(a == b); }
