// CObject.h - the root class with run-time class information.
//
// Each class that declares DECLARE_DYNAMIC has one static CRuntimeClass
// naming it and its base; IsKindOf walks that chain.  DECLARE_DYNCREATE adds a
// factory so CRuntimeClass::CreateObject can make an instance by class.
#ifndef VN_AFX_COBJECT_H
#define VN_AFX_COBJECT_H

#include "afx/portable/AfxTypes.h"

class CObject;

struct VN_API CRuntimeClass {
  LPCSTR m_lpszClassName;
  int m_nObjectSize;
  UINT m_wSchema;
  CObject* (*m_pfnCreateObject)();
  CRuntimeClass* m_pBaseClass;

  // A new object of this class, or null when the class has no factory.
  CObject* CreateObject() const;
  bool IsDerivedFrom(const CRuntimeClass* base) const;
};

class VN_API CObject {
public:
  virtual CRuntimeClass* GetRuntimeClass() const;
  virtual ~CObject() = default;
  virtual void AssertValid() const {}

  bool IsKindOf(const CRuntimeClass* cls) const;
  static CRuntimeClass* GetThisClass();
  static CRuntimeClass classCObject;

protected:
  CObject() = default;
  CObject(const CObject&) = default;
  CObject& operator=(const CObject&) = default;
};

#define RUNTIME_CLASS(name) (name::GetThisClass())

#define DECLARE_DYNAMIC(name)                                                  \
public:                                                                        \
  static CRuntimeClass class##name;                                            \
  static CRuntimeClass* GetThisClass();                                        \
  CRuntimeClass* GetRuntimeClass() const override;

#define DECLARE_DYNCREATE(name)                                                \
  DECLARE_DYNAMIC(name)                                                        \
  static CObject* CreateObject();

#define VN_IMPLEMENT_RUNTIMECLASS(name, base, schema, factory)                 \
  CRuntimeClass name::class##name = {#name, static_cast<int>(sizeof(name)),    \
                                     schema, factory, RUNTIME_CLASS(base)};    \
  CRuntimeClass* name::GetThisClass() { return &name::class##name; }           \
  CRuntimeClass* name::GetRuntimeClass() const { return &name::class##name; }

#define IMPLEMENT_DYNAMIC(name, base)                                          \
  VN_IMPLEMENT_RUNTIMECLASS(name, base, 0xFFFF, nullptr)

#define IMPLEMENT_DYNCREATE(name, base)                                        \
  CObject* name::CreateObject() { return new name; }                           \
  VN_IMPLEMENT_RUNTIMECLASS(name, base, 0xFFFF, name::CreateObject)

#endif  // VN_AFX_COBJECT_H
