// VnOptionParser.h - a host's arguments read in the GNU style.
//
// Short options may be grouped (-wi); one that takes a value takes the rest
// of its word, or the next word (-U5, -U 5).  Long options take a value
// after "=" or as the next word; an optional value only after "=".  "--"
// ends the options, and "-" alone is an operand.  Arguments are UTF-8.
#ifndef VN_OPTIONS_VNOPTIONPARSER_H
#define VN_OPTIONS_VNOPTIONPARSER_H

#include "afx/afx.h"

#include <string>
#include <vector>

struct CVnOptionSpec {
  enum Value { None, Required, Optional };
  int m_nId;
  char m_cShort;          // 0: no short form
  const char* m_pszLong;  // without the dashes; null: no long form
  Value m_nValue;
};

struct CVnOption {
  int m_nId;
  std::string m_strName;  // as written, for messages: "-U", "--width"
  std::string m_strValue;
  bool m_bHasValue;
};

// Options in the order given, and the operands.  False, with the reason in
// error ("unknown option '-x'", "option '--width' requires an argument",
// "option '--help' takes no value"), at the first fault.
VN_API bool VnParseOptions(const std::vector<std::string>& args, const std::vector<CVnOptionSpec>& specs,
                           std::vector<CVnOption>& options, std::vector<std::string>& operands, std::string& error);

// A window host's command line: split as ParseCmdLine splits it
// (options/VnCmdLine.h), read against the host's options, with at most
// maxFiles operands.  m_strError is empty for a good line and says what is
// wrong otherwise ("unknown option '-x'", "extra operand 'c'", "a quote left
// open or closed inside a word").  "--headless" and "/?" are looked for on
// any line, so that a host knows how to report a wrong one.
struct CVnHostCommandLine {
  std::vector<CVnOption> m_options;
  std::vector<CString> m_files;
  bool m_bHeadless = false;
  bool m_bHelpAsked = false;  // "/?"
  std::string m_strError;
};

VN_API CVnHostCommandLine VnReadHostCommandLine(LPCWSTR cmdLine, const std::vector<CVnOptionSpec>& specs,
                                                size_t maxFiles);

#endif  // VN_OPTIONS_VNOPTIONPARSER_H
