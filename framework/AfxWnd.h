// CWnd: holds a window handle, as MFC's window object does. The framework
// does not own or destroy the window.
#pragma once

#include <windows.h>

class CWnd {
public:
    CWnd() = default;
    explicit CWnd(HWND hwnd) : m_hWnd(hwnd) {}
    virtual ~CWnd() = default;

    HWND m_hWnd = nullptr;

    HWND GetSafeHwnd() const { return m_hWnd; }
    operator HWND() const { return m_hWnd; }
    BOOL Attach(HWND hwnd) { m_hWnd = hwnd; return hwnd != nullptr; }
    HWND Detach() { HWND hwnd = m_hWnd; m_hWnd = nullptr; return hwnd; }
};
