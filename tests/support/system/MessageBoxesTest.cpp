// Formatted and numbered message boxes, captured by an application object that records each box.
#include "support/system/MessageBoxes.h"
#include "SystemTestHelpers.h"

#include <gtest/gtest.h>

// Bounded formatting: 4096 characters fit; one more raises the invalid-parameter condition once and,
// with the host's handler returning, shows an empty box; so does a null format.
TEST(MessageBoxes, FormattedTextUpTo4096CharactersElseEmpty)
{
    RecordingApp app;
    const std::string longest(4096, 'x'), tooLong(4097, 'x');
    const InvalidParameterCounter raised;
    EXPECT_EQ(MessageBoxF("%s has %d items, %.2f%%", MB_YESNO | MB_ICONQUESTION, 77, "list", 3, 12.5), IDRETRY);
    MessageBoxF("%s", MB_OK, -1, longest.c_str());
    MessageBoxF("", MB_OK, 0);
    EXPECT_EQ(raised.Raised(), 0);
    MessageBoxF("%s", MB_OK, 0, tooLong.c_str());
    EXPECT_EQ(raised.Raised(), 1) << "over-long text";
    MessageBoxF("%s%s", MB_OK, 0, longest.c_str(), "!");
    MessageBoxF(nullptr, MB_ICONSTOP, 2);
    EXPECT_EQ(raised.Raised(), 3) << "over-long texts and a null format";
    EXPECT_EQ(app.boxes, (std::vector<std::string>{"list has 3 items, 12.50%|36|77", longest + "|0|4294967295", "|0|0",
                                                   "|0|0", "|0|0", "|16|2"}));
}

// The message file: entries "id|text" read as atoi reads the id, the first match wins, \n sequences
// become line breaks, lines without a bar are skipped, CR LF endings and long lines are read whole.
TEST(MessageBoxes, NumberedTextsComeFromTheMessageFile)
{
    const ScratchDir dir("messages");
    const std::string longLine(100000, 'L');
    std::ofstream(dir / "msg.txt", std::ios::binary) << "Messages of the system tests\r\n"
           "12|First\\nSecond\r\n"
           "12|Shadowed\r\n"
           "|Zero\\n\r\n"
           "abc|Letters\r\n"
           "-4|Negative\r\n"
           " 33x|Blank and junk around the id\r\n"
           "5|a|b\\\\n\r\n"
           "99999999999|Overflow\r\n"
           "8|" << longLine << "\r\n"
           "7|Last";
    SetMessageFile(dir.Path().c_str(), "msg.txt");
    const struct {
        int id;
        std::string text;
    } rows[] = {
        {12, "First\nSecond"},
        {0, "Zero\n"},
        {-4, "Negative"},
        {33, "Blank and junk around the id"},
        {5, "a|b\\\n"},
        {2147483647, "Overflow"},
        {8, longLine},
        {7, "Last"},
        {13, ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(std::string(LoadMessageText(row.id)), row.text) << "id " << row.id;

    RecordingApp app;
    SetMessageFile((dir.Path() + "\\").c_str(), "msg.txt");
    EXPECT_EQ(MessageBoxById(12, MB_OKCANCEL, 9), IDRETRY);
    SetMessageFile(dir.Path().c_str(), "absent.txt");
    EXPECT_STREQ(LoadMessageText(12), "");
    MessageBoxById(12, MB_OK, 0);
    SetMessageFile(nullptr, nullptr);
    EXPECT_STREQ(LoadMessageText(0), "") << "the root of the current drive";
    EXPECT_EQ(app.boxes, (std::vector<std::string>{"First\nSecond|1|9", "|0|0"}));
}
