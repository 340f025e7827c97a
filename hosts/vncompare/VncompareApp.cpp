// VncompareApp.cpp - the compare tool's application: its command line, its
// window, and its exit status (0 same, 1 different, 2 trouble), so that
// scripts and version control tools can trust it.
//
// With --headless every message goes to standard error instead of a box,
// and the binary question takes its default answer: a run on a display
// nobody watches must end by itself.
#include "VncompareFrame.h"
#include "VncompareResource.h"
#include "foundation/LocalResources.h"
#include "options/VnOptionParser.h"
#include "options/VnReconcileApp.h"

#include <string>
#include <vector>

namespace {

// A file without a byte order mark is read in the encoding its bytes show.
CVnCompareOptions ByContent() {
  CVnCompareOptions options;
  options.m_bEncodingByContent = true;
  return options;
}

struct Arguments {
  CString files[2];
  int fileCount = 0;
  CVnCompareOptions options = ByContent();
  bool differencesOnly = false;
  bool headless = false;
  bool help = false;
};

enum Id { kIgnoreCase, kIgnoreWhitespace, kIgnoreEncoding, kIgnoreLineEnds, kDifferencesOnly, kHeadless, kHelp };

const std::vector<CVnOptionSpec> kOptions = {
    {kIgnoreCase, 'i', "ignore-case", CVnOptionSpec::None},
    {kIgnoreWhitespace, 'w', "ignore-whitespace", CVnOptionSpec::None},
    {kIgnoreEncoding, 0, "ignore-encoding", CVnOptionSpec::None},
    {kIgnoreLineEnds, 0, "ignore-line-ends", CVnOptionSpec::None},
    {kDifferencesOnly, 0, "differences-only", CVnOptionSpec::None},
    {kHeadless, 0, "headless", CVnOptionSpec::None},
    {kHelp, 'h', "help", CVnOptionSpec::None},
};

// The tool's command line; its error is empty for a good one.
Arguments ReadArguments(LPCWSTR cmdLine, std::string& error) {
  const CVnHostCommandLine line = VnReadHostCommandLine(cmdLine, kOptions, 2);
  Arguments out;
  out.headless = line.m_bHeadless;
  out.help = line.m_bHelpAsked;
  for (const CVnOption& option : line.m_options) {
    switch (option.m_nId) {
    case kIgnoreCase: out.options.m_bIgnoreCase = true; break;
    case kIgnoreWhitespace: out.options.m_bIgnoreWhitespace = true; break;
    case kIgnoreEncoding: out.options.m_bIgnoreEncoding = true; break;
    case kIgnoreLineEnds: out.options.m_bIgnoreLineEnds = true; break;
    case kDifferencesOnly: out.differencesOnly = true; break;
    case kHeadless: break;
    case kHelp: out.help = true; break;
    }
  }
  for (const CString& file : line.m_files)
    out.files[out.fileCount++] = file;
  error = line.m_strError;
  return out;
}

class CVnCompareApp : public CVnReconcileApp {
public:
  CVnCompareApp() { SetRegistryKey(L"Software\\VnReconcile\\vncompare"); }

  BOOL InitInstance() override {
    std::string error;
    Arguments arguments = ReadArguments(m_lpCmdLine, error);
    const bool ok = error.empty();
    if (arguments.headless)
      VnUseHeadlessPrompt(L"vncompare");
    CString usage = LoadLocalString(::GetModuleHandleW(nullptr), IDS_USAGE);
    if (arguments.help) {
      AfxMessageBox(usage, MB_ICONINFORMATION);
      m_nStatus = 0;
      return FALSE;
    }
    // No files at all: the user picks them, as File > Open does; Cancel
    // ends a tool that has nothing to show.
    if (ok && arguments.fileCount == 0 && !arguments.headless) {
      if (!CVnCompareFrame::AskForFiles(arguments.files[0], arguments.files[1]))
        return FALSE;
      arguments.fileCount = 2;
    }
    if (!ok || arguments.fileCount != 2) {
      const CString message = ok ? CString(L"two files are needed") : VnFromUtf8(error);
      AfxMessageBox(message + L"; vncompare --help shows the usage", MB_ICONSTOP);
      return FALSE;
    }
    return Start(arguments);
  }

  int ExitInstance() override {
    CVnReconcileApp::ExitInstance();
    return m_nStatus;
  }

  void RecordStatus(int status) { m_nStatus = status; }

private:
  // The frame deletes itself when its window goes; its status is kept here.
  BOOL Start(const Arguments& arguments) {
    auto* frame = new CVnCompareFrame(arguments.files[0], arguments.files[1], arguments.options,
                                      arguments.differencesOnly);
    if (!frame->CreateFrame()) {
      delete frame;
      return FALSE;
    }
    m_pMainWnd = frame;
    if (!frame->DiffAndDisplay()) {
      m_nStatus = frame->GetExitStatus();
      frame->DestroyWindow();
      return FALSE;
    }
    m_nStatus = frame->GetExitStatus();
    return TRUE;
  }

  int m_nStatus = 2;
};

CVnCompareApp theApp;

}  // namespace

extern "C" int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previous, LPWSTR cmdLine, int cmdShow) {
  return AfxWinMain(instance, previous, cmdLine, cmdShow);
}
