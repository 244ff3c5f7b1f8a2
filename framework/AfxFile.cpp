#include "AfxFile.h"

#include <cerrno>
#include <cstdlib>
#include <fcntl.h>
#include <io.h>

const HANDLE CFile::hFileNull = INVALID_HANDLE_VALUE;

int CFileException::OsErrorToException(LONG lOsError)
{
    switch (lOsError) {
    case NO_ERROR:
        return none;
    case ERROR_FILE_NOT_FOUND:
        return fileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_INVALID_DRIVE:
    case ERROR_FILENAME_EXCED_RANGE:
        return badPath;
    case ERROR_TOO_MANY_OPEN_FILES:
        return tooManyOpenFiles;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
        return accessDenied;
    case ERROR_INVALID_HANDLE:
        return invalidFile;
    case ERROR_CURRENT_DIRECTORY:
        return removeCurrentDir;
    case ERROR_CANNOT_MAKE:
        return directoryFull;
    case ERROR_SEEK:
    case ERROR_NEGATIVE_SEEK:
        return badSeek;
    case ERROR_CRC:
    case ERROR_READ_FAULT:
    case ERROR_WRITE_FAULT:
    case ERROR_GEN_FAILURE:
        return hardIO;
    case ERROR_SHARING_VIOLATION:
        return sharingViolation;
    case ERROR_LOCK_VIOLATION:
        return lockViolation;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
        return diskFull;
    case ERROR_HANDLE_EOF:
        return endOfFile;
    default:
        return genericException;
    }
}

int CFileException::ErrnoToException(int nErrno)
{
    switch (nErrno) {
    case 0:
        return none;
    case ENOENT:
        return fileNotFound;
    case EACCES:
    case EPERM:
        return accessDenied;
    case EBADF:
        return invalidFile;
    case EMFILE:
        return tooManyOpenFiles;
    case ENOSPC:
        return diskFull;
    case EIO:
        return hardIO;
    default:
        return genericException;
    }
}

void AfxThrowFileException(int cause, LONG lOsError, const char* lpszFileName)
{
    throw new CFileException(cause, lOsError, lpszFileName);
}

namespace {

// The error of a failed stream call, as the runtime left it: the Windows
// code when there is one, else the errno value.
struct StreamError {
    LONG osError = 0;
    int errnoValue = 0;
};

void ClearStreamErrors()
{
    errno = 0;
    _doserrno = 0;
}

StreamError TakeStreamError()
{
    return StreamError{static_cast<LONG>(_doserrno), errno};
}

// Throws for a failed stream call; `fallback` is the cause when neither code
// says anything more precise.
[[noreturn]] void ThrowStreamError(const StreamError& error, int fallback, const CString& fileName)
{
    int cause = CFileException::OsErrorToException(error.osError);
    if (cause == CFileException::none || cause == CFileException::genericException) {
        const int fromErrno = CFileException::ErrnoToException(error.errnoValue);
        cause = fromErrno != CFileException::none ? fromErrno : fallback;
    }
    AfxThrowFileException(cause, error.osError != 0 ? error.osError : -1, fileName);
}

} // namespace

CFile::CFile(const char* lpszFileName, UINT nOpenFlags)
{
    CFileException error;
    if (!CFile::Open(lpszFileName, nOpenFlags, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

CFile::~CFile()
{
    if (m_hFile != hFileNull)
        CloseHandle(m_hFile);
    m_hFile = hFileNull;
}

BOOL CFile::OpenHandle(const char* lpszFileName, UINT nOpenFlags, CFileException* pError)
{
    if (pError)
        *pError = CFileException(CFileException::none, -1, lpszFileName);
    if (!lpszFileName) {
        if (pError)
            pError->m_cause = CFileException::badPath;
        return FALSE;
    }

    DWORD access = GENERIC_READ;
    switch (nOpenFlags & 3) {
    case modeWrite:
        access = GENERIC_WRITE;
        break;
    case modeReadWrite:
        access = GENERIC_READ | GENERIC_WRITE;
        break;
    }

    DWORD share = 0;
    switch (nOpenFlags & 0x70) {
    case shareDenyWrite:
        share = FILE_SHARE_READ;
        break;
    case shareDenyRead:
        share = FILE_SHARE_WRITE;
        break;
    case shareDenyNone:
        share = FILE_SHARE_READ | FILE_SHARE_WRITE;
        break;
    }

    DWORD creation = OPEN_EXISTING;
    if (nOpenFlags & modeCreate)
        creation = (nOpenFlags & modeNoTruncate) ? OPEN_ALWAYS : CREATE_ALWAYS;

    SECURITY_ATTRIBUTES security = {sizeof(security), nullptr, (nOpenFlags & modeNoInherit) ? FALSE : TRUE};
    const HANDLE handle = CreateFileA(lpszFileName, access, share, &security, creation, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        if (pError) {
            const DWORD error = GetLastError();
            pError->m_cause = CFileException::OsErrorToException(static_cast<LONG>(error));
            pError->m_lOsError = static_cast<LONG>(error);
        }
        return FALSE;
    }
    m_hFile = handle;
    m_strFileName = lpszFileName;
    return TRUE;
}

BOOL CFile::Open(const char* lpszFileName, UINT nOpenFlags, CFileException* pError)
{
    Abort();
    return OpenHandle(lpszFileName, nOpenFlags, pError);
}

void CFile::Close()
{
    if (m_hFile == hFileNull)
        return;
    const BOOL closed = CloseHandle(m_hFile);
    m_hFile = hFileNull;
    if (!closed)
        AfxThrowFileException(CFileException::OsErrorToException(static_cast<LONG>(GetLastError())),
                              static_cast<LONG>(GetLastError()), m_strFileName);
}

void CFile::Abort()
{
    if (m_hFile != hFileNull)
        CloseHandle(m_hFile);
    m_hFile = hFileNull;
}

CStdioFile::CStdioFile(const char* lpszFileName, UINT nOpenFlags)
{
    CFileException error;
    if (!CStdioFile::Open(lpszFileName, nOpenFlags, &error))
        AfxThrowFileException(error.m_cause, error.m_lOsError, error.m_strFileName);
}

CStdioFile::~CStdioFile()
{
    CStdioFile::Abort();
}

BOOL CStdioFile::Open(const char* lpszFileName, UINT nOpenFlags, CFileException* pError)
{
    Abort();
    if (!OpenHandle(lpszFileName, nOpenFlags, pError))
        return FALSE;

    // The stream's mode: 'w' writes the new file from its start, 'a' appends
    // to what an opened file already holds, 'r' reads; '+' adds the other
    // direction when both were asked for.
    const bool writes = (nOpenFlags & 3) != modeRead;
    const bool reads = (nOpenFlags & 3) != modeWrite;
    char mode[4] = {};
    int at = 0;
    int flags = 0;
    if (!writes) {
        mode[at++] = 'r';
        flags = _O_RDONLY;
    } else if ((nOpenFlags & modeCreate) && !(nOpenFlags & modeNoTruncate)) {
        mode[at++] = 'w';
    } else {
        mode[at++] = 'a';
        flags = _O_APPEND;
    }
    if (writes && reads)
        mode[at++] = '+';
    if (nOpenFlags & typeBinary) {
        mode[at++] = 'b';
        flags |= _O_BINARY;
    } else {
        mode[at++] = 't';
        flags |= _O_TEXT;
    }

    const int fd = _open_osfhandle(reinterpret_cast<intptr_t>(m_hFile), flags);
    if (fd == -1) {
        CFile::Abort();
        if (pError)
            pError->m_cause = CFileException::genericException;
        return FALSE;
    }
    m_pStream = _fdopen(fd, mode);
    if (!m_pStream) {
        _close(fd);                 // closes the handle too
        m_hFile = hFileNull;
        if (pError)
            pError->m_cause = CFileException::genericException;
        return FALSE;
    }
    return TRUE;
}

void CStdioFile::Close()
{
    if (!m_pStream) {
        CFile::Close();
        return;
    }
    // Flushed first so that the write error is not masked by closing.
    ClearStreamErrors();
    const bool flushed = std::fflush(m_pStream) == 0;
    const StreamError error = TakeStreamError();
    ClearStreamErrors();
    const bool closed = std::fclose(m_pStream) == 0;  // closes the descriptor and the handle
    const StreamError closeError = TakeStreamError();
    m_pStream = nullptr;
    m_hFile = hFileNull;
    if (!flushed)
        ThrowStreamError(error, CFileException::diskFull, m_strFileName);
    if (!closed)
        ThrowStreamError(closeError, CFileException::diskFull, m_strFileName);
}

void CStdioFile::Abort()
{
    if (m_pStream) {
        std::fclose(m_pStream);
        m_pStream = nullptr;
        m_hFile = hFileNull;
    }
    CFile::Abort();
}

void CStdioFile::WriteString(const char* lpsz)
{
    if (!m_pStream)
        AfxThrowFileException(CFileException::invalidFile, -1, m_strFileName);
    if (!lpsz)
        return;
    ClearStreamErrors();
    if (std::fputs(lpsz, m_pStream) == EOF) {
        const StreamError error = TakeStreamError();
        std::clearerr(m_pStream);
        ThrowStreamError(error, CFileException::diskFull, m_strFileName);
    }
}

BOOL CStdioFile::ReadString(CString& rString)
{
    rString.Empty();
    if (!m_pStream)
        AfxThrowFileException(CFileException::invalidFile, -1, m_strFileName);
    ClearStreamErrors();
    std::string line;
    int ch;
    bool readAny = false;
    while ((ch = std::getc(m_pStream)) != EOF) {
        readAny = true;
        if (ch == '\n')
            break;
        line += static_cast<char>(ch);
    }
    if (ch == EOF && std::ferror(m_pStream)) {
        const StreamError error = TakeStreamError();
        std::clearerr(m_pStream);
        ThrowStreamError(error, CFileException::genericException, m_strFileName);
    }
    rString = CString(line);
    return readAny ? TRUE : FALSE;
}
