// VnTextEncoding.h - decoded text back to the bytes of a code page.
// Internal to the merge.
//
// The intake decodes every text file to UTF-16; a merge writes its result
// back in LOCAL's encoding.  UTF-8 goes through the component's one encoder,
// UTF-16 (the component's own numbers 70001 and 70000, which the system's
// converter knows by others) is written unit by unit, and every other page
// goes through the system's converter (vn::os::WideToMultiByte).
#ifndef VN_COMPARE_VNTEXTENCODING_H
#define VN_COMPARE_VNTEXTENCODING_H

#include "afx/afx.h"

#include <string>

// Appends count units at text as codePage's bytes.  False when the system
// can't convert to the page.  Units the page can't hold come out as the
// converter makes them ('?', or a best fit); callers that must not lose
// text check that the bytes decode back.
bool VnEncodeUnits(unsigned codePage, const WCHAR* text, size_t count, std::string& out);

// The byte order mark the intake recognises for the page: UTF-8 and both
// UTF-16 orders; empty for every other page.
std::string VnByteOrderMark(unsigned codePage);

// Whether the page writes units below 0x80 as those bytes, one each.
bool VnIsAsciiBased(unsigned codePage);

#endif  // VN_COMPARE_VNTEXTENCODING_H
