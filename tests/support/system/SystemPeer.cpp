// The second process of the system tests: it reads, writes or holds the
// clipboard, or reports the names in its own version block, and writes what
// it found to its standard output.
//   system_peer get            prints the clipboard's text
//   system_peer set TEXT U     SetClipboardText(TEXT, U); exit code = result
//   system_peer hold           opens the clipboard for a window of its own,
//                              sets the event "system_tests_held" and keeps
//                              it open until "system_tests_release" is set
//                              (at most 10 s)
//   system_peer names          prints "product result|name|legal result|text"
#include "support/system/Clipboard.h"
#include "support/system/VersionInfo.h"

#include <fcntl.h>
#include <io.h>

#include <cstdio>
#include <cstdlib>
#include <string>

int main(int argc, char** argv)
{
    _setmode(_fileno(stdout), _O_BINARY);
    const std::string mode = argc > 1 ? argv[1] : "";
    if (mode == "get") {
        std::fputs(GetClipboardText(nullptr), stdout);
        return 0;
    }
    if (mode == "set" && argc > 3)
        return SetClipboardText(nullptr, argv[2], static_cast<UINT>(std::atoi(argv[3])));
    if (mode == "hold") {
        // Held through a window: Wine lets a second null owner open a clipboard held by a null owner.
        const HWND owner = CreateWindowExA(0, "STATIC", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        if (!owner || !OpenClipboard(owner))
            return 2;
        SetEvent(OpenEventA(EVENT_MODIFY_STATE, FALSE, "system_tests_held"));
        WaitForSingleObject(OpenEventA(SYNCHRONIZE, FALSE, "system_tests_release"), 10000);
        CloseClipboard();
        DestroyWindow(owner);
        return 0;
    }
    if (mode == "names") {
        CString product, legal;
        const int productFound = GetAppProductName(product);
        const int legalFound = GetAppLegalNotice(legal);
        std::printf("%d|%s|%d|%s", productFound, product.GetString(), legalFound, legal.GetString());
        return 0;
    }
    return 3;
}
