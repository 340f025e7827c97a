// VnArray.cpp - sorted arrays: search, insertion, removal, the merge that
// tells two sorted arrays apart, and the exported instantiations.
//
// The element order of the concrete arrays: numbers by their signed value,
// strings by the string's own case-sensitive Compare.  Every comparison is
// folded to -1, 0 or 1.
#include "foundation/collections/VnArray.h"

#include <algorithm>
#include <cstdlib>
#include <initializer_list>
#include <type_traits>

//===-- Element order -------------------------------------------------------===//

static int Sign(int c) { return c < 0 ? -1 : (c > 0 ? 1 : 0); }

static int ThreeWay(long a, long b) { return a < b ? -1 : (b < a ? 1 : 0); }
static int ThreeWay(const CString& a, const CString& b) { return Sign(a.Compare(b)); }
static int ThreeWay(const CStringA& a, const CStringA& b) { return Sign(a.Compare(b)); }

//===-- CVnSortableArrayImpl ------------------------------------------------===//

template <class BASE, class TYPE, class ARG_TYPE>
void CVnSortableArrayImpl<BASE, TYPE, ARG_TYPE>::Sort() {
  if (this->GetSize() > 0)
    DoSort();
}

template <class BASE, class TYPE, class ARG_TYPE>
void CVnSortableArrayImpl<BASE, TYPE, ARG_TYPE>::SortAndRemoveDuplicates() {
  Sort();
  for (INT_PTR i = this->GetSize() - 1; i >= 1; --i)
    if (this->GetAt(i) == this->GetAt(i - 1))
      this->RemoveAt(i);
}

template <class BASE, class TYPE, class ARG_TYPE>
bool CVnSortableArrayImpl<BASE, TYPE, ARG_TYPE>::FindIndex(ARG_TYPE value, int& index) const {
  const int size = static_cast<int>(this->GetSize());
  // Outside the range at either end: no search needed.
  if (size == 0 || SortElements(ElementPtrAt(0), &value) >= 1) {
    index = 0;
    return false;
  }
  if (SortElements(ElementPtrAt(size - 1), &value) < 0) {
    index = size;
    return false;
  }
  int low = 0, high = size - 1;
  while (low <= high) {
    index = (low + high) / 2;
    int c = SortElements(ElementPtrAt(index), &value);
    if (c == 0)
      return true;
    if (c < 0)
      low = ++index;
    else
      high = index - 1;
  }
  return false;
}

template <class BASE, class TYPE, class ARG_TYPE>
bool CVnSortableArrayImpl<BASE, TYPE, ARG_TYPE>::Contains(ARG_TYPE value) const {
  int ignored = 0;
  return FindIndex(value, ignored);
}

template <class BASE, class TYPE, class ARG_TYPE>
bool CVnSortableArrayImpl<BASE, TYPE, ARG_TYPE>::Insert(ARG_TYPE value, bool replace) {
  int index = 0;
  if (!FindIndex(value, index)) {
    this->InsertAt(index, value);
    return true;
  }
  if (!replace)
    return false;
  this->SetAt(index, value);
  return true;
}

template <class BASE, class TYPE, class ARG_TYPE>
bool CVnSortableArrayImpl<BASE, TYPE, ARG_TYPE>::Remove(ARG_TYPE value) {
  int index = 0;
  if (!FindIndex(value, index))
    return false;
  this->RemoveAt(index);
  return true;
}

// Empties an output and presets its growth step to the most it can receive,
// so that the first element added allocates the whole buffer.
template <class ARRAY>
static void ResetOutput(ARRAY& out, INT_PTR capacity) {
  out.SetSize(0, capacity);
  out.FreeExtra();
}

// An output that is also an input, or twice an output, would be emptied or
// filled while it is read.
static bool OutputsAreDistinct(const void* a, const void* b, std::initializer_list<const void*> outs) {
  for (auto out = outs.begin(); out != outs.end(); ++out) {
    if (*out == a || *out == b)
      return false;
    for (auto later = out + 1; later != outs.end(); ++later)
      if (*later == *out)
        return false;
  }
  return true;
}

template <class BASE, class TYPE, class ARG_TYPE>
typename CVnSortableArrayImpl<BASE, TYPE, ARG_TYPE>::CompareResult
CVnSortableArrayImpl<BASE, TYPE, ARG_TYPE>::Compare(const CVnSortableArrayImpl& other,
                                                    CVnSortableArrayImpl& common,
                                                    CVnSortableArrayImpl& onlyInOther,
                                                    CVnSortableArrayImpl& onlyInThis) const {
  if (!OutputsAreDistinct(this, &other, {&common, &onlyInOther, &onlyInThis}))
    AfxThrowInvalidArgException();

  const INT_PTR mine = this->GetSize(), theirs = other.GetSize();
  ResetOutput(common, mine > theirs ? mine : theirs);
  ResetOutput(onlyInOther, theirs);
  ResetOutput(onlyInThis, mine);

  // The merge.
  INT_PTR i = 0, j = 0;
  while (i < mine && j < theirs) {
    int c = SortElements(ElementPtrAt(static_cast<int>(i)), other.ElementPtrAt(static_cast<int>(j)));
    if (c == 0) {
      common.Add(this->GetAt(i++));
      ++j;
    } else if (c < 0) {
      onlyInThis.Add(this->GetAt(i++));
    } else {
      onlyInOther.Add(other.GetAt(j++));
    }
  }
  // The tail of whichever array is left.
  for (; j < theirs; ++j)
    onlyInOther.Add(other.GetAt(j));
  for (; i < mine; ++i)
    onlyInThis.Add(this->GetAt(i));

  const bool otherHasMore = onlyInOther.GetSize() > 0, thisHasMore = onlyInThis.GetSize() > 0;
  if (otherHasMore && thisHasMore)
    return CompareBothHaveMore;
  if (otherHasMore)
    return CompareOtherHasMore;
  return thisHasMore ? CompareThisHasMore : CompareIdentical;
}

template <class BASE, class TYPE, class ARG_TYPE>
TYPE* CVnSortableArrayImpl<BASE, TYPE, ARG_TYPE>::ElementPtrAt(int index) const {
  return const_cast<TYPE*>(&this->GetAt(index));
}

//===-- CVnSortableArray ----------------------------------------------------===//

template <class TYPE, class ARG_TYPE>
int CVnSortableArray<TYPE, ARG_TYPE>::operator==(const CVnSortableArray& other) const {
  CVnSortableArray common, onlyInOther, onlyInThis;
  return this->Compare(other, common, onlyInOther, onlyInThis) == this->CompareIdentical;
}

// qsort moves elements by their bytes, which is only sound for element
// types without an address of their own inside; strings are sorted by
// std::sort through the same comparator, equally without a stable order.
template <class TYPE, class ARG_TYPE>
void CVnSortableArray<TYPE, ARG_TYPE>::DoSort() {
  TYPE* data = this->GetData();
  const size_t count = static_cast<size_t>(this->GetSize());
  if (!data)
    return;
  if constexpr (std::is_trivially_copyable<TYPE>::value)
    std::qsort(data, count, sizeof(TYPE), &qsortCompare);
  else
    std::sort(data, data + count, [](const TYPE& a, const TYPE& b) { return qsortCompare(&a, &b) < 0; });
}

template <class TYPE, class ARG_TYPE>
int CVnSortableArray<TYPE, ARG_TYPE>::SortElements(const TYPE* a, const TYPE* b) const {
  return ThreeWay(*a, *b);
}

template <class TYPE, class ARG_TYPE>
int CVnSortableArray<TYPE, ARG_TYPE>::qsortCompare(const void* a, const void* b) {
  return ThreeWay(*static_cast<const TYPE*>(a), *static_cast<const TYPE*>(b));
}

//===-- The exported instantiations -----------------------------------------===//

template class CVnSortableArrayImpl<CVnArray<long, long>, long, long>;
template class CVnSortableArrayImpl<CVnArray<CString, const CString&>, CString, const CString&>;
template class CVnSortableArrayImpl<CVnArray<CStringA, const CStringA&>, CStringA, const CStringA&>;
template class CVnSortableArray<long, long>;
template class CVnSortableArray<CString, const CString&>;
template class CVnSortableArray<CStringA, const CStringA&>;

// The array buffer is freed first, so a copy from a smaller source does not
// keep the old block.  The long of the same bits is the 32-bit one, so that
// 0xFFFFFFFF reads -1 on every platform.
void CVnSortableLongArray::Copy(const CDWordArray& source) {
  SetSize(0);
  FreeExtra();
  const INT_PTR count = source.GetSize();
  if (count == 0)
    return;
  SetSize(count);
  for (INT_PTR i = 0; i < count; ++i)
    ElementAt(i) = static_cast<long>(static_cast<int32_t>(source.GetAt(i)));
}

void CVnStringArray::ConcatenateAll(CString& result, LPCWSTR separator) const {
  result.Empty();
  if (GetSize() == 0)
    return;
  result = GetAt(0);
  for (INT_PTR i = 1; i < GetSize(); ++i)
    if (!GetAt(i).IsEmpty()) {
      result += separator;
      result += GetAt(i);
    }
}
