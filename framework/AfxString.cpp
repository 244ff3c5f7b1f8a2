#include "AfxString.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstring>
#include <vector>

CString::CString(const wchar_t* text)
{
    if (!text || !*text)
        return;
    const int bytes = WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr);
    if (bytes <= 1)
        return;
    m_text.resize(static_cast<size_t>(bytes));
    WideCharToMultiByte(CP_ACP, 0, text, -1, &m_text[0], bytes, nullptr, nullptr);
    m_text.resize(static_cast<size_t>(bytes - 1));
}

CString CString::Left(int count) const
{
    count = std::clamp(count, 0, GetLength());
    return CString(m_text.substr(0, static_cast<size_t>(count)));
}

CString CString::Right(int count) const
{
    count = std::clamp(count, 0, GetLength());
    return CString(m_text.substr(static_cast<size_t>(GetLength() - count)));
}

CString CString::Mid(int first) const { return Mid(first, GetLength()); }

CString CString::Mid(int first, int count) const
{
    first = std::clamp(first, 0, GetLength());
    count = std::clamp(count, 0, GetLength() - first);
    return CString(m_text.substr(static_cast<size_t>(first), static_cast<size_t>(count)));
}

int CString::Find(char ch, int start) const
{
    // A start at or past the end finds nothing (npos below).
    if (start < 0)
        return -1;
    const size_t at = m_text.find(ch, static_cast<size_t>(start));
    return at == std::string::npos ? -1 : static_cast<int>(at);
}

int CString::Find(const char* sub, int start) const
{
    if (!sub || start < 0 || start > GetLength())
        return -1;
    const size_t at = m_text.find(sub, static_cast<size_t>(start));
    return at == std::string::npos ? -1 : static_cast<int>(at);
}

int CString::ReverseFind(char ch) const
{
    const size_t at = m_text.rfind(ch);
    return at == std::string::npos ? -1 : static_cast<int>(at);
}

int CString::Replace(const char* oldText, const char* newText)
{
    if (!oldText || !*oldText)
        return 0;
    const std::string from(oldText), to(newText ? newText : "");
    int count = 0;
    for (size_t at = m_text.find(from); at != std::string::npos; at = m_text.find(from, at + to.size())) {
        m_text.replace(at, from.size(), to);
        ++count;
    }
    return count;
}

int CString::Replace(char oldCh, char newCh)
{
    int count = 0;
    for (char& c : m_text)
        if (c == oldCh) {
            c = newCh;
            ++count;
        }
    return count;
}

CString& CString::MakeUpper()
{
    if (!m_text.empty())
        CharUpperBuffA(&m_text[0], static_cast<DWORD>(m_text.size()));
    return *this;
}

CString& CString::MakeLower()
{
    if (!m_text.empty())
        CharLowerBuffA(&m_text[0], static_cast<DWORD>(m_text.size()));
    return *this;
}

CString& CString::Trim() { return TrimRight().TrimLeft(); }
CString& CString::TrimLeft() { return TrimLeft(" \t\r\n\v\f"); }
CString& CString::TrimRight() { return TrimRight(" \t\r\n\v\f"); }

CString& CString::TrimLeft(const char* targets)
{
    const size_t at = m_text.find_first_not_of(targets ? targets : "");
    m_text.erase(0, at == std::string::npos ? m_text.size() : at);
    return *this;
}

CString& CString::TrimRight(const char* targets)
{
    const size_t at = m_text.find_last_not_of(targets ? targets : "");
    m_text.erase(at == std::string::npos ? 0 : at + 1);
    return *this;
}

void CString::Format(const char* format, ...)
{
    va_list args;
    va_start(args, format);
    FormatV(format, args);
    va_end(args);
}

void CString::FormatV(const char* format, va_list args)
{
    m_text.clear();
    if (!format)
        return;
    va_list copy;
    va_copy(copy, args);
    const int length = std::vsnprintf(nullptr, 0, format, copy);
    va_end(copy);
    if (length <= 0)
        return;
    std::vector<char> buffer(static_cast<size_t>(length) + 1);
    std::vsnprintf(buffer.data(), buffer.size(), format, args);
    m_text.assign(buffer.data(), static_cast<size_t>(length));
}

void CString::AppendFormat(const char* format, ...)
{
    CString tail;
    va_list args;
    va_start(args, format);
    tail.FormatV(format, args);
    va_end(args);
    m_text += tail.m_text;
}

char* CString::GetBuffer(int minLength)
{
    if (minLength > GetLength())
        m_text.resize(static_cast<size_t>(minLength));
    return &m_text[0];
}

void CString::ReleaseBuffer(int newLength)
{
    if (newLength < 0)
        newLength = static_cast<int>(std::strlen(m_text.c_str()));
    m_text.resize(static_cast<size_t>(std::min(newLength, GetLength())));
}
