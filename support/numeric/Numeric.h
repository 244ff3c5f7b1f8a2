// Numeric and geometric support routines.
#pragma once

#include "support/numeric/AxisScaling.h"
#include "support/numeric/Fitting.h"
#include "support/numeric/Geodesy.h"
#include "support/numeric/PlaneGeometry.h"
#include "support/numeric/Rounding.h"
#include "support/numeric/StepRounding.h"
