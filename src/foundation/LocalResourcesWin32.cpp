// LocalResourcesWin32.cpp - the DLL's entry routine and the Win32 loaders.
//
// The entry routine stores the DLL's instance handle at process attach; all
// of the component's own resources are loaded from it.  The module also
// joins the framework's resource chain (AfxResource.h), so a host's
// non-local dialog whose template only the component carries is found.
// Every notification reports success.
#include "foundation/LocalResources.h"

#include "afx/win32/AfxResource.h"
#include "afx/win32/CGdiObject.h"
#include "afx/win32/CMenu.h"

#include <cassert>

static HINSTANCE g_resourceModule = nullptr;

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID) {
  if (reason == DLL_PROCESS_ATTACH) {
    g_resourceModule = instance;
    AfxAddResourceModule(instance);
  }
  return TRUE;
}

HINSTANCE GetResourceModule() {
  assert(g_resourceModule && "DllMain stores the handle before any caller runs");
  return g_resourceModule;
}

// LoadStringW with a zero buffer size hands out a pointer into the mapped
// resource and its length, so a text of any length costs no copy here.
const WCHAR* VnFindLocalText(HINSTANCE module, UINT id, size_t* length) {
  const WCHAR* text = nullptr;
  int n = ::LoadStringW(module, id, reinterpret_cast<LPWSTR>(&text), 0);
  if (n <= 0 || !text)
    return nullptr;
  *length = static_cast<size_t>(n);
  return text;
}

BOOL LoadLocalMenu(HINSTANCE module, UINT id, CMenu& menu) {
  HMENU handle = ::LoadMenuW(module, MAKEINTRESOURCEW(id));
  if (!handle)
    return FALSE;
  if (menu.Attach(handle))
    return TRUE;
  ::DestroyMenu(handle);
  return FALSE;
}

BOOL LoadLocalBitmap(HINSTANCE module, UINT id, CBitmap& bitmap) {
  HBITMAP handle = ::LoadBitmapW(module, MAKEINTRESOURCEW(id));
  if (!handle)
    return FALSE;
  if (bitmap.Attach(handle))
    return TRUE;
  ::DeleteObject(handle);
  return FALSE;
}
