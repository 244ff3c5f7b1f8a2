// Test child: writes what it was started with to the file named by the
// environment variable CHILD_ECHO_FILE (default "child_echo.txt" in its
// current directory), one line each: the command line exactly as the system
// passed it, the current directory, the variable CHILD_ECHO_MARK ("" when
// unset), and its start-up record: "FLAGS SHOW IOE", the flags in hex, the
// show value, then 1 or 0 for each of standard input, output and error that
// is set ("101 7 001"); and the path of its own executable. The file
// appears complete at once.
#include <windows.h>

#include <cstdio>
#include <string>

static std::string Variable(const char* name)
{
    char value[4096] = "";
    const DWORD length = GetEnvironmentVariableA(name, value, sizeof(value));
    return length > 0 && length < sizeof(value) ? value : "";
}

int main()
{
    std::string file = Variable("CHILD_ECHO_FILE");
    if (file.empty())
        file = "child_echo.txt";
    char dir[MAX_PATH] = "";
    GetCurrentDirectoryA(MAX_PATH, dir);
    STARTUPINFOA startup = {};
    startup.cb = sizeof(startup);
    GetStartupInfoA(&startup);
    char record[64];
    std::snprintf(record, sizeof(record), "%lx %u %d%d%d", startup.dwFlags, startup.wShowWindow,
                  GetStdHandle(STD_INPUT_HANDLE) != nullptr, GetStdHandle(STD_OUTPUT_HANDLE) != nullptr,
                  GetStdHandle(STD_ERROR_HANDLE) != nullptr);
    char self[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, self, MAX_PATH);
    const std::string text = std::string(GetCommandLineA()) + "\n" + dir + "\n" + Variable("CHILD_ECHO_MARK") +
                             "\n" + record + "\n" + self + "\n";

    const std::string partial = file + ".part";
    FILE* out = std::fopen(partial.c_str(), "wb");
    if (!out)
        return 2;
    std::fwrite(text.data(), 1, text.size(), out);
    std::fclose(out);
    return MoveFileExA(partial.c_str(), file.c_str(), MOVEFILE_REPLACE_EXISTING) ? 0 : 2;
}
