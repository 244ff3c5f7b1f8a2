// The gallery's pages. Each draws on the host's DC through the drawing tool
// only, on a white page of its own size in pixels that the caller has
// cleared (a DIB or an enhanced metafile).
#pragma once

#include "ChartModel.h"

#include <drawtool/DrawTool.h>

/// Page 1, ChartModel::kWidth x kHeight: the technical chart.
void DrawChartPage(CDC& dc, const ChartModel& chart);

/// Page 2: arrows, circles under unequal scales, arches, pies, brushes,
/// clipping and PolyPolyline.
constexpr int kShapesWidth = 1000;
constexpr int kShapesHeight = 760;
void DrawShapesPage(CDC& dc);

/// Page 3: a local metric grid around a reference position on a
/// latitude/longitude graticule.
constexpr int kMapWidth = 900;
constexpr int kMapHeight = 760;
void DrawMapPage(CDC& dc);
