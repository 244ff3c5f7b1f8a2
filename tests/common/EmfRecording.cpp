#include "common/EmfRecording.h"

#include <cstdio>

std::vector<EmfRecord> ReadRecords(HENHMETAFILE file)
{
    std::vector<EmfRecord> records;
    ::EnumEnhMetaFile(nullptr, file, [](HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM out) -> int {
        const BYTE* bytes = reinterpret_cast<const BYTE*>(record);
        if (record->iType != EMR_HEADER && record->iType != EMR_EOF)
            reinterpret_cast<std::vector<EmfRecord>*>(out)->push_back({record->iType, {bytes, bytes + record->nSize}});
        return 1;
    }, &records, nullptr);
    ::DeleteEnhMetaFile(file);
    return records;
}

std::vector<EmfRecord> EmfRecorder::Finish()
{
    if (!m_dc.m_hDC)
        return {};
    return ReadRecords(::CloseEnhMetaFile(m_dc.Detach()));
}

namespace {

// The types the tests meet, with the format of the values at the byte offsets
// given (none: every value after the size); point lists under their 32-bit
// and 16-bit types.
struct Kind { DWORD type; const char* name; const char* format = nullptr; BYTE at[5] = {}; };
#define NAME(t, ...) {EMR_##t, #t, __VA_ARGS__}
#define NAMES(t) {EMR_##t, #t}, {EMR_##t##16, #t}
const Kind kKinds[] = {
    NAME(SETVIEWPORTORGEX), NAME(SETBKCOLOR), NAME(SETTEXTCOLOR, " 0x%06lx", {8}), NAME(SETBKMODE),
    NAME(SETTEXTALIGN), NAME(SELECTOBJECT), NAME(DELETEOBJECT),
    NAME(CREATEPEN, " %lu style %lu width %ld color 0x%06lx", {8, 12, 16, 24}),
    NAME(CREATEBRUSHINDIRECT, " %lu style %lu color 0x%06lx hatch %lu", {8, 12, 16, 20}), NAME(EXTCREATEFONTINDIRECTW),
    // The ten above select, create or set state; those below draw.
    NAME(MOVETOEX), NAME(LINETO), NAME(RECTANGLE), NAME(ELLIPSE), NAME(ARC), NAME(ARCTO), NAME(PIE), NAME(ANGLEARC),
    NAME(EXCLUDECLIPRECT), NAME(INTERSECTCLIPRECT), NAME(BITBLT, " %ld %ld %ld %ld rop %lx", {24, 28, 32, 36, 40}),
    NAME(EXTTEXTOUTW, " %ld %ld %ld %ld", {56, 60, 64, 68}),  // BitBlt's x y cx cy rop; the opaque box
    NAMES(POLYBEZIER), NAMES(POLYGON), NAMES(POLYLINE), NAMES(POLYBEZIERTO), NAMES(POLYLINETO), NAMES(POLYPOLYLINE),
    NAMES(POLYDRAW)};

template <class... Args>
std::string Printf(const char* format, Args... args)
{
    char text[256];
    std::snprintf(text, sizeof text, format, args...);
    return text;
}

} // namespace

std::string DescribeRecord(const EmfRecord& r)
{
    const auto kind = std::find_if(std::begin(kKinds), std::end(kKinds), [&](auto& k) { return k.type == r.type; });
    if (kind == std::end(kKinds))
        return "type " + std::to_string(r.type);
    const std::string text = kind->name;
    const DWORD object = r.As<DWORD>(8);
    const LOGFONTW font = r.As<EMREXTCREATEFONTINDIRECTW>().elfw.elfLogFont;
    if (kind->format)
        return text + Printf(kind->format, r.As<LONG>(kind->at[0]), r.As<LONG>(kind->at[1]), r.As<LONG>(kind->at[2]),
                             r.As<LONG>(kind->at[3]), r.As<LONG>(kind->at[4]));
    if (r.type == EMR_SELECTOBJECT)
        return text + (object & 0x80000000u ? " stock " : " ") + std::to_string(object & 0x7fffffffu);
    if (r.type == EMR_EXTCREATEFONTINDIRECTW)
        return text + Printf(" %lu height %ld escapement %ld orientation %ld weight %ld italic %d charset %d "
                             "precision %d clip %d face '%ls'", object, font.lfHeight, font.lfEscapement,
                             font.lfOrientation, font.lfWeight, font.lfItalic, font.lfCharSet, font.lfOutPrecision,
                             font.lfClipPrecision, font.lfFaceName);
    if (r.type == EMR_ANGLEARC)  // centre, radius, start and sweep angles
        return text + Printf(" %ld %ld %lu %g %g", object, r.As<LONG>(12), r.As<DWORD>(16), r.As<FLOAT>(20),
                             r.As<FLOAT>(24));
    // Point lists: bounds, [number of polylines,] number of points, [polyline
    // counts,] points as POINTL or (16-bit forms) POINTS, [PolyDraw's types].
    const bool poly = r.type == EMR_POLYPOLYLINE || r.type == EMR_POLYPOLYLINE16, small = r.type >= EMR_POLYBEZIER16;
    if (kind >= std::end(kKinds) - 14) {
        const size_t first = poly ? 32 + 4 * r.As<DWORD>(24) : 28, count = r.As<DWORD>(poly ? 28 : 24);
        std::string points = " " + std::to_string(count) + ":";
        for (size_t i = 0; i < count; ++i)
            points += small ? Printf(" %d,%d", r.As<SHORT>(first + 4 * i), r.As<SHORT>(first + 4 * i + 2))
                            : Printf(" %ld,%ld", r.As<LONG>(first + 8 * i), r.As<LONG>(first + 8 * i + 4));
        return text + points;
    }
    std::string values;  // other types: every value after the size
    for (size_t at = 8; at < r.bytes.size(); at += 4)
        values += " " + std::to_string(r.As<LONG>(at));
    return text + values;
}

std::vector<std::string> DescribeRecords(const std::vector<EmfRecord>& records, bool drawing)
{
    std::vector<std::string> lines;
    for (const EmfRecord& record : records)
        if (!drawing || std::none_of(kKinds, kKinds + 10, [&](auto& k) { return k.type == record.type; }))  // state
            lines.push_back(DescribeRecord(record));
    return lines;
}
