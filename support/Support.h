// The support library: numeric, text and system routines linked into the
// module beside the drawing tool. Not exported from the DLL.
//
// Input that does not fit a bounded buffer (a log file name of 1001
// characters or more, an over-long path component, a text wider than its
// padding, a message longer than its buffer) raises the C runtime's
// invalid-parameter condition in one way throughout: a handler the host
// installed with _set_invalid_parameter_handler is called and the routine
// returns its empty result; without a handler the process ends with status
// 0xC0000417. See support/InvalidParameter.h.
#pragma once

#include "support/InvalidParameter.h"
#include "support/numeric/Numeric.h"
#include "support/system/System.h"
#include "support/text/Text.h"
