// CArray.h - growable arrays: CArray, CPtrArray, CTypedPtrArray,
// CDWordArray, CStringArray.
//
// Elements live in one contiguous block.  SetSize's growth step is kept as a
// lower bound on how far the block grows at a time.  An index outside the
// array raises AfxThrowInvalidArgException, never reads or writes outside it.
#ifndef VN_AFX_CARRAY_H
#define VN_AFX_CARRAY_H

#include "afx/portable/AfxExceptions.h"
#include "afx/portable/CString.h"

#include <utility>
#include <vector>

typedef INT_PTR VN_INDEX;

template <class TYPE, class ARG_TYPE = const TYPE&>
class CArray {
public:
  CArray() = default;
  virtual ~CArray() = default;
  CArray(const CArray&) = delete;
  CArray& operator=(const CArray&) = delete;

  INT_PTR GetSize() const { return static_cast<INT_PTR>(m_data.size()); }
  INT_PTR GetCount() const { return GetSize(); }
  INT_PTR GetUpperBound() const { return GetSize() - 1; }
  bool IsEmpty() const { return m_data.empty(); }

  // Resizes to newSize (new elements value-initialised); growBy, when not -1,
  // becomes the growth step.
  void SetSize(INT_PTR newSize, INT_PTR growBy = -1) {
    if (newSize < 0)
      AfxThrowInvalidArgException();
    if (growBy >= 0)
      m_nGrowBy = growBy;
    Reserve(newSize);
    m_data.resize(static_cast<size_t>(newSize));
  }
  void FreeExtra() { m_data.shrink_to_fit(); }
  void RemoveAll() { m_data.clear(); }

  const TYPE& GetAt(INT_PTR i) const { return m_data[Check(i)]; }
  TYPE& ElementAt(INT_PTR i) { return m_data[Check(i)]; }
  void SetAt(INT_PTR i, ARG_TYPE v) { m_data[Check(i)] = v; }
  const TYPE& operator[](INT_PTR i) const { return GetAt(i); }
  TYPE& operator[](INT_PTR i) { return ElementAt(i); }
  const TYPE* GetData() const { return m_data.empty() ? nullptr : m_data.data(); }
  TYPE* GetData() { return m_data.empty() ? nullptr : m_data.data(); }

  void SetAtGrow(INT_PTR i, ARG_TYPE v) {
    if (i < 0)
      AfxThrowInvalidArgException();
    if (i >= GetSize())
      SetSize(i + 1);
    m_data[static_cast<size_t>(i)] = v;
  }
  INT_PTR Add(ARG_TYPE v) {
    Reserve(GetSize() + 1);
    m_data.push_back(v);
    return GetSize() - 1;
  }
  INT_PTR Append(const CArray& other) {
    INT_PTR first = GetSize();
    Reserve(first + other.GetSize());
    m_data.insert(m_data.end(), other.m_data.begin(), other.m_data.end());
    return first;
  }
  void Copy(const CArray& other) {
    if (this != &other)
      m_data = other.m_data;
  }
  void InsertAt(INT_PTR i, ARG_TYPE v, INT_PTR count = 1) {
    if (i < 0 || count < 0)
      AfxThrowInvalidArgException();
    if (i > GetSize())
      SetSize(i);
    Reserve(GetSize() + count);
    m_data.insert(m_data.begin() + i, static_cast<size_t>(count), TYPE(v));
  }
  void RemoveAt(INT_PTR i, INT_PTR count = 1) {
    if (i < 0 || count < 0 || i + count > GetSize())
      AfxThrowInvalidArgException();
    m_data.erase(m_data.begin() + i, m_data.begin() + i + count);
  }

protected:
  size_t Check(INT_PTR i) const {
    if (i < 0 || i >= GetSize())
      AfxThrowInvalidArgException();
    return static_cast<size_t>(i);
  }
  // Grows the block by at least the growth step, so appending line by line
  // to a large array reallocates rarely.
  void Reserve(INT_PTR want) {
    size_t need = static_cast<size_t>(want);
    if (need <= m_data.capacity())
      return;
    size_t step = m_nGrowBy > 0 ? static_cast<size_t>(m_nGrowBy) : 4;
    size_t grown = m_data.capacity() + (m_data.capacity() / 2 > step ? m_data.capacity() / 2 : step);
    m_data.reserve(need > grown ? need : grown);
  }

  std::vector<TYPE> m_data;
  INT_PTR m_nGrowBy = 0;
};

class CPtrArray : public CArray<void*, void*> {};
class CDWordArray : public CArray<DWORD, DWORD> {};
class CWordArray : public CArray<WORD, WORD> {};
class CByteArray : public CArray<BYTE, BYTE> {};
class CUIntArray : public CArray<UINT, UINT> {};
class CStringArray : public CArray<CString, const CString&> {};

// A pointer array that hands out typed pointers.
template <class BASE_CLASS, class TYPE>
class CTypedPtrArray : public BASE_CLASS {
public:
  TYPE GetAt(INT_PTR i) const { return static_cast<TYPE>(BASE_CLASS::GetAt(i)); }
  TYPE& ElementAt(INT_PTR i) { return reinterpret_cast<TYPE&>(BASE_CLASS::ElementAt(i)); }
  void SetAt(INT_PTR i, TYPE p) { BASE_CLASS::SetAt(i, p); }
  void SetAtGrow(INT_PTR i, TYPE p) { BASE_CLASS::SetAtGrow(i, p); }
  INT_PTR Add(TYPE p) { return BASE_CLASS::Add(p); }
  void InsertAt(INT_PTR i, TYPE p, INT_PTR count = 1) { BASE_CLASS::InsertAt(i, p, count); }
  TYPE operator[](INT_PTR i) const { return GetAt(i); }
  TYPE& operator[](INT_PTR i) { return ElementAt(i); }
};

#endif  // VN_AFX_CARRAY_H
