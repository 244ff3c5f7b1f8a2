// The virtual-to-device mapping rules. Every drawing method maps through
// these, so a rule cannot drift between methods: the product is formed, the
// offset added, and the sum rounded by RoundToInt (RoundHalfAway for text
// and ticks).
#pragma once

#include "drawtool/DrawTool.h"
#include "support/numeric/Rounding.h"

inline int MapX(const CoordinateFrame& frame, double x) { return RoundToInt(x * frame.scaleFactX + frame.offsetX); }
inline int MapY(const CoordinateFrame& frame, double y) { return RoundToInt(y * frame.scaleFactY + frame.offsetY); }
inline int MapX2(const CoordinateFrame& frame, double x) { return RoundToInt(x * frame.scaleFact + frame.offsetX); }
inline int MapY2(const CoordinateFrame& frame, double y) { return RoundToInt(y * frame.scaleFact + frame.offsetY); }

/// A virtual point mapped per axis.
inline POINT MapPoint(const CoordinateFrame& frame, POINT point)
{
    return POINT{MapX(frame, point.x), MapY(frame, point.y)};
}

/// `count` virtual points mapped per axis into `to`: a vectorised form of
/// MapPoint that gives exactly its results for every frame and point, by
/// construction (each lane applies RoundToInt's whole rule, including NaN,
/// the infinities, the ends of the 32-bit range and the sums just below a
/// power of two), so identical points always land on identical pixels.
void MapPoints(const CoordinateFrame& frame, const POINT* from, int count, POINT* to);
/// The two forms MapPoints chooses between, by what the processor offers:
/// two lanes (SSE2, every x64 processor) or four (AVX). Same results.
void MapPointsTwoLanes(const CoordinateFrame& frame, const POINT* from, int count, POINT* to);
void MapPointsFourLanes(const CoordinateFrame& frame, const POINT* from, int count, POINT* to);

/// The rule of text positions and tick starts: per axis, but rounded half
/// away from zero instead of by RoundToInt.
inline int MapHalfAwayX(const CoordinateFrame& frame, double x) { return RoundHalfAway(x * frame.scaleFactX + frame.offsetX); }
inline int MapHalfAwayY(const CoordinateFrame& frame, double y) { return RoundHalfAway(y * frame.scaleFactY + frame.offsetY); }

/// A virtual rectangle mapped corner by corner, not put in order.
inline RECT MapRect(const CoordinateFrame& frame, const RECT& rect)
{
    return RECT{MapX(frame, rect.left), MapY(frame, rect.top), MapX(frame, rect.right), MapY(frame, rect.bottom)};
}
