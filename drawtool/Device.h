// The DC a tool draws on.
#pragma once

#include "framework/afxwin.h"

/// `dc`, or for a null DC an inert one whose null handles make every GDI call
/// fail harmlessly.
CDC& DeviceOf(CDC* dc);
