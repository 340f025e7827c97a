// vnreconcile/Toolkit.h - the dialog toolkit: dialogs and property sheets
// that resize their controls, file pickers, the flat toolbar.  Windows
// only.
#ifndef VNRECONCILE_TOOLKIT_H
#define VNRECONCILE_TOOLKIT_H

#ifndef _WIN32
#error "vnreconcile/Toolkit.h is part of the Windows component"
#endif

#include "vnreconcile/Foundation.h"

#include "toolkit/CFlatToolBar.h"
#include "toolkit/CResizeCtrl.h"
#include "toolkit/VnDialog.h"
#include "toolkit/VnFilePickers.h"
#include "toolkit/VnPropertySheet.h"
#include "toolkit/VnResizeControls.h"

#endif  // VNRECONCILE_TOOLKIT_H
