// Formatted and numbered message boxes, captured by an application object that records each box.
#include "SystemTestHelpers.h"

// Bounded formatting: an empty text and 4096 characters fit; one more raises the invalid-parameter
// condition once and, with the host's handler returning, shows an empty box; so does a null format.
TEST(MessageBoxes, FormattedTextUpTo4096CharactersElseEmpty)
{
    RecordingApp app;
    const std::string longest(4096, 'x');
    EXPECT_EQ(IDRETRY, MessageBoxF("%s: %d, %.2f%%", MB_YESNO | MB_ICONQUESTION, 77, "list", 3, 12.5));
    Raised = 0;
    MessageBoxF("%s", MB_OK, 0, "");   // an empty text fits
    MessageBoxF("%s", MB_OK, -1, longest.c_str());
    MessageBoxF("%s%s", MB_OK, 0, longest.c_str(), "!");
    MessageBoxF(nullptr, MB_ICONSTOP, 2);
    EXPECT_EQ(2, Raised) << "once for each of the last two";
    EXPECT_EQ((std::vector<std::string>{"list: 3, 12.50%|36|77", "|0|0", longest + "|0|4294967295", "|0|0", "|16|2"}),
              app.boxes);
}

// The message file: entries "id|text" read as atoi reads the id, the first match wins, \n sequences
// become line breaks, lines without a bar are skipped, CR LF endings and long lines are read whole; a
// numbered box shows its text, or an empty one for a missing id.
TEST(MessageBoxes, NumberedTextsComeFromTheMessageFile)
{
    const ScratchDir dir("messages");
    const std::string longLine(100000, 'L');
    std::ofstream(dir / "msg.txt", std::ios::binary) << "Messages\r\n12|First\\nSecond\r\n12|Shadowed\r\n|Zero\\n\r\n"
                                                        " 33x|Junk\r\n5|a|b\\\\n\r\n8|" + longLine + "\r\n7|Last";
    SetMessageFile(dir.path.c_str(), "msg.txt");
    const std::pair<int, std::string> rows[] = {
        {12, "First\nSecond"}, {0, "Zero\n"}, {33, "Junk"}, {5, "a|b\\\n"}, {8, longLine}, {7, "Last"}, {13, ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(row.second, std::string(LoadMessageText(row.first))) << "id " << row.first;
    RecordingApp app;
    EXPECT_EQ((std::vector<int>{IDRETRY, IDRETRY}), (std::vector<int>{MessageBoxById(12, MB_ICONSTOP, 9),
                                                                      MessageBoxById(13, MB_OK, 0)}));
    EXPECT_EQ((std::vector<std::string>{"First\nSecond|16|9", "|0|0"}), app.boxes) << "a numbered box, then a missing id";
}
