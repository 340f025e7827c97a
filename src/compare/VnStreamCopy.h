// VnStreamCopy.h - standard input and other streams as sides of a comparison.
//
// The intake reads files by name and trusts their size, which a pipe, a FIFO,
// /dev/fd/N or a character device reports as 0 (or not at all).  Such an
// operand, and "-" for standard input, is copied once into a private
// temporary file that the comparison reads instead; the copies go with this
// object.  A stream that passes 4 GiB is refused as a file that large is, so
// nothing hangs and nothing is compared truncated.  Runs of zero bytes are
// left as holes in the copy: /dev/zero costs no disk before it is refused.
//
// Names in output and messages are the operands the user wrote: Label gives
// one back for a copy's path, Relabel puts them into a message.
#ifndef VN_COMPARE_VNSTREAMCOPY_H
#define VN_COMPARE_VNSTREAMCOPY_H

#include "afx/afx.h"

#include <vector>

class VN_API CVnStreamCopies {
public:
  CVnStreamCopies() = default;
  ~CVnStreamCopies();
  CVnStreamCopies(const CVnStreamCopies&) = delete;
  CVnStreamCopies& operator=(const CVnStreamCopies&) = delete;

  // The path to read for operand: a copy for "-" or a stream (made once per
  // operand), operand itself for anything else.  Empty, with why set, for a
  // stream past the limit; a stream that can't be read raises
  // CFileException.
  CString Resolve(const CString& operand, CString& why);
  // The operand a path from Resolve stands for.
  CString Label(const CString& path) const;
  // message with every copy's path written as its operand.
  CString Relabel(CString message) const;

private:
  struct Copy {
    CString operand, path;
  };
  std::vector<Copy> m_copies;
};

#endif  // VN_COMPARE_VNSTREAMCOPY_H
