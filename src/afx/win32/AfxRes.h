// AfxRes.h - the numbers the framework gives to its own windows, commands
// and texts.
//
// Control bars, the client pane and the shared scroll bars of a splitter are
// found by these child identifiers, so hosts and the component agree on
// them.  The command identifiers are the framework's standard ones: a host
// that binds its menu items to them gets the framework's handlers.
#ifndef VN_AFX_WIN32_AFXRES_H
#define VN_AFX_WIN32_AFXRES_H

// Child windows of a frame.
#define AFX_IDW_CONTROLBAR_FIRST 0xE800
#define AFX_IDW_CONTROLBAR_LAST 0xE8FF
#define AFX_IDW_TOOLBAR 0xE800
#define AFX_IDW_STATUS_BAR 0xE801
#define AFX_IDW_PANE_FIRST 0xE900
#define AFX_IDW_PANE_LAST 0xE9FF
#define AFX_IDW_HSCROLL_FIRST 0xEA00
#define AFX_IDW_VSCROLL_FIRST 0xEA10
#define AFX_IDW_SIZE_BOX 0xEA20

// Commands.
#define ID_APP_EXIT 0xE141
#define ID_HELP_INDEX 0xE142
#define ID_HELP_FINDER 0xE143
#define ID_HELP_USING 0xE144
#define ID_CONTEXT_HELP 0xE145
#define ID_HELP 0xE146
#define ID_DEFAULT_HELP 0xE147
#define ID_VIEW_TOOLBAR 0xE800
#define ID_VIEW_STATUS_BAR 0xE801
#define ID_EDIT_COPY 0xE122
#define ID_EDIT_FIND 0xE124
#define ID_EDIT_REPEAT 0xE128
#define ID_FILE_OPEN 0xE101
#define ID_FILE_SAVE 0xE103
#define ID_FILE_PRINT 0xE107
#define ID_FILE_PRINT_DIRECT 0xE108
#define ID_APP_ABOUT 0xE140
#define ID_SEPARATOR 0

// The application's name, and the status bar's idle text.
#define AFX_IDS_APP_TITLE 0xE000
#define AFX_IDS_IDLEMESSAGE 0xE001

// Sent to a frame and its descendants when the application is idle: control
// bars then update their items through the command routing.
#define WM_IDLEUPDATECMDUI 0x0363
// Sent by a modal loop to its dialog while the queue is empty: wParam
// MSGF_DIALOGBOX, lParam the count of idle calls so far.
#define WM_KICKIDLE 0x036A

#endif  // VN_AFX_WIN32_AFXRES_H
