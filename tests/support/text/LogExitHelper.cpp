// Logs from a process of its own, for the log writer's tests: what happens
// at the first message of a run and at a fatal "S:" message. Runs in the
// directory the test gives it; the mode is the first argument.
#include <cstdio>
#include <cstring>

#include "support/text/LogWriter.h"

int main(int argc, char** argv)
{
    const char* mode = argc > 1 ? argv[1] : "";
    if (std::strcmp(mode, "first") == 0) {
        // Default log: the first message empties it, the second appends.
        LogWrite("RUN", 1, "first\n");
        LogWrite("RUN", 2, "second\n");
        return 0;
    }
    if (std::strcmp(mode, "named") == 0 && argc > 2) {
        SetLogFileName(argv[2]);
        LogWrite(nullptr, 0, "appended\n");
        return 0;
    }
    if (std::strcmp(mode, "stop") == 0) {
        // A stream with unflushed text: the stop must close it.
        FILE* other = std::fopen("stream.txt", "w");
        if (other)
            std::fputs("unflushed\n", other);
        LogWrite(nullptr, 0, "S:fatal %d\n", 7);
        LogWrite(nullptr, 0, "returned\n");
        return 0;
    }
    if (std::strcmp(mode, "stop-unopenable") == 0) {
        SetLogFileName("missing\\directory\\stop.log");
        LogWrite("X", 3, "S:lost\n");
        return 0;
    }
    return 2;
}
