// The DC a tool draws on.
#pragma once

#include "framework/afxwin.h"

/// `dc`, or for a null DC an inert one without handles.
CDC& DeviceOf(CDC* dc);

/// Whether the tool has nothing to draw on: no CDC, or a CDC without an
/// output handle. The tool then makes no GDI, user32 or CDC call at all and
/// answers 0.
inline bool IsInert(const CDC* dc) { return !dc || !dc->m_hDC; }

/// The handle that answers the DC's queries, or null when there is none
/// (an inert DC, or a CDC without an attribute handle): callers answer 0
/// instead of asking GDI.
inline HDC QueryHandle(const CDC* dc) { return IsInert(dc) ? nullptr : dc->m_hAttribDC; }
