// vnreconcile/Options.h - the display option values (CVnDisplayOptions),
// the application's flags, and the command line parser (ParseCmdLine).
// On Windows also the application class a host derives from
// (CVnReconcileApp) and the option sheet's pages.
#ifndef VNRECONCILE_OPTIONS_H
#define VNRECONCILE_OPTIONS_H

#include "afx/afx.h"
#include "options/VnAppFlags.h"
#include "options/VnCmdLine.h"
#include "options/VnDisplayOptions.h"

#ifdef _WIN32
#include "options/VnOptionPages.h"
#include "options/VnReconcileApp.h"
#endif

#endif  // VNRECONCILE_OPTIONS_H
