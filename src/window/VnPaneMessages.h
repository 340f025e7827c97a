// VnPaneMessages.h - the private messages between the windows of a
// comparison.
//
// A frame owns a splitter, a splitter its panes, a pane its rich edit
// children; these messages run between them, all sent synchronously on the
// frame's thread, so a pointer in an argument lives for the length of the
// send.  The values are fixed (WM_USER + 2 onwards): hosts send them too.
//
//   message                       wParam               lParam                       result
//   WM_PANE_SYNCHRONIZE           CVnPaneSync*         CVnPaneWnd* where it began   0
//   WM_PANE_SETDEFAULTCHARFORMAT  0                    CHARFORMATW*                 non-zero on success
//   WM_PANE_SETTABSTOPS           tab size, columns    CHARFORMATW* measuring tabs  non-zero on success
//   WM_PANE_GOTOBEGINNING         0                    0                            0
//   WM_PANE_RESIZEINTERNALPANES   0                    line number width, pixels    0
//   WM_PANE_GETMAXLINECOUNT       0                    0                            number of lines
#ifndef VN_WINDOW_VNPANEMESSAGES_H
#define VN_WINDOW_VNPANEMESSAGES_H

#include "afx/portable/AfxTypes.h"

constexpr UINT WM_PANE_SYNCHRONIZE = 0x0402;
constexpr UINT WM_PANE_SETDEFAULTCHARFORMAT = 0x0403;
constexpr UINT WM_PANE_SETTABSTOPS = 0x0404;
constexpr UINT WM_PANE_GOTOBEGINNING = 0x0405;
constexpr UINT WM_PANE_RESIZEINTERNALPANES = 0x0406;
constexpr UINT WM_PANE_GETMAXLINECOUNT = 0x0407;

#endif  // VN_WINDOW_VNPANEMESSAGES_H
