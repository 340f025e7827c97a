// AfxPrompt.h - message boxes through a replaceable prompt.
//
// Every message box of the component goes through AfxMessageBox, which hands
// text, type and help ID to the installed prompt.  The Windows build's default
// shows a real box; natively the default writes the text to standard error and
// answers with the box's default button.  A console host installs its own
// answer, and tests install scripted ones and look at what was asked.
#ifndef VN_AFX_AFXPROMPT_H
#define VN_AFX_AFXPROMPT_H

#include "afx/portable/AfxTypes.h"

typedef int (*VnPromptHandler)(LPCWSTR text, UINT type, UINT helpId);

// Installs a prompt and gives back the one it replaces; null restores the
// default.
VN_API VnPromptHandler VnSetPromptHandler(VnPromptHandler handler);
VN_API int AfxMessageBox(LPCWSTR text, UINT type = MB_OK, UINT helpId = 0);
// The answer a box of this type gives when nobody presses a button: its
// default button (the first, or the second with MB_DEFBUTTON2).
VN_API int VnDefaultAnswer(UINT type);

#endif  // VN_AFX_AFXPROMPT_H
