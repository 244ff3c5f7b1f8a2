// Writes the namelist file that the Fortran reader reads and the text tests compare byte for byte: every
// writer and comment form, with values whose text the writer's rules change (rounded, left out, unquoted,
// unescaped). Usage: namelist_writer <file>. A file that cannot be written ends the program with the
// constructor's uncaught exception.
#include "support/text/Namelist.h"

#include <cmath>

int main(int argc, char** argv)
{
    if (argc != 2)
        return 2;
    CStdioFile f(argv[1], CFile::modeCreate | CFile::modeWrite | CFile::typeText);
    WriteNamelistComment(f, "  !as is ");
    WriteNamelistComment(f, nullptr);
    WriteNamelistBlankLine(f);
    WriteNamelistGroup(f, "INPUT", "   ");
    WriteNamelistString(f, "TITLE", "  beam 2 ", "  !! note ", 1);   // quoted, then trimmed
    WriteNamelistString(f, "EMPTY", "", "!", 1);
    WriteNamelistString(f, "FACTOR", " 3.5d0 ", "! ! a!", 0);      // unquoted: a Fortran constant
    WriteNamelistString(f, "LOST", " \t\r\n", "lost", 0);          // blank: left out
    WriteNamelistBool(f, "FLAG", true, "");
    WriteNamelistBool(f, "DEBUG", false, "off");
    WriteNamelistInt(f, "NMIN", -2147483647 - 1, "");
    WriteNamelistDouble(f, "DT", 0.1, "");
    WriteNamelistDouble(f, "CARRY", 9.99999996, "");   // rounded up to 10.0
    WriteNamelistDouble(f, "NEGZ", -0.00000001, "");
    WriteNamelistDouble(f, "PRECISE", 123456.123456789, "");
    WriteNamelistDouble(f, "BIG", 1e20, "");
    WriteNamelistDouble(f, "PINF", HUGE_VAL, "");
    WriteNamelistDouble(f, "NINF", -HUGE_VAL, "");
    WriteNamelistDouble(f, "DNAN", std::nan(""), "");
    WriteNamelistArray(f, "NONE", {}, "none", 3, 0);   // nothing written
    WriteNamelistArray(f, "XF", {"1", "2", "3"}, "nodes", 3, 0);
    WriteNamelistArray(f, "XP", {"1", "2", "3", "4", "5", "6", "7"}, "", 0, 0);   // below 1 means 5
    WriteNamelistArray(f, "XL", {"1", "2", "3"}, "", 1, 0);
    WriteNamelistArray<std::vector<CString>>(f, "XC", {"1", "2", "3", "4"}, "!c", 3, 0);   // the by-value form
    WriteNamelistArray(f, "NAMES", {"a", " b", "", "x"}, "", 2, 1);
    WriteNamelistEnd(f);
    WriteNamelistGroup(f, "QUOTES", "run 1");
    WriteNamelistString(f, "S", "it's", "", 1);        // quotes are not escaped
    WriteNamelistEnd(f);
    return 0;
}
