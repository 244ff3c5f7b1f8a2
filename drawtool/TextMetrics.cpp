#include "drawtool/DrawTool.h"
