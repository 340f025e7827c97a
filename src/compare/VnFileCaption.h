// VnFileCaption.h - how a compared file introduces itself to the user.
//
// The caption above a pane, and the status of a console comparison, name
// the file and what a reader of its bytes needs to know: the encoding, a
// byte order mark, the line-end style, a missing final newline, a binary
// file.  Two files that differ only in these show it here, where a user
// looks first.
#ifndef VN_COMPARE_VNFILECAPTION_H
#define VN_COMPARE_VNFILECAPTION_H

#include "compare/VnComparison.h"
#include "compare/VnFormDifference.h"

#include <vector>

// "CR LF", "LF", "CR", "LF CR", "mixed line ends", "no line ends".
VN_API CString VnLineEndName(VnLineEnd ends);
// "name  (UTF-8, BOM, CR LF, no final newline)", "name  (UTF-8 by content,
// LF)"; binary: "name  (binary)".
VN_API CString VnFileCaption(const CVnFileFacts& facts);

// One line on what differs in form, for a status bar: with the texts the
// same, "Files differ only in line ends" ("in encoding", "in final
// newline", kinds joined: "in encoding and line ends"); with the texts
// different too, "Also different: line ends"; empty when nothing differs.
VN_API CString VnFormSummary(const std::vector<CVnFormDifference>& differences, bool sameText);

#endif  // VN_COMPARE_VNFILECAPTION_H
