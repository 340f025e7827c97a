// VndiffStdin.cpp - "-" as a file operand: standard input.
//
// The intake reads files by name, so standard input is copied once into a
// private temporary file, which every "-" then names; the file goes when
// vndiff ends.  Names in the output and in messages still say "-".
#include "VndiffHost.h"

#include "intake/VnFile.h"

#include <cerrno>
#include <cstring>
#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#endif

namespace vndiff {

namespace {

// The temporary copy, made on first use and removed at exit.
struct Spool {
  std::string path;
  ~Spool() {
    if (path.empty())
      return;
    try {
      CVnFile::FileRemove(Wide(path));
    } catch (CException* e) {
      e->Delete();  // a leftover temporary file is no reason to fail the run
    }
  }
};

Spool g_spool;

void CopyStandardInput(const std::string& path) {
  try {
    CFile file(Wide(path), CFile::modeCreate | CFile::modeWrite);
    char chunk[1 << 16];
    size_t n = 0;
    while ((n = fread(chunk, 1, sizeof chunk, stdin)) > 0)
      file.Write(chunk, static_cast<UINT>(n));
    if (ferror(stdin))
      throw Failure(std::string("-: read error: ") + strerror(errno));
    file.Close();
  } catch (CException* e) {
    throw Failure(DescribeException(e, path));
  }
}

}  // namespace

std::string ResolveOperand(const std::string& operand) {
  if (operand != "-")
    return operand;
  if (g_spool.path.empty()) {
#ifdef _WIN32
    _setmode(_fileno(stdin), _O_BINARY);  // the bytes as they come
#endif
    std::string path;
    try {
      path = Narrow(CVnFile::GetSysTempFileName(Wide("vnd")));
    } catch (CException* e) {
      e->Delete();
    }
    if (path.empty())
      throw Failure("-: cannot make a temporary file for standard input");
    g_spool.path = path;  // from here on it is removed at exit
    CopyStandardInput(path);
  }
  return g_spool.path;
}

std::string OperandLabel(const std::string& path) {
  return !g_spool.path.empty() && path == g_spool.path ? "-" : path;
}

std::string Relabel(std::string message) {
  if (g_spool.path.empty())
    return message;
  for (size_t at = message.find(g_spool.path); at != std::string::npos; at = message.find(g_spool.path, at + 1))
    message.replace(at, g_spool.path.size(), "-");
  return message;
}

}  // namespace vndiff
