/*
 * The test chart of the C interface, valid C89 and C++. The C host draws it
 * through the module's C functions, the interface test through the class;
 * both through a table of functions with the C signatures, so that the
 * chart is written once. The values the calls return are appended to `out`.
 */
#ifndef DRAWTOOL_TEST_CHART_H
#define DRAWTOOL_TEST_CHART_H

#include <stdio.h>

#include "drawtool/DrawToolC.h"

#define CHART_WIDTH 160
#define CHART_HEIGHT 120

#define CHART_MEMBER(Ret, Name, Method, Params, Args) Ret(*Name) Params;
typedef struct ChartCalls {
    DRAWTOOL_METHODS(CHART_MEMBER)
    DrawToolHandle (*Create)(HWND wnd, HDC dc);
    void (*Destroy)(DrawToolHandle tool);
} ChartCalls;
#undef CHART_MEMBER

static void DrawChart(const ChartCalls* c, HDC dc, char* out)
{
    static const wchar_t label[] = {'T', 'e', 'm', 'p', ' ', 0x00B0, 'C', 0};
    static RECT area = {0, 0, CHART_WIDTH, CHART_HEIGHT}, plot = {0, 0, 45, 70}, key = {2, 2, 8, 8};
    static RECT pie = {30, 50, 44, 64}, note = {0, 75, 40, 95};
    static POINT curve[5] = {{0, 10}, {10, 40}, {20, 25}, {30, 60}, {40, 50}};
    static const POINT origin = {0, 0}, start = {44, 57}, end = {37, 64}, centre = {25, 15};
    int weight = -1, italic = -1;
    DrawToolHandle t = c->Create(NULL, dc);
    POINT p;

    c->SetScaleFact(t, 0.5);
    c->SetScaleFactX(t, 3.0);
    c->SetScaleFactY(t, 1.5);
    c->SetOffsetX(t, 15.0);
    c->SetOrgY(t, 110);
    c->Initialize(t, &area, 1);
    out += sprintf(out, "scales %.17g %.17g\n", c->GetScaleFactY(t), c->GetScaleFact2(t));
    c->SetPen(t, PS_SOLID, 1, RGB(0, 0, 255));
    c->SetBrush(t, BS_SOLID, RGB(255, 255, 160), 0);
    c->RectangleRect(t, &plot);
    c->FillRect(t, &key, (HBRUSH)GetStockObject(GRAY_BRUSH));
    c->SetPen(t, PS_SOLID, 2, RGB(255, 0, 0));
    out += sprintf(out, "pen %06lx polyline %d\n", (unsigned long)c->GetPenColor(t), c->Polyline(t, curve, 5));
    p = c->MoveToPt(t, origin);
    out += sprintf(out, "moved from %ld,%ld line %d\n", (long)p.x, (long)p.y, c->LineTo(t, 45, 0));
    p = c->DrawTickPt(t, centre, 8, 0);
    out += sprintf(out, "tick %ld,%ld\n", (long)p.x, (long)p.y);
    c->Arrow(t, 0, 0, 30, -60.0, 8, 20.0, 12);
    c->SetPen(t, PS_SOLID, 1, RGB(0, 128, 0));
    out += sprintf(out, "circle %d\n", c->CirclePt(t, centre, 20));
    out += sprintf(out, "pie %d\n", c->PieRect(t, &pie, start, end));
    out += sprintf(out, "arch %d\n", c->Arch(t, 25, 15, 12, 0.0, 90.0));
    c->SetFontStyle(t, FW_BOLD, 0);
    c->SetFont1A(t, 24, 0.0, "Arial", 0.0);
    c->GetFontStyle(t, &weight, &italic);
    out += sprintf(out, "font style %d %d width %.17g\n", weight, italic, c->GetTextWidthA(t, "p = 5 bar"));
    out += sprintf(out, "align %u\n", c->SetTextAlignEx(t, TA_BASELINE | TA_LEFT));
    c->SetTextColor(t, RGB(128, 0, 128));
    out += sprintf(out, "text %d\n", c->TextOutA(t, 2, 68, "p = 5 bar"));
    out += sprintf(out, "text w %d\n", c->TextOutPtW(t, start, label));
    out += sprintf(out, "draw text %d\n", c->DrawTextA(t, "max", &note, DT_LEFT | DT_SINGLELINE));
    c->Finalize(t);
    c->Destroy(t);
}

#endif
