// The system services of the support library: paths, directory trees,
// processes, version and file information, desktop services.
#pragma once

#include "support/system/DirectoryListing.h"
#include "support/system/DirectoryTree.h"
#include "support/system/PathText.h"
#include "support/system/Paths.h"
