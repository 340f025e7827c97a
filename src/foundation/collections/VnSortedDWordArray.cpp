// VnSortedDWordArray.cpp - search, insertion and removal in an ascending
// array of unique DWORD values, and the sort that makes one.
#include "foundation/collections/VnSortedDWordArray.h"

#include <cstdlib>

// Below this size a scan from the start beats bisection.
static const int kScanLimit = 5;

// The index of the first element not below value, stopping at the last index;
// the array must not be empty.
static int ScanFor(const CDWordArray& a, DWORD value) {
  const int last = static_cast<int>(a.GetSize()) - 1;
  int i = 0;
  while (i < last && value > a[i])
    ++i;
  return i;
}

// Bisection of the open interval between both ends, which the caller has
// already tested.
static int Bisect(const CDWordArray& a, DWORD value) {
  int low = 0, high = static_cast<int>(a.GetSize()) - 1;
  while (low + 1 < high) {
    int mid = (low + high + 1) / 2;
    if (a[mid] == value)
      return mid;
    if (value < a[mid])
      high = mid;
    else
      low = mid;
  }
  return -1;
}

int CVnSortedDWordArray::Find(DWORD value) const {
  const int size = static_cast<int>(GetSize());
  if (size == 0 || value < GetAt(0) || value > GetAt(size - 1))
    return -1;
  if (size < kScanLimit) {
    int i = ScanFor(*this, value);
    return GetAt(i) == value ? i : -1;
  }
  if (GetAt(0) == value)
    return 0;
  if (GetAt(size - 1) == value)
    return size - 1;
  return Bisect(*this, value);
}

void CVnSortedDWordArray::Insert(DWORD value) {
  if (IsEmpty() || value > GetAt(GetSize() - 1)) {
    Add(value);
    return;
  }
  int i = ScanFor(*this, value);
  if (GetAt(i) != value)
    InsertAt(i, value);
}

void CVnSortedDWordArray::Remove(DWORD value) {
  if (IsEmpty() || value > GetAt(GetSize() - 1))
    return;
  int i = ScanFor(*this, value);
  if (GetAt(i) == value)
    RemoveAt(i);
}

// Values below 2^31 differ by less than 2^31, so their plain difference is
// a valid int result; with the top bit in play only a three-way answer is.
static int CompareSmall(const void* a, const void* b) {
  return static_cast<int>(*static_cast<const DWORD*>(a)) - static_cast<int>(*static_cast<const DWORD*>(b));
}

static int CompareUnsigned(const void* a, const void* b) {
  DWORD x = *static_cast<const DWORD*>(a), y = *static_cast<const DWORD*>(b);
  return x < y ? -1 : (x > y ? 1 : 0);
}

void CVnSortedDWordArray::Sort() {
  DWORD* data = GetData();
  if (!data)
    return;
  const size_t count = static_cast<size_t>(GetSize());
  bool topBit = false;
  for (size_t i = 0; i < count && !topBit; ++i)
    topBit = static_cast<int32_t>(data[i]) < 0;
  std::qsort(data, count, sizeof(DWORD), topBit ? &CompareUnsigned : &CompareSmall);
}
