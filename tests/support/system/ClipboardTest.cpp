// The clipboard for real: text set and read back in this process and through a second process.
#include "SystemTestHelpers.h"

namespace {

// The formats the last writer placed (those listed before the locale: Wine lists the ones it
// synthesizes, such as Unicode text from CF_TEXT, after it), the OEM text and the Unicode text's
// code units in hex.
std::string DumpClipboard()
{
    std::ostringstream dump;
    OpenClipboard(nullptr);
    for (UINT format = EnumClipboardFormats(0); format && format != CF_LOCALE; format = EnumClipboardFormats(format))
        dump << format << " ";
    dump << "|" << static_cast<const char*>(GlobalLock(GetClipboardData(CF_OEMTEXT))) << "|" << std::hex;
    for (auto* wide = static_cast<const wchar_t*>(GlobalLock(GetClipboardData(CF_UNICODETEXT))); *wide; ++wide)
        dump << static_cast<int>(*wide) << " ";
    CloseClipboard();
    return dump.str();
}

} // namespace

// Text set here reads back here and in a second process, with the OEM form of non-ASCII characters
// and, only when asked, the Unicode form.
TEST(Clipboard, TextRoundTripsHereAndThroughASecondProcess)
{
    ASSERT_TRUE(GetACP() == 1252 && GetOEMCP() == 437) << "not an English locale: " << GetACP() << ", " << GetOEMCP();
    const std::string text = "Gr\xfc\xdf" "e \xe9";   // "Grüße é" in code page 1252
    ASSERT_EQ(1, SetClipboardText(nullptr, text.c_str(), 1));
    EXPECT_EQ(text, std::string(GetClipboardText(nullptr)));
    EXPECT_EQ("1 7 13 |Gr\x81\xe1" "e \x82|47 72 fc df 65 20 e9 ", DumpClipboard()) << "code page 437";
    EXPECT_EQ(text, EchoOf({})[4]) << "read by the child";
    ASSERT_EQ(1, SetClipboardText(nullptr, "no wide", 0));
    EXPECT_EQ("1 7 |no wide|", DumpClipboard().substr(0, 13)) << "no Unicode text placed";
    ASSERT_EQ(1, SetClipboardText(nullptr, nullptr, 1));
    EXPECT_EQ("1 7 13 ||", DumpClipboard()) << "a null text";
}

// While another process holds the clipboard open, reading gives empty text and setting gives 0, and
// the text already there survives; an empty clipboard gives empty text.
TEST(Clipboard, HeldOrEmptyClipboardGivesEmptyTextAndZero)
{
    ASSERT_EQ(1, SetClipboardText(nullptr, "kept", 0));
    PROCESS_INFORMATION holder;
    ASSERT_NE(0, StartWindows(holder, {"windows"}));
    EXPECT_EQ("", std::string(GetClipboardText(nullptr))) << "held by the child";
    EXPECT_EQ(0, SetClipboardText(nullptr, "refused", 1)) << "held by the child";
    EXPECT_EQ(StillActive, CloseProcessInfo(&holder));
    EXPECT_EQ("kept", std::string(GetClipboardText(nullptr)));
    ASSERT_TRUE(OpenClipboard(nullptr));
    EmptyClipboard();
    CloseClipboard();
    EXPECT_EQ("", std::string(GetClipboardText(nullptr))) << "an empty clipboard";
}
