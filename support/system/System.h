// The system services of the support library: paths, directory trees,
// processes, version and file information, desktop services.
#pragma once

#include "support/system/Clipboard.h"
#include "support/system/FileTimes.h"
#include "support/system/MessageBoxes.h"
#include "support/system/ShellFolders.h"
#include "support/system/VersionInfo.h"
