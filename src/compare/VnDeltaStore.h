// VnDeltaStore.h - a delta kept in a directory, and the rebuild from one.
//
// The directory holds two files:
//   records  the change records, 20 bytes each (five 32-bit little-endian
//            fields: action, start and end source line, start and end target
//            line), in the order Compare gave them;
//   text     the delta text: the lines the Insert and Change records add,
//            each with its LF, the last one without it when the target's last
//            line had none.
// Both sides are read as raw bytes cut at LF, so the rebuild is byte for
// byte the target.  Every file is written whole or not at all
// (VnWriteFileWhole), and a delta is checked whole (VnApplyDelta) before
// the output is written, so a refused or failed rebuild leaves no partial
// file.  Failures of the file system raise CException*.
#ifndef VN_COMPARE_VNDELTASTORE_H
#define VN_COMPARE_VNDELTASTORE_H

#include "afx/afx.h"

// Compares source with target as raw bytes, line ends exact, and stores the
// delta in dir (made if missing).
VN_API void VnSaveDelta(const CString& dir, const CString& source, const CString& target);
// Rebuilds the target from source and the delta in dir into output.  False,
// with the reason in why and output untouched, for a damaged delta.
VN_API bool VnRebuildFromDelta(const CString& dir, const CString& source, const CString& output, CString& why);

#endif  // VN_COMPARE_VNDELTASTORE_H
