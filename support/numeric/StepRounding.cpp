#include "support/numeric/StepRounding.h"

#include "support/numeric/IntegerConversion.h"
#include "support/numeric/Rounding.h"

#include <algorithm>
#include <charconv>
#include <cmath>


double RoundToStep(double origin, double value, double step, int upward, int ceilingMode)
{
    const double x = upward != 0 ? value - origin : origin - value;
    const double s = std::fabs(step);
    if (std::fmod(x, s) == 0.0)
        return value;
    const double q = x / s;
    int k = ceilingMode != 0 ? RoundToInt(q) : SignedTrunc(q, 0.0);
    // Below the origin, rounding away from zero and truncating toward it each
    // land on the wrong side of x; one step puts them right.
    if (x < 0.0)
        k = ceilingMode != 0 ? WrappingAdd(k, 1) : WrappingSubtract(k, 1);
    return upward != 0 ? origin + k * s : origin - k * s;
}

double RoundToStepFromZero(double value, double step, int upward, int ceilingMode)
{
    return RoundToStep(0.0, value, step, upward, ceilingMode);
}

int SignedTrunc(double v, double bias)
{
    const double t = std::trunc(std::fabs(v) + std::fabs(bias));
    return TruncateToInt(v < 0.0 ? -t : t);
}

double RoundToDigits(double v, int digits)
{
    if (digits < 1 || !std::isfinite(v))
        return v;
    // Every double has at most 1074 decimals, so a longer precision only
    // appends zeros: capping it keeps the value and bounds the text
    // (309 integer digits, a sign, a point and the decimals).
    const int decimals = std::min(digits - 1, 1100);
    // Correctly rounded both ways, whatever C runtime the module links.
    char text[1500];
    const std::to_chars_result printed =
        std::to_chars(text, text + sizeof text, v, std::chars_format::fixed, decimals);
    double rounded = v;
    std::from_chars(text, printed.ptr, rounded);
    return rounded;
}
