// Logs from a process of its own for LogWriterTest: log_exit_helper MODE DIRECTORY.
#include <direct.h>

#include <cstdio>
#include <string>

#include "support/text/LogWriter.h"

int main(int argc, char** argv)
{
    const std::string mode = argc > 2 && _chdir(argv[2]) == 0 ? argv[1] : "";
    if (mode == "named")
        SetLogFileName("run.log");
    if (mode == "stop") {
        std::fputs("unflushed\n", std::fopen("stream.txt", "w"));   // the stop must close this stream
        LogWrite(nullptr, 0, "S:fatal %d\n", 7);
    }
    LogWrite("RUN", 1, "first\n");
    LogWrite("RUN", 2, "second\n");
    return mode.empty() ? 2 : 0;
}
