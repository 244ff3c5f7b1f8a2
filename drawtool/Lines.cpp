// Lines and paths: every point is mapped per axis (the "2" calls: uniformly)
// and handed to the DC in one call. Point lists go through one private heap
// copy per call, released on every path by its owner.
#include "drawtool/Device.h"
#include "drawtool/DrawTool.h"
#include "drawtool/Mapping.h"

#include <algorithm>
#include <climits>
#include <memory>

namespace {

/// GDI gets long polylines in runs of at most this many points plus the
/// first point of the next run, so that consecutive runs meet.
constexpr int kRunLength = 15000;

/// The heap the point copies come from: the module's own, so that a block
/// freed after one call is reused, still mapped and warm, by the next. The
/// process heap and the C runtime's give a block of this size fresh pages
/// each time, which under Wine costs more than mapping the points. Made on
/// first use and destroyed when the module unloads; the process heap stands
/// in if it cannot be made.
class PointHeap {
public:
    PointHeap() : m_heap(::HeapCreate(0, 0, 0)) {}
    ~PointHeap()
    {
        if (m_heap)
            ::HeapDestroy(m_heap);
    }
    PointHeap(const PointHeap&) = delete;
    PointHeap& operator=(const PointHeap&) = delete;
    HANDLE Handle() const { return m_heap ? m_heap : ::GetProcessHeap(); }

private:
    HANDLE m_heap;
};

HANDLE PointHeapHandle()
{
    static const PointHeap heap;
    return heap.Handle();
}

struct FreePoints {
    void operator()(POINT* points) const { ::HeapFree(PointHeapHandle(), 0, points); }
};
using PointBlock = std::unique_ptr<POINT[], FreePoints>;

/// A heap block of `count` points (every one is written before GDI reads
/// it, so none is cleared first), or null when it cannot be had.
PointBlock AllocatePoints(int count)
{
    const size_t bytes = sizeof(POINT) * static_cast<size_t>(count);
    return PointBlock(static_cast<POINT*>(::HeapAlloc(PointHeapHandle(), 0, bytes)));
}

/// The point-array pattern: below two points (or without points) nothing is
/// drawn; otherwise the mapped copy goes to `draw` and its answer comes back.
template <class Draw>
int DrawMapped(const CoordinateFrame& frame, const POINT* points, int count, Draw draw)
{
    if (count < 2 || !points)
        return 0;
    const PointBlock copy = AllocatePoints(count);
    if (!copy)
        return 0;
    MapPoints(frame, points, count, copy.get());
    return draw(copy.get());
}

} // namespace

CPoint CMoruDrawTool::MoveTo(int x, int y) { return DeviceOf(m_dc).MoveTo(MapX(m_frame, x), MapY(m_frame, y)); }
CPoint CMoruDrawTool::MoveTo(POINT point) { return MoveTo(point.x, point.y); }
CPoint CMoruDrawTool::MoveTo2(int x, int y) { return DeviceOf(m_dc).MoveTo(MapX2(m_frame, x), MapY2(m_frame, y)); }
CPoint CMoruDrawTool::MoveTo2(POINT point) { return MoveTo2(point.x, point.y); }
int CMoruDrawTool::LineTo(int x, int y) { return DeviceOf(m_dc).LineTo(MapX(m_frame, x), MapY(m_frame, y)); }
int CMoruDrawTool::LineTo(POINT point) { return LineTo(point.x, point.y); }
int CMoruDrawTool::LineTo2(int x, int y) { return DeviceOf(m_dc).LineTo(MapX2(m_frame, x), MapY2(m_frame, y)); }
int CMoruDrawTool::LineTo2(POINT point) { return LineTo2(point.x, point.y); }

int CMoruDrawTool::Polyline(POINT* points, int count)
{
    CDC& dc = DeviceOf(m_dc);
    if (count <= kRunLength)
        return DrawMapped(m_frame, points, count, [&](const POINT* copy) { return dc.Polyline(copy, count); });
    if (!points)
        return 0;

    // Runs = count / 15000 rounded up. One block serves every run.
    const double quotient = count / static_cast<double>(kRunLength);
    int runs = static_cast<int>(quotient);
    if (quotient > runs)
        ++runs;
    const PointBlock run = AllocatePoints(kRunLength + 1);
    if (!run)
        return 0;
    int result = 0;
    for (int r = 0; r < runs; ++r) {
        const int first = r * kRunLength;
        int filled = std::min(kRunLength, count - first);
        MapPoints(m_frame, points + first, filled, run.get());
        if (r < runs - 1)
            run[filled++] = MapPoint(m_frame, points[first + kRunLength]);
        // Earlier runs' answers are dropped on purpose: the last run decides.
        result = dc.Polyline(run.get(), filled);
    }
    return result;
}

int CMoruDrawTool::PolylineTo(const POINT* points, int count)
{
    CDC& dc = DeviceOf(m_dc);
    return DrawMapped(m_frame, points, count, [&](const POINT* copy) { return dc.PolylineTo(copy, count); });
}

int CMoruDrawTool::Polygon(POINT* points, int count)
{
    CDC& dc = DeviceOf(m_dc);
    return DrawMapped(m_frame, points, count, [&](const POINT* copy) { return dc.Polygon(copy, count); });
}

int CMoruDrawTool::PolyBezier(const POINT* points, int count)
{
    CDC& dc = DeviceOf(m_dc);
    return DrawMapped(m_frame, points, count, [&](const POINT* copy) { return dc.PolyBezier(copy, count); });
}

int CMoruDrawTool::PolyBezierTo(const POINT* points, int count)
{
    CDC& dc = DeviceOf(m_dc);
    return DrawMapped(m_frame, points, count, [&](const POINT* copy) { return dc.PolyBezierTo(copy, count); });
}

int CMoruDrawTool::PolyDraw(const POINT* points, const BYTE* types, int count)
{
    if (!types)
        return 0;
    CDC& dc = DeviceOf(m_dc);
    return DrawMapped(m_frame, points, count, [&](const POINT* copy) { return dc.PolyDraw(copy, types, count); });
}

int CMoruDrawTool::PolyPolyline(const POINT* points, const DWORD* polyCounts, int count)
{
    // `count` (the number of polylines) sizes the copy, kept so on purpose.
    // When the polylines described add up to more points, all of them are
    // mapped, so that GDI draws what the host described and never reads past
    // the copy. The sum stops growing once it passes the cap.
    if (count < 2 || !polyCounts)
        return 0;
    unsigned long long total = 0;
    for (int i = 0; i < count && total <= kMaxPolyPolylinePoints; ++i)
        total += polyCounts[i];
    if (total > kMaxPolyPolylinePoints)
        return 0;
    const int mapped = std::max(count, static_cast<int>(total));
    CDC& dc = DeviceOf(m_dc);
    return DrawMapped(m_frame, points, mapped,
                      [&](const POINT* copy) { return dc.PolyPolyline(copy, polyCounts, count); });
}
