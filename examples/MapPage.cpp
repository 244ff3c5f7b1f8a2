// Page 3: a map sheet. A local metric grid, turned against north, around a
// reference position, drawn on the latitude/longitude graticule. Virtual
// units are thousandths of an arc minute of longitude (x) and latitude (y);
// the two scales differ by the ratio of a minute's lengths at the reference
// latitude, so metres have the same length in every direction on the page.
#include "GalleryPages.h"

#include "support/numeric/Geodesy.h"
#include "support/text/AngleText.h"

#include <cmath>
#include <cstdio>
#include <string>
#include <vector>

namespace {

const char kFace[] = "Liberation Sans";
const char kDegree[] = "\x81\x8B";  // the degree sign in the tool's fonts (character set 128)
constexpr unsigned kEllipsoid = 4;
constexpr double kUnitsPerMinute = 1000.0;
constexpr double kMetresPerPixel = 8.5;
constexpr double kLon0 = 8 * 60 + 32.4;   // 8 deg 32' 24" E, arc minutes
constexpr double kLat0 = 47 * 60 + 22.6;  // 47 deg 22' 36" N
constexpr double kGridAngle = 290.0;      // the grid turned 20 degrees counter-clockwise
constexpr double kGridStep = 500.0;       // metres
constexpr double kGridHalf = 2000.0;      // metres
const RECT kMap = {110, 60, 850, 690};    // pixels

int Virtual(double minutes) { return static_cast<int>(std::lround(minutes * kUnitsPerMinute)); }

// A grid point (metres east and north in the turned frame) in virtual units.
POINT GridPoint(double dx, double dy)
{
    double lon = 0.0, lat = 0.0;
    OffsetToLatLon(dx, dy, kLon0, kLat0, lon, lat, kGridAngle, kEllipsoid);
    return POINT{Virtual(lon), Virtual(lat)};
}

// "47°22'30"N" from arc minutes, through DegreesToDms.
std::string DmsText(double minutes, const char* positive, const char* negative)
{
    double degrees = 0.0, wholeMinutes = 0.0, seconds = 0.0;
    DegreesToDms(std::fabs(minutes) / 60.0, degrees, wholeMinutes, seconds);
    char text[64];
    std::snprintf(text, sizeof text, "%.0f%s%02.0f'%02.0f\"%s", degrees, kDegree, wholeMinutes, seconds,
                  minutes < 0 ? negative : positive);
    return text;
}

// A degree, minute, second triple for GeodesicDistance from arc minutes.
struct Triple {
    double dms[3];
    explicit Triple(double minutes) : dms{0.0, minutes, 0.0} {}
};

struct MapFrame {
    double scaleX, scaleY;  // pixels per virtual unit
    int Dx(double px) const { return static_cast<int>(std::lround(px / scaleX)); }
    int Dy(double px) const { return static_cast<int>(std::lround(px / scaleY)); }
    // The longitude and latitude (arc minutes) at a device column or row.
    double LonAt(int deviceX) const
    {
        return kLon0 + (deviceX - (kMap.left + kMap.right) / 2) / scaleX / kUnitsPerMinute;
    }
    double LatAt(int deviceY) const
    {
        return kLat0 + ((kMap.top + kMap.bottom) / 2 - deviceY) / scaleY / kUnitsPerMinute;
    }
};

// Parallels and meridians every half minute across the map, labelled
// outside its frame (meridians at whole minutes).
void DrawGraticule(CMoruDrawTool& tool, const MapFrame& frame)
{
    const double west = frame.LonAt(kMap.left), east = frame.LonAt(kMap.right);
    const double south = frame.LatAt(kMap.bottom), north = frame.LatAt(kMap.top);
    tool.SetPen(PS_SOLID, 1, RGB(205, 205, 205));
    tool.SetFont1A(13, 0.0, kFace, 0.0);
    tool.SetTextColor(RGB(90, 90, 90));
    tool.SetTextAlign(TA_CENTER | TA_TOP);
    for (double lon = std::ceil(west * 2) / 2; lon <= east; lon += 0.5) {
        tool.MoveTo(Virtual(lon), Virtual(south));
        tool.LineTo(Virtual(lon), Virtual(north));
        if (lon == std::floor(lon))  // whole minutes only: the labels are wider than half a minute
            tool.TextOutA(Virtual(lon), Virtual(south) - frame.Dy(6), DmsText(lon, "E", "W").c_str());
    }
    // Vertically centred beside their parallels (the y-up frame is on a
    // pixel DC, so the reference is raised by the text's full height).
    const double height = tool.GetTextHeightA("0");
    tool.SetTextAlignEx(TA_RIGHT | TA_BASELINE);
    for (double lat = std::ceil(south * 2) / 2; lat <= north; lat += 0.5) {
        tool.MoveTo(Virtual(west), Virtual(lat));
        tool.LineTo(Virtual(east), Virtual(lat));
        tool.TextOutA(Virtual(west) - frame.Dx(6), Virtual(lat) + frame.Dy(height), DmsText(lat, "N", "S").c_str());
    }
    tool.SetTextColor(RGB(0, 0, 0));
}

// Grid lines every 500 m, each a polyline of points converted every 100 m,
// and a ring of 2 km radius.
void DrawGrid(CMoruDrawTool& tool)
{
    std::vector<POINT> line;
    for (double along = -kGridHalf; along <= kGridHalf; along += kGridStep) {
        tool.SetPen(PS_SOLID, along == 0.0 ? 2 : 1, RGB(40, 100, 200));
        for (int direction = 0; direction < 2; ++direction) {
            line.clear();
            for (double across = -kGridHalf; across <= kGridHalf; across += 100.0)
                line.push_back(direction ? GridPoint(along, across) : GridPoint(across, along));
            tool.Polyline(line.data(), static_cast<int>(line.size()));
        }
    }
    line.clear();
    for (int degrees = 0; degrees <= 360; degrees += 5) {
        const double a = degrees * std::acos(-1.0) / 180;
        line.push_back(GridPoint(2000.0 * std::cos(a), 2000.0 * std::sin(a)));
    }
    tool.SetPen(PS_DASH, 1, RGB(200, 40, 40));
    tool.Polyline(line.data(), static_cast<int>(line.size()));
}

// Points given by grid offsets, joined to the reference, labelled with
// their geodesic distance beside the grid's plane distance.
void DrawDistances(CMoruDrawTool& tool, const MapFrame& frame)
{
    const double targets[3][2] = {{1500.0, 1000.0}, {-1750.0, -500.0}, {500.0, -1750.0}};
    const POINT reference = GridPoint(0.0, 0.0);
    const Triple lon0(kLon0), lat0(kLat0);
    tool.SetFont1A(13, 0.0, kFace, 0.0);
    tool.SetBkColor(RGB(255, 255, 255));  // labels on white over the grid lines
    tool.SetBkMode(OPAQUE);
    for (const auto& target : targets) {
        const POINT p = GridPoint(target[0], target[1]);
        const Triple lon(p.x / kUnitsPerMinute), lat(p.y / kUnitsPerMinute);
        const double metres = GeodesicDistance(lon0.dms, lat0.dms, lon.dms, lat.dms, kEllipsoid);
        tool.SetPen(PS_DOT, 1, RGB(0, 0, 0));
        tool.MoveTo(reference);
        tool.LineTo(p);
        tool.SetPen(PS_SOLID, 1, RGB(0, 0, 0));
        tool.SetBrush(BS_SOLID, RGB(250, 200, 60), 0);
        tool.Circle2(p, 5);
        char text[64];
        std::snprintf(text, sizeof text, "%.0f m (grid %.0f m)", metres, std::hypot(target[0], target[1]));
        tool.SetTextAlign((p.x < reference.x ? TA_RIGHT : TA_LEFT) | TA_BOTTOM);
        tool.TextOutA(p.x + (p.x < reference.x ? -frame.Dx(8) : frame.Dx(8)), p.y + frame.Dy(4), text);
    }
    tool.SetBrush(BS_SOLID, RGB(200, 40, 40), 0);
    tool.Circle2(reference, 6);
    const std::string where = "reference " + DmsText(kLat0, "N", "S") + " " + DmsText(kLon0, "E", "W");
    tool.SetTextAlign(TA_LEFT | TA_TOP);
    tool.TextOutA(reference.x + frame.Dx(14), reference.y - frame.Dy(8), where.c_str());
    tool.SetBkMode(TRANSPARENT);
}

// A 1 km bar in the map's lower-right corner and the grid's key.
void DrawKey(CMoruDrawTool& tool, const MapFrame& frame)
{
    const int right = Virtual(frame.LonAt(kMap.right - 45)), bottom = Virtual(frame.LatAt(kMap.bottom - 20));
    const int bar = frame.Dx(1000.0 / kMetresPerPixel);
    tool.SetPen(PS_SOLID, 1, RGB(0, 0, 0));
    tool.SetBrush(BS_SOLID, RGB(255, 255, 255), 0);
    tool.Rectangle(right - bar - frame.Dx(14), bottom + frame.Dy(30), right + frame.Dx(35), bottom - frame.Dy(10));
    tool.SetBrush(BS_SOLID, RGB(0, 0, 0), 0);
    tool.Rectangle(right - bar, bottom + frame.Dy(6), right - bar / 2, bottom);
    tool.SetBrush(BS_NULL, 0, 0);
    tool.Rectangle(right - bar / 2, bottom + frame.Dy(6), right, bottom);
    tool.SetFont1A(13, 0.0, kFace, 0.0);
    tool.SetTextAlign(TA_CENTER | TA_BOTTOM);
    tool.TextOutA(right - bar, bottom + frame.Dy(8), "0");
    tool.TextOutA(right - bar / 2, bottom + frame.Dy(8), "500");
    tool.TextOutA(right, bottom + frame.Dy(8), "1000 m");
}

} // namespace

void DrawMapPage(CDC& dc)
{
    CMoruDrawTool* tool = CreateDrawTool(nullptr, &dc);
    if (!tool)
        return;
    double perLonMinute = 0.0, perLatMinute = 0.0;
    ArcLengthsPerMinute(kLat0, perLonMinute, perLatMinute, kEllipsoid);
    const MapFrame frame{perLonMinute / kUnitsPerMinute / kMetresPerPixel,
                         perLatMinute / kUnitsPerMinute / kMetresPerPixel};

    // The reference position at the map's centre, y up.
    tool->SetOrgX((kMap.left + kMap.right) / 2);
    tool->SetOrgY((kMap.top + kMap.bottom) / 2);
    tool->SetScaleFact(1.0);  // fonts and Circle2 radii in pixels
    tool->SetScaleFactX(frame.scaleX);
    tool->SetScaleFactY(frame.scaleY);
    RECT area = {0, 0, kMapWidth, kMapHeight};
    tool->Initialize(&area, 1);
    tool->SetOffsetX(-Virtual(kLon0) * frame.scaleX);
    tool->SetOffsetY(Virtual(kLat0) * frame.scaleY);

    DrawGraticule(*tool, frame);
    DrawGrid(*tool);
    DrawDistances(*tool, frame);
    DrawKey(*tool, frame);

    const int west = Virtual(frame.LonAt(kMap.left)), east = Virtual(frame.LonAt(kMap.right));
    const int south = Virtual(frame.LatAt(kMap.bottom)), north = Virtual(frame.LatAt(kMap.top));
    tool->SetPen(PS_SOLID, 1, RGB(0, 0, 0));
    tool->SetBrush(BS_NULL, 0, 0);
    tool->Rectangle(west, south, east, north);
    tool->SetFontWeight(FW_BOLD);
    tool->SetFont1A(19, 0.0, kFace, 0.0);
    tool->SetFontWeight(0);
    tool->SetTextAlign(TA_LEFT | TA_BOTTOM);
    tool->TextOutA(west, north + frame.Dy(12), "Map: a 500 m grid turned 20 degrees, around a reference position");
    tool->SetFont1A(13, 0.0, kFace, 0.0);
    tool->SetTextAlign(TA_LEFT | TA_TOP);
    tool->TextOutA(west, south - frame.Dy(30),
                   "Grid points placed by OffsetToLatLon (ellipsoid 4), the red ring 2 km from the reference;");
    tool->TextOutA(west, south - frame.Dy(46), "distances by GeodesicDistance, beside the grid's plane distance.");
    tool->Finalize();
    DestroyDrawTool(tool);
}
