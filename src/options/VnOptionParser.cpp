// VnOptionParser.cpp - GNU-style options against a table.
#include "options/VnOptionParser.h"

#include "options/VnCmdLine.h"

#include <cstring>

namespace {

const CVnOptionSpec* FindLong(const std::vector<CVnOptionSpec>& specs, const std::string& name) {
  for (const CVnOptionSpec& s : specs)
    if (s.m_pszLong && name == s.m_pszLong)
      return &s;
  return nullptr;
}

const CVnOptionSpec* FindShort(const std::vector<CVnOptionSpec>& specs, char c) {
  for (const CVnOptionSpec& s : specs)
    if (s.m_cShort == c)
      return &s;
  return nullptr;
}

// "--name", "--name=value" or "--name value".
bool ParseLong(const std::vector<std::string>& args, size_t& i, const std::vector<CVnOptionSpec>& specs,
               std::vector<CVnOption>& options, std::string& error) {
  const std::string& arg = args[i];
  const size_t eq = arg.find('=');
  const std::string name = arg.substr(0, eq);
  const CVnOptionSpec* spec = FindLong(specs, name.substr(2));
  if (!spec) {
    error = "unknown option '" + name + "'";
    return false;
  }
  CVnOption option = {spec->m_nId, name, std::string(), eq != std::string::npos};
  if (option.m_bHasValue)
    option.m_strValue = arg.substr(eq + 1);
  if (spec->m_nValue == CVnOptionSpec::None && option.m_bHasValue) {
    error = "option '" + name + "' takes no value";
    return false;
  }
  if (spec->m_nValue == CVnOptionSpec::Required && !option.m_bHasValue) {
    if (i + 1 >= args.size()) {
      error = "option '" + name + "' requires an argument";
      return false;
    }
    option.m_strValue = args[++i];
    option.m_bHasValue = true;
  }
  options.push_back(option);
  return true;
}

// A group such as -wi or -U5.
bool ParseShort(const std::vector<std::string>& args, size_t& i, const std::vector<CVnOptionSpec>& specs,
                std::vector<CVnOption>& options, std::string& error) {
  const std::string& arg = args[i];
  for (size_t k = 1; k < arg.size(); ++k) {
    const CVnOptionSpec* spec = FindShort(specs, arg[k]);
    const std::string name = std::string("-") + arg[k];
    if (!spec) {
      error = "unknown option '" + name + "'";
      return false;
    }
    if (spec->m_nValue == CVnOptionSpec::None) {
      options.push_back({spec->m_nId, name, std::string(), false});
      continue;
    }
    std::string value = arg.substr(k + 1);
    if (value.empty() && spec->m_nValue == CVnOptionSpec::Required) {
      if (i + 1 >= args.size()) {
        error = "option '" + name + "' requires an argument";
        return false;
      }
      value = args[++i];
    }
    options.push_back({spec->m_nId, name, value, !value.empty() || spec->m_nValue == CVnOptionSpec::Required});
    return true;
  }
  return true;
}

}  // namespace

bool VnParseOptions(const std::vector<std::string>& args, const std::vector<CVnOptionSpec>& specs,
                    std::vector<CVnOption>& options, std::vector<std::string>& operands, std::string& error) {
  bool ended = false;
  for (size_t i = 0; i < args.size(); ++i) {
    const std::string& arg = args[i];
    if (ended || arg.size() < 2 || arg[0] != '-') {
      operands.push_back(arg);
    } else if (arg == "--") {
      ended = true;
    } else if (!(arg[1] == '-' ? ParseLong : ParseShort)(args, i, specs, options, error)) {
      return false;
    }
  }
  return true;
}

namespace {

const int kMaxWords = 64;

// The words of the line as UTF-8; false, with the reason, for a malformed
// line or one of too many words.  A malformed line leaves its stored words
// without a count: they are the ones that are not empty.
bool SplitWords(LPCWSTR cmdLine, std::vector<std::string>& words, std::string& error) {
  std::vector<CString> args(kMaxWords);
  const int count = ParseCmdLine(cmdLine, args.data(), kMaxWords);
  for (int i = 0; i < (count < 0 || count > kMaxWords ? kMaxWords : count); ++i)
    if (count >= 0 || !args[static_cast<size_t>(i)].IsEmpty())
      words.push_back(VnToUtf8(args[static_cast<size_t>(i)]));
  if (count < 0)
    error = "a quote left open or closed inside a word";
  else if (count > kMaxWords)
    error = "more than " + std::to_string(kMaxWords) + " arguments";
  return error.empty();
}

}  // namespace

CVnHostCommandLine VnReadHostCommandLine(LPCWSTR cmdLine, const std::vector<CVnOptionSpec>& specs, size_t maxFiles) {
  CVnHostCommandLine line;
  std::vector<std::string> words, files;
  const bool split = SplitWords(cmdLine, words, line.m_strError);
  for (const std::string& word : words) {
    line.m_bHeadless = line.m_bHeadless || word == "--headless";
    line.m_bHelpAsked = line.m_bHelpAsked || word == "/?";
  }
  if (!split || line.m_bHelpAsked || !VnParseOptions(words, specs, line.m_options, files, line.m_strError))
    return line;
  if (files.size() > maxFiles)
    line.m_strError = "extra operand '" + files[maxFiles] + "'";
  for (size_t i = 0; i < files.size() && i < maxFiles; ++i)
    line.m_files.push_back(VnFromUtf8(files[i]));
  return line;
}
