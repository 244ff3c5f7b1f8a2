// RoundToInt's direct form against the literal text round trip it replaces:
// nanoseconds per call and their ratio, measured in one run.
// Targets: at least 100 times faster, at most 3 ns per call.
#include "support/numeric/Rounding.h"

#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <vector>

namespace {

int LiteralRoundToInt(double x)
{
    const double s = x < 0.0 ? -1.0 : 1.0;
    if (std::fmod(x, 1.0) != 0.0)
        x = s * 0.5 + x;
    char text[400];
    std::snprintf(text, sizeof text, "%.0f", x);
    return std::atoi(text);
}

// The accumulator is local, so the loop carries no dependency through
// memory, and the rounding is inlined as it is in the drawing calls.
template <class Round>
double NanosecondsPerCall(const std::vector<double>& values, int passes, Round round, long long& sink)
{
    long long sum = 0;
    const auto start = std::chrono::steady_clock::now();
    for (int pass = 0; pass < passes; ++pass)
        for (double v : values)
            sum += round(v);
    const std::chrono::duration<double, std::nano> elapsed = std::chrono::steady_clock::now() - start;
    sink += sum;
    return elapsed.count() / (static_cast<double>(values.size()) * passes);
}

} // namespace

int main()
{
    std::mt19937_64 random(7);
    std::uniform_real_distribution<double> coordinates(-100000.0, 100000.0);
    std::vector<double> values(1 << 14);  // in cache, as a drawing call's points are
    for (double& v : values)
        v = coordinates(random);

    long long sink = 0;
    const double literal = NanosecondsPerCall(values, 1, [](double v) { return LiteralRoundToInt(v); }, sink);
    const double direct = NanosecondsPerCall(values, 1280, [](double v) { return RoundToInt(v); }, sink);
    std::printf("RoundToInt, %zu coordinates\n", values.size());
    std::printf("  text round trip: %8.2f ns per call\n", literal);
    std::printf("  direct:          %8.2f ns per call\n", direct);
    std::printf("  ratio:           %8.1f times faster (target >= 100, direct <= 3 ns)\n", literal / direct);
    std::printf("  (checksum %lld)\n", sink);
    return 0;
}
