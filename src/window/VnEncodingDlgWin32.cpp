// VnEncodingDlgWin32.cpp - the File Encoding dialog and the frame's
// OnEncoding, which runs it.
#include "window/VnEncodingDlg.h"

#include "foundation/LocalResources.h"
#include "intake/VnCPInfo.h"
#include "window/VnReconcileFrame.h"

namespace {

enum : UINT {
  IDC_FILE1_LIST = 1063, IDC_FILE2_LIST = 1067, IDC_SYSTEM_PAGE = 1066,
  IDS_UTF16BE = 150, IDS_UTF16LE = 151,
};

CListBox g_file1List;
CListBox g_file2List;

void AddPage(LPCWSTR name, unsigned codePage) {
  for (CListBox* list : {&g_file1List, &g_file2List})
    list->SetItemData(list->AddString(name), codePage);
}

// A page the system lists but can't describe is left out, silently.
BOOL CALLBACK AddInstalledPage(LPWSTR number) {
  unsigned codePage = static_cast<unsigned>(_wtoi(number));
  CPINFOEXW info;
  if (::IsValidCodePage(codePage) && GetVnCPInfo(codePage, 0, &info))
    AddPage(info.CodePageName, codePage);
  return TRUE;
}

// The first entry of the file's page (the system's page for 0) is selected
// and brought to the top; none when the list lacks it.
void SelectPage(CListBox& list, unsigned codePage) {
  if (codePage == 0)
    codePage = ::GetACP();
  for (int i = 0; i < list.GetCount(); ++i) {
    if (list.GetItemData(i) == codePage) {
      list.SetCurSel(i);
      list.SetTopIndex(i);
      return;
    }
  }
}

unsigned SelectedPage(const CListBox& list) {
  int index = list.GetCurSel();
  return index < 0 ? 0 : static_cast<unsigned>(list.GetItemData(index));
}

}  // namespace

IMPLEMENT_DYNAMIC(CVnEncodingDlg, CVnLocalDialog)

CVnEncodingDlg::CVnEncodingDlg(CVnReconcileFrame* frame, CVnDiffFile& file1, CVnDiffFile& file2)
    : CVnLocalDialog(IDD, frame), m_pFile1(&file1), m_pFile2(&file2), m_pFrame(frame) {}

HINSTANCE CVnEncodingDlg::GetDialogResourceModule() { return GetResourceModule(); }

void CVnEncodingDlg::DoDataExchange(CDataExchange* dx) {
  g_file1List.Attach(dx->PrepareCtrl(IDC_FILE1_LIST));
  g_file2List.Attach(dx->PrepareCtrl(IDC_FILE2_LIST));
  m_hSystemCodePage = dx->PrepareCtrl(IDC_SYSTEM_PAGE);
}

BOOL CVnEncodingDlg::OnInitDialog() {
  CVnLocalDialog::OnInitDialog();
  ::EnumSystemCodePagesW(&AddInstalledPage, CP_INSTALLED);
  AddPage(LoadLocalString(GetResourceModule(), IDS_UTF16LE), 70001);
  AddPage(LoadLocalString(GetResourceModule(), IDS_UTF16BE), 70000);
  CPINFOEXW info;
  ::SetWindowTextW(m_hSystemCodePage, GetVnCPInfo(::GetACP(), 0, &info) ? info.CodePageName : L"");
  SelectPage(g_file1List, m_pFile1->GetCodePage());
  SelectPage(g_file2List, m_pFile2->GetCodePage());
  return TRUE;
}

// Only a change of page counts; the frame reads its files again once.
void CVnEncodingDlg::OnOK() {
  bool changed = false;
  const unsigned first = SelectedPage(g_file1List), second = SelectedPage(g_file2List);
  if (first != m_pFile1->GetCodePage()) {
    m_pFile1->SetFileEncoding(first);
    changed = true;
  }
  if (second != m_pFile2->GetCodePage()) {
    m_pFile2->SetFileEncoding(second);
    changed = true;
  }
  if (changed)
    m_pFrame->ReopenFiles();
  CVnLocalDialog::OnOK();
}

void CVnReconcileFrame::OnEncoding(CVnDiffFile& file1, CVnDiffFile& file2) {
  CVnEncodingDlg dialog(this, file1, file2);
  dialog.DoModal();
}
