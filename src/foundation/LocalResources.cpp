// LocalResources.cpp - the string loaders, over the platform's lookup.
//
// VnFindLocalText (LocalResourcesWin32.cpp, LocalResourcesPosix.cpp) finds
// the stored text; here it becomes a CString of at most kMaxLocalString
// characters.
#include "foundation/LocalResources.h"

#include <algorithm>

// The text numbered id, cut at the limit; empty if the module has none.
static CString LoadCut(HINSTANCE module, UINT id) {
  size_t length = 0;
  const WCHAR* text = VnFindLocalText(module, id, &length);
  if (!text)
    return CString();
  size_t kept = std::min(length, static_cast<size_t>(kMaxLocalString));
  return CString(text, static_cast<int>(kept));
}

const CString LoadLocalString(HINSTANCE module, UINT id) { return LoadCut(module, id); }

BOOL LoadLocalString(HINSTANCE module, UINT id, CString& text) {
  text.Empty();
  text = LoadCut(module, id);
  return text.IsEmpty() ? FALSE : TRUE;
}
