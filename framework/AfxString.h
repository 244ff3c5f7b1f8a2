// CString: the framework's 8-bit string in the process's ANSI code page.
// Follows MFC's multibyte CString: text is a run of bytes (a double-byte
// character counts 2), lengths are byte counts, and construction from UTF-16
// text converts through the ANSI code page (CP_ACP). Characters that the code
// page cannot show become the conversion's default character ('?').
#pragma once

#include <windows.h>

#include <cstdarg>
#include <string>

class CString {
public:
    CString() = default;
    CString(const char* text) : m_text(text ? text : "") {}
    CString(const char* text, int length) : m_text(text && length > 0 ? std::string(text, static_cast<size_t>(length)) : std::string()) {}
    CString(char ch, int repeat = 1) : m_text(repeat > 0 ? static_cast<size_t>(repeat) : 0, ch) {}
    /// Converts UTF-16 text (null counts as empty) to the ANSI code page.
    CString(const wchar_t* text);
    CString(const std::string& text) : m_text(text) {}

    int GetLength() const { return static_cast<int>(m_text.size()); }
    bool IsEmpty() const { return m_text.empty(); }
    void Empty() { m_text.clear(); }
    const char* GetString() const { return m_text.c_str(); }
    operator const char*() const { return m_text.c_str(); }

    /// Byte at a zero-based index; an index outside the string gives '\0'.
    char GetAt(int index) const { return index >= 0 && index < GetLength() ? m_text[static_cast<size_t>(index)] : '\0'; }
    char operator[](int index) const { return GetAt(index); }
    void SetAt(int index, char ch) { if (index >= 0 && index < GetLength()) m_text[static_cast<size_t>(index)] = ch; }

    CString& operator=(const char* text) { m_text = text ? text : ""; return *this; }
    CString& operator=(const wchar_t* text) { return *this = CString(text); }
    CString& operator+=(const CString& other) { m_text += other.m_text; return *this; }
    CString& operator+=(const char* text) { if (text) m_text += text; return *this; }
    CString& operator+=(char ch) { m_text += ch; return *this; }
    friend CString operator+(const CString& a, const CString& b) { return CString(a.m_text + b.m_text); }
    friend CString operator+(const CString& a, const char* b) { CString r(a); r += b; return r; }
    friend CString operator+(const char* a, const CString& b) { CString r(a); r += b; return r; }
    friend CString operator+(const CString& a, char b) { CString r(a); r += b; return r; }
    friend bool operator==(const CString& a, const CString& b) { return a.m_text == b.m_text; }
    friend bool operator==(const CString& a, const char* b) { return a.m_text == (b ? b : ""); }
    friend bool operator!=(const CString& a, const CString& b) { return !(a == b); }
    friend bool operator!=(const CString& a, const char* b) { return !(a == b); }
    friend bool operator<(const CString& a, const CString& b) { return a.m_text < b.m_text; }

    int Compare(const char* text) const { return m_text.compare(text ? text : ""); }
    int CompareNoCase(const char* text) const { return lstrcmpiA(m_text.c_str(), text ? text : ""); }

    /// Substrings by byte counts; out-of-range counts are clamped as MFC does.
    CString Left(int count) const;
    CString Right(int count) const;
    CString Mid(int first) const;
    CString Mid(int first, int count) const;

    /// Zero-based index of the first match at or after `start`, or -1.
    int Find(char ch, int start = 0) const;
    int Find(const char* sub, int start = 0) const;
    int ReverseFind(char ch) const;
    int Replace(const char* oldText, const char* newText);
    int Replace(char oldCh, char newCh);

    CString& MakeUpper();
    CString& MakeLower();
    CString& Trim();
    CString& TrimLeft();
    CString& TrimRight();
    CString& TrimLeft(const char* targets);
    CString& TrimRight(const char* targets);

    /// printf-style formatting with the C runtime's rules; a null format gives "".
    void Format(const char* format, ...);
    void FormatV(const char* format, va_list args);
    void AppendFormat(const char* format, ...);

    /// Writable buffer of at least `minLength` bytes; ReleaseBuffer(-1) takes
    /// the length up to the first '\0'.
    char* GetBuffer(int minLength = 0);
    void ReleaseBuffer(int newLength = -1);

    const std::string& str() const { return m_text; }

private:
    std::string m_text;
};
