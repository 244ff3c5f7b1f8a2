#include "support/system/MessageBoxes.h"

#include "AfxFile.h"
#include "AfxWinApp.h"
#include "support/InvalidParameter.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

namespace {

CString MessageFileDir;
CString MessageFileName;
CString MessageFilePath;

// 4096 characters and the terminator.
constexpr int MessageBufferSize = 4097;

/// Formats into buffer, or leaves it empty and raises the invalid-parameter
/// condition when the text does not fit. The runtime's own vsprintf_s is not
/// used: some runtimes leave the buffer unterminated when it overflows.
void FormatBounded(char (&buffer)[MessageBufferSize], const char* format, va_list args)
{
    buffer[0] = '\0';
    if (!format) {
        RaiseInvalidParameter();
        return;
    }
    const int length = std::vsnprintf(buffer, MessageBufferSize, format, args);
    if (length < 0 || length >= MessageBufferSize) {
        buffer[0] = '\0';
        RaiseInvalidParameter();
    }
}

/// The id of a message-file line: the decimal number before the bar, read as
/// atoi reads it (leading blanks and a sign allowed, no digits giving 0),
/// with overflow clamped to the int range.
int LineId(const CString& line, int bar)
{
    return static_cast<int>(std::strtol(line.Left(bar), nullptr, 10));
}

} // namespace

int MessageBoxF(const char* format, UINT type, int helpId, ...)
{
    char text[MessageBufferSize];
    va_list args;
    va_start(args, helpId);
    FormatBounded(text, format, args);
    va_end(args);
    return AfxMessageBox(text, type, static_cast<UINT>(helpId));
}

int MessageBoxById(UINT id, UINT type, int helpId)
{
    const CString text = LoadMessageText(static_cast<int>(id));
    if (CWinApp* app = AfxGetApp())
        return app->DoMessageBox(text, type, static_cast<UINT>(helpId));
    // Without an application object: the base box, which has no caption.
    return AfxMessageBox(text, type, static_cast<UINT>(helpId));
}

CString LoadMessageText(int id)
{
    CString text;
    CStdioFile file;
    if (!file.Open(MessageFilePath, CFile::modeRead | CFile::typeText))
        return text;
    try {
        CString line;
        while (file.ReadString(line)) {
            const int bar = line.Find('|');
            if (bar < 0 || LineId(line, bar) != id)
                continue;
            text = line.Mid(bar + 1);
            text.Replace("\\n", "\n");
            break;
        }
    } catch (CFileException* error) {
        // A read error ends the search with what was found so far.
        error->Delete();
    }
    file.Abort();
    return text;
}

void SetMessageFile(const char* directory, const char* fileName)
{
    MessageFileDir = directory;
    if (MessageFileDir.IsEmpty() || MessageFileDir[MessageFileDir.GetLength() - 1] != '\\')
        MessageFileDir += '\\';
    MessageFileName = fileName;
    MessageFilePath = MessageFileDir + MessageFileName;
}
