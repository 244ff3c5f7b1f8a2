// The clipboard for real: text set and read back in this process and through a second process.
#include "ProcessChildren.h"
#include "support/system/Clipboard.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

/// The formats the last writer put on the clipboard: those listed before the locale (16) that the system
/// adds (Wine lists formats it synthesizes, such as Unicode text from CF_TEXT, after the locale).
std::vector<UINT> PlacedFormats()
{
    std::vector<UINT> formats;
    if (OpenClipboard(nullptr)) {
        for (UINT format = EnumClipboardFormats(0); format && format != CF_LOCALE; format = EnumClipboardFormats(format))
            formats.push_back(format);
        CloseClipboard();
    }
    return formats;
}

/// One clipboard format's text up to its terminator (char or wchar_t).
template <typename Char>
std::basic_string<Char> Data(UINT format)
{
    std::basic_string<Char> text;
    if (OpenClipboard(nullptr)) {
        if (const HANDLE data = GetClipboardData(format)) {
            text = static_cast<const Char*>(GlobalLock(data));
            GlobalUnlock(data);
        }
        CloseClipboard();
    }
    return text;
}

} // namespace

// Text set here reads back here and in the child, with the OEM form of non-ASCII characters and, only when
// asked, the Unicode form; text the child sets reads back here.
TEST(Clipboard, TextRoundTripsHereAndThroughASecondProcess)
{
    const std::string text = "Gr\xfc\xdf" "e \xe9";       // "Grüße é" in code page 1252
    ASSERT_EQ(SetClipboardText(nullptr, text.c_str(), 1), 1);
    EXPECT_EQ(std::string(GetClipboardText(nullptr)), text);
    EXPECT_EQ(PlacedFormats(), (std::vector<UINT>{CF_TEXT, CF_OEMTEXT, CF_UNICODETEXT}));
    // The prefix's code pages follow the host's locale; these are those of an English one.
    if (GetACP() == 1252 && GetOEMCP() == 437) {
        EXPECT_EQ(Data<wchar_t>(CF_UNICODETEXT), L"Gr\u00fc\u00dfe \u00e9");
        EXPECT_EQ(Data<char>(CF_OEMTEXT), "Gr\x81\xe1" "e \x82") << "code page 437";
    } else {
        ADD_FAILURE() << "code pages " << GetACP() << " and " << GetOEMCP() << ": no expected texts";
    }
    std::string output;
    EXPECT_EQ(RunChild("get", output), 0);
    EXPECT_EQ(output, text) << "read by the child";

    EXPECT_EQ(RunChild("set \"from the child\" 0", output), 1);
    EXPECT_EQ(std::string(GetClipboardText(nullptr)), "from the child");
    EXPECT_EQ(PlacedFormats(), (std::vector<UINT>{CF_TEXT, CF_OEMTEXT}));
    ASSERT_EQ(SetClipboardText(nullptr, nullptr, 1), 1);
    EXPECT_EQ(std::string(GetClipboardText(nullptr)), "") << "a null text";
    EXPECT_EQ(PlacedFormats(), (std::vector<UINT>{CF_TEXT, CF_OEMTEXT, CF_UNICODETEXT})) << "a null text";
}

// While the child holds the clipboard open, reading gives empty text and setting gives 0, and the text
// already there survives; an empty clipboard gives empty text.
TEST(Clipboard, HeldOrEmptyClipboardGivesEmptyTextAndZero)
{
    ASSERT_EQ(SetClipboardText(nullptr, "kept", 0), 1);
    const HANDLE held = CreateEventA(nullptr, TRUE, FALSE, "system_tests_held");
    const HANDLE release = CreateEventA(nullptr, TRUE, FALSE, "system_tests_release");
    const HANDLE holder = LaunchProcessHandle(ChildProgram().c_str(), "hold", "", SW_HIDE, nullptr);
    ASSERT_EQ(WaitForSingleObject(held, 10000), WAIT_OBJECT_0) << "the child holds the clipboard";
    EXPECT_EQ(std::string(GetClipboardText(nullptr)), "") << "held by the child";
    EXPECT_EQ(SetClipboardText(nullptr, "refused", 1), 0) << "held by the child";
    SetEvent(release);
    EXPECT_EQ(ExitCodeAfterWait(holder), 0u);
    for (HANDLE handle : {holder, held, release})
        CloseHandle(handle);
    EXPECT_EQ(std::string(GetClipboardText(nullptr)), "kept");
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    CloseClipboard();
    EXPECT_EQ(std::string(GetClipboardText(nullptr)), "") << "an empty clipboard";
}
