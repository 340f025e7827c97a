// AfxResource.cpp - the resource handle and the chain of library modules.
#include "afx/win32/AfxResource.h"

#include <vector>

static HINSTANCE g_resourceHandle = nullptr;

static std::vector<HINSTANCE>& Chain() {
  static std::vector<HINSTANCE> chain;
  return chain;
}

HINSTANCE AfxGetResourceHandle() { return g_resourceHandle ? g_resourceHandle : ::GetModuleHandleW(nullptr); }

void AfxSetResourceHandle(HINSTANCE module) { g_resourceHandle = module; }

void AfxAddResourceModule(HINSTANCE module) { Chain().push_back(module); }

HINSTANCE AfxFindResourceHandle(LPCWSTR name, LPCWSTR type) {
  HINSTANCE first = AfxGetResourceHandle();
  if (::FindResourceW(first, name, type))
    return first;
  for (HINSTANCE module : Chain())
    if (::FindResourceW(module, name, type))
      return module;
  return first;
}
