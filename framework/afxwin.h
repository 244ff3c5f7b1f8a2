// The framework's main header, named as MFC's: strings, value types, GDI
// objects, device contexts, windows and the application object.
#pragma once

#include "AfxDC.h"
#include "AfxFile.h"
#include "AfxFileFind.h"
#include "AfxGdi.h"
#include "AfxString.h"
#include "AfxTypes.h"
#include "AfxWinApp.h"
#include "AfxWnd.h"
