// VnCmdLine.h - splitting a host's command line into arguments.
//
// Only the blank (U+0020) separates arguments; several blanks are one
// separator.  An argument that starts with a double quote runs to the next
// double quote, blanks included, and may be empty; there is no escape.  A
// quote anywhere else is an ordinary character.  Tabs are part of arguments,
// except at the start of a piece between blanks, where they are trimmed.
#ifndef VN_OPTIONS_VNCMDLINE_H
#define VN_OPTIONS_VNCMDLINE_H

#include "afx/portable/AfxTypes.h"
#include "afx/portable/CString.h"

// Splits cmdLine into args[0 .. capacity-1].  Gives:
//   - the number of arguments stored, 0 to capacity;
//   - capacity + 1 when text is left once capacity arguments are stored (the
//     surplus is neither stored nor looked at);
//   - -1 when the line is malformed: a quote that is never closed, or a
//     closing quote followed by anything but a blank or the end.  What was
//     stored before the fault stays stored.
// Nothing is ever written at args[capacity] or beyond.  A null line counts as
// empty.  A negative capacity, or a null array with a positive capacity, is a
// caller's fault and gives -1 without touching anything.
VN_API int ParseCmdLine(LPCWSTR cmdLine, CString* args, int capacity);

#endif  // VN_OPTIONS_VNCMDLINE_H
