#include "framework/AfxFile.h"

#include <gtest/gtest.h>

#include <string>

#include "TextTestFiles.h"

namespace {

// Runs `body`, expecting it to throw a CFileException*; returns its cause,
// or -1 when nothing was thrown.
template <class Body>
int CauseThrownBy(Body body, LONG* osError = nullptr)
{
    try {
        body();
    } catch (CFileException* e) {
        const int cause = e->m_cause;
        if (osError)
            *osError = e->m_lOsError;
        e->Delete();
        return cause;
    }
    return -1;
}

constexpr UINT kCreateText = CFile::modeCreate | CFile::modeWrite | CFile::typeText;

} // namespace

TEST(StdioFile, TextModeWritesCrLfAndReadsLinesBack)
{
    TempDirectory dir;
    const std::string path = dir.File("lines.txt");
    CStdioFile out;
    ASSERT_TRUE(out.Open(path.c_str(), kCreateText)) << "create " << path;
    out.WriteString("a\n");
    out.WriteString("b\n\n");          // an empty line
    out.WriteString(nullptr);          // writes nothing
    out.WriteString("last");           // no line end
    out.Close();
    ExpectFileBytes(path, "a\r\nb\r\n\r\nlast");

    CStdioFile in;
    ASSERT_TRUE(in.Open(path.c_str(), CFile::modeRead | CFile::typeText)) << "reopen " << path;
    const char* expected[] = {"a", "b", "", "last"};
    CString line;
    for (const char* want : expected) {
        ASSERT_TRUE(in.ReadString(line)) << "expected the line \"" << want << "\", got the end of the file";
        EXPECT_EQ(line.str(), want) << "line read back";
    }
    EXPECT_FALSE(in.ReadString(line)) << "expected the end of the file, got \"" << line.str() << "\"";
    EXPECT_TRUE(line.IsEmpty()) << "at the end the line is emptied, got \"" << line.str() << "\"";
    in.Close();
}

TEST(StdioFile, CreateTruncatesAndNoTruncateAppends)
{
    TempDirectory dir;
    const std::string path = dir.File("grow.txt");
    WriteBytes(path, "old\r\n");

    CStdioFile file;
    ASSERT_TRUE(file.Open(path.c_str(), kCreateText | CFile::modeNoTruncate));
    file.WriteString("kept\n");
    file.Close();
    ExpectFileBytes(path, "old\r\nkept\r\n");        // modeNoTruncate: appended

    ASSERT_TRUE(file.Open(path.c_str(), CFile::modeWrite));
    file.WriteString("more\n");
    file.Close();
    ExpectFileBytes(path, "old\r\nkept\r\nmore\r\n");  // existing file, no modeCreate: appended

    ASSERT_TRUE(file.Open(path.c_str(), kCreateText));
    file.WriteString("new\n");
    file.Close();
    ExpectFileBytes(path, "new\r\n");                  // modeCreate alone: emptied first

    ASSERT_TRUE(file.Open(path.c_str(), CFile::modeCreate | CFile::modeWrite | CFile::typeBinary));
    file.WriteString("raw\n");
    file.Close();
    ExpectFileBytes(path, "raw\n");                    // typeBinary: no CR added
}

TEST(StdioFile, OpenFailuresFillTheException)
{
    TempDirectory dir;
    struct Case {
        std::string path;
        UINT flags;
        int cause;
        const char* what;
    };
    // A file held open without sharing (read-only attributes are not
    // enforced for every user under Wine, so the lock stands in for them).
    const std::string held = dir.File("held.txt");
    WriteBytes(held, "locked\r\n");
    const HANDLE holder = CreateFileA(held.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    ASSERT_NE(holder, INVALID_HANDLE_VALUE) << "cannot hold " << held;
    const Case cases[] = {
        {dir.File("missing.txt"), CFile::modeRead, CFileException::fileNotFound, "missing file"},
        {dir.File("no\\such\\dir.txt"), kCreateText, CFileException::badPath, "missing directory"},
        {held, kCreateText, CFileException::sharingViolation, "file held by another handle"},
        {dir.Path(), kCreateText, CFileException::accessDenied, "a directory"},
    };
    for (const Case& c : cases) {
        CStdioFile file;
        CFileException error;
        EXPECT_FALSE(file.Open(c.path.c_str(), c.flags, &error)) << c.what << ": expected the open to fail";
        EXPECT_EQ(error.m_cause, c.cause) << c.what << ": cause";
        EXPECT_GT(error.m_lOsError, 0) << c.what << ": expected a Windows error code";
        EXPECT_EQ(error.m_strFileName.str(), c.path) << c.what << ": file name";
        EXPECT_EQ(file.m_pStream, nullptr) << c.what << ": no stream after a failed open";
    }
    CloseHandle(holder);
    ExpectFileBytes(held, "locked\r\n");

    CStdioFile file;
    CFileException error;
    EXPECT_FALSE(file.Open(nullptr, kCreateText, &error)) << "null path";
    EXPECT_EQ(error.m_cause, CFileException::badPath) << "null path: cause";
    EXPECT_FALSE(file.Open(nullptr, kCreateText)) << "null path without an exception object";
}

TEST(StdioFile, WriteErrorsThrow)
{
    TempDirectory dir;
    const std::string path = dir.File("input.txt");
    WriteBytes(path, "text\r\n");

    CStdioFile reader;
    ASSERT_TRUE(reader.Open(path.c_str(), CFile::modeRead));
    const int readOnlyCause = CauseThrownBy([&] {
        reader.WriteString("x\n");
        reader.Close();                                 // a buffered write would fail here
    });
    EXPECT_NE(readOnlyCause, -1) << "writing to a file opened for reading must throw";
    reader.Abort();
    ExpectFileBytes(path, "text\r\n");

    CStdioFile closed;
    EXPECT_EQ(CauseThrownBy([&] { closed.WriteString("x\n"); }), CFileException::invalidFile)
        << "writing to a file that is not open";
    CString line;
    EXPECT_EQ(CauseThrownBy([&] { closed.ReadString(line); }), CFileException::invalidFile)
        << "reading a file that is not open";

    const std::string full = FullDevicePath();
    if (full.empty())
        GTEST_SKIP() << "no device that reports a full disk on this platform";

    // A short text stays in the buffer: the full disk shows at Close.
    CStdioFile small;
    ASSERT_TRUE(small.Open(full.c_str(), CFile::modeWrite | CFile::shareDenyNone));
    small.WriteString("short\n");
    LONG osError = 0;
    EXPECT_EQ(CauseThrownBy([&] { small.Close(); }, &osError), CFileException::diskFull) << "closing on a full disk";
    EXPECT_EQ(osError, ERROR_DISK_FULL) << "Windows error of the failed close";
    EXPECT_EQ(small.m_pStream, nullptr) << "the file is closed even though Close threw";
    EXPECT_EQ(CauseThrownBy([&] { small.Close(); }), -1) << "a second Close does nothing";

    // A text larger than the buffer fails in WriteString itself.
    CStdioFile large;
    ASSERT_TRUE(large.Open(full.c_str(), CFile::modeWrite | CFile::shareDenyNone));
    const std::string block(64 * 1024, 'x');
    EXPECT_EQ(CauseThrownBy([&] { large.WriteString(block.c_str()); }), CFileException::diskFull)
        << "writing 64 KiB to a full disk";
    large.Abort();
}
