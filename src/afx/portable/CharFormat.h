// CharFormat.h - the rich edit control's character format record.
//
// The display option values carry one CHARFORMATW, and they must build on
// both platforms.  On Windows the record and its flags come from
// <richedit.h>; elsewhere this header gives the same record with the same
// member names, sizes and flag values, so code that fills or compares a
// format is the same on both.  The face name is a fixed array of LF_FACESIZE
// units, terminator included.
#ifndef VN_AFX_CHARFORMAT_H
#define VN_AFX_CHARFORMAT_H

#include "afx/portable/AfxTypes.h"

#ifdef _WIN32
#include <richedit.h>
#else

#define LF_FACESIZE 32

typedef struct _charformatw {
  UINT cbSize;
  DWORD dwMask;
  DWORD dwEffects;
  LONG yHeight;
  LONG yOffset;
  COLORREF crTextColor;
  BYTE bCharSet;
  BYTE bPitchAndFamily;
  WCHAR szFaceName[LF_FACESIZE];
} CHARFORMATW;

// Which members of the record are in play.
#define CFM_BOLD 0x00000001u
#define CFM_ITALIC 0x00000002u
#define CFM_UNDERLINE 0x00000004u
#define CFM_STRIKEOUT 0x00000008u
#define CFM_PROTECTED 0x00000010u
#define CFM_LINK 0x00000020u
#define CFM_SIZE 0x80000000u
#define CFM_COLOR 0x40000000u
#define CFM_FACE 0x20000000u
#define CFM_OFFSET 0x10000000u
#define CFM_CHARSET 0x08000000u

// The effects themselves, in dwEffects.
#define CFE_BOLD 0x00000001u
#define CFE_ITALIC 0x00000002u
#define CFE_UNDERLINE 0x00000004u
#define CFE_STRIKEOUT 0x00000008u
#define CFE_PROTECTED 0x00000010u
#define CFE_LINK 0x00000020u
#define CFE_AUTOCOLOR 0x40000000u

#define DEFAULT_CHARSET 1

// System colour indexes the option values ask for.
#define COLOR_WINDOW 5
#define COLOR_WINDOWTEXT 8

#endif  // _WIN32

#endif  // VN_AFX_CHARFORMAT_H
