// Test child: "child_sleep [MS]" sleeps MS milliseconds (default 30000)
// and exits with code 3.
#include <windows.h>

#include <cstdlib>

int main(int argc, char** argv)
{
    Sleep(argc > 1 ? static_cast<DWORD>(std::atol(argv[1])) : 30000);
    return 3;
}
