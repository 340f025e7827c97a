// VnProcess.h - starting programs, handing files to their applications,
// naming the system and its user, and help from a named module's help file.
//
// RunApp, OpenFileAssociation and PrintFileAssociation throw a CVnOSException
// on failure; the name and version functions never fail (they fall back to
// empty text or "Windows"); LocalContextHelp fails silently.  The version
// table and the help file naming are plain functions of their inputs
// (VnDescribeOS, VnIsWin2KVersion, VnHelpFileFor) so they are the same on
// every platform; the rest asks Windows.
#ifndef VN_FOUNDATION_VNPROCESS_H
#define VN_FOUNDATION_VNPROCESS_H

#include "afx/afx.h"

// The system's name for a platform ID and version (2 is the NT family, 1 the
// 95 family); "Windows" for anything the table does not know.
VN_API CString VnDescribeOS(DWORD platformId, DWORD major, DWORD minor);
// 1 for the NT family at major version 5 (2000, XP, 2003).
VN_API int VnIsWin2KVersion(DWORD platformId, DWORD major);
// The help file beside a module: the name cut at its last dot, plus ".hlp"
// (a name without a dot gets ".hlp" at its end).
VN_API CString VnHelpFileFor(const CString& moduleName);

#ifdef _WIN32

#include "afx/win32/CGeometry.h"

class CWnd;

// Starts cmdLine (the whole command line; no handles inherited; the caller's
// environment and directory), shown normally or hidden.  Windowed programs
// may first be waited on until idle (at most 30 minutes) and, with wait set,
// are waited for while this thread's messages keep being handled, so the
// host's windows stay alive.  Other programs are waited for with the thread
// blocked.  Gives the exit code; 0 for a windowed program nobody waited for,
// STILL_ACTIVE (259) for another one that is still running.  A program that
// cannot start, or a failed idle wait, throws CVnOSException with the
// system's error code.
VN_API long RunApp(const CString& cmdLine, int showWindow, int wait, int windowed, int waitUntilIdle);

// Opens file with its associated application (its default action).
VN_API void OpenFileAssociation(LPCWSTR file);
// Prints file with its associated application; fileClass, when not empty,
// names the file class to use.  A DDE failure of the shell is ignored.
VN_API void PrintFileAssociation(const CString& file, const CString& fileClass);

VN_API int IsWinNT();
VN_API int IsWin95();
VN_API int IsWin2K();
VN_API const CString ResolveOSDescription();
// Empty when the system call fails.
VN_API CString GetThisComputerName();
VN_API CString GetThisUserName();

// Asks help for helpId from the ".hlp" file beside module, through the
// application's WinHelp, leaving the application's own help path as it was.
// Help ID 0, or a module whose name cannot be read: nothing happens.
VN_API void LocalContextHelp(HINSTANCE module, unsigned long helpId, UINT command);
// Help for the control under point (screen coordinates; converted in place to
// wnd's client coordinates when the window there has no help ID of its own).
VN_API void LocalContextHelp(CWnd* wnd, HINSTANCE module, CPoint& point, UINT command);

#endif  // _WIN32

#endif  // VN_FOUNDATION_VNPROCESS_H
