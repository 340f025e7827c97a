// VnAppFlags.h - what the running application recorded about the system.
//
// The application object (CVnReconcileApp, which derives from this class)
// records the flags once, at construction; window classes read them here,
// below the window, without the application shell above it.
#ifndef VN_OPTIONS_VNAPPFLAGS_H
#define VN_OPTIONS_VNAPPFLAGS_H

#include "afx/afx.h"

class VN_API CVnAppFlags {
public:
  // IsWin2K(): the system is of the 2000/XP/2003 family, whose rich edit
  // control behaves differently.  Set by every construction of the
  // application object (there is one per process); 0 while none was made.
  static int m_bWin2K;
};

#endif  // VN_OPTIONS_VNAPPFLAGS_H
