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
#include "options/VnReconcileApp.h"

#include <string>

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

// false, with the offending word in bad, for an unknown option or a wrong
// number of files.
bool ReadArguments(const CString* args, int count, Arguments& out, CString& bad) {
  for (int i = 0; i < count; ++i) {
    const CString& a = args[i];
    if (a == L"-i" || a == L"--ignore-case")
      out.options.m_bIgnoreCase = true;
    else if (a == L"-w" || a == L"--ignore-whitespace")
      out.options.m_bIgnoreWhitespace = true;
    else if (a == L"--ignore-encoding")
      out.options.m_bIgnoreEncoding = true;
    else if (a == L"--ignore-line-ends")
      out.options.m_bIgnoreLineEnds = true;
    else if (a == L"--differences-only")
      out.differencesOnly = true;
    else if (a == L"--headless")
      out.headless = true;
    else if (a == L"-h" || a == L"--help" || a == L"/?")
      out.help = true;
    else if (a.GetLength() > 1 && a[0] == L'-' && a != L"--") {
      bad = a;
      return false;
    } else if (a != L"--" && out.fileCount < 2)
      out.files[out.fileCount++] = a;
    else if (a != L"--") {
      bad = a;
      return false;
    }
  }
  return true;
}

class CVnCompareApp : public CVnReconcileApp {
public:
  CVnCompareApp() { SetRegistryKey(L"Software\\VnReconcile\\vncompare"); }

  BOOL InitInstance() override {
    CString args[16];
    int count = ParseCmdLine(args, 16);
    Arguments arguments;
    CString bad;
    // A malformed line still says whether the run is headless.
    int stored = count < 0 ? 16 : count > 16 ? 16 : count;
    bool ok = ReadArguments(args, stored, arguments, bad) && count >= 0 && count <= 16;
    if (count < 0)
      bad = L"(an unclosed quote)";
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
      CString message = bad.IsEmpty() ? CString(L"two files are needed") : L"unknown argument " + bad;
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
