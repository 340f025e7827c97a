// CStringList.h - a doubly linked list of strings walked by POSITION.
//
// The framework's list class as the component uses it: names appended at the
// tail and walked from the head with GetNext.  A POSITION is an opaque handle
// to one node; null means "no more".  Taking the head or tail of an empty
// list, or walking from a null POSITION, raises AfxThrowInvalidArgException
// instead of reading through a null node.
#ifndef VN_AFX_CSTRINGLIST_H
#define VN_AFX_CSTRINGLIST_H

#include "afx/portable/AfxExceptions.h"
#include "afx/portable/CMap.h"  // POSITION
#include "afx/portable/CString.h"


class VN_API CStringList {
public:
  // The block size is kept for the framework's signature; nodes are
  // allocated one at a time.
  explicit CStringList(INT_PTR blockSize = 10);
  ~CStringList();
  CStringList(const CStringList&) = delete;
  CStringList& operator=(const CStringList&) = delete;

  INT_PTR GetCount() const { return m_nCount; }
  INT_PTR GetSize() const { return m_nCount; }
  bool IsEmpty() const { return m_nCount == 0; }

  const CString& GetHead() const;
  const CString& GetTail() const;
  POSITION AddHead(LPCWSTR text);
  POSITION AddTail(LPCWSTR text);
  CString RemoveHead();
  CString RemoveTail();
  void RemoveAll();

  POSITION GetHeadPosition() const;
  POSITION GetTailPosition() const;
  // The element at pos; pos moves to the next (previous) node or null.
  const CString& GetNext(POSITION& pos) const;
  const CString& GetPrev(POSITION& pos) const;
  const CString& GetAt(POSITION pos) const;
  // The first node after `after` (from the head when null) whose text
  // equals text exactly; null when there is none.
  POSITION Find(LPCWSTR text, POSITION after = nullptr) const;

private:
  struct Node;
  Node* m_pHead = nullptr;
  Node* m_pTail = nullptr;
  INT_PTR m_nCount = 0;
};

#endif  // VN_AFX_CSTRINGLIST_H
