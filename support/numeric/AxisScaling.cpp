#include "support/numeric/AxisScaling.h"

#include "support/numeric/IntegerConversion.h"
#include "support/numeric/Rounding.h"

#include <array>
#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdio>
#include <cstdlib>


namespace {

// Mantissa tables of the nice-number rules, in the order they are searched.
const double kCeilUp[] = {1, 1.5, 2, 2.5, 3, 4, 5, 6, 7, 8, 9};
const double kCeilDown[] = {9, 8, 7, 6, 5, 4, 3, 2.5, 2, 1.5, 1};
const double kFloorUp[] = {9, 8, 7, 6, 5, 4.5, 4, 3.5, 3, 2.5, 2, 1.5, 1, 0.5};
const double kFloorDown[] = {0.5, 1, 1.5, 2, 2.5, 3, 3.5, 4, 4.5, 5, 6, 7, 8, 9};
const double kSteps[] = {1, 2, 5};
const double kTickSteps[] = {5, 3, 2.5, 2, 1.5};

// The first entry strictly above m, or fallback (also for a NaN m).
template <std::size_t N>
double FirstAbove(const double (&table)[N], double m, double fallback)
{
    for (double entry : table)
        if (m < entry)
            return entry;
    return fallback;
}

// The first entry strictly below m, or fallback (also for a NaN m).
template <std::size_t N>
double FirstBelow(const double (&table)[N], double m, double fallback)
{
    for (double entry : table)
        if (m > entry)
            return entry;
    return fallback;
}

// The first index in [0, count) at which test turns true, or count if it
// never does. test must be false up to some index and true from there on.
template <class Test>
long long FirstTrue(long long count, Test test)
{
    long long low = 0;
    long long high = count;
    while (low < high) {
        const long long middle = low + (high - low) / 2;
        if (test(middle))
            high = middle;
        else
            low = middle + 1;
    }
    return low;
}

// Snaps min down to a multiple k * step as the axis rule's count does, and
// finds the k the count stops at by bisection instead of counting. That is
// exact because each stop test is monotone in k for every step: rounding
// keeps k * step monotone in k, and a zero, NaN or wrongly signed step makes
// the test false for every k the count visits.
void SnapMinToStep(double& min, double step, bool secondPass)
{
    if (min >= 0.0) {
        // k = 0, 1, ..., 999 until k * step > min, then min := (k - 1) * step.
        const long long k = FirstTrue(1000, [&](long long i) { return static_cast<double>(i) * step > min; });
        min = k < 1000 ? static_cast<double>(k - 1) * step : 0.0;
        return;
    }
    // k = 0, -1, -2, ... until min >= k * step. The first pass gives up after
    // k = -999. The second pass's give-up waits for its 32-bit counter to
    // read +1000 (intended): it runs down to INT_MIN, wraps to INT_MAX and
    // comes down to 1001 before it gives up.
    const long long depth = secondPass ? 1LL - INT_MIN : 1000; // k = 0 .. -(depth - 1)
    const long long j = FirstTrue(depth, [&](long long i) { return min >= static_cast<double>(-i) * step; });
    if (j < depth) {
        min = static_cast<double>(-j) * step;
        return;
    }
    if (secondPass) {
        // Past the wrap k falls from INT_MAX. Only a negative step can stop
        // the count there, and k * step then rises as k falls: if INT_MAX
        // does not stop it, no later k does.
        const double top = static_cast<double>(INT_MAX) * step;
        if (min >= top) {
            min = top;
            return;
        }
    }
    min = 0.0;
}

void ChooseAxis(int n, double& min, double& max, double& step, int keepMin, double (*firstStep)(double))
{
    const double min0 = min;
    const double max0 = max;
    step = firstStep(std::fabs(max0 - min0) / n);
    if (keepMin != 0) {
        max = min + n * step;
        return;
    }
    SnapMinToStep(min, step, false);
    max = n * step + min;
    if (max0 >= max) {
        // The divisions do not reach beyond the maximum: widen the step to
        // the nice numbers around the range passed in and snap again.
        step = NiceCeil(std::fabs(NiceCeil(max0) - NiceFloor(min0)) / n);
        SnapMinToStep(min, step, true);
        max = n * step + min;
    }
}

// Decades whose power of ten is a nonzero finite double.
const int kMinDecade = -323;
const int kMaxDecade = 308;

double PowerOfTen(double e)
{
    // Correctly rounded 10^e from the decimal texts, read once: strtod rounds
    // them correctly, while MinGW's pow(10, e) is an ulp off already at
    // e = -2 and hundreds of ulps off near the ends of the range.
    static const std::array<double, kMaxDecade - kMinDecade + 1> powers = [] {
        std::array<double, kMaxDecade - kMinDecade + 1> table{};
        for (int i = kMinDecade; i <= kMaxDecade; ++i) {
            char text[8];
            std::snprintf(text, sizeof text, "1e%d", i);
            table[i - kMinDecade] = std::strtod(text, nullptr);
        }
        return table;
    }();
    if (e >= kMinDecade && e <= kMaxDecade)
        return powers[static_cast<int>(e) - kMinDecade];
    return std::pow(10.0, e); // 0 below, +infinity above, NaN for NaN
}

} // namespace

double DecadeUnit(double x)
{
    double e = std::trunc(std::log10(x));
    if (x < 1.0)
        e -= 1.0;
    return PowerOfTen(e);
}

double NiceCeil(double v)
{
    if (v == 0.0 || std::isnan(v))
        return v;
    const double a = std::fabs(v);
    const double u = DecadeUnit(a);
    const double m = a / u;
    if (v > 0.0)
        return u * FirstAbove(kCeilUp, m, 10.0);
    // One unit toward zero before the table is searched: intended.
    return -(u * FirstBelow(kCeilDown, m - 1.0, 0.1));
}

double NiceFloor(double v)
{
    if (v == 0.0 || std::isnan(v))
        return v;
    const double a = std::fabs(v);
    const double u = DecadeUnit(a);
    const double m = a / u;
    if (v > 0.0)
        return u * FirstBelow(kFloorUp, m, 0.1);
    return -(u * FirstAbove(kFloorDown, m, 10.0));
}

double NiceStep(double x)
{
    if (x == 0.0)
        return x;
    const double u = DecadeUnit(x);
    return u * FirstAbove(kSteps, x / u, 10.0);
}

double NiceTickStep(double x)
{
    if (x == 0.0)
        return 0.0;
    const double u = DecadeUnit(x);
    // Mantissas from 1 to 1.5 fall through to a tenth of the unit: intended.
    return u * FirstBelow(kTickSteps, x / u, 0.1);
}

double NiceRange(double& min, double& max)
{
    const double span = max - min;
    const double lg = std::log10(span);
    double e = std::trunc(lg);
    if (lg <= 0.0)
        e -= 1.0;
    const double u = PowerOfTen(e);
    const double r = span / u;
    const double factor = r <= 1.0 ? 0.1 : r <= 2.0 ? 0.2 : r <= 5.0 ? 0.5 : 1.0;
    const double step = u * factor;

    int k = TruncateToInt(min / step);
    if (k * step > min)
        k = WrappingSubtract(k, 1);
    min = k * step;
    k = TruncateToInt(max / step);
    if (max > k * step)
        k = WrappingAdd(k, 1);
    max = k * step;
    return step;
}

void NiceAxis(int n, double& min, double& max, double& step, int keepMin)
{
    ChooseAxis(n, min, max, step, keepMin, NiceCeil);
}

void NiceAxisCoarse(int n, double& min, double& max, double& step, int keepMin)
{
    ChooseAxis(n, min, max, step, keepMin, NiceStep);
}

int NiceDivisions(double span, double& step)
{
    const double a = std::fabs(span);
    const double u = DecadeUnit(a);
    const double r = a / u;
    const bool fraction = r > std::trunc(r);
    int count;
    double s;
    if (r <= 1.0) {
        s = u / 5;
        count = 5;
    } else if (r < 4.0) {
        count = RoundToInt(fraction ? 2 * r + 1 : 2 * r);
        s = u * 0.5;
    } else if (r < 10.0) {
        count = RoundToInt(fraction ? r * 0.5 + 1 : r * 0.5);
        s = u * 2;
    } else {
        count = RoundToInt(fraction ? r + 1 : r);
        s = u;
    }
    step = span < 0.0 ? -s : s;
    return count;
}

int NiceDivisionsPositive(double span, double& step)
{
    const double u = DecadeUnit(span);
    const double r = span / u;
    const int t = TruncateToInt(r + 0.5);
    const int fraction = r > std::trunc(r) ? 1 : 0;
    if (r <= 1.0) {
        step = u / 5;
        return 5;
    }
    if (r < 4.0) {
        step = u * 0.5;
        return 2 * t + fraction;
    }
    step = u;
    return WrappingAdd(t, fraction);
}

double LogAxisPosition(double x1, double x2, double x)
{
    if (x == 0.0)
        return 0.0;
    const double k = (x2 - x1) / (std::log10(x2) - std::log10(x1));
    return k * (std::log10(x) - std::log10(x1)) + x1;
}
