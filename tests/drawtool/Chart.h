/*
 * The test chart of the C interface, valid C89 and C++. The C host draws it
 * through the module's C functions, the interface test through the class;
 * both through a table of functions with the C signatures, so that the
 * chart is written once. The values the calls return are written to `out`.
 */
#ifndef DRAWTOOL_TEST_CHART_H
#define DRAWTOOL_TEST_CHART_H

#include <stdio.h>

#include "drawtool/DrawToolC.h"

#define CHART_MEMBER(Ret, Name, Method, Params, Args) Ret(*Name) Params;
typedef struct ChartCalls {
    DRAWTOOL_METHODS(CHART_MEMBER)
} ChartCalls;
#undef CHART_MEMBER

static void DrawChart(const ChartCalls* c, DrawToolHandle t, char* out)
{
    static const wchar_t label[] = {'T', ' ', 0x00B0, 'C', 0};
    static RECT area = {0, 0, 160, 120}, plot = {0, 0, 45, 70};
    static POINT curve[3] = {{0, 10}, {10, 40}, {20, 25}};
    static const POINT centre = {25, 15}, end = {37, 64};
    int weight = -1;
    POINT p, q;

    c->SetScaleFactX(t, 3.0);
    c->SetOffsetX(t, 15.0);
    c->Initialize(t, &area, 1);
    c->SetPen(t, PS_SOLID, 2, RGB(255, 0, 0));
    c->FillRect(t, &plot, (HBRUSH)GetStockObject(GRAY_BRUSH));
    p = c->MoveToPt(t, centre);
    q = c->DrawTickPt(t, centre, 8, 0);
    c->SetFont1A(t, 24, 0.0, "Arial", 0.0);
    c->GetFontStyle(t, &weight, NULL);
    out += sprintf(out, "%ld,%ld %ld,%ld %d %06lx %d%d%d", (long)p.x, (long)p.y, (long)q.x, (long)q.y, weight,
                   (unsigned long)c->GetPenColor(t), !c->GetPen(t), !c->GetBrush(t), !c->GetFont(t));
    out += sprintf(out, " %d %d", c->Polyline(t, curve, 3), c->AngleArc(t, 25, 15, 12, 10.0f, 90.0f));
    out += sprintf(out, " %.17g %u", c->GetTextWidthA(t, "p = 5 bar"), c->SetTextAlignEx(t, TA_BASELINE));
    sprintf(out, " %d\n", c->TextOutPtW(t, end, label));
    c->Finalize(t);
}

#endif
