#include "drawtool/Device.h"

CDC& DeviceOf(CDC* dc)
{
    static CDC inert;
    return dc ? *dc : inert;
}
