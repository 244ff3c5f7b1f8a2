// Test child: "child_exit CODE [TEXT]" writes TEXT to its standard error
// and, when TEXT is given, "stdout" to its standard output, then exits with
// CODE. Writes go straight to the handles, with nothing added.
#include <windows.h>

#include <cstdlib>
#include <cstring>

static void Put(DWORD which, const char* text)
{
    DWORD written = 0;
    WriteFile(GetStdHandle(which), text, static_cast<DWORD>(std::strlen(text)), &written, nullptr);
}

int main(int argc, char** argv)
{
    if (argc > 2) {
        Put(STD_ERROR_HANDLE, argv[2]);
        Put(STD_OUTPUT_HANDLE, "stdout");
    }
    return argc > 1 ? std::atoi(argv[1]) : 0;
}
