// CObject.cpp - run-time class information of the root class.
#include "afx/portable/CObject.h"

CRuntimeClass CObject::classCObject = {"CObject", static_cast<int>(sizeof(CObject)), 0xFFFF, nullptr, nullptr};

CRuntimeClass* CObject::GetThisClass() { return &classCObject; }
CRuntimeClass* CObject::GetRuntimeClass() const { return &classCObject; }

bool CObject::IsKindOf(const CRuntimeClass* cls) const { return GetRuntimeClass()->IsDerivedFrom(cls); }

CObject* CRuntimeClass::CreateObject() const { return m_pfnCreateObject ? m_pfnCreateObject() : nullptr; }

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass* base) const {
  for (const CRuntimeClass* c = this; c; c = c->m_pBaseClass)
    if (c == base)
      return true;
  return false;
}
