#include "support/InvalidParameter.h"

#include <windows.h>

#include <cstdlib>

void RaiseInvalidParameter()
{
    // The handler is the runtime DLL's, shared by every module of the process,
    // so one installed by the host reaches the library too.
    if (const _invalid_parameter_handler handler = _get_invalid_parameter_handler()) {
        handler(nullptr, nullptr, nullptr, 0, 0);
        return;
    }
    TerminateProcess(GetCurrentProcess(), InvalidParameterExitCode);
}
