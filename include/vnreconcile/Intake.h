// vnreconcile/Intake.h - file intake: reading a file whole (CVnDiffFile),
// telling text from binary, finding its encoding and byte-order mark,
// converting it to UTF-16 with repaired line ends; code pages (CVnCPInfo)
// and UTF-8 (VnUTF8.h).
#ifndef VNRECONCILE_INTAKE_H
#define VNRECONCILE_INTAKE_H

#include "vnreconcile/Foundation.h"

#include "intake/VnCPInfo.h"
#include "intake/VnDiffFile.h"
#include "intake/VnFile.h"
#include "intake/VnFileMapping.h"
#include "intake/VnSmartBytePtr.h"
#include "intake/VnUTF8.h"

#endif  // VNRECONCILE_INTAKE_H
