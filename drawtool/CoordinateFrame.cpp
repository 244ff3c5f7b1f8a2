#include "drawtool/Device.h"
#include "drawtool/DrawTool.h"
#include "support/numeric/IntegerConversion.h"
#include "support/numeric/Rounding.h"

#include <climits>
#include <cmath>

double CMoruDrawTool::GetScaleFact() { return m_frame.scaleFact; }

void CMoruDrawTool::SetScaleFact(double scale)
{
    // Deliberate coupling: the first uniform scale also becomes the second
    // one, until the host sets ScaleFact2 itself. NaN never compares equal.
    const double second = m_frame.scaleFact2;
    m_frame.scaleFact = scale;
    if (second == 0.0)
        m_frame.scaleFact2 = scale;
}

double CMoruDrawTool::GetScaleFact2() { return m_frame.scaleFact2; }
void CMoruDrawTool::SetScaleFact2(double scale) { m_frame.scaleFact2 = scale; }
double CMoruDrawTool::GetScaleFactX() { return m_frame.scaleFactX; }
void CMoruDrawTool::SetScaleFactX(double scale) { m_frame.scaleFactX = scale; }
double CMoruDrawTool::GetScaleFactY() { return m_frame.scaleFactY; }
void CMoruDrawTool::SetScaleFactY(double scale) { m_frame.scaleFactY = scale; }
double CMoruDrawTool::GetOffsetX() { return m_frame.offsetX; }
void CMoruDrawTool::SetOffsetX(double offset) { m_frame.offsetX = offset; }
double CMoruDrawTool::GetOffsetY() { return m_frame.offsetY; }
void CMoruDrawTool::SetOffsetY(double offset) { m_frame.offsetY = offset; }
int CMoruDrawTool::GetOrgX() { return m_frame.orgX; }
void CMoruDrawTool::SetOrgX(int x) { m_frame.orgX = x; }
int CMoruDrawTool::GetOrgY() { return m_frame.orgY; }
void CMoruDrawTool::SetOrgY(int y) { m_frame.orgY = y; }

namespace {

// (v * scale + 0.5) + offset truncated toward zero: rounds half up only for
// non-negative sums, unlike the mapping rules.
int TruncateToDevice(double v, double scale, double offset) { return TruncateToInt((v * scale + 0.5) + offset); }

} // namespace

int CMoruDrawTool::VtoLP_X(double v) { return TruncateToDevice(v, m_frame.scaleFactX, m_frame.offsetX); }
int CMoruDrawTool::VtoLP_Y(double v) { return TruncateToDevice(v, m_frame.scaleFactY, m_frame.offsetY); }
double CMoruDrawTool::LPtoV_X(int lp) { return (lp - m_frame.offsetX) / m_frame.scaleFactX; }
double CMoruDrawTool::LPtoV_Y(int lp) { return (lp - m_frame.offsetY) / m_frame.scaleFactY; }

CPoint CMoruDrawTool::GetCurrentPosition()
{
    // Divides before subtracting the offset: the inverse of the mapping only
    // for zero offsets. Kept so, unlike LPtoV_X/LPtoV_Y.
    const HDC handle = QueryHandle(m_dc);
    if (!handle)
        return CPoint(0, 0);
    POINT device = {0, 0};
    ::GetCurrentPositionEx(handle, &device);
    return CPoint(RoundToInt(device.x / m_frame.scaleFactX - m_frame.offsetX),
                  RoundToInt(device.y / m_frame.scaleFactY - m_frame.offsetY));
}

void CMoruDrawTool::rotate(double x, double y, double* outX, double* outY, double angle)
{
    const double theta = (std::acos(-1.0) / 180.0) * angle;
    const double c = std::cos(theta);
    const double s = std::sin(theta);
    const double rx = c * x - s * y;
    const double ry = s * x + c * y;
    if (outX)
        *outX = rx;
    if (outY)
        *outY = ry;
}
