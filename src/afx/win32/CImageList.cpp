// CImageList.cpp - an owned image list and the system's drag image.
#include "afx/win32/CImageList.h"

#include "afx/win32/CWnd.h"

#include <cassert>

IMPLEMENT_DYNAMIC(CImageList, CObject)

#define VN_ASSERT_LIST() assert(m_hImageList && "the object holds an image list")

CImageList::~CImageList() { DeleteImageList(); }

BOOL CImageList::Create(int cx, int cy, UINT flags, int initial, int grow) {
  return Attach(ImageList_Create(cx, cy, flags, initial, grow));
}

BOOL CImageList::Attach(HIMAGELIST imageList) {
  if (!imageList || m_hImageList)
    return FALSE;
  m_hImageList = imageList;
  return TRUE;
}

HIMAGELIST CImageList::Detach() {
  HIMAGELIST imageList = m_hImageList;
  m_hImageList = nullptr;
  return imageList;
}

BOOL CImageList::DeleteImageList() {
  if (!m_hImageList)
    return FALSE;
  return ImageList_Destroy(Detach());
}

int CImageList::GetImageCount() const {
  VN_ASSERT_LIST();
  return ImageList_GetImageCount(m_hImageList);
}

int CImageList::Add(HBITMAP bitmap, COLORREF mask) {
  VN_ASSERT_LIST();
  return ImageList_AddMasked(m_hImageList, bitmap, mask);
}

int CImageList::Add(HICON icon) {
  VN_ASSERT_LIST();
  return ImageList_ReplaceIcon(m_hImageList, -1, icon);
}

//===-- The drag image -----------------------------------------------------===//

BOOL CImageList::BeginDrag(int image, CPoint hotSpot) {
  VN_ASSERT_LIST();
  return ImageList_BeginDrag(m_hImageList, image, hotSpot.x, hotSpot.y);
}

BOOL CImageList::DragEnter(CWnd* lock, CPoint point) {
  return ImageList_DragEnter(lock ? lock->m_hWnd : nullptr, point.x, point.y);
}

BOOL CImageList::DragMove(CPoint point) { return ImageList_DragMove(point.x, point.y); }

BOOL CImageList::DragLeave(CWnd* lock) { return ImageList_DragLeave(lock ? lock->m_hWnd : nullptr); }

void CImageList::EndDrag() { ImageList_EndDrag(); }
