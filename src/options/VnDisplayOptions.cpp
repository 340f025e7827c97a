// VnDisplayOptions.cpp - defaults, copying and comparison of the option
// values.
//
// The default character format is 9 point (180 twips) "Courier New" in the
// window text colour, with size, colour, face, offset, bold, italic,
// underline, strikeout and protection in the mask and the character set left
// out.  The three change formats carry only a colour, and for deleted text a
// fixed strikeout.  The record's own size member is left to whoever hands the
// record to the rich edit control.
#include "options/VnDisplayOptions.h"

#include <cassert>
#include <cstring>

namespace {

const DWORD kDefaultMask = 0xF000001Fu;  // size colour face offset + 5 effects
const LONG kDefaultHeight = 180;         // twips: 9 points
const unsigned int kDefaultTabSize = 4;
const COLORREF kReplaceColor = 0xFF0000;  // 0x00BBGGRR: blue
const COLORREF kDeleteColor = 0x0000FF;   // red
const COLORREF kInsertColor = 0x008000;   // dark green

}  // namespace

COLORREF VnWindowTextColor() {
#ifdef _WIN32
  return GetSysColor(COLOR_WINDOWTEXT);
#else
  return 0x000000;
#endif
}

int VnSetFaceName(CHARFORMATW& cf, LPCWSTR faceName) {
  const size_t room = LF_FACESIZE - 1;
  size_t length = 0;
  if (faceName)
    while (length <= room && faceName[length] != 0)
      ++length;
  const size_t taken = length > room ? room : length;
  std::memset(cf.szFaceName, 0, sizeof cf.szFaceName);
  if (taken)
    std::memcpy(cf.szFaceName, faceName, taken * sizeof(WCHAR));
  return length <= room ? 1 : 0;
}

int VnCompareFaceName(const CHARFORMATW& a, const CHARFORMATW& b) {
  for (size_t i = 0; i < LF_FACESIZE; ++i) {
    if (a.szFaceName[i] != b.szFaceName[i])
      return a.szFaceName[i] < b.szFaceName[i] ? -1 : 1;
    if (a.szFaceName[i] == 0)
      break;
  }
  return 0;
}

// A record with only a colour (and the given effects) in play; the members
// the mask leaves out are zero rather than whatever the stack held.
static CHARFORMATW ColourFormat(DWORD mask, DWORD effects, COLORREF colour) {
  CHARFORMATW cf;
  std::memset(&cf, 0, sizeof cf);
  cf.dwMask = mask;
  cf.dwEffects = effects;
  cf.crTextColor = colour;
  return cf;
}

static CHARFORMATW DefaultTextFormat() {
  CHARFORMATW cf;
  std::memset(&cf, 0, sizeof cf);
  cf.dwMask = kDefaultMask;
  cf.dwEffects = 0;
  cf.yHeight = kDefaultHeight;
  cf.yOffset = 0;
  cf.crTextColor = VnWindowTextColor();
  cf.bCharSet = DEFAULT_CHARSET;
  cf.bPitchAndFamily = 0;
  int fitted = VnSetFaceName(cf, _T("Courier New"));
  assert(fitted && "the default face name fits the record");
  (void)fitted;
  return cf;
}

//===-- CVnDisplayOptions -------------------------------------------------===//

CVnDisplayOptions::CVnDisplayOptions()
    : m_bDisplayDiffOnly(0), m_bDisplaySplashScreen(0), m_bShowLineNum(1),
      m_nTabSize(kDefaultTabSize), m_bDisplayStatusBar(1), m_bDisplayToolbar(1),
      m_cfDefault(DefaultTextFormat()) {}

CVnDisplayOptions::CVnDisplayOptions(const CVnDisplayOptions& other) { Copy(other); }

CVnDisplayOptions& CVnDisplayOptions::operator=(const CVnDisplayOptions& other) {
  if (this != &other)
    Copy(other);
  return *this;
}

CVnDisplayOptions::~CVnDisplayOptions() {}

void CVnDisplayOptions::Copy(const CVnDisplayOptions& other) {
  m_bDisplayDiffOnly = other.m_bDisplayDiffOnly;
  m_bDisplaySplashScreen = other.m_bDisplaySplashScreen;
  m_bShowLineNum = other.m_bShowLineNum;
  m_nTabSize = other.m_nTabSize;
  m_bDisplayStatusBar = other.m_bDisplayStatusBar;
  m_bDisplayToolbar = other.m_bDisplayToolbar;
  m_cfDefault = other.m_cfDefault;
}

// Only what changes the layout of the text counts: colours and effects are
// compared apart by whoever needs them.
int CVnDisplayOptions::operator!=(const CVnDisplayOptions& other) const {
  if (m_bDisplayDiffOnly != other.m_bDisplayDiffOnly ||
      m_bDisplaySplashScreen != other.m_bDisplaySplashScreen ||
      m_bShowLineNum != other.m_bShowLineNum || m_nTabSize != other.m_nTabSize ||
      m_bDisplayStatusBar != other.m_bDisplayStatusBar ||
      m_bDisplayToolbar != other.m_bDisplayToolbar)
    return 1;
  if (m_cfDefault.yHeight != other.m_cfDefault.yHeight)
    return 1;
  return VnCompareFaceName(m_cfDefault, other.m_cfDefault) != 0 ? 1 : 0;
}

//===-- CVnOptionState ----------------------------------------------------===//

CVnOptionState::CVnOptionState()
    : m_cfReplace(ColourFormat(CFM_COLOR, 0, kReplaceColor)),
      m_cfDelete(ColourFormat(CFM_COLOR | CFM_STRIKEOUT, CFE_STRIKEOUT, kDeleteColor)),
      m_cfInsert(ColourFormat(CFM_COLOR, 0, kInsertColor)), m_bIgnoreCase(0),
      m_bIgnoreWhiteSpace(0), m_bEditMergedFile(1), m_strEditor(_T("NOTEPAD.EXE")) {}
