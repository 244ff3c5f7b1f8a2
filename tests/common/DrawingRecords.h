// The drawing calls a metafile DC received, one line of text per call with
// its device coordinates, for comparison with a commented table of expected
// lines. Object, mode and state records are left out.
#pragma once

#include "common/EmfRecording.h"
#include "drawtool/DrawTool.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <cstring>
#include <sstream>
#include <string>
#include <vector>

namespace drawing_records {

inline void AppendPoints(std::ostringstream& text, const std::vector<POINT>& points)
{
    text << " " << points.size() << ":";
    for (const POINT& p : points)
        text << " " << p.x << "," << p.y;
}

/// Points stored after a record's fixed part, as POINTL or (16-bit) POINTS.
inline std::vector<POINT> PointsAt(const BYTE* first, DWORD count, bool small)
{
    std::vector<POINT> result;
    for (DWORD i = 0; i < count; ++i) {
        if (small) {
            POINTS p;
            std::memcpy(&p, first + i * sizeof p, sizeof p);
            result.push_back(POINT{p.x, p.y});
        } else {
            POINTL p;
            std::memcpy(&p, first + i * sizeof p, sizeof p);
            result.push_back(POINT{p.x, p.y});
        }
    }
    return result;
}

// EMRPOLYPOLYLINE(16): header, bounds, nPolys, count, nPolys counts, points.
inline std::vector<POINT> PolyPolyPoints(const EmfRecord& record, std::vector<DWORD>& counts)
{
    const auto head = record.As<EMRPOLYPOLYLINE>();
    const BYTE* countsAt = record.bytes.data() + offsetof(EMRPOLYPOLYLINE, aPolyCounts);
    counts.resize(head.nPolys);
    std::memcpy(counts.data(), countsAt, head.nPolys * sizeof(DWORD));
    return PointsAt(countsAt + head.nPolys * sizeof(DWORD), head.cptl, record.type == EMR_POLYPOLYLINE16);
}

// EMRPOLYDRAW(16): header, bounds, count, points, one type byte per point.
inline std::vector<POINT> PolyDrawPoints(const EmfRecord& record, std::vector<BYTE>& types)
{
    const bool small = record.type == EMR_POLYDRAW16;
    const DWORD count = record.As<EMRPOLYDRAW>().cptl;
    const BYTE* pointsAt = record.bytes.data() + offsetof(EMRPOLYDRAW, aptl);
    const BYTE* typesAt = pointsAt + count * (small ? sizeof(POINTS) : sizeof(POINTL));
    types.assign(typesAt, typesAt + count);
    return PointsAt(pointsAt, count, small);
}

} // namespace drawing_records

/// "LINETO 10 20", "ELLIPSE -20 -20 19 19" (the box as stored: inclusive),
/// "POLYLINE 3: 0,0 1,1 2,2" (16-bit forms named without the 16),
/// "POLYDRAW 2: 0,0 1,1 types 6 2", "BITBLT x y cx cy rop hex", "OPAQUE box"
/// (the opaque box of a text-out, as FillSolidRect makes), or an empty text
/// for a record that draws nothing.
inline std::string DescribeDrawing(const EmfRecord& record)
{
    using namespace drawing_records;
    std::ostringstream text;
    auto box = [&](const RECTL& r) { text << " " << r.left << " " << r.top << " " << r.right << " " << r.bottom; };
    switch (record.type) {
    case EMR_MOVETOEX: case EMR_LINETO: {
        const auto r = record.As<EMRLINETO>();
        text << RecordTypeName(record.type) << " " << r.ptl.x << " " << r.ptl.y;
        break;
    }
    case EMR_RECTANGLE: case EMR_ELLIPSE:
        text << RecordTypeName(record.type);
        box(record.As<EMRELLIPSE>().rclBox);
        break;
    case EMR_ARC: case EMR_ARCTO: case EMR_PIE: case EMR_CHORD: {
        const auto r = record.As<EMRARC>();
        text << RecordTypeName(record.type);
        box(r.rclBox);
        text << " " << r.ptlStart.x << " " << r.ptlStart.y << " " << r.ptlEnd.x << " " << r.ptlEnd.y;
        break;
    }
    case EMR_ANGLEARC: {
        const auto r = record.As<EMRANGLEARC>();
        text << "ANGLEARC " << r.ptlCenter.x << " " << r.ptlCenter.y << " " << r.nRadius << " " << r.eStartAngle
             << " " << r.eSweepAngle;
        break;
    }
    case EMR_POLYLINE: case EMR_POLYGON: case EMR_POLYBEZIER: case EMR_POLYBEZIERTO: case EMR_POLYLINETO:
    case EMR_POLYLINE16: case EMR_POLYGON16: case EMR_POLYBEZIER16: case EMR_POLYBEZIERTO16: case EMR_POLYLINETO16: {
        std::string name = RecordTypeName(record.type);
        if (name.size() > 2 && name.compare(name.size() - 2, 2, "16") == 0)
            name.resize(name.size() - 2);
        text << name;
        AppendPoints(text, RecordPoints(record));
        break;
    }
    case EMR_POLYPOLYLINE: case EMR_POLYPOLYLINE16: {
        std::vector<DWORD> counts;
        const std::vector<POINT> points = PolyPolyPoints(record, counts);
        text << "POLYPOLYLINE";
        AppendPoints(text, points);
        text << " counts";
        for (DWORD c : counts)
            text << " " << c;
        break;
    }
    case EMR_POLYDRAW: case EMR_POLYDRAW16: {
        std::vector<BYTE> types;
        const std::vector<POINT> points = PolyDrawPoints(record, types);
        text << "POLYDRAW";
        AppendPoints(text, points);
        text << " types";
        for (BYTE t : types)
            text << " " << static_cast<int>(t);
        break;
    }
    case EMR_EXCLUDECLIPRECT: case EMR_INTERSECTCLIPRECT:
        text << RecordTypeName(record.type);
        box(record.As<EMREXCLUDECLIPRECT>().rclClip);
        break;
    case EMR_EXTFLOODFILL: {
        const auto r = record.As<EMREXTFLOODFILL>();
        text << "EXTFLOODFILL " << r.ptlStart.x << " " << r.ptlStart.y << " " << std::hex << r.crColor << std::dec
             << " " << r.iMode;
        break;
    }
    case EMR_BITBLT: {
        const auto r = record.As<EMRBITBLT>();
        text << "BITBLT " << r.xDest << " " << r.yDest << " " << r.cxDest << " " << r.cyDest << " rop " << std::hex
             << r.dwRop;
        break;
    }
    case EMR_EXTTEXTOUTA: case EMR_EXTTEXTOUTW: {
        const auto r = record.As<EMREXTTEXTOUTW>();
        text << "OPAQUE";
        box(r.emrtext.rcl);
        break;
    }
    default: break;
    }
    return text.str();
}

/// The drawing calls of `records` described, in order.
inline std::vector<std::string> DrawingCalls(const std::vector<EmfRecord>& records)
{
    std::vector<std::string> calls;
    for (const EmfRecord& record : records) {
        std::string line = DescribeDrawing(record);
        if (!line.empty())
            calls.push_back(std::move(line));
    }
    return calls;
}

/// "    \"LINETO 1 2\",\n" per line: a table ready to paste as expected.
inline std::string DumpCalls(const std::vector<std::string>& calls)
{
    std::string table;
    for (const std::string& line : calls)
        table += "    \"" + line + "\",\n";
    return table;
}

/// A tool initialized (mode 0) on a metafile DC with a per-axis frame;
/// Finish() finalizes it and returns the records.
struct RecordingTool {
    EmfRecorder recorder;
    CMoruDrawTool tool{nullptr, &recorder.Dc()};

    explicit RecordingTool(double scaleX = 1.0, double scaleY = 1.0, double offsetX = 0.0, double offsetY = 0.0)
    {
        tool.SetScaleFactX(scaleX);
        tool.SetScaleFactY(scaleY);
        tool.SetOffsetX(offsetX);
        tool.SetOffsetY(offsetY);
        tool.Initialize(nullptr, 0);
    }
    std::vector<EmfRecord> Finish()
    {
        tool.Finalize();
        return recorder.Finish();
    }
};

/// The drawing calls recorded equal `expected`, line for line.
inline void ExpectDrawingCalls(const std::vector<std::string>& expected, const std::vector<EmfRecord>& records)
{
    const std::vector<std::string> got = DrawingCalls(records);
    EXPECT_EQ(expected, got) << "expected:\n" << DumpCalls(expected) << "recorded:\n" << DumpCalls(got);
}
