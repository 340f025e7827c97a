// vnreconcile/Foundation.h - the ground every other family stands on: the
// portable half of the framework layer (CString, the arrays and maps,
// CFile, CException and its kin, the replaceable prompt), failures, paths,
// the file system, time, processes, numbered texts, the collections, and
// the component's version (VN_VERSION_MAJOR ... VN_VERSION_TEXT).  The
// registry (CVnRegistry) and starting programs are Windows only.
#ifndef VNRECONCILE_FOUNDATION_H
#define VNRECONCILE_FOUNDATION_H

#include "afx/afx.h"
#include "afx/portable/COleDateTime.h"
#include "afx/portable/CStringA.h"
#include "afx/portable/LargeBuffer.h"
#include "afx/portable/VnCodePages.h"
#include "foundation/LocalResources.h"
#include "foundation/VnException.h"
#include "foundation/VnFileSystem.h"
#include "foundation/VnPath.h"
#include "foundation/VnProcess.h"
#include "foundation/VnTime.h"
#include "foundation/collections/VnArray.h"
#include "foundation/collections/VnMap.h"
#include "foundation/collections/VnSortedDWordArray.h"
#include "resources/VnVersion.h"

#ifdef _WIN32
#include "foundation/VnRegistry.h"
#endif

#endif  // VNRECONCILE_FOUNDATION_H
