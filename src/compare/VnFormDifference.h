// VnFormDifference.h - two files that differ in form: encoding, byte order
// mark, line-end style, final newline.
//
// Such a difference counts like a difference in the text unless the user
// ignores its kind (CVnCompareOptions: m_bIgnoreEncoding, m_bIgnoreLineEnds),
// and it is always told, one short line per kind naming both sides:
//   encoding: UTF-8 / UTF-16LE with BOM
//   line ends: LF / CR LF
//   final newline: yes / no
// A side of plain ASCII reads alike in every 8-bit encoding, so it differs
// in encoding only from UTF-16 or from a byte order mark.  Binary sides are
// compared by their bytes and have no form.
#ifndef VN_COMPARE_VNFORMDIFFERENCE_H
#define VN_COMPARE_VNFORMDIFFERENCE_H

#include "compare/VnComparison.h"

#include <vector>

enum class VnFormKind : unsigned char { Encoding, LineEnds, FinalNewline };

struct CVnFormDifference {
  VnFormKind m_nKind;
  CString m_strSource;  // how the source has it, e.g. "UTF-8"
  CString m_strTarget;
};

VN_API std::vector<CVnFormDifference> VnFormDifferences(const CVnFileFacts& source, const CVnFileFacts& target);
// "encoding: UTF-8 / UTF-16LE with BOM".
VN_API CString VnFormDifferenceText(const CVnFormDifference& difference);
// Whether a difference of this kind counts under options' ignore flags.
VN_API bool VnFormDifferenceCounts(VnFormKind kind, const CVnCompareOptions& options);

#endif  // VN_COMPARE_VNFORMDIFFERENCE_H
