// VnArray.h - arrays of the component's collection layer.
//
// CVnArray is the framework's CArray under the component's own name.  On it
// CVnSortableArrayImpl builds arrays kept in an order of their own: two
// virtuals decide the order, SortElements (used by FindIndex, Insert, Remove
// and Compare) and DoSort (the whole-array sort).  A subclass that changes the
// order overrides both.  FindIndex, Insert, Remove and Compare expect the
// array to be sorted already; they never sort it themselves.
//
// Compare is one merge over two sorted arrays that splits them into what
// both hold, what only the other holds and what only this one holds.
// Duplicates pair up one for one.
//
// The templates are instantiated in VnArray.cpp for exactly the element
// types the component exports; other element types do not link.
#ifndef VN_FOUNDATION_COLLECTIONS_VNARRAY_H
#define VN_FOUNDATION_COLLECTIONS_VNARRAY_H

#include "afx/afx.h"
#include "afx/portable/CStringA.h"

template <class TYPE, class ARG_TYPE>
class CVnArray : public CArray<TYPE, ARG_TYPE> {};

template <class BASE, class TYPE, class ARG_TYPE>
class CVnSortableArrayImpl : public BASE {
public:
  enum CompareResult {
    CompareIdentical = 0,     // no element lies in only one array
    CompareThisHasMore = 1,   // some only in this array, none only in the other
    CompareOtherHasMore = 2,  // some only in the other, none only in this one
    CompareBothHaveMore = 3   // each holds elements the other lacks
  };

  // Does nothing on an empty array, else DoSort.
  void Sort();
  // Sorts, then drops each element equal (by the element's own equality) to
  // its predecessor.
  void SortAndRemoveDuplicates();
  // Binary search.  On a hit index is the element's position; on a miss it
  // is where value would have to be inserted to keep the order.
  bool FindIndex(ARG_TYPE value, int& index) const;
  bool Contains(ARG_TYPE value) const;
  // Inserts value at its place.  A present value is overwritten when replace
  // is set (true), else left alone (false).
  bool Insert(ARG_TYPE value, bool replace);
  // Removes one element equal to value; false when there is none.
  bool Remove(ARG_TYPE value);
  // Splits this array and other into the three outputs, emptied first.  The
  // outputs must be distinct from both inputs (else CInvalidArgException).
  CompareResult Compare(const CVnSortableArrayImpl& other, CVnSortableArrayImpl& common,
                        CVnSortableArrayImpl& onlyInOther, CVnSortableArrayImpl& onlyInThis) const;

  virtual void DoSort() = 0;
  // -1, 0 or 1 as *a orders before, with or after *b.
  virtual int SortElements(const TYPE* a, const TYPE* b) const = 0;

protected:
  // The element's address; an index outside raises CInvalidArgException.
  TYPE* ElementPtrAt(int index) const;
};

template <class TYPE, class ARG_TYPE>
class CVnSortableArray : public CVnSortableArrayImpl<CVnArray<TYPE, ARG_TYPE>, TYPE, ARG_TYPE> {
public:
  // Non-zero when Compare finds no element in only one of the two arrays.
  int operator==(const CVnSortableArray& other) const;

  void DoSort() override;
  int SortElements(const TYPE* a, const TYPE* b) const override;

private:
  static int qsortCompare(const void* a, const void* b);
};

// The exported instantiations.
class VN_API CVnByteArray : public CVnArray<BYTE, BYTE> {};
class VN_API CVnWordArray : public CVnArray<WORD, WORD> {};
class VN_API CVnDWordArray : public CVnArray<DWORD, DWORD> {};
class VN_API CVnDoubleArray : public CVnArray<double, double> {};

class VN_API CVnSortableLongArray : public CVnSortableArray<long, long> {
public:
  // Replaces the contents with source's values, each DWORD taken as the
  // long of the same bits.
  void Copy(const CDWordArray& source);
};

class VN_API CVnStringArray : public CVnSortableArray<CString, const CString&> {
public:
  // Element 0, then separator and element for every later non-empty element.
  void ConcatenateAll(CString& result, LPCWSTR separator) const;
};

class VN_API CVnStringArrayA : public CVnSortableArray<CStringA, const CStringA&> {};

extern template class CVnSortableArrayImpl<CVnArray<long, long>, long, long>;
extern template class CVnSortableArrayImpl<CVnArray<CString, const CString&>, CString, const CString&>;
extern template class CVnSortableArrayImpl<CVnArray<CStringA, const CStringA&>, CStringA, const CStringA&>;
extern template class CVnSortableArray<long, long>;
extern template class CVnSortableArray<CString, const CString&>;
extern template class CVnSortableArray<CStringA, const CStringA&>;

#endif  // VN_FOUNDATION_COLLECTIONS_VNARRAY_H
