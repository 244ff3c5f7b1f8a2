#include "AfxDC.h"
