// CFile, CStdioFile and CFileException: the framework's files, as MFC
// defines them, as far as the library uses them (text files written and read
// line by line).
//
// Errors follow MFC: Open reports failure through its return value and the
// optional CFileException it fills; WriteString, ReadString and Close throw
// a heap-allocated CFileException* that the catcher releases with Delete():
//
//     try { file.WriteString("x\n"); file.Close(); }
//     catch (CFileException* e) { ... e->m_cause ...; e->Delete(); }
#pragma once

#include <windows.h>

#include <cstdio>

#include "AfxString.h"

/// Base of the framework's exceptions. Thrown by pointer; Delete() frees it.
class CException {
public:
    virtual ~CException() = default;
    void Delete() { delete this; }
};

/// A failed file operation: m_cause is one of the causes below, m_lOsError
/// the Windows error code (GetLastError) when one is known, else -1, and
/// m_strFileName the file's path as given to Open.
class CFileException : public CException {
public:
    enum {
        none,
        genericException,
        fileNotFound,
        badPath,
        tooManyOpenFiles,
        accessDenied,
        invalidFile,
        removeCurrentDir,
        directoryFull,
        badSeek,
        hardIO,
        sharingViolation,
        lockViolation,
        diskFull,
        endOfFile
    };

    explicit CFileException(int cause = none, LONG lOsError = -1, const char* lpszArchiveName = nullptr)
        : m_cause(cause), m_lOsError(lOsError), m_strFileName(lpszArchiveName)
    {
    }

    /// The cause for a Windows error code; codes without a closer match give
    /// genericException, 0 gives none.
    static int OsErrorToException(LONG lOsError);
    /// The cause for a C runtime errno value (ENOSPC gives diskFull, ...).
    static int ErrnoToException(int nErrno);

    int m_cause;
    LONG m_lOsError;
    CString m_strFileName;
};

/// Throws `new CFileException(cause, lOsError, lpszFileName)`.
[[noreturn]] void AfxThrowFileException(int cause, LONG lOsError = -1, const char* lpszFileName = nullptr);

/// A file on a Windows handle. Only opening and closing are provided here;
/// reading and writing go through CStdioFile.
class CFile {
public:
    enum OpenFlags {
        modeRead = 0x0000,
        modeWrite = 0x0001,
        modeReadWrite = 0x0002,
        shareCompat = 0x0000,       // treated as shareExclusive, as in 32-bit MFC
        shareExclusive = 0x0010,
        shareDenyWrite = 0x0020,
        shareDenyRead = 0x0030,
        shareDenyNone = 0x0040,
        modeNoInherit = 0x0080,
        modeCreate = 0x1000,
        modeNoTruncate = 0x2000,
        typeText = 0x4000,
        typeBinary = 0x8000
    };

    static const HANDLE hFileNull;

    CFile() = default;
    /// Opens at once, as Open does; throws CFileException* (the cause, the
    /// Windows error and the path) when the file cannot be opened.
    CFile(const char* lpszFileName, UINT nOpenFlags);
    CFile(const CFile&) = delete;
    CFile& operator=(const CFile&) = delete;
    /// Closes the handle if it is still open; never throws.
    virtual ~CFile();

    /// Opens lpszFileName (8-bit path in the ANSI code page) with CreateFileA:
    /// modeCreate makes a new empty file (with modeNoTruncate it keeps an
    /// existing one), without it the file must exist. Returns TRUE on success;
    /// on failure returns FALSE and, when pError is not null, fills it with
    /// the cause, GetLastError() and the path. A null path fails with badPath.
    virtual BOOL Open(const char* lpszFileName, UINT nOpenFlags, CFileException* pError = nullptr);
    /// Closes the handle; throws CFileException* if closing fails.
    virtual void Close();
    /// Closes without ever throwing (for clean-up after an error).
    virtual void Abort();

    CString GetFilePath() const { return m_strFileName; }

    HANDLE m_hFile = INVALID_HANDLE_VALUE;

protected:
    /// CreateFileA with the access, sharing and creation that the flags ask for.
    BOOL OpenHandle(const char* lpszFileName, UINT nOpenFlags, CFileException* pError);

    CString m_strFileName;
};

/// A buffered C runtime stream over a file. Opened without typeBinary it is a
/// text file: WriteString turns each "\n" into CR LF, ReadString turns CR LF
/// back into "\n". Writes are buffered, so an error such as a full disk may
/// surface at a later WriteString or at Close; both throw.
class CStdioFile : public CFile {
public:
    CStdioFile() = default;
    /// Opens at once, as Open does; throws CFileException* (the cause, the
    /// Windows error and the path) when the file cannot be opened.
    CStdioFile(const char* lpszFileName, UINT nOpenFlags);
    /// Closes the stream if it is still open, dropping any error (a
    /// destructor must not throw; call Close to learn about late errors).
    ~CStdioFile() override;

    /// As CFile::Open, then attaches a stream: modeCreate alone writes from
    /// the start of the emptied file; modeWrite without modeCreate, or with
    /// modeNoTruncate, appends to the existing text.
    BOOL Open(const char* lpszFileName, UINT nOpenFlags, CFileException* pError = nullptr) override;
    /// Flushes and closes. Throws CFileException* (diskFull and the Windows
    /// error) if buffered text cannot be written; the file is closed anyway.
    void Close() override;
    void Abort() override;

    /// Writes a zero-terminated text. Throws CFileException* when the stream
    /// rejects it (full disk, a file opened for reading only, ...) and, with
    /// invalidFile, when the file is not open. A null text writes nothing.
    virtual void WriteString(const char* lpsz);
    /// Reads the next line into rString without its "\n" (bytes, including
    /// any zero bytes, are kept as read). Returns FALSE, with rString empty,
    /// at the end of the file when nothing was left to read. Throws
    /// CFileException* on a read error or when the file is not open.
    virtual BOOL ReadString(CString& rString);

    FILE* m_pStream = nullptr;
};
