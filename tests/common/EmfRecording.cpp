#include "common/EmfRecording.h"

#include <cstdio>
#include <iterator>

EmfRecorder::EmfRecorder() { m_dc.Attach(::CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr)); }

EmfRecorder::~EmfRecorder() { Finish(); }

std::vector<EmfRecord> EmfRecorder::Finish()
{
    std::vector<EmfRecord> records;
    if (!m_dc.m_hDC)
        return records;
    const HENHMETAFILE file = ::CloseEnhMetaFile(m_dc.Detach());
    ::EnumEnhMetaFile(nullptr, file, [](HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM out) -> int {
        const BYTE* bytes = reinterpret_cast<const BYTE*>(record);
        if (record->iType != EMR_HEADER && record->iType != EMR_EOF)
            reinterpret_cast<std::vector<EmfRecord>*>(out)->push_back({record->iType, {bytes, bytes + record->nSize}});
        return 1;
    }, &records, nullptr);
    ::DeleteEnhMetaFile(file);
    return records;
}

namespace {

#define NAME(t) {EMR_##t, #t}
const std::pair<DWORD, const char*> kNames[] = {
    NAME(SETVIEWPORTORGEX), NAME(SETBKCOLOR), NAME(SETTEXTCOLOR), NAME(SETBKMODE), NAME(SETTEXTALIGN),
    NAME(SELECTOBJECT), NAME(DELETEOBJECT), NAME(CREATEPEN), NAME(CREATEBRUSHINDIRECT), NAME(EXTCREATEFONTINDIRECTW),
    // The ten above select, create or set state; those below draw.
    NAME(MOVETOEX), NAME(LINETO), NAME(RECTANGLE), NAME(ELLIPSE), NAME(ARC), NAME(ARCTO), NAME(PIE), NAME(ANGLEARC),
    NAME(EXCLUDECLIPRECT), NAME(INTERSECTCLIPRECT), NAME(BITBLT), NAME(EXTTEXTOUTW), NAME(POLYBEZIER),
    NAME(POLYGON), NAME(POLYLINE), NAME(POLYBEZIERTO), NAME(POLYLINETO), NAME(POLYPOLYLINE), NAME(POLYDRAW)};
#undef NAME

template <class... Args>
std::string Printf(const char* format, Args... args)
{
    char text[256];
    std::snprintf(text, sizeof text, format, args...);
    return text;
}

std::string Name(DWORD type)
{
    if (type >= EMR_POLYBEZIER16 && type <= EMR_POLYDRAW16)  // 16-bit point lists: as their 32-bit forms
        type = type == EMR_POLYDRAW16 ? EMR_POLYDRAW : type - (EMR_POLYBEZIER16 - EMR_POLYBEZIER);
    for (const auto& [value, name] : kNames)
        if (value == type)
            return name;
    return "type " + std::to_string(type);
}

} // namespace

std::vector<EmfRecord> RecordsOfType(const std::vector<EmfRecord>& records, DWORD type)
{
    std::vector<EmfRecord> matching;
    std::copy_if(records.begin(), records.end(), std::back_inserter(matching), [&](auto& r) { return r.type == type; });
    return matching;
}

std::string DumpRecordTypes(const std::vector<EmfRecord>& records)
{
    std::string text;
    for (const EmfRecord& record : records)
        text += (text.empty() ? "" : ", ") + Name(record.type);
    return text;
}

// Point lists: bounds, [number of polylines,] number of points, [polyline
// counts,] points as POINTL or (16-bit forms) POINTS, [PolyDraw's types].
std::vector<POINT> RecordPoints(const EmfRecord& record)
{
    const bool poly = record.type == EMR_POLYPOLYLINE || record.type == EMR_POLYPOLYLINE16;
    const bool small = record.type >= EMR_POLYBEZIER16 && record.type <= EMR_POLYDRAW16;
    if (!small && record.type != EMR_POLYDRAW && (record.type < EMR_POLYBEZIER || record.type > EMR_POLYPOLYLINE))
        return {};
    const size_t first = poly ? 32 + 4 * record.As<DWORD>(24) : 28;
    std::vector<POINT> points(record.As<DWORD>(poly ? 28 : 24));
    for (size_t i = 0; i < points.size(); ++i)
        points[i] = small ? POINT{record.As<SHORT>(first + 4 * i), record.As<SHORT>(first + 4 * i + 2)}
                          : POINT{record.As<LONG>(first + 8 * i), record.As<LONG>(first + 8 * i + 4)};
    return points;
}

std::string DescribeRecord(const EmfRecord& r)
{
    std::string text = Name(r.type);
    const DWORD object = r.As<DWORD>(8);
    const LOGFONTW font = r.As<EMREXTCREATEFONTINDIRECTW>().elfw.elfLogFont;
    char face[LF_FACESIZE * 2] = {};
    switch (r.type) {
    case EMR_SETTEXTCOLOR: case EMR_SETBKCOLOR: return text + Printf(" 0x%06lx", object);
    case EMR_SELECTOBJECT: case EMR_DELETEOBJECT:
        return text + (object & 0x80000000u ? " stock " : " ") + std::to_string(object & 0x7fffffffu);
    case EMR_CREATEPEN:
        return text + Printf(" %lu style %lu width %ld color 0x%06lx", object, r.As<DWORD>(12), r.As<LONG>(16),
                             r.As<DWORD>(24));
    case EMR_CREATEBRUSHINDIRECT:
        return text + Printf(" %lu style %lu color 0x%06lx hatch %lu", object, r.As<DWORD>(12), r.As<DWORD>(16),
                             r.As<DWORD>(20));
    case EMR_EXTCREATEFONTINDIRECTW:
        ::WideCharToMultiByte(CP_ACP, 0, font.lfFaceName, -1, face, sizeof face, nullptr, nullptr);
        return text + Printf(" %lu height %ld escapement %ld orientation %ld weight %ld italic %d charset %d "
                             "precision %d clip %d face '%s'", object, font.lfHeight, font.lfEscapement,
                             font.lfOrientation, font.lfWeight, font.lfItalic, font.lfCharSet, font.lfOutPrecision,
                             font.lfClipPrecision, face);
    case EMR_BITBLT:  // x y cx cy after the bounds, then the raster operation
        return text + Printf(" %ld %ld %ld %ld rop %lx", r.As<LONG>(24), r.As<LONG>(28), r.As<LONG>(32),
                             r.As<LONG>(36), r.As<DWORD>(40));
    case EMR_ANGLEARC:  // centre, radius, start and sweep angles
        return text + Printf(" %ld %ld %lu %g %g", object, r.As<LONG>(12), r.As<DWORD>(16), r.As<FLOAT>(20),
                             r.As<FLOAT>(24));
    case EMR_EXTTEXTOUTW:  // the opaque box
        return text + Printf(" %ld %ld %ld %ld", r.As<LONG>(56), r.As<LONG>(60), r.As<LONG>(64), r.As<LONG>(68));
    }
    const std::vector<POINT> points = RecordPoints(r);
    if (!points.empty())
        text += " " + std::to_string(points.size()) + ":";
    for (const POINT& p : points)
        text += Printf(" %ld,%ld", p.x, p.y);
    for (size_t at = 8; points.empty() && at < r.bytes.size(); at += 4)  // other types: every value after the size
        text += " " + std::to_string(r.As<LONG>(at));
    return text;
}

std::vector<std::string> DescribeRecords(const std::vector<EmfRecord>& records, bool drawing)
{
    std::vector<std::string> lines;
    for (const EmfRecord& record : records)
        if (!drawing || std::none_of(kNames, kNames + 10, [&](auto& n) { return n.first == record.type; }))  // state
            lines.push_back(DescribeRecord(record));
    return lines;
}
