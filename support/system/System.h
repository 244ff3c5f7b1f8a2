// The system services of the support library: paths, directory trees,
// processes, version and file information, desktop services.
#pragma once

#include "support/system/Clipboard.h"
#include "support/system/DirectoryListing.h"
#include "support/system/DirectoryTree.h"
#include "support/system/FileTimes.h"
#include "support/system/MessageBoxes.h"
#include "support/system/PathText.h"
#include "support/system/Paths.h"
#include "support/system/ProcessClose.h"
#include "support/system/ProcessExitCode.h"
#include "support/system/ProcessLaunch.h"
#include "support/system/ProcessQuery.h"
#include "support/system/ProcessWait.h"
#include "support/system/ShellFolders.h"
#include "support/system/VersionInfo.h"
