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

/// A metafile DC wrapped in a CDC. Finish() closes it and returns its records
/// (without the header and end-of-file records).
struct EmfRecorder {
    EmfRecorder() { m_dc.Attach(::CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr)); }
    ~EmfRecorder() { Finish(); }
    CDC& Dc() { return m_dc; }
    std::vector<EmfRecord> Finish();
    CDC m_dc;
};

/// The records of one type, in order.
/// The records of a metafile without its header and end, in order; the
/// metafile handle is deleted (a null handle gives none).
std::vector<EmfRecord> ReadRecords(HENHMETAFILE file);

inline std::vector<EmfRecord> RecordsOfType(std::vector<EmfRecord> records, DWORD type)
{
    records.erase(std::remove_if(records.begin(), records.end(), [&](auto& r) { return r.type != type; }), records.end());
    return records;
}
/// One line per record with its arguments: "SETVIEWPORTORGEX 0 310",
/// "CREATEPEN 1 style 0 width 0 color 0x000000", "SELECTOBJECT stock 7",
/// "ELLIPSE -20 -20 19 19" (boxes as stored: inclusive), "POLYLINE 3: 0,0
/// 1,1 2,2" (16-bit forms named without the 16), "BITBLT x y cx cy rop hex",
/// "EXTTEXTOUTW l t r b" (the opaque box).
std::string DescribeRecord(const EmfRecord& record);
/// `drawing`: object, mode and state records left out.
std::vector<std::string> DescribeRecords(const std::vector<EmfRecord>& records, bool drawing = false);
inline std::string DescribePoint(POINT p) { return std::to_string(p.x) + "," + std::to_string(p.y); }

/// The drawing calls of `records` equal the table `{"LINETO 1 2", ...}`;
/// a failure prints both tables.
using Calls = std::vector<std::string>;
#define EXPECT_DRAWS(records, ...) EXPECT_EQ((Calls __VA_ARGS__), DescribeRecords(records, true))

/// A tool initialized (mode 0) on a metafile DC with the frame given; Frame()
/// changes it between calls.
struct RecordingTool {
    EmfRecorder recorder;
    CMoruDrawTool tool{nullptr, &recorder.Dc()};

    explicit RecordingTool(double scaleX = 1.0, double scaleY = 1.0, double offsetX = 0.0, double offsetY = 0.0,
                           double scaleFact = 1.0) { Frame(scaleX, scaleY, offsetX, offsetY, scaleFact); tool.Initialize(nullptr, 0); }
    void Frame(double scaleX, double scaleY, double offsetX = 0.0, double offsetY = 0.0, double scaleFact = 1.0)
    {
        tool.SetScaleFact(scaleFact);
        tool.SetScaleFactX(scaleX);
        tool.SetScaleFactY(scaleY);
        tool.SetOffsetX(offsetX);
        tool.SetOffsetY(offsetY);
    }
    std::vector<EmfRecord> Finish() { tool.Finalize(); return recorder.Finish(); }
};
