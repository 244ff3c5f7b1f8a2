// The clipboard for real: text set and read back.
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

// Text set reads back with the OEM form of non-ASCII characters and, only when asked, the Unicode form.
TEST(Clipboard, TextRoundTripsWithItsOemFormAndOnlyWhenAskedItsUnicodeForm)
{
    ASSERT_TRUE(GetACP() == 1252 && GetOEMCP() == 437) << "not an English locale: " << GetACP() << ", " << GetOEMCP();
    const std::string text = "Gr\xfc\xdf" "e \xe9";   // "Grüße é" in code page 1252
    ASSERT_EQ(1, SetClipboardText(nullptr, text.c_str(), 1));
    EXPECT_EQ(text, std::string(GetClipboardText(nullptr)));
    EXPECT_EQ("1 7 13 |Gr\x81\xe1" "e \x82|47 72 fc df 65 20 e9 ", DumpClipboard()) << "code page 437";
    ASSERT_EQ(1, SetClipboardText(nullptr, "narrow", 0));
    EXPECT_EQ("1 7 |narrow|", DumpClipboard().substr(0, 12)) << "no Unicode text placed";
}
