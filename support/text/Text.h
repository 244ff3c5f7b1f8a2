// Text formats and writers.
#pragma once

#include "support/text/AngleText.h"
#include "support/text/IntegerText.h"
#include "support/text/LogWriter.h"
#include "support/text/Namelist.h"
#include "support/text/NumberFormat.h"
#include "support/text/NumberText.h"
