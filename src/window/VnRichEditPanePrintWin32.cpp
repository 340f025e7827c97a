// VnRichEditPanePrintWin32.cpp - printing a pane page by page.
//
// The rich edit control lays the pages out itself: EM_FORMATRANGE draws the
// part of a character range that fits a rectangle and gives the first
// character that didn't fit.  The job keeps one number per page found so
// far, the character it starts at (m_aPageStart); a page is found by
// printing the one before it.  So a job that asks for a late page first
// formats the pages before it on a context that clips everything away
// (PaginateTo), and a job in descending order finds every page on its way
// before it prints the last one asked for.
//
// The page: the paper's full size, with a margin on each side twice the
// width of the part the printer can't reach.  There is no running header:
// the text's own two header lines open the first page.
//
// The job, in OnFilePrint:
//   1. The print dialog (DoPreparePrinting), and for printing to a file the
//      file's name.
//   2. The printer's context, the first page's start (OnBeginPrinting), the
//      abort procedure, the printing dialog; parent disabled; StartDoc.
//   3. The pages from the first asked for to the last, ascending or
//      descending, each between StartPage and EndPage, until the range or
//      the text ends (EndDoc) or a page fails or the user stops (AbortDoc).
//   4. Clean-up: the formatter's cache and the page starts dropped, parent
//      enabled, the dialog destroyed.
// While the job runs, the abort procedure pumps the thread's messages, so
// the printing dialog's Cancel button works between pages.
#include "window/VnRichEditPane.h"

#include "afx/win32/AfxRes.h"
#include "afx/win32/CDC.h"
#include "afx/win32/CFileDialog.h"
#include "afx/win32/CPrintDialog.h"
#include "afx/win32/CWinApp.h"
#include "foundation/LocalResources.h"
#include "window/VnPrintingDialog.h"

#include <cassert>

static const WCHAR kDocumentTitle[] = L"Sideview Output";

// The framework's texts of a job.
enum {
  IDS_PRINTONPORT = 0xF040,
  IDS_PRINTPAGENUM = 0xF043,
  IDS_PRINTDEFAULTEXT = 0xF045,
  IDS_PRINTDEFAULT = 0xF046,
  IDS_PRINTFILTER = 0xF047,
  IDS_PRINTCAPTION = 0xF048,
  IDS_PRINTTOFILE = 0xF049,
  IDP_FAILED_TO_START_PRINT = 0xF106,
};

static CString JobText(UINT id) { return LoadLocalString(GetResourceModule(), id); }

// The text numbered id with %1 replaced by argument.
static CString FormatJobText(UINT id, LPCWSTR argument) {
  CString text = JobText(id);
  text.Replace(L"%1", argument);
  return text;
}

static void ShowStartFailure() { AfxMessageBox(JobText(IDP_FAILED_TO_START_PRINT)); }

static CWinApp& App() {
  CWinApp* app = AfxGetApp();
  assert(app && "printing runs in an application");
  return *app;
}

//===-- Preparing ----------------------------------------------------------===//

static void AskWholeRange(CPrintDialog& dialog) {
  dialog.m_pd.nFromPage = dialog.m_pd.nMinPage;
  dialog.m_pd.nToPage = dialog.m_pd.nMaxPage;
}

// A selection in the pane makes the dialog offer it, chosen.  Direct
// printing asks no question unless there is no printer to print on.
int CVnRichEditPane::DoPreparePrinting(CPrintInfo* info) {
  PRINTDLGW& pd = info->m_pPD->m_pd;
  if (GetSelectionType() != SEL_EMPTY) {
    pd.Flags ^= PD_NOSELECTION;
    pd.Flags |= PD_SELECTION;
  }
  if (!info->m_bDirect) {
    AskWholeRange(*info->m_pPD);
    return App().DoPrintDialog(info->m_pPD) == IDOK;
  }
  if (!pd.hDC) {
    if (!App().GetPrinterDeviceDefaults(&pd) && App().DoPrintDialog(info->m_pPD) != IDOK)
      return 0;
    if (!pd.hDC && !info->m_pPD->CreatePrinterDC())
      return 0;
    AskWholeRange(*info->m_pPD);
  }
  return 1;
}

// The printer named on the command line (FilePrintTo); FALSE after telling
// the user that it could not be reached.
static BOOL UseCommandLinePrinter(CPrintInfo& info) {
  CCommandLineInfo* command = App().m_pCmdInfo;
  if (!command || command->m_nShellCommand != CCommandLineInfo::FilePrintTo)
    return TRUE;
  HDC dc = ::CreateDCW(command->m_strDriverName, command->m_strPrinterName, command->m_strPortName, nullptr);
  if (!dc) {
    ShowStartFailure();
    return FALSE;
  }
  info.m_pPD->m_pd.hDC = dc;
  return TRUE;
}

// FALSE when the user cancelled the file dialog.
static BOOL AskOutputFile(CWnd* owner, CString& name) {
  CString filter = JobText(IDS_PRINTFILTER), caption = JobText(IDS_PRINTCAPTION);
  CFileDialog dialog(FALSE, JobText(IDS_PRINTDEFAULTEXT), JobText(IDS_PRINTDEFAULT),
                     OFN_HIDEREADONLY | OFN_OVERWRITEPROMPT, filter, owner);
  dialog.m_ofn.lpstrTitle = caption;
  if (dialog.DoModal() != IDOK)
    return FALSE;
  name = dialog.GetPathName();
  return TRUE;
}

void CVnRichEditPane::OnBeginPrinting(CDC* dc, CPrintInfo* info) {
  long start = 0, end = 0;
  if (info->m_pPD->PrintSelection())
    GetSel(start, end);
  m_aPageStart.Add(static_cast<DWORD>(start));
  SendMessage(EM_FORMATRANGE, 0, 0);
}

void CVnRichEditPane::OnEndPrinting(CDC* dc, CPrintInfo* info) {
  SendMessage(EM_FORMATRANGE, 0, 0);
  m_aPageStart.RemoveAll();
}

//===-- Pages --------------------------------------------------------------===//

void CVnRichEditPane::OnPrepareDC(CDC* dc, CPrintInfo* info) {
  dc->SetMapMode(MM_TEXT);
  if (info->m_nCurPage <= static_cast<UINT>(m_aPageStart.GetSize()))
    return;
  if (!info->m_pPD->PrintSelection() && PaginateTo(dc, info))
    return;
  info->m_bContinuePrinting = FALSE;
}

// The printer's whole page, in logical units.
void CVnRichEditPane::SetPageRect(CDC& dc, CPrintInfo& info) {
  POINT corner = {dc.GetDeviceCaps(HORZRES), dc.GetDeviceCaps(VERTRES)};
  dc.DPtoLP(&corner);
  info.m_rectDraw = CRect(0, 0, corner.x, corner.y);
}

// The end of what the job prints: the selection's end, or the text's.
static long PrintLimit(CVnRichEditPane& pane, CPrintInfo& info, long textLength) {
  long start = 0, end = 0;
  if (!info.m_pPD->PrintSelection())
    return textLength;
  pane.GetSel(start, end);
  return end;
}

// Prints the current page; the page after it is found on the way, and the
// last page found ends the range.  A formatter that put nothing on the page
// (next not beyond start) has no page to add either: that page ends the
// range too, instead of an endless run of empty pages.
void CVnRichEditPane::OnPrint(CDC* dc, CPrintInfo* info) {
  UINT page = info->m_nCurPage;
  if (page < 1 || page > static_cast<UINT>(m_aPageStart.GetSize()))
    AfxThrowInvalidArgException();
  long start = static_cast<long>(m_aPageStart.GetAt(page - 1));
  bool selection = info->m_pPD->PrintSelection() != 0;
  long limit = PrintLimit(*this, *info, TextLength());
  long next = PrintPage(dc, start, selection ? limit : -1);
  if (next <= start)
    next = limit;
  if (next >= limit)
    info->SetMaxPage(page);
  if (page == static_cast<UINT>(m_aPageStart.GetSize()) && next < limit)
    m_aPageStart.Add(static_cast<DWORD>(next));
}

static int Twips(int dots, int dotsPerInch) { return ::MulDiv(dots, 1440, dotsPerInch); }

long CVnRichEditPane::PrintPage(CDC* dc, long first, long last) {
  HDC attrib = dc->m_hAttribDC;
  dc->SetViewportOrg(-::GetDeviceCaps(attrib, PHYSICALOFFSETX), -::GetDeviceCaps(attrib, PHYSICALOFFSETY));
  if (dc->GetDeviceCaps(TECHNOLOGY) != DT_METAFILE && attrib)
    dc->ScaleWindowExt(dc->GetDeviceCaps(LOGPIXELSX), ::GetDeviceCaps(attrib, LOGPIXELSX),
                       dc->GetDeviceCaps(LOGPIXELSY), ::GetDeviceCaps(attrib, LOGPIXELSY));
  int dpiX = ::GetDeviceCaps(attrib, LOGPIXELSX), dpiY = ::GetDeviceCaps(attrib, LOGPIXELSY);
  int width = Twips(::GetDeviceCaps(attrib, PHYSICALWIDTH), dpiX);
  int height = Twips(::GetDeviceCaps(attrib, PHYSICALHEIGHT), dpiY);
  int mx = Twips(::GetDeviceCaps(attrib, PHYSICALOFFSETX), dpiX);
  int my = Twips(::GetDeviceCaps(attrib, PHYSICALOFFSETY), dpiY);
  FORMATRANGE range = {};
  range.hdc = dc->m_hDC;
  range.hdcTarget = attrib;
  range.rcPage = {0, 0, width, height};
  range.rc = {2 * mx, 2 * my, width - 2 * mx, height - 2 * my};
  range.chrg = {first, last};
  return static_cast<long>(SendMessage(EM_FORMATRANGE, 1, reinterpret_cast<LPARAM>(&range)));
}

// Formats the pages from the last one found up to the current one on a
// context that shows nothing; gives 1 when the current page exists.
int CVnRichEditPane::PaginateTo(CDC* dc, CPrintInfo* info) {
  CRect rect = info->m_rectDraw;
  UINT wanted = info->m_nCurPage;
  int saved = dc->SaveDC();
  dc->IntersectClipRect(0, 0, 0, 0);
  info->m_nCurPage = static_cast<UINT>(m_aPageStart.GetSize());
  while (info->m_nCurPage < wanted) {
    OnPrepareDC(dc, info);
    SetPageRect(*dc, *info);
    OnPrint(dc, info);
    if (info->m_nCurPage == static_cast<UINT>(m_aPageStart.GetSize()))
      break;
    ++info->m_nCurPage;
  }
  int found = info->m_nCurPage == wanted;
  dc->RestoreDC(saved);
  info->m_rectDraw = rect;
  info->m_nCurPage = wanted;
  return found;
}

//===-- The job ------------------------------------------------------------===//

BOOL CALLBACK CVnRichEditPane::PrintAbortProc(HDC, int) {
  MSG msg;
  while (!CVnPrintingDialog::m_bUserAbort && ::PeekMessageW(&msg, nullptr, 0, 0, PM_NOREMOVE)) {
    if (!App().PumpMessage())
      return FALSE;
  }
  return !CVnPrintingDialog::m_bUserAbort;
}

// A page number held between the dialog's minimum and maximum.
static UINT ClampPage(UINT page, const CPrintInfo& info) {
  if (page < info.GetMinPage())
    return info.GetMinPage();
  return page > info.GetMaxPage() ? info.GetMaxPage() : page;
}

// Step 3 of the job: the pages asked for, in the order asked for.  The
// range's end 0xFFFF means "to the end of the text", which the pages find.
void CVnRichEditPane::PrintPages(CDC& dc, CPrintInfo& info, CWnd& dialog) {
  UINT from = ClampPage(info.GetFromPage(), info), to = ClampPage(info.GetToPage(), info);
  int step = to >= from ? 1 : -1;
  UINT end = to == 0xFFFF ? to : to + step;
  CString pageFormat = JobText(IDS_PRINTPAGENUM);
  bool aborted = false;
  for (info.m_nCurPage = from; info.m_nCurPage != end; info.m_nCurPage += step) {
    dc.SetMapMode(MM_TEXT);
    if (info.m_nCurPage > static_cast<UINT>(m_aPageStart.GetSize()) &&
        (info.m_pPD->PrintSelection() || !PaginateTo(&dc, &info)))
      break;
    CString pageText;
    pageText.Format(pageFormat, info.m_nCurPage);
    ::SetDlgItemTextW(dialog, CVnPrintingDialog::IDC_PAGE, pageText);
    SetPageRect(dc, info);
    if (dc.StartPage() < 0) {
      aborted = true;
      break;
    }
    OnPrint(&dc, &info);
    if (dc.EndPage() < 0 || !PrintAbortProc(dc, 0)) {
      aborted = true;
      break;
    }
  }
  if (aborted)
    dc.AbortDoc();
  else
    dc.EndDoc();
}

void CVnRichEditPane::OnFilePrint(CWnd* parent) {
  CPrintInfo info;
  const MSG* current = CWnd::GetCurrentMessage();
  if (current->message == WM_COMMAND && LOWORD(current->wParam) == ID_FILE_PRINT_DIRECT) {
    if (!UseCommandLinePrinter(info))
      return;
    info.m_bDirect = TRUE;
  }
  if (!DoPreparePrinting(&info))
    return;
  CString output;
  if (info.m_pPD->PrintToFile() && !AskOutputFile(this, output))
    return;
  DOCINFOW document = {};
  document.cbSize = sizeof(document);
  document.lpszDocName = kDocumentTitle;
  document.lpszOutput = output.IsEmpty() ? nullptr : output.GetString();
  CString port = output.IsEmpty() ? FormatJobText(IDS_PRINTONPORT, info.m_pPD->GetPortName())
                                  : FormatJobText(IDS_PRINTTOFILE, output);

  CDC dc;
  if (!dc.Attach(info.m_pPD->m_pd.hDC)) {
    ShowStartFailure();
    return;
  }
  OnBeginPrinting(&dc, &info);
  dc.SetAbortProc(&CVnRichEditPane::PrintAbortProc);
  CVnPrintingDialog dialog(this);
  ::SetDlgItemTextW(dialog, CVnPrintingDialog::IDC_DOCUMENT, kDocumentTitle);
  ::SetDlgItemTextW(dialog, CVnPrintingDialog::IDC_PRINTER, info.m_pPD->GetDeviceName());
  ::SetDlgItemTextW(dialog, CVnPrintingDialog::IDC_PORT, port);
  dialog.ShowWindow(SW_SHOW);
  dialog.UpdateWindow();
  if (parent)
    parent->EnableWindow(FALSE);

  bool started = dc.StartDoc(&document) != -1;
  if (started)
    PrintPages(dc, info, dialog);
  OnEndPrinting(&dc, &info);
  if (parent)
    parent->EnableWindow(TRUE);
  dialog.DestroyWindow();
  dc.Detach();
  if (!started)
    ShowStartFailure();
}
