#include "support/numeric/Fitting.h"

#include "support/numeric/IntegerConversion.h"

#include <cmath>
#include <cstddef>


int FitLine(const std::vector<double>& xs, const std::vector<double>& ys, double& slope, double& intercept)
{
    slope = 0.0;
    intercept = 0.0;
    if (xs.size() != ys.size() || xs.empty())
        return 0;
    const std::size_t n = xs.size();
    double sumX = 0.0;
    double sumY = 0.0;
    for (std::size_t i = 0; i < n; ++i) {
        sumX += xs[i];
        sumY += ys[i];
    }
    const double meanX = sumX / static_cast<double>(n);
    const double meanY = sumY / static_cast<double>(n);
    double sxy = 0.0;
    double sxx = 0.0;
    for (std::size_t i = 0; i < n; ++i) {
        const double dx = xs[i] - meanX;
        sxy += dx * (ys[i] - meanY);
        sxx += std::pow(dx, 2.0);
    }
    if (sxx == 0.0)
        return 0;
    slope = sxy / sxx;
    intercept = meanY - slope * meanX;
    return 0;
}

CRect FitSizeToBox(double aspectW, double aspectH, double boxW, double boxH)
{
    if (aspectH == 0.0 || boxH == 0.0)
        return CRect(0, 0, TruncateToInt(boxW), TruncateToInt(boxH));
    const double r = aspectW / aspectH;
    double width = boxW;
    double height = boxH;
    if (r > boxW / boxH)
        height = boxW / r; // relatively wider: the width is the limit
    else
        width = r * boxH;
    return CRect(0, 0, TruncateToInt(width), TruncateToInt(height));
}

RECT FitRectToRect(const RECT& shape, const RECT& box)
{
    RECT result = box;
    const int shapeHeight = WrappingSubtract(shape.bottom, shape.top);
    const int boxHeight = WrappingSubtract(box.bottom, box.top);
    if (shapeHeight == 0 || boxHeight == 0)
        return result;
    const double r = static_cast<double>(WrappingSubtract(shape.right, shape.left)) / shapeHeight;
    double w = WrappingSubtract(box.right, box.left);
    double h = boxHeight;
    if (r > w / h)
        h = w / r;
    else
        w = h * r;
    result.right = WrappingAdd(TruncateToInt(w), box.left);
    result.bottom = WrappingAdd(TruncateToInt(h), box.top);
    return result;
}
