// LocalResourcesPosix.cpp - the component's string table in the native build.
//
// The same VnStrings.def that the resource compiler reads for the DLL is
// compiled here into an ascending array of (number, text); the component's
// module is the one VnModule that points at it.
#include "foundation/LocalResources.h"

#define VN_STRING(id, text) {id, u"" text},
static const VnStringEntry kComponentStrings[] = {
#include "resources/VnStrings.def"
};
#undef VN_STRING

static VnModule g_componentModule = {kComponentStrings,
                                     sizeof(kComponentStrings) / sizeof(kComponentStrings[0])};

HINSTANCE GetResourceModule() { return &g_componentModule; }

// Few entries, and looked up only when a message is shown: a linear scan
// keeps a module free of any ordering duty.
const WCHAR* VnFindLocalText(HINSTANCE module, UINT id, size_t* length) {
  if (!module)
    return nullptr;
  id &= 0xFFFF;  // resource numbers are 16-bit; Win32 drops the high word too
  for (size_t i = 0; i < module->count; ++i) {
    const VnStringEntry& entry = module->strings[i];
    if (entry.id != id)
      continue;
    size_t n = 0;
    while (entry.text[n])
      ++n;
    *length = n;
    return entry.text;
  }
  return nullptr;
}
