#include "support/numeric/Rounding.h"

int RoundHalfAway(double x)
{
    const double shifted = x >= 0.0 ? x + 0.5 : x - 0.5;
    if (!(shifted > -2147483649.0 && shifted < 2147483648.0))
        return INT_MIN;
    return static_cast<int>(shifted);
}
