// Records what a DC really receives: an enhanced-metafile DC whose records
// are read back with EnumEnhMetaFile after drawing.
#pragma once

#include "framework/afxwin.h"

#include <cstring>
#include <string>
#include <vector>

struct EmfRecord {
    DWORD type = 0;
    std::vector<BYTE> bytes;  ///< the whole record, ENHMETARECORD header first

    /// The record viewed as one of the EMR* structures.
    template <class T>
    T As() const
    {
        T value{};
        std::memcpy(&value, bytes.data(), std::min(sizeof(T), bytes.size()));
        return value;
    }
};

/// A metafile DC wrapped in a CDC. Finish() closes it and returns its records
/// (without the header and end-of-file records).
class EmfRecorder {
public:
    EmfRecorder();
    ~EmfRecorder();
    CDC& Dc() { return m_dc; }
    std::vector<EmfRecord> Finish();

private:
    CDC m_dc;
    HENHMETAFILE m_closed = nullptr;
};

/// The records of one type, in order.
std::vector<EmfRecord> RecordsOfType(const std::vector<EmfRecord>& records, DWORD type);
/// The record types in order, as EMR_ names: "SELECTOBJECT, LINETO, ...".
std::string DumpRecordTypes(const std::vector<EmfRecord>& records);
/// The name of an EMR_ record type ("EMR_LINETO" is "LINETO").
std::string RecordTypeName(DWORD type);
/// One line per record with its main arguments, for table comparisons:
/// "SETVIEWPORTORGEX 0 310", "CREATEPEN 1 style 0 width 0 color 0x000000",
/// "SELECTOBJECT stock 7", "EXTCREATEFONTINDIRECTW 2 height 50 ...".
std::string DescribeRecord(const EmfRecord& record);
std::vector<std::string> DescribeRecords(const std::vector<EmfRecord>& records);
/// The points of an EMR_POLYLINE/POLYGON/POLYBEZIER(TO)/POLYLINETO record,
/// 32-bit or 16-bit form.
std::vector<POINT> RecordPoints(const EmfRecord& record);
/// "(x, y) (x, y) ..." for a failure message.
std::string DumpPoints(const std::vector<POINT>& points);
