// CImageList.h - an image list, and the system's one drag image.
//
// The object owns the list it holds and destroys it when it dies; Detach
// hands ownership back.  The drag functions act on the single drag image of
// the system (ImageList_BeginDrag and its kin): BeginDrag makes it from one
// image of this list, the static ones move, show and hide it, EndDrag ends
// it.  A drag image is drawn locked over a window, in that window's
// coordinates relative to its top left corner.
#ifndef VN_AFX_WIN32_CIMAGELIST_H
#define VN_AFX_WIN32_CIMAGELIST_H

#include "afx/win32/CGeometry.h"

#include <commctrl.h>

class CWnd;

class VN_API CImageList : public CObject {
  DECLARE_DYNAMIC(CImageList)
public:
  CImageList() = default;
  ~CImageList() override;
  CImageList(const CImageList&) = delete;
  CImageList& operator=(const CImageList&) = delete;

  operator HIMAGELIST() const { return m_hImageList; }
  HIMAGELIST GetSafeHandle() const { return m_hImageList; }
  // flags: ILC_COLOR32, ILC_MASK...
  BOOL Create(int cx, int cy, UINT flags, int initial, int grow);
  // Gives FALSE for a null list or when one is held already.
  BOOL Attach(HIMAGELIST imageList);
  HIMAGELIST Detach();
  BOOL DeleteImageList();

  int GetImageCount() const;
  // The index of the first image added, -1 on failure.
  int Add(HBITMAP bitmap, COLORREF mask);
  int Add(HICON icon);

  // hotSpot: where the cursor sits in the image.
  BOOL BeginDrag(int image, CPoint hotSpot);
  // point: in lock's window coordinates.
  static BOOL DragEnter(CWnd* lock, CPoint point);
  static BOOL DragMove(CPoint point);
  static BOOL DragLeave(CWnd* lock);
  static void EndDrag();

  HIMAGELIST m_hImageList = nullptr;
};

#endif  // VN_AFX_WIN32_CIMAGELIST_H
