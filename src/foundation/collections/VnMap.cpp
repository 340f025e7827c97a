// VnMap.cpp - copying, appending and key lookups of the maps, the owning
// pointer map, and the bucket count suggestion.
#include "foundation/collections/VnMap.h"

#include <cassert>

//===-- CVnMap --------------------------------------------------------------===//

// The table is sized first, while the map is still empty, as the map below
// requires.
template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
CVnMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::CVnMap(const CVnMap& other) : CMap<KEY, ARG_KEY, VALUE, ARG_VALUE>() {
  this->InitHashTable(other.GetHashTableSize());
  Append(other);
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
void CVnMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::Append(const CVnMap& other) {
  KEY key;
  VALUE value;
  for (POSITION pos = other.GetStartPosition(); pos;) {
    other.GetNextAssoc(pos, key, value);
    (*this)[key] = value;
  }
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
void CVnMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::Copy(const CVnMap& other) {
  if (&other == this)
    return;
  this->RemoveAll();
  Append(other);
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
bool CVnMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::LookupKey(KEY& key) const {
  auto assoc = this->PLookup(key);
  if (!assoc)
    return false;
  key = assoc->key;
  return true;
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
bool CVnMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::LookupKeyAndValue(KEY& key, VALUE& value) const {
  auto assoc = this->PLookup(key);
  if (!assoc)
    return false;
  key = assoc->key;
  value = assoc->value;
  return true;
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
void CVnMap<KEY, ARG_KEY, VALUE, ARG_VALUE>::SetBlockSize(int blockSize) {
  if (blockSize <= 0)
    AfxThrowInvalidArgException();
}

//===-- CVnPtrMap -----------------------------------------------------------===//

template <class KEY, class ARG_KEY, class VALUE>
CVnPtrMap<KEY, ARG_KEY, VALUE>::CVnPtrMap(BOOL autoDelete) : m_bAutoDelete(autoDelete) {}

template <class KEY, class ARG_KEY, class VALUE>
CVnPtrMap<KEY, ARG_KEY, VALUE>::CVnPtrMap(const CVnPtrMap& other)
    : CVnMap<KEY, ARG_KEY, VALUE*, VALUE*>(other), m_bAutoDelete(other.m_bAutoDelete) {}

template <class KEY, class ARG_KEY, class VALUE>
CVnPtrMap<KEY, ARG_KEY, VALUE>::~CVnPtrMap() {
  if (m_bAutoDelete)
    RemoveAndDeleteAll();
}

template <class KEY, class ARG_KEY, class VALUE>
void CVnPtrMap<KEY, ARG_KEY, VALUE>::RemoveAndDeleteAll() {
  KEY key;
  VALUE* value = nullptr;
  for (POSITION pos = this->GetStartPosition(); pos;) {
    this->GetNextAssoc(pos, key, value);
    delete value;
  }
  this->RemoveAll();
}

// The key goes before the value is deleted, so a value's destructor never
// finds itself still in the map.
template <class KEY, class ARG_KEY, class VALUE>
int CVnPtrMap<KEY, ARG_KEY, VALUE>::RemoveAndDelete(ARG_KEY key) {
  VALUE* value = nullptr;
  if (!this->Lookup(key, value))
    return 0;
  this->RemoveKey(key);
  delete value;
  return 1;
}

//===-- The exported instantiations -----------------------------------------===//

template class CVnMap<DWORD, DWORD, CString, const CString&>;
template class CVnMap<DWORD, DWORD, CVnDWordCStringMap*, CVnDWordCStringMap*>;
template class CVnPtrMap<DWORD, DWORD, CVnDWordCStringMap>;

CVnDWordCStringMap::CVnDWordCStringMap(const CVnDWordCStringMap& other)
    : CVnMap<DWORD, DWORD, CString, const CString&>(other) {}

CVnDWordDWordCStringMap::CVnDWordDWordCStringMap() : CVnPtrMap<DWORD, DWORD, CVnDWordCStringMap>(FALSE) {}

CVnDWordDWordCStringMap::CVnDWordDWordCStringMap(const CVnDWordDWordCStringMap& other)
    : CVnPtrMap<DWORD, DWORD, CVnDWordCStringMap>(other) {}

//===-- HashTableSize -------------------------------------------------------===//

static const UINT kPrimes[] = {29,    53,    101,    211,    401,    809,     2003,    4001,    8009,
                               15013, 30011, 60013, 100003, 250007, 500009, 1000003, 2000003, 5000011};

UINT HashTableSize(UINT count) {
  const UINT wanted = static_cast<UINT>(static_cast<uint32_t>(count * 12u) / 10u);
  for (UINT prime : kPrimes)
    if (prime > wanted)
      return prime;
  return kPrimes[sizeof(kPrimes) / sizeof(kPrimes[0]) - 1];
}
