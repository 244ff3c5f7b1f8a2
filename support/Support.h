// The support library: numeric, text and system routines linked into the
// module beside the drawing tool. Not exported from the DLL.
#pragma once

#include "support/numeric/Numeric.h"
#include "support/text/Text.h"
