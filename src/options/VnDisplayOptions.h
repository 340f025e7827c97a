// VnDisplayOptions.h - the values that say how a comparison looks.
//
// CVnDisplayOptions is a plain value class: which font, tab size and bars a
// comparison window shows.  CVnOptionState is the rest of what the frame
// keeps beside it: the three formats that colour replaced, deleted and
// inserted text, the comparison switches and the editor for merged files.
//
// These files include nothing of the window: the window classes read these
// values, while option persistence and the option pages act on the frame, so
// the values stand below the window and the rest of the options above it.
//
// Two option sets compare by the six integer fields, the font height and the
// face name (letter case counts).  Colours and effects are left out on
// purpose: a caller that cares about colours compares them apart.
#ifndef VN_OPTIONS_VNDISPLAYOPTIONS_H
#define VN_OPTIONS_VNDISPLAYOPTIONS_H

#include "afx/portable/AfxTypes.h"
#include "afx/portable/CString.h"
#include "afx/portable/CharFormat.h"

class VN_API CVnDisplayOptions {
public:
  // The defaults: line numbers, status bar and toolbar shown, tab size 4,
  // 9 point "Courier New" in the window text colour of this moment.
  CVnDisplayOptions();
  CVnDisplayOptions(const CVnDisplayOptions& other);
  CVnDisplayOptions& operator=(const CVnDisplayOptions& other);
  ~CVnDisplayOptions();

  // 1 when an integer field, yHeight or the face name differs; else 0.
  int operator!=(const CVnDisplayOptions& other) const;
  int operator==(const CVnDisplayOptions& other) const { return !(*this != other); }

  int GetDisplayDiffOnly() const { return m_bDisplayDiffOnly; }
  void SetDisplayDiffOnly(int value) { m_bDisplayDiffOnly = value; }
  int GetDisplaySplashScreen() const { return m_bDisplaySplashScreen; }
  void SetDisplaySplashScreen(int value) { m_bDisplaySplashScreen = value; }
  int GetShowLineNum() const { return m_bShowLineNum; }
  void SetShowLineNum(int value) { m_bShowLineNum = value; }
  unsigned int GetTabSize() const { return m_nTabSize; }
  void SetTabSize(unsigned int value) { m_nTabSize = value; }
  int GetDisplayStatusBar() const { return m_bDisplayStatusBar; }
  void SetDisplayStatusBar(int value) { m_bDisplayStatusBar = value; }
  int GetDisplayToolbar() const { return m_bDisplayToolbar; }
  void SetDisplayToolbar(int value) { m_bDisplayToolbar = value; }
  const CHARFORMATW& GetCharFormat() const { return m_cfDefault; }
  void SetCharFormat(const CHARFORMATW& cf) { m_cfDefault = cf; }

protected:
  void Copy(const CVnDisplayOptions& other);

private:
  int m_bDisplayDiffOnly;
  int m_bDisplaySplashScreen;
  int m_bShowLineNum;
  unsigned int m_nTabSize;
  int m_bDisplayStatusBar;
  int m_bDisplayToolbar;
  CHARFORMATW m_cfDefault;
};

// The frame's option state beside its display options, with the values a new
// frame starts from.  The window placement stays with the frame: it is a
// window's record, not a portable value.
class VN_API CVnOptionState {
public:
  CVnOptionState();

  const CVnDisplayOptions& GetDisplayOptions() const { return m_DisplayOptions; }
  const CHARFORMATW& GetDefaultCharFormat() const { return m_DisplayOptions.GetCharFormat(); }
  const CHARFORMATW& GetReplaceCharFormat() const { return m_cfReplace; }
  const CHARFORMATW& GetDeleteCharFormat() const { return m_cfDelete; }
  const CHARFORMATW& GetInsertCharFormat() const { return m_cfInsert; }

  CVnDisplayOptions m_DisplayOptions;
  CHARFORMATW m_cfReplace;  // colour only: blue
  CHARFORMATW m_cfDelete;   // colour and strikeout: red, struck through
  CHARFORMATW m_cfInsert;   // colour only: dark green
  int m_bIgnoreCase;
  int m_bIgnoreWhiteSpace;
  int m_bEditMergedFile;
  CString m_strEditor;
};

// Puts a face name into a character format.  At most LF_FACESIZE - 1 units
// are taken and the rest of the array is zeroed, so nothing is written beyond
// the record and the name is always terminated.  A null name counts as empty.
// Gives 1 when the whole name fitted, 0 when it was cut.
VN_API int VnSetFaceName(CHARFORMATW& cf, LPCWSTR faceName);

// Compares two face names over the fixed array only, so an unterminated
// array is never read past its end.  Case-sensitive; 0 when equal.
VN_API int VnCompareFaceName(const CHARFORMATW& a, const CHARFORMATW& b);

// The system's window text colour (GetSysColor(COLOR_WINDOWTEXT)); natively,
// where there is no system palette, black.
VN_API COLORREF VnWindowTextColor();

#endif  // VN_OPTIONS_VNDISPLAYOPTIONS_H
