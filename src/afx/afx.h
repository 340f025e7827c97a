// afx.h - the portable half of the framework layer in one include.
#ifndef VN_AFX_AFX_H
#define VN_AFX_AFX_H

#include "afx/portable/AfxExceptions.h"
#include "afx/portable/AfxPrompt.h"
#include "afx/portable/AfxTypes.h"
#include "afx/portable/CArray.h"
#include "afx/portable/CFile.h"
#include "afx/portable/CMap.h"
#include "afx/portable/CObject.h"
#include "afx/portable/CString.h"
#include "afx/portable/CStringList.h"

#endif  // VN_AFX_AFX_H
