// Page 2: the shapes sheet. Eight panels, each with its own frame: virtual
// (0, 0) at the panel's lower-left corner, y pointing up, one virtual unit a
// pixel unless the panel says otherwise.
#include "GalleryPages.h"

#include <cmath>
#include <cstdio>

namespace {

const char kFace[] = "Liberation Sans";
const double kPi = std::acos(-1.0);

// The point `radius` units from (cx, cy) toward `degrees` (from +x toward
// +y), rounded to whole virtual units.
POINT Polar(int cx, int cy, double radius, double degrees)
{
    const double a = degrees * kPi / 180;
    return POINT{cx + static_cast<LONG>(std::lround(radius * std::cos(a))),
                 cy + static_cast<LONG>(std::lround(radius * std::sin(a)))};
}

struct Panel {
    int left, top, width, height;
    const char* title;
};

// Row 1: arrows and the circle forms; rows 2 and 3: three panels each.
const Panel kArrows = {20, 50, 310, 250, "Arrow styles: 10 x head position + kind"};
const Panel kCircles = {345, 50, 635, 250, "Circle forms, x scale 2 : y scale 1"};
const Panel kArches = {20, 315, 310, 210, "Arch at several angles"};
const Panel kPies = {345, 315, 310, 210, "Pie"};
const Panel kBrushes = {670, 315, 310, 210, "Solid and hatched brushes"};
const Panel kClipping = {20, 540, 310, 205, "IntersectClipRect, ExcludeClipRect"};
const Panel kPolyPolyline = {345, 540, 310, 205, "PolyPolyline"};
const Panel kFill = {670, 540, 310, 205, "Polygon fill modes, PolyBezier"};

// Puts the frame on the panel: (0, 0) at its lower-left, y up, `scaleX`
// and `scaleY` pixels per virtual unit; then frames it and writes its title.
void UsePanel(CMoruDrawTool& tool, const Panel& panel, double scaleX = 1.0, double scaleY = 1.0)
{
    tool.SetScaleFactX(1.0);
    tool.SetScaleFactY(-1.0);
    tool.SetOffsetX(panel.left);
    tool.SetOffsetY(panel.top + panel.height);
    tool.SetPen(PS_SOLID, 1, RGB(160, 160, 160));
    tool.SetBrush(BS_NULL, 0, 0);
    tool.Rectangle(0, 0, panel.width, panel.height);
    tool.SetFont1A(15, 0.0, kFace, 0.0);
    tool.SetTextAlign(TA_LEFT | TA_TOP);
    tool.TextOutA(8, panel.height - 6, panel.title);
    tool.SetScaleFactX(scaleX);
    tool.SetScaleFactY(-scaleY);
}

// A label centred under (x, y) in the current frame, in the small font.
void Label(CMoruDrawTool& tool, int x, int y, const char* text)
{
    tool.SetFont1A(13, 0.0, kFace, 0.0);
    tool.SetTextAlign(TA_CENTER | TA_TOP);
    tool.TextOutA(x, y, text);
}

// Rows are head positions 0, 1 and 2, columns kinds 0 (lines), 1 (filled
// head) and 2 (block arrow); every arrow points right from its start.
void DrawArrows(CMoruDrawTool& tool)
{
    UsePanel(tool, kArrows);
    tool.SetPen(PS_SOLID, 1, RGB(0, 0, 0));
    tool.SetBrush(BS_SOLID, RGB(90, 150, 230), 0);
    char label[16];
    for (int position = 0; position < 3; ++position) {
        for (int kind = 0; kind < 3; ++kind) {
            const int x = 25 + kind * 100, y = 185 - position * 70;
            const int style = 10 * position + kind;
            tool.Arrow(x, y, 70, -90.0, 16, kind == 2 ? 50.0 : 25.0, style);
            std::snprintf(label, sizeof label, "style %d", style);
            Label(tool, x + 35, y - 20, label);
        }
    }
}

// The same five circles of radius 36 under x scale 2, y scale 1: Circle
// scales its radius by ScaleFact, Circle2 and Circle3 take pixels, so they
// stay round; an Ellipse and an Arch of the same radius in virtual units
// stretch with the axes.
void DrawCircles(CMoruDrawTool& tool)
{
    UsePanel(tool, kCircles, 2.0, 1.0);
    tool.SetPen(PS_SOLID, 2, RGB(200, 40, 40));
    tool.SetBrush(BS_SOLID, RGB(255, 225, 225), 0);
    const int y = 120;
    tool.Circle(33, y, 36);
    tool.Circle2(79, y, 36);
    tool.Circle3(125, y, 36);
    tool.SetPen(PS_SOLID, 2, RGB(120, 120, 120));
    tool.SetBrush(BS_SOLID, RGB(235, 235, 235), 0);
    tool.Ellipse(185 - 36, y - 36, 185 + 36, y + 36);
    tool.Arch(272, y, 36, 0.0, 360.0);
    const char* names[5] = {"Circle", "Circle2", "Circle3", "Ellipse", "Arch 0-360"};
    const char* notes[5] = {"r x ScaleFact", "r in pixels", "2r + 1 pixels", "virtual box", "virtual radius"};
    const int xs[5] = {33, 79, 125, 185, 272};
    for (int i = 0; i < 5; ++i) {
        Label(tool, xs[i], y - 50, names[i]);
        Label(tool, xs[i], y - 70, notes[i]);
    }
    Label(tool, 79, 24, "round");
    Label(tool, 228, 24, "stretched");
}

void DrawArches(CMoruDrawTool& tool)
{
    UsePanel(tool, kArches);
    struct Span {
        double start, end;
        COLORREF color;
        const char* text;
    };
    const Span spans[4] = {
        {0.0, 90.0, RGB(200, 40, 40), "0 to 90"},
        {45.0, 180.0, RGB(40, 140, 40), "45 to 180"},
        {90.0, 300.0, RGB(40, 80, 200), "90 to 300"},
        {200.0, 30.0, RGB(160, 60, 160), "200 to 30"},
    };
    const int cx = 110, cy = 90;
    for (int i = 0; i < 4; ++i) {
        tool.SetPen(PS_SOLID, 3, spans[i].color);
        tool.Arch(cx, cy, 30 + 18 * i, spans[i].start, spans[i].end);
    }
    tool.SetPen(PS_SOLID, 1, RGB(0, 0, 0));
    tool.MoveTo(cx - 4, cy);
    tool.LineTo(cx + 5, cy);
    tool.MoveTo(cx, cy - 4);
    tool.LineTo(cx, cy + 5);
    tool.SetFont1A(13, 0.0, kFace, 0.0);
    tool.SetTextAlign(TA_LEFT | TA_TOP);
    for (int i = 0; i < 4; ++i) {
        tool.SetTextColor(spans[i].color);
        tool.TextOutA(218, 150 - 20 * i, spans[i].text);
    }
    tool.SetTextColor(RGB(0, 0, 0));
    tool.TextOutA(218, 60, "degrees,");
    tool.TextOutA(218, 44, "from +x");
    tool.TextOutA(218, 28, "toward +y");
}

void DrawPies(CMoruDrawTool& tool)
{
    UsePanel(tool, kPies);
    const double shares[5] = {0.30, 0.25, 0.20, 0.15, 0.10};
    const COLORREF colors[5] = {RGB(230, 90, 70), RGB(250, 190, 60), RGB(90, 180, 90), RGB(80, 140, 220),
                                RGB(170, 110, 200)};
    const int radius = 80;
    double start = 90.0;
    tool.SetPen(PS_SOLID, 1, RGB(60, 60, 60));
    for (int i = 0; i < 5; ++i) {
        const double end = start + 360.0 * shares[i];
        // The last slice is pulled out along its middle direction.
        const POINT c = Polar(105, 90, i == 4 ? 14.0 : 0.0, (start + end) / 2);
        const POINT a = Polar(c.x, c.y, 100, start), b = Polar(c.x, c.y, 100, end);
        tool.SetBrush(BS_SOLID, colors[i], 0);
        tool.Pie(c.x - radius, c.y - radius, c.x + radius, c.y + radius, a.x, a.y, b.x, b.y);
        start = end;
    }
    tool.SetFont1A(13, 0.0, kFace, 0.0);
    tool.SetTextAlign(TA_LEFT | TA_TOP);
    const char* texts[5] = {"30 %", "25 %", "20 %", "15 %", "10 %, apart"};
    for (int i = 0; i < 5; ++i) {
        tool.SetBrush(BS_SOLID, colors[i], 0);
        tool.Rectangle(200, 150 - 22 * i, 212, 138 - 22 * i);
        tool.TextOutA(218, 152 - 22 * i, texts[i]);
    }
}

void DrawBrushes(CMoruDrawTool& tool)
{
    UsePanel(tool, kBrushes);
    struct Swatch {
        UINT style;
        LONG hatch;
        const char* text;
    };
    const Swatch swatches[8] = {
        {BS_SOLID, 0, "BS_SOLID"},           {BS_HATCHED, HS_HORIZONTAL, "HS_HORIZONTAL"},
        {BS_HATCHED, HS_VERTICAL, "HS_VERTICAL"}, {BS_HATCHED, HS_FDIAGONAL, "HS_FDIAGONAL"},
        {BS_HATCHED, HS_BDIAGONAL, "HS_BDIAGONAL"}, {BS_HATCHED, HS_CROSS, "HS_CROSS"},
        {BS_HATCHED, HS_DIAGCROSS, "HS_DIAGCROSS"}, {BS_NULL, 0, "BS_NULL"},
    };
    tool.SetPen(PS_SOLID, 1, RGB(0, 0, 0));
    for (int i = 0; i < 8; ++i) {
        const int x = 14 + (i % 4) * 74, y = 160 - (i / 4) * 85;
        tool.SetBrush(swatches[i].style, RGB(30, 100, 190), swatches[i].hatch);
        tool.Rectangle(x, y, x + 62, y - 50);
        Label(tool, x + 31, y - 54, swatches[i].text + 3);
    }
}

// A hatched disc and a fan of lines clipped to a box with a hole; the
// clipping is undone by RestoreDC, which keeps the tool's pen and brush
// because they do not change in between.
void DrawClipping(CMoruDrawTool& tool)
{
    UsePanel(tool, kClipping);
    const RECT box = {40, 160, 270, 20}, hole = {120, 115, 190, 65};
    tool.SetPen(PS_SOLID, 2, RGB(30, 120, 60));
    tool.SetBrush(BS_HATCHED, RGB(30, 120, 60), HS_DIAGCROSS);
    const int saved = tool.SaveDC();
    tool.IntersectClipRect(&box);
    tool.ExcludeClipRect(&hole);
    tool.Circle(155, 90, 95);
    for (int angle = 0; angle < 180; angle += 12) {
        tool.MoveTo(Polar(155, 90, 200, angle + 180));
        tool.LineTo(Polar(155, 90, 200, angle));
    }
    tool.RestoreDC(saved);
    tool.SetPen(PS_DOT, 1, RGB(0, 0, 0));
    tool.SetBrush(BS_NULL, 0, 0);
    tool.Rectangle(&box);
    tool.Rectangle(&hole);
}

// Three lines in one PolyPolyline call: the tool maps every point the
// counts describe (23), not only as many as there are lines (3).
void DrawPolyPolyline(CMoruDrawTool& tool)
{
    UsePanel(tool, kPolyPolyline);
    POINT points[32];
    DWORD counts[3];
    int n = 0;
    // A five-pointed star, closed.
    for (int i = 0; i <= 5; ++i)
        points[n++] = Polar(70, 85, 55, 90 + 144 * i);
    counts[0] = 6;
    // A zig-zag.
    for (int i = 0; i < 7; ++i)
        points[n++] = POINT{150 + 22 * i, i % 2 ? 135 : 105};
    counts[1] = 7;
    // A square spiral.
    const int turns[10][2] = {{0, 0},   {70, 0},  {70, 60}, {10, 60}, {10, 10},
                              {60, 10}, {60, 50}, {20, 50}, {20, 20}, {50, 20}};
    for (const auto& turn : turns)
        points[n++] = POINT{190 + turn[0], 15 + turn[1]};
    counts[2] = 10;
    tool.SetPen(PS_SOLID, 2, RGB(180, 70, 20));
    const int answer = tool.PolyPolyline(points, counts, 3);
    char text[64];
    std::snprintf(text, sizeof text, "PolyPolyline(points, {6, 7, 10}, 3) = %d", answer);
    tool.SetFont1A(13, 0.0, kFace, 0.0);
    tool.SetTextAlign(TA_LEFT | TA_TOP);
    tool.TextOutA(8, 172, text);
    tool.TextOutA(8, 156, "three lines, 23 points, one call:");
}

// The same star filled twice: ALTERNATE leaves the centre empty, WINDING
// fills it; then a Bezier curve with its control polygon.
void DrawFill(CMoruDrawTool& tool)
{
    UsePanel(tool, kFill);
    tool.SetPen(PS_SOLID, 1, RGB(0, 0, 0));
    tool.SetBrush(BS_SOLID, RGB(250, 200, 80), 0);
    const int modes[2] = {ALTERNATE, WINDING};
    const char* names[2] = {"ALTERNATE", "WINDING"};
    for (int m = 0; m < 2; ++m) {
        POINT star[5];
        for (int i = 0; i < 5; ++i)
            star[i] = Polar(55 + 100 * m, 110, 45, 90 + 144 * i);
        tool.SetPolyFillMode(modes[m]);
        tool.Polygon(star, 5);
        Label(tool, 55 + 100 * m, 58, names[m]);
    }
    const POINT bezier[4] = {{215, 30}, {225, 170}, {290, 20}, {295, 150}};
    tool.SetPen(PS_DOT, 1, RGB(130, 130, 130));
    tool.MoveTo(bezier[0]);
    tool.PolylineTo(bezier + 1, 3);
    tool.SetPen(PS_SOLID, 3, RGB(40, 80, 200));
    tool.PolyBezier(bezier, 4);
}

} // namespace

void DrawShapesPage(CDC& dc)
{
    CMoruDrawTool* tool = CreateDrawTool(nullptr, &dc);
    if (!tool)
        return;
    tool->SetScaleFact(1.0);  // fonts and Circle radii in pixels
    RECT area = {0, 0, kShapesWidth, kShapesHeight};
    tool->Initialize(&area, 0);
    tool->SetFontWeight(FW_BOLD);
    tool->SetFont1A(21, 0.0, kFace, 0.0);
    tool->SetFontWeight(0);
    tool->TextOutA(20, 14, "Shapes: arrows, circles, arches, pies, brushes, clipping, PolyPolyline");

    DrawArrows(*tool);
    DrawCircles(*tool);
    DrawArches(*tool);
    DrawPies(*tool);
    DrawBrushes(*tool);
    DrawClipping(*tool);
    DrawPolyPolyline(*tool);
    DrawFill(*tool);
    tool->Finalize();
    DestroyDrawTool(tool);
}
