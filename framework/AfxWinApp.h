// CWinApp, AfxGetApp, AfxMessageBox and CWaitCursor: the application object
// as MFC defines it, as far as the library uses it (message boxes that a host
// can route, and the busy cursor shown during long operations).
//
// One application object per module: constructing one makes it the module's
// current application (AfxGetApp), destroying it clears that. The framework
// is a static library, so a host executable and the drawing DLL each have
// their own, as each MFC module has its own module state.
#pragma once

#include <windows.h>

#include "AfxString.h"

class CWinApp {
public:
    /// lpszAppName: the caption of message boxes (null: the module's file
    /// name without its extension, as MFC takes it).
    explicit CWinApp(const char* lpszAppName = nullptr);
    CWinApp(const CWinApp&) = delete;
    CWinApp& operator=(const CWinApp&) = delete;
    virtual ~CWinApp();

    /// Shows a message box and returns the button chosen (IDOK, ...), or 0
    /// when no box could be shown. The base shows ::MessageBoxA with the
    /// application's name as caption, owned by the active window of the
    /// thread; nIDPrompt is the help context id, which the base ignores. A
    /// null prompt shows an empty text. Hosts override this to route boxes.
    virtual int DoMessageBox(const char* lpszPrompt, UINT nType, UINT nIDPrompt);

    /// The busy cursor, counted as MFC counts it: nCode 1 shows the wait
    /// cursor (the first time remembering the cursor it replaced), -1 undoes
    /// one 1 and restores the remembered cursor when the count reaches 0
    /// (never below 0), 0 shows the wait cursor again if the count is above
    /// 0 (after a dialog changed the cursor).
    virtual void DoWaitCursor(int nCode);
    void BeginWaitCursor() { DoWaitCursor(1); }
    void EndWaitCursor() { DoWaitCursor(-1); }
    void RestoreWaitCursor() { DoWaitCursor(0); }

    const char* m_pszAppName = nullptr;
    HINSTANCE m_hInstance = nullptr;

protected:
    int m_nWaitCursorCount = 0;
    HCURSOR m_hcurWaitCursorRestore = nullptr;

private:
    CString m_appName;
};

/// The module's current application object, or null when none exists.
CWinApp* AfxGetApp();

/// The module the calling code is linked into (the executable, or the DLL
/// that carries the framework), as MFC's module state holds it.
HINSTANCE AfxGetInstanceHandle();

/// The module whose resources the framework loads: the module itself unless
/// AfxSetResourceHandle chose another (for example a resource-only DLL).
HINSTANCE AfxGetResourceHandle();

/// Makes resources come from hInstResource. A null handle makes them come
/// from the module itself again (MFC asserts on null instead).
void AfxSetResourceHandle(HINSTANCE hInstResource);

/// The message box of the current application's DoMessageBox; without an
/// application object, the base's box with no caption. Returns the button.
int AfxMessageBox(const char* lpszText, UINT nType = MB_OK, UINT nIDHelp = 0);

/// Shows the busy cursor for its lifetime: BeginWaitCursor on construction,
/// EndWaitCursor on destruction, on every path out. Without an application
/// object the framework counts the cursor itself with the same rules.
class CWaitCursor {
public:
    CWaitCursor();
    ~CWaitCursor();
    CWaitCursor(const CWaitCursor&) = delete;
    CWaitCursor& operator=(const CWaitCursor&) = delete;
    /// Shows the wait cursor again after something else changed it.
    void Restore();
};
