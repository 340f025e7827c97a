// VnSortedDWordArray.h - a set of DWORD values kept unique and ascending.
//
// A CDWordArray whose Insert and Remove keep the values ascending (compared
// as unsigned) and drop duplicates in silence.  Small arrays are scanned,
// larger ones bisected.  Sort orders an array that was filled by other means;
// it keeps duplicates.
#ifndef VN_FOUNDATION_COLLECTIONS_VNSORTEDDWORDARRAY_H
#define VN_FOUNDATION_COLLECTIONS_VNSORTEDDWORDARRAY_H

#include "afx/afx.h"

class VN_API CVnSortedDWordArray : public CDWordArray {
public:
  // The index of value, or -1.
  int Find(DWORD value) const;
  BOOL IsMember(DWORD value) const { return Find(value) != -1; }
  // Inserts value at its place unless it is present.
  void Insert(DWORD value);
  // Removes value if present.
  void Remove(DWORD value);
  // Sorts ascending, as unsigned values.
  void Sort();
};

#endif  // VN_FOUNDATION_COLLECTIONS_VNSORTEDDWORDARRAY_H
