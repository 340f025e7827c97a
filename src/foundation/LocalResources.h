// LocalResources.h - numbered texts, menus and bitmaps from a named module.
//
// Every dialog, page and message of the component says which module holds
// its resources, so that a library's resources work in any host; "Local" in
// a name means exactly that.  GetResourceModule gives the component's own
// module: on Windows the instance handle of vnreconcile.dll, stored when the
// DLL attaches to a process; natively a handle that names the component's
// compiled-in string table (src/resources/VnStrings.def feeds both).
//
// A text is at most kMaxLocalString characters; longer ones come back cut.
// A number without an entry, like an entry of length 0, gives the empty text.
#ifndef VN_FOUNDATION_LOCALRESOURCES_H
#define VN_FOUNDATION_LOCALRESOURCES_H

#include "afx/afx.h"

#include <cstddef>

const int kMaxLocalString = 4096;

// The component's own module; never null.
VN_API HINSTANCE GetResourceModule();

// The text numbered id in module, cut at kMaxLocalString; empty if none.
VN_API const CString LoadLocalString(HINSTANCE module, UINT id);
// Empties text, loads the text numbered id into it (cut as above) and gives
// 1 if it has at least one character, otherwise 0.
VN_API BOOL LoadLocalString(HINSTANCE module, UINT id, CString& text);

#ifdef _WIN32
class CMenu;
class CBitmap;
// Gives 1 if the menu loaded and menu.Attach took it.
VN_API BOOL LoadLocalMenu(HINSTANCE module, UINT id, CMenu& menu);
// Gives 1 if the bitmap loaded and bitmap.Attach took it.
VN_API BOOL LoadLocalBitmap(HINSTANCE module, UINT id, CBitmap& bitmap);
#else
// A module natively: a table of numbered texts.  The component
// has one (GetResourceModule); a host or a test may make its own and pass
// its address wherever a module is asked for.
struct VnStringEntry {
  UINT id;
  const WCHAR* text;
};
struct VnModule {
  const VnStringEntry* strings;
  size_t count;
};
#endif

// The raw text numbered id in module, not terminated: its start, and its
// length in *length; null when the module has no such entry.  The platform
// half of the loaders above.
const WCHAR* VnFindLocalText(HINSTANCE module, UINT id, size_t* length);

#endif  // VN_FOUNDATION_LOCALRESOURCES_H
