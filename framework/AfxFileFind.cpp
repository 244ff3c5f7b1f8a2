#include "AfxFileFind.h"

#include <cstring>

CFileFind::~CFileFind()
{
    Close();
}

BOOL CFileFind::FindFile(const char* pstrName, DWORD)
{
    Close();
    const char* pattern = pstrName ? pstrName : "*.*";
    if (std::strlen(pattern) >= MAX_PATH) {
        SetLastError(ERROR_BAD_ARGUMENTS);
        return FALSE;
    }
    const HANDLE context = FindFirstFileExA(pattern, FindExInfoStandard, &m_next, FindExSearchNameMatch, nullptr,
                                            FIND_FIRST_EX_LARGE_FETCH);
    if (context == INVALID_HANDLE_VALUE)
        return FALSE;
    m_hContext = context;
    m_hasNext = true;

    // The root is the pattern's directory made full, so that paths stay
    // valid when the current directory changes during the search.
    char full[MAX_PATH] = {};
    char* filePart = nullptr;
    const DWORD length = GetFullPathNameA(pattern, MAX_PATH, full, &filePart);
    if (length > 0 && length < MAX_PATH) {
        if (filePart)
            *filePart = '\0';
        m_root = full;
        // "C:\dir\" becomes "C:\dir"; a drive's root keeps its backslash.
        const int last = m_root.GetLength() - 1;
        if (last > 0 && (m_root[last] == '\\' || m_root[last] == '/') && !(last == 2 && m_root[1] == ':'))
            m_root = m_root.Left(last);
    }
    return TRUE;
}

BOOL CFileFind::FindNextFile()
{
    if (!m_hContext || !m_hasNext)
        return FALSE;
    m_found = m_next;
    m_hasFound = true;
    m_hasNext = ::FindNextFileA(m_hContext, &m_next) != FALSE;
    return m_hasNext ? TRUE : FALSE;
}

void CFileFind::Close()
{
    if (m_hContext)
        CloseContext();
    m_hContext = nullptr;
    m_hasFound = false;
    m_hasNext = false;
    m_root.Empty();
}

void CFileFind::CloseContext()
{
    if (m_hContext && m_hContext != INVALID_HANDLE_VALUE)
        FindClose(m_hContext);
}

CString CFileFind::GetFileName() const
{
    return m_hasFound ? CString(m_found.cFileName) : CString();
}

CString CFileFind::GetFilePath() const
{
    if (!m_hasFound)
        return CString();
    const int last = m_root.GetLength() - 1;
    if (last >= 0 && (m_root[last] == '\\' || m_root[last] == '/'))
        return m_root + m_found.cFileName;
    return m_root + '\\' + m_found.cFileName;
}

CString CFileFind::GetFileTitle() const
{
    const CString name = GetFileName();
    const int dot = name.ReverseFind('.');
    return dot >= 0 ? name.Left(dot) : name;
}

CString CFileFind::GetFileURL() const
{
    return m_hasFound ? CString("file://") + GetFilePath() : CString();
}

CString CFileFind::GetRoot() const
{
    return m_root;
}

ULONGLONG CFileFind::GetLength() const
{
    return m_hasFound ? (static_cast<ULONGLONG>(m_found.nFileSizeHigh) << 32) | m_found.nFileSizeLow : 0;
}

BOOL CFileFind::GetCreationTime(FILETIME* ptm) const
{
    if (!m_hasFound || !ptm)
        return FALSE;
    *ptm = m_found.ftCreationTime;
    return TRUE;
}

BOOL CFileFind::GetLastAccessTime(FILETIME* ptm) const
{
    if (!m_hasFound || !ptm)
        return FALSE;
    *ptm = m_found.ftLastAccessTime;
    return TRUE;
}

BOOL CFileFind::GetLastWriteTime(FILETIME* ptm) const
{
    if (!m_hasFound || !ptm)
        return FALSE;
    *ptm = m_found.ftLastWriteTime;
    return TRUE;
}

BOOL CFileFind::MatchesMask(DWORD dwMask) const
{
    return m_hasFound && (m_found.dwFileAttributes & dwMask) != 0 ? TRUE : FALSE;
}

BOOL CFileFind::IsDots() const
{
    return m_hasFound && (std::strcmp(m_found.cFileName, ".") == 0 || std::strcmp(m_found.cFileName, "..") == 0)
               ? TRUE
               : FALSE;
}
