// main.cpp - vndiff, the console host: compare two files from the command line.
//
// Exit status 0 when the files are the same (with --merge: merged without
// conflicts), 1 when they differ (conflicts remain), 2 on trouble (with a
// message on standard error).  See docs/vndiff.md.
#include "VndiffHost.h"

#include "resources/VnVersion.h"

#include <cerrno>
#ifdef __GLIBC__
#include <malloc.h>
#endif
#include <new>
#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#include <shellapi.h>
#endif

// The arguments as UTF-8; on Windows from the wide command line, so that
// names outside the ANSI code page survive.
static std::vector<std::string> Arguments(int argc, char** argv) {
  std::vector<std::string> args;
#ifdef _WIN32
  int count = 0;
  LPWSTR* wide = CommandLineToArgvW(GetCommandLineW(), &count);
  for (int i = 1; wide && i < count; ++i)
    args.push_back(VnToUtf8(wide[i]));
  LocalFree(wide);
  (void)argc;
  (void)argv;
#else
  for (int i = 1; i < argc; ++i)
    args.push_back(argv[i]);
#endif
  return args;
}


static int Run(const std::vector<std::string>& args) {
  using namespace vndiff;
  Options options = ParseCommandLine(args);
  for (std::string& file : options.files)
    file = ResolveOperand(file);
  switch (options.command) {
  case Command::Help:
    fputs(UsageText(), stdout);
    return kExitSame;
  case Command::Version:
    printf("vndiff (Vn Reconcile) %s\n", VN_VERSION_TEXT);
    return kExitSame;
  case Command::Info:
    return RunInfo(options, stdout);
  case Command::ApplyDelta:
    InstallBinaryAnswer(options.binary);
    ApplyDelta(options.deltaDir, options.files[0], options.output);
    return kExitSame;
  case Command::Compare:
    InstallBinaryAnswer(options.binary);
    return RunCompare(options, stdout);
  case Command::Merge:
    InstallBinaryAnswer(options.binary);
    return RunMerge(options, stdout);
  }
  return kExitTrouble;
}

// vndiff is one short run: memory the comparison frees in one phase is
// best reused by the next rather than given back to the system and faulted
// in afresh.  So big blocks come from the heap, not from their own
// mappings, and the heap's top is never trimmed.
static void TuneHeap() {
#ifdef __GLIBC__
  mallopt(M_MMAP_THRESHOLD, 256 << 20);
  mallopt(M_TRIM_THRESHOLD, -1);
#endif
}

int main(int argc, char** argv) {
  TuneHeap();
#ifdef _WIN32
  _setmode(_fileno(stdout), _O_BINARY);  // lines keep the bytes they had
#endif
  try {
    return Run(Arguments(argc, argv));
  } catch (const vndiff::Failure& f) {
    fflush(stdout);
    fprintf(stderr, "vndiff: %s\n", vndiff::Relabel(f.what()).c_str());
    if (std::string(f.what()).find("option") != std::string::npos ||
        std::string(f.what()).find("operand") != std::string::npos)
      fprintf(stderr, "vndiff: try 'vndiff --help' for more information\n");
  } catch (CException* e) {
    fflush(stdout);
    fprintf(stderr, "vndiff: %s\n", vndiff::DescribeException(e, "").c_str());
  } catch (const std::bad_alloc&) {
    fflush(stdout);
    fprintf(stderr, "vndiff: out of memory\n");
  }
  return vndiff::kExitTrouble;
}
