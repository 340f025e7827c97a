// TypedOwnerPtrArray.h - a typed pointer array that owns its elements.
//
// Destroying the array, or DeleteAllMembers, deletes every element with plain
// delete and leaves the array empty.
#ifndef VN_ENGINE_TYPEDOWNERPTRARRAY_H
#define VN_ENGINE_TYPEDOWNERPTRARRAY_H

#include "afx/afx.h"

template <class TYPE>
class CTypedOwnerPtrArray : public CTypedPtrArray<CPtrArray, TYPE*> {
public:
  CTypedOwnerPtrArray() = default;
  ~CTypedOwnerPtrArray() override { DeleteAllMembers(); }

  void DeleteAllMembers() {
    INT_PTR count = this->GetSize();
    for (INT_PTR i = 0; i < count; ++i)
      delete this->GetAt(i);
    this->SetSize(0, -1);
  }
};

#endif  // VN_ENGINE_TYPEDOWNERPTRARRAY_H
