// The framework's main header, named as MFC's: strings, value types, GDI
// objects, device contexts and windows.
#pragma once

#include "AfxDC.h"
#include "AfxFile.h"
#include "AfxGdi.h"
#include "AfxString.h"
#include "AfxTypes.h"
#include "AfxWnd.h"
