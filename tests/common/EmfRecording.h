// Records what a DC really receives: an enhanced-metafile DC whose records
// are read back after drawing and described one line per record, for
// comparison with tables of expected lines.
#pragma once

#include "drawtool/DrawTool.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <cstring>
#include <string>
#include <vector>

struct EmfRecord {
    DWORD type = 0;
    std::vector<BYTE> bytes;  ///< the whole record, ENHMETARECORD header first

    /// The record viewed, from byte `offset` on, as one of the EMR* structures
    /// or a field of one (zeros past its end).
    template <class T>
    T As(size_t offset = 0) const
    {
        T value{};
        if (offset < bytes.size())
            std::memcpy(&value, bytes.data() + offset, std::min(sizeof(T), bytes.size() - offset));
        return value;
    }
};

/// The records of a metafile without its header and end, in order; the
/// metafile handle is deleted.
std::vector<EmfRecord> ReadRecords(HENHMETAFILE file);

/// A metafile DC wrapped in a CDC. Finish() closes it and returns its records.
struct EmfRecorder {
    EmfRecorder() { m_dc.Attach(::CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr)); }
    ~EmfRecorder() { Finish(); }
    CDC& Dc() { return m_dc; }
    std::vector<EmfRecord> Finish()
    {
        return m_dc.m_hDC ? ReadRecords(::CloseEnhMetaFile(m_dc.Detach())) : std::vector<EmfRecord>{};
    }
    CDC m_dc;
};

/// One line per record: its name and its values in decimal, as stored (boxes
/// inclusive, colours 0x00BBGGRR): "SETVIEWPORTORGEX 0 310", "CREATEPEN id
/// style width 0 color", "CREATEBRUSHINDIRECT id style color hatch",
/// "EXTCREATEFONTINDIRECTW id height width escapement orientation weight",
/// "SELECTOBJECT stock 7", "ANGLEARC x y radius", "BITBLT x y cx cy rop",
/// "EXTTEXTOUTW" and its opaque box, point lists as "POLYLINE 3: 0,0 1,1 2,2"
/// (16-bit forms named without the 16). `drawing`: object, mode and state
/// records left out.
std::vector<std::string> DescribeRecords(const std::vector<EmfRecord>& records, bool drawing = false);
inline std::string DescribePoint(POINT p) { return std::to_string(p.x) + "," + std::to_string(p.y); }

/// The drawing calls of `records` equal the table `{"LINETO 1 2", ...}`.
using Calls = std::vector<std::string>;
#define EXPECT_DRAWS(records, ...) EXPECT_EQ((Calls __VA_ARGS__), DescribeRecords(records, true))

/// A tool initialized (mode 0) on a metafile DC with the frame given; Frame()
/// changes it between calls.
struct RecordingTool {
    EmfRecorder recorder;
    CMoruDrawTool tool{nullptr, &recorder.Dc()};

    explicit RecordingTool(double scaleX = 1.0, double scaleY = 1.0, double offsetX = 0.0, double offsetY = 0.0,
                           double scaleFact = 1.0)
    {
        Frame(scaleX, scaleY, offsetX, offsetY, scaleFact);
        tool.Initialize(nullptr, 0);
    }
    void Frame(double scaleX, double scaleY, double offsetX = 0.0, double offsetY = 0.0, double scaleFact = 1.0)
    {
        tool.SetScaleFact(scaleFact);
        tool.SetScaleFactX(scaleX);
        tool.SetScaleFactY(scaleY);
        tool.SetOffsetX(offsetX);
        tool.SetOffsetY(offsetY);
    }
    std::vector<EmfRecord> Finish()
    {
        tool.Finalize();
        return recorder.Finish();
    }
};
