#include "AfxWinApp.h"

namespace {

CWinApp* CurrentApp = nullptr;
HINSTANCE ResourceModule = nullptr;

/// The busy-cursor count of a module without an application object.
class FallbackApp : public CWinApp {
public:
    FallbackApp() : CWinApp("") {}
};

CWinApp* WaitCursorOwner()
{
    if (CurrentApp)
        return CurrentApp;
    // Built on first use; it never becomes the module's application.
    static FallbackApp* fallback = [] {
        CWinApp* const app = CurrentApp;
        FallbackApp* const made = new FallbackApp();
        CurrentApp = app;
        return made;
    }();
    return fallback;
}

int ShowBox(const char* caption, const char* text, UINT type)
{
    return ::MessageBoxA(GetActiveWindow(), text ? text : "", caption, type);
}

} // namespace

CWinApp::CWinApp(const char* lpszAppName)
{
    m_hInstance = GetModuleHandleA(nullptr);
    if (lpszAppName) {
        m_appName = lpszAppName;
    } else {
        char path[MAX_PATH] = "";
        GetModuleFileNameA(nullptr, path, MAX_PATH);
        char name[_MAX_FNAME] = "";
        _splitpath_s(path, nullptr, 0, nullptr, 0, name, _MAX_FNAME, nullptr, 0);
        m_appName = name;
    }
    m_pszAppName = m_appName.GetString();
    CurrentApp = this;
}

CWinApp::~CWinApp()
{
    if (CurrentApp == this)
        CurrentApp = nullptr;
}

int CWinApp::DoMessageBox(const char* lpszPrompt, UINT nType, UINT /*nIDPrompt*/)
{
    return ShowBox(m_pszAppName, lpszPrompt, nType);
}

void CWinApp::DoWaitCursor(int nCode)
{
    m_nWaitCursorCount += nCode;
    if (m_nWaitCursorCount > 0) {
        const HCURSOR previous = SetCursor(LoadCursor(nullptr, IDC_WAIT));
        if (nCode > 0 && m_nWaitCursorCount == 1)
            m_hcurWaitCursorRestore = previous;
    } else {
        m_nWaitCursorCount = 0;
        SetCursor(m_hcurWaitCursorRestore);
    }
}

HINSTANCE AfxGetInstanceHandle()
{
    // The module that holds this code: each module linking the framework has
    // its own, as each MFC module has its own module state.
    HMODULE module = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<const char*>(&AfxGetInstanceHandle), &module);
    return module;
}

HINSTANCE AfxGetResourceHandle()
{
    return ResourceModule ? ResourceModule : AfxGetInstanceHandle();
}

void AfxSetResourceHandle(HINSTANCE hInstResource)
{
    ResourceModule = hInstResource;
}

CWinApp* AfxGetApp()
{
    return CurrentApp;
}

int AfxMessageBox(const char* lpszText, UINT nType, UINT nIDHelp)
{
    if (CWinApp* app = AfxGetApp())
        return app->DoMessageBox(lpszText, nType, nIDHelp);
    return ShowBox(nullptr, lpszText, nType);
}

CWaitCursor::CWaitCursor() { WaitCursorOwner()->BeginWaitCursor(); }
CWaitCursor::~CWaitCursor() { WaitCursorOwner()->EndWaitCursor(); }
void CWaitCursor::Restore() { WaitCursorOwner()->RestoreWaitCursor(); }
