// AfxResource.h - where templates and texts come from.
//
// The application's resource handle is its own module unless a host sets
// another.  Library modules join a chain behind it (AfxAddResourceModule,
// which a library's entry routine calls), so a template the host lacks is
// found in the library that carries it.
#ifndef VN_AFX_WIN32_AFXRESOURCE_H
#define VN_AFX_WIN32_AFXRESOURCE_H

#include "afx/afx.h"

// The module where a non-local dialog or text is looked up first.
VN_API HINSTANCE AfxGetResourceHandle();
VN_API void AfxSetResourceHandle(HINSTANCE module);
// Appends a module to the chain searched after the resource handle.
VN_API void AfxAddResourceModule(HINSTANCE module);
// The first module of the chain that holds the resource, else the resource
// handle itself.
VN_API HINSTANCE AfxFindResourceHandle(LPCWSTR name, LPCWSTR type);

#endif  // VN_AFX_WIN32_AFXRESOURCE_H
