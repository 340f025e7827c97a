// VnmergeApp.cpp - the merge tool's application: its command line, its
// window, and its exit status (0 saved with no conflict left, 1 not saved
// or saved with conflicts, 2 trouble), so that version control tools can
// trust it.
//
// With --headless every message goes to standard error instead of a box,
// and every question takes its default answer.
#include "VnmergeFrame.h"
#include "VnmergeResource.h"
#include "foundation/LocalResources.h"
#include "options/VnOptionParser.h"
#include "options/VnReconcileApp.h"

#include <string>
#include <vector>

namespace {

struct Arguments {
  CString files[3];
  int fileCount = 0;
  CString merged;
  bool headless = false;
  bool help = false;
};

enum Id { kOutput, kHeadless, kHelp };

const std::vector<CVnOptionSpec> kOptions = {
    {kOutput, 'o', "output", CVnOptionSpec::Required},
    {kHeadless, 0, "headless", CVnOptionSpec::None},
    {kHelp, 'h', "help", CVnOptionSpec::None},
};

// The tool's command line; its error is empty for a good one.
Arguments ReadArguments(LPCWSTR cmdLine, std::string& error) {
  const CVnHostCommandLine line = VnReadHostCommandLine(cmdLine, kOptions, 3);
  Arguments out;
  out.headless = line.m_bHeadless;
  out.help = line.m_bHelpAsked;
  for (const CVnOption& option : line.m_options) {
    if (option.m_nId == kOutput)
      out.merged = VnFromUtf8(option.m_strValue);
    else if (option.m_nId == kHelp)
      out.help = true;
  }
  for (const CString& file : line.m_files)
    out.files[out.fileCount++] = file;
  error = line.m_strError;
  return out;
}

class CVnMergeApp : public CVnReconcileApp {
public:
  CVnMergeApp() { SetRegistryKey(L"Software\\VnReconcile\\vnmerge"); }

  BOOL InitInstance() override {
    std::string error;
    Arguments arguments = ReadArguments(m_lpCmdLine, error);
    bool ok = error.empty();
    if (arguments.headless)
      VnUseHeadlessPrompt(L"vnmerge");
    if (arguments.help) {
      AfxMessageBox(LoadLocalString(::GetModuleHandleW(nullptr), IDS_USAGE), MB_ICONINFORMATION);
      m_nStatus = 0;
      return FALSE;
    }
    if (ok && (arguments.fileCount < 2 || arguments.merged.IsEmpty())) {
      ok = false;
      error = arguments.merged.IsEmpty() ? "-o MERGED is needed" : "LOCAL and REMOTE are needed";
    }
    if (!ok) {
      AfxMessageBox(VnFromUtf8(error) + L"; vnmerge --help shows the usage", MB_ICONSTOP);
      return FALSE;
    }
    return Start(arguments);
  }

  int ExitInstance() override {
    CVnReconcileApp::ExitInstance();
    return m_nStatus;
  }

private:
  // The frame deletes itself when its window goes; it keeps its status in
  // m_nStatus.
  BOOL Start(const Arguments& a) {
    bool threeWay = a.fileCount == 3;
    auto* frame = new CVnMergeFrame(threeWay ? a.files[0] : CString(), a.files[threeWay ? 1 : 0],
                                    a.files[threeWay ? 2 : 1], a.merged, m_nStatus);
    if (!frame->CreateFrame()) {
      delete frame;
      return FALSE;
    }
    m_pMainWnd = frame;
    if (!frame->DiffAndDisplay()) {
      frame->DestroyWindow();
      return FALSE;
    }
    return TRUE;
  }

  int m_nStatus = 2;
};

CVnMergeApp theApp;

}  // namespace

extern "C" int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previous, LPWSTR cmdLine, int cmdShow) {
  return AfxWinMain(instance, previous, cmdLine, cmdShow);
}
