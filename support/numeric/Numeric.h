// Numeric and geometric support routines.
#pragma once

#include "support/numeric/Rounding.h"
