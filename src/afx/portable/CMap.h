// CMap.h - a chained hash map with the framework's interface.
//
// The bucket count is fixed by InitHashTable (17 by default, as the framework
// does) and never changes on its own: callers size it, which is what the
// component's hash table sizing is for.  Iteration with GetStartPosition /
// GetNextAssoc walks buckets in order and each chain from its head.
#ifndef VN_AFX_CMAP_H
#define VN_AFX_CMAP_H

#include "afx/portable/AfxExceptions.h"
#include "afx/portable/CString.h"

#include <vector>

struct __VN_POSITION {};
typedef __VN_POSITION* POSITION;

// Hash of a key; integers hash to themselves shifted, as the framework does.
template <class ARG_KEY>
inline UINT HashKey(ARG_KEY key) {
  return static_cast<UINT>(static_cast<DWORD_PTR>(key) >> 4);
}
// DWORD keys hash to themselves, unshifted: the component's maps with
// such keys put key k in bucket k modulo the table size.
template <>
inline UINT HashKey<DWORD>(DWORD key) {
  return static_cast<UINT>(key);
}
template <>
inline UINT HashKey<LPCWSTR>(LPCWSTR key) {
  UINT h = 0;
  while (key && *key)
    h = (h << 5) + h + static_cast<UINT>(*key++);
  return h;
}
template <>
inline UINT HashKey<const CString&>(const CString& key) {
  return HashKey<LPCWSTR>(key.GetString());
}

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CMap {
public:
  struct CAssoc {
    CAssoc* pNext;
    UINT nHashValue;
    KEY key;
    VALUE value;
  };

  explicit CMap(INT_PTR blockSize = 10) {}
  virtual ~CMap() { RemoveAll(); }
  CMap(const CMap&) = delete;
  CMap& operator=(const CMap&) = delete;

  INT_PTR GetCount() const { return m_nCount; }
  INT_PTR GetSize() const { return m_nCount; }
  bool IsEmpty() const { return m_nCount == 0; }
  UINT GetHashTableSize() const { return m_nHashTableSize; }

  // Sets the bucket count; only while the map is empty, as the framework says.
  void InitHashTable(UINT size, BOOL = TRUE) {
    if (m_nCount != 0 || size == 0)
      AfxThrowInvalidArgException();
    m_nHashTableSize = size;
    m_table.clear();
  }

  BOOL Lookup(ARG_KEY key, VALUE& value) const {
    const CAssoc* a = Find(key);
    if (!a)
      return FALSE;
    value = a->value;
    return TRUE;
  }
  // The association of key, null when absent; gives the key as stored.
  const CAssoc* PLookup(ARG_KEY key) const { return Find(key); }
  VALUE& operator[](ARG_KEY key) {
    if (CAssoc* a = Find(key))
      return a->value;
    if (m_table.empty())
      m_table.assign(m_nHashTableSize, nullptr);
    UINT h = HashKey<ARG_KEY>(key);
    CAssoc* a = new CAssoc{m_table[h % m_nHashTableSize], h, KEY(key), VALUE()};
    m_table[h % m_nHashTableSize] = a;
    ++m_nCount;
    return a->value;
  }
  void SetAt(ARG_KEY key, ARG_VALUE value) { (*this)[key] = value; }

  BOOL RemoveKey(ARG_KEY key) {
    if (m_table.empty())
      return FALSE;
    UINT h = HashKey<ARG_KEY>(key);
    for (CAssoc** link = &m_table[h % m_nHashTableSize]; *link; link = &(*link)->pNext)
      if ((*link)->key == key) {
        CAssoc* dead = *link;
        *link = dead->pNext;
        delete dead;
        --m_nCount;
        return TRUE;
      }
    return FALSE;
  }
  void RemoveAll() {
    for (CAssoc* head : m_table)
      while (head) {
        CAssoc* next = head->pNext;
        delete head;
        head = next;
      }
    m_table.clear();
    m_nCount = 0;
  }

  POSITION GetStartPosition() const {
    return m_nCount == 0 ? nullptr : reinterpret_cast<POSITION>(const_cast<CAssoc*>(FirstFrom(0)));
  }
  void GetNextAssoc(POSITION& pos, KEY& key, VALUE& value) const {
    const CAssoc* a = reinterpret_cast<const CAssoc*>(pos);
    if (!a)
      AfxThrowInvalidArgException();
    key = a->key;
    value = a->value;
    const CAssoc* next = a->pNext ? a->pNext : FirstFrom(a->nHashValue % m_nHashTableSize + 1);
    pos = reinterpret_cast<POSITION>(const_cast<CAssoc*>(next));
  }

private:
  CAssoc* Find(ARG_KEY key) const {
    if (m_table.empty())
      return nullptr;
    UINT h = HashKey<ARG_KEY>(key);
    for (CAssoc* a = m_table[h % m_nHashTableSize]; a; a = a->pNext)
      if (a->key == key)
        return a;
    return nullptr;
  }
  const CAssoc* FirstFrom(UINT bucket) const {
    for (; bucket < m_table.size(); ++bucket)
      if (m_table[bucket])
        return m_table[bucket];
    return nullptr;
  }

  std::vector<CAssoc*> m_table;
  UINT m_nHashTableSize = 17;
  INT_PTR m_nCount = 0;
};

#endif  // VN_AFX_CMAP_H
