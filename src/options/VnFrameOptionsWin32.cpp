// VnFrameOptionsWin32.cpp - the user edits a frame's options.
//
// OnOptions shows the option sheet on copies of the frame's values and,
// after OK, sets off exactly the work each change needs, in this order:
//   display  ApplyDisplayOptions (font, tab stops, numbers, bars, view)
//   colours  all four written, then Redisplay once
//   compare  both flags written, then Recompare once
//   merge    written always; read when next needed
// Nothing reaches the frame before OK; Cancel leaves it as it was.
#include "window/VnReconcileFrame.h"

#include "afx/win32/CRichEditCtrl.h"
#include "foundation/LocalResources.h"
#include "options/VnOptionPages.h"

void CVnReconcileFrame::OnOptions(int reduced) {
  CRichEditCtrl::ClassName();  // the Color page's sample is a rich edit control
  CVnOptionsPS sheet(LoadLocalString(GetResourceModule(), 148), nullptr, 0);
  CVnOptDisplayPP display(m_DisplayOptions, reduced);
  CVnOptColorPP color(m_DisplayOptions.GetCharFormat().crTextColor, m_cfReplace.crTextColor,
                      m_cfInsert.crTextColor, m_cfDelete.crTextColor);
  CVnOptComparePP compare(m_bIgnoreCase, m_bIgnoreWhiteSpace);
  CVnOptMergePP merge(m_bEditMergedFile, m_strEditor);
  sheet.AddPage(&display);
  sheet.AddPage(&color);
  if (!reduced) {
    sheet.AddPage(&merge);
    sheet.AddPage(&compare);
  }
  if (sheet.DoModal() != IDOK)
    return;

  CVnDisplayOptions options = display.GetDisplayOptions();
  if (options != m_DisplayOptions) {
    ApplyDisplayOptions(options, 0);
    m_DisplayOptions = options;
  }
  const COLORREF now[4] = {m_DisplayOptions.GetCharFormat().crTextColor, m_cfReplace.crTextColor,
                           m_cfInsert.crTextColor, m_cfDelete.crTextColor};
  bool colors = false;
  for (int i = 0; i < 4; ++i)
    colors = colors || color.GetColor(i) != now[i];
  if (colors)
    SetColors(color.GetColor(CVnOptColorPP::Default), color.GetColor(CVnOptColorPP::Replace),
              color.GetColor(CVnOptColorPP::Insert), color.GetColor(CVnOptColorPP::Delete), false);
  if (compare.GetIgnoreCase() != m_bIgnoreCase || compare.GetIgnoreWhitespace() != m_bIgnoreWhiteSpace) {
    m_bIgnoreCase = compare.GetIgnoreCase();
    m_bIgnoreWhiteSpace = compare.GetIgnoreWhitespace();
    Recompare();
  }
  m_bEditMergedFile = merge.GetEditMergedFile();
  m_strEditor = merge.GetEditor();
}
