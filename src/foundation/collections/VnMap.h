// VnMap.h - hash maps of the component's collection layer.
//
// CVnMap is the framework's CMap with copying, appending and lookups that
// give back the key as stored.  CVnPtrMap holds pointers to heap objects and,
// with its auto-delete flag set, deletes them when it is destroyed.
//
// Maps keep the framework's 17 buckets unless a caller sizes them; a DWORD
// key lands in bucket key modulo the table size.  HashTableSize suggests a
// prime bucket count for an expected number of entries.
//
// A copy of a CVnPtrMap shares the pointers of its source and takes its flag:
// at most one of the two may still have auto-delete on when both are
// destroyed.  The caller settles that with SetAutoDelete.
#ifndef VN_FOUNDATION_COLLECTIONS_VNMAP_H
#define VN_FOUNDATION_COLLECTIONS_VNMAP_H

#include "afx/afx.h"

template <class KEY, class ARG_KEY, class VALUE, class ARG_VALUE>
class CVnMap : public CMap<KEY, ARG_KEY, VALUE, ARG_VALUE> {
public:
  CVnMap() = default;
  // A map with the source's bucket count and associations.
  CVnMap(const CVnMap& other);

  // Adds every association of other; a key present in both takes other's value.
  void Append(const CVnMap& other);
  // RemoveAll, then Append.  Copying a map onto itself changes nothing.
  void Copy(const CVnMap& other);
  // When key is present: overwrites it with the key as stored, gives true.
  bool LookupKey(KEY& key) const;
  // As LookupKey, and value takes the stored value.
  bool LookupKeyAndValue(KEY& key, VALUE& value) const;

protected:
  // Associations are allocated one at a time by the map below, so the block
  // size is only checked here, never used.
  void SetBlockSize(int blockSize);
};

template <class KEY, class ARG_KEY, class VALUE>
class CVnPtrMap : public CVnMap<KEY, ARG_KEY, VALUE*, VALUE*> {
public:
  explicit CVnPtrMap(BOOL autoDelete);
  // Shares the source's pointers and takes its flag (see the file comment).
  CVnPtrMap(const CVnPtrMap& other);
  ~CVnPtrMap() override;

  BOOL IsAutoDelete() const { return m_bAutoDelete; }
  void SetAutoDelete(BOOL autoDelete) { m_bAutoDelete = autoDelete; }

  // Deletes every non-null value, then removes all keys.
  virtual void RemoveAndDeleteAll();
  // 0 when key is absent; else removes it, deletes its value if not null,
  // and gives 1.
  virtual int RemoveAndDelete(ARG_KEY key);

private:
  BOOL m_bAutoDelete;
};

// The exported instantiations.
class VN_API CVnDWordCStringMap : public CVnMap<DWORD, DWORD, CString, const CString&> {
public:
  CVnDWordCStringMap() = default;
  CVnDWordCStringMap(const CVnDWordCStringMap& other);
};

class VN_API CVnCStringToDWordMap : public CMap<CString, LPCWSTR, DWORD, DWORD> {};

class VN_API CVnDWordDWordCStringMap : public CVnPtrMap<DWORD, DWORD, CVnDWordCStringMap> {
public:
  // Auto-delete is off unless the owner turns it on.
  CVnDWordDWordCStringMap();
  CVnDWordDWordCStringMap(const CVnDWordDWordCStringMap& other);
};

// A prime bucket count for count entries: the first prime of a fixed table
// above count * 12 / 10 (32-bit, truncated), at most 5000011.
VN_API UINT HashTableSize(UINT count);

extern template class CVnMap<DWORD, DWORD, CString, const CString&>;
extern template class CVnMap<DWORD, DWORD, CVnDWordCStringMap*, CVnDWordCStringMap*>;
extern template class CVnPtrMap<DWORD, DWORD, CVnDWordCStringMap>;

#endif  // VN_FOUNDATION_COLLECTIONS_VNMAP_H
