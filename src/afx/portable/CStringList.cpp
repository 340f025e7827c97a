// CStringList.cpp - nodes of the string list.
#include "afx/portable/CStringList.h"

struct CStringList::Node {
  CString text;
  Node* prev;
  Node* next;
};

CStringList::CStringList(INT_PTR) {}

CStringList::~CStringList() { RemoveAll(); }

// A POSITION is the address of a node; a null one is a caller's fault.
static void CheckPosition(POSITION pos) {
  if (!pos)
    AfxThrowInvalidArgException();
}

const CString& CStringList::GetHead() const {
  if (!m_pHead)
    AfxThrowInvalidArgException();
  return m_pHead->text;
}

const CString& CStringList::GetTail() const {
  if (!m_pTail)
    AfxThrowInvalidArgException();
  return m_pTail->text;
}

POSITION CStringList::AddHead(LPCWSTR text) {
  Node* node = new Node{CString(text), nullptr, m_pHead};
  if (m_pHead)
    m_pHead->prev = node;
  else
    m_pTail = node;
  m_pHead = node;
  ++m_nCount;
  return reinterpret_cast<POSITION>(node);
}

POSITION CStringList::AddTail(LPCWSTR text) {
  Node* node = new Node{CString(text), m_pTail, nullptr};
  if (m_pTail)
    m_pTail->next = node;
  else
    m_pHead = node;
  m_pTail = node;
  ++m_nCount;
  return reinterpret_cast<POSITION>(node);
}

CString CStringList::RemoveHead() {
  if (!m_pHead)
    AfxThrowInvalidArgException();
  Node* node = m_pHead;
  m_pHead = node->next;
  if (m_pHead)
    m_pHead->prev = nullptr;
  else
    m_pTail = nullptr;
  --m_nCount;
  CString text = node->text;
  delete node;
  return text;
}

CString CStringList::RemoveTail() {
  if (!m_pTail)
    AfxThrowInvalidArgException();
  Node* node = m_pTail;
  m_pTail = node->prev;
  if (m_pTail)
    m_pTail->next = nullptr;
  else
    m_pHead = nullptr;
  --m_nCount;
  CString text = node->text;
  delete node;
  return text;
}

void CStringList::RemoveAll() {
  while (m_pHead) {
    Node* next = m_pHead->next;
    delete m_pHead;
    m_pHead = next;
  }
  m_pTail = nullptr;
  m_nCount = 0;
}

POSITION CStringList::GetHeadPosition() const { return reinterpret_cast<POSITION>(m_pHead); }

POSITION CStringList::GetTailPosition() const { return reinterpret_cast<POSITION>(m_pTail); }

const CString& CStringList::GetNext(POSITION& pos) const {
  CheckPosition(pos);
  Node* node = reinterpret_cast<Node*>(pos);
  pos = reinterpret_cast<POSITION>(node->next);
  return node->text;
}

const CString& CStringList::GetPrev(POSITION& pos) const {
  CheckPosition(pos);
  Node* node = reinterpret_cast<Node*>(pos);
  pos = reinterpret_cast<POSITION>(node->prev);
  return node->text;
}

const CString& CStringList::GetAt(POSITION pos) const {
  CheckPosition(pos);
  return reinterpret_cast<Node*>(pos)->text;
}

POSITION CStringList::Find(LPCWSTR text, POSITION after) const {
  const CString wanted(text);
  for (Node* node = after ? reinterpret_cast<Node*>(after)->next : m_pHead; node; node = node->next)
    if (node->text == wanted)
      return reinterpret_cast<POSITION>(node);
  return nullptr;
}
