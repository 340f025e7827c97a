// VnAppFlags.cpp - the application's flags, 0 until the application sets them.
#include "options/VnAppFlags.h"

int CVnAppFlags::m_bWin2K = 0;
