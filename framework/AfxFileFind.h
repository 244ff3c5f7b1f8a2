// CFileFind: the framework's directory search, as MFC defines it. A search
// runs over the entries that match one pattern ("C:\dir\*.*"); the entry
// looked at is the one the last FindNextFile stepped onto:
//
//     CFileFind finder;
//     BOOL more = finder.FindFile("C:\\dir\\*.*");
//     while (more) {
//         more = finder.FindNextFile();
//         if (!finder.IsDots()) use(finder.GetFilePath());
//     }
//
// The search holds one system find handle from FindFile to Close (or the
// destructor, or the next FindFile). Matching is the system's: a pattern is
// matched against long and short (8.3) names alike.
#pragma once

#include <windows.h>

#include "AfxString.h"

class CFileFind {
public:
    CFileFind() = default;
    CFileFind(const CFileFind&) = delete;
    CFileFind& operator=(const CFileFind&) = delete;
    virtual ~CFileFind();

    /// Starts a search for pstrName (a path that may hold wild cards; null:
    /// "*.*" in the current directory); ends any earlier one. Nonzero when at
    /// least one entry matches; then call FindNextFile to step onto it. Zero
    /// when nothing matches or the pattern has MAX_PATH or more
    /// characters (GetLastError tells why). dwUnused is ignored.
    virtual BOOL FindFile(const char* pstrName = nullptr, DWORD dwUnused = 0);

    /// Steps onto the next entry. Nonzero when further entries follow, zero
    /// when the entry stepped onto is the last (it can still be read) or
    /// when there is no search.
    virtual BOOL FindNextFile();

    /// Ends the search and releases its handle; harmless when none runs.
    void Close();

    /// The entry's name ("file.txt"); empty before the first FindNextFile.
    virtual CString GetFileName() const;
    /// The entry's full path: the search's root, a backslash and the name
    /// ("C:\dir\file.txt"); empty before the first FindNextFile.
    virtual CString GetFilePath() const;
    /// The name without its extension ("file").
    virtual CString GetFileTitle() const;
    /// "file://" followed by the full path.
    virtual CString GetFileURL() const;
    /// The full path of the directory searched ("C:\dir"; a drive's root
    /// keeps its backslash, "C:\").
    virtual CString GetRoot() const;
    /// The entry's size in bytes.
    ULONGLONG GetLength() const;
    /// The entry's times; zero when there is no entry or ptm is null.
    virtual BOOL GetCreationTime(FILETIME* ptm) const;
    virtual BOOL GetLastAccessTime(FILETIME* ptm) const;
    virtual BOOL GetLastWriteTime(FILETIME* ptm) const;

    /// Nonzero when the entry has any of the FILE_ATTRIBUTE_... bits of
    /// dwMask; zero before the first FindNextFile.
    virtual BOOL MatchesMask(DWORD dwMask) const;
    /// Nonzero for the entries "." and "..".
    BOOL IsDots() const;
    BOOL IsDirectory() const { return MatchesMask(FILE_ATTRIBUTE_DIRECTORY); }
    BOOL IsHidden() const { return MatchesMask(FILE_ATTRIBUTE_HIDDEN); }
    BOOL IsSystem() const { return MatchesMask(FILE_ATTRIBUTE_SYSTEM); }
    BOOL IsReadOnly() const { return MatchesMask(FILE_ATTRIBUTE_READONLY); }
    BOOL IsArchived() const { return MatchesMask(FILE_ATTRIBUTE_ARCHIVE); }
    BOOL IsCompressed() const { return MatchesMask(FILE_ATTRIBUTE_COMPRESSED); }
    BOOL IsTemporary() const { return MatchesMask(FILE_ATTRIBUTE_TEMPORARY); }
    BOOL IsNormal() const { return MatchesMask(FILE_ATTRIBUTE_NORMAL); }

protected:
    /// Releases the system's find handle.
    virtual void CloseContext();

private:
    HANDLE m_hContext = nullptr;
    bool m_hasFound = false;
    bool m_hasNext = false;
    WIN32_FIND_DATAA m_found = {};
    WIN32_FIND_DATAA m_next = {};
    CString m_root;
};
