// VnDragImage.h - the picture that follows the mouse while a tree item or a
// list row is dragged, shared by CVnTreeCtrl and CVnListCtrl.
//
// The picture is the first image of a list the control made for the drag;
// it shows over the control from the point the drag began and is deleted
// when the drag ends.
#ifndef VN_TOOLKIT_VNDRAGIMAGE_H
#define VN_TOOLKIT_VNDRAGIMAGE_H

#include "afx/win32/CImageList.h"

// Takes image (null: no picture) as the drag's picture over wnd.
inline void VnShowDragImage(CImageList* image, CWnd* wnd, const CPoint& point) {
  if (!image)
    return;
  image->BeginDrag(0, CPoint(0, 0));
  CImageList::DragEnter(wnd, point);
}

// Hides and deletes the drag's picture, if any, and forgets it.
inline void VnEndDragImage(CImageList*& image, CWnd* wnd) {
  if (!image)
    return;
  CImageList::DragLeave(wnd);
  CImageList::EndDrag();
  delete image;
  image = nullptr;
}

#endif  // VN_TOOLKIT_VNDRAGIMAGE_H
