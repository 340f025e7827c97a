// VnPaneWndWin32.cpp - the values a pane hands its children.
#include "window/VnPaneWnd.h"

IMPLEMENT_DYNCREATE(CVnPaneWnd, CWnd)

// A null terminator counts as empty: the children then fall back to their own.
void CVnPaneWnd::SetLineTerminator(LPCWSTR terminator) { m_strLineTerminator = terminator ? terminator : L""; }
