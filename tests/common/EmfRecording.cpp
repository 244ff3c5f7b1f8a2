#include "common/EmfRecording.h"

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

namespace {

// The types the tests meet: `count` values shown from byte `at`, or the
// points of a list of `pointBytes`-byte points.
struct Kind { DWORD type; const char* name; size_t at, count, pointBytes; };
#define KIND(t, at, count) {EMR_##t, #t, at, count, 0}
#define LISTS(t) {EMR_##t, #t, 0, 0, 8}, {EMR_##t##16, #t, 0, 0, 4}
const Kind kKinds[] = {
    KIND(SETVIEWPORTORGEX, 8, 2), KIND(SETBKCOLOR, 8, 1), KIND(SETTEXTCOLOR, 8, 1), KIND(SETBKMODE, 8, 1),
    KIND(SETTEXTALIGN, 8, 1), KIND(SELECTOBJECT, 8, 1), KIND(DELETEOBJECT, 8, 1), KIND(CREATEPEN, 8, 5),
    KIND(CREATEBRUSHINDIRECT, 8, 4), KIND(EXTCREATEFONTINDIRECTW, 8, 6), KIND(CREATEMONOBRUSH, 8, 1),
    // The eleven above select, create or set state; those below draw.
    KIND(MOVETOEX, 8, 2), KIND(LINETO, 8, 2), KIND(RECTANGLE, 8, 4), KIND(ELLIPSE, 8, 4), KIND(ARC, 8, 8),
    KIND(ARCTO, 8, 8), KIND(PIE, 8, 8), KIND(ANGLEARC, 8, 3), KIND(EXCLUDECLIPRECT, 8, 4),
    KIND(INTERSECTCLIPRECT, 8, 4), KIND(EXTFLOODFILL, 8, 4), KIND(BITBLT, 24, 5), KIND(EXTTEXTOUTW, 56, 4),
    LISTS(POLYBEZIER),
    LISTS(POLYGON), LISTS(POLYLINE), LISTS(POLYBEZIERTO), LISTS(POLYLINETO), LISTS(POLYPOLYLINE), LISTS(POLYDRAW)};

std::string DescribeRecord(const EmfRecord& r, const Kind* kind)
{
    if (kind == std::end(kKinds))
        return "type " + std::to_string(r.type);
    std::string text = kind->name;
    if (r.type == EMR_SELECTOBJECT && (r.As<DWORD>(8) & 0x80000000u))
        return text + " stock " + std::to_string(r.As<DWORD>(8) & 0x7fffffffu);
    for (size_t i = 0; i < kind->count; ++i)
        text += " " + std::to_string(r.As<LONG>(kind->at + 4 * i));
    if (!kind->pointBytes)
        return text;
    // Bounds, [number of polylines,] number of points, [polyline counts,]
    // points as POINTL or POINTS, [PolyDraw's types].
    const bool poly = r.type == EMR_POLYPOLYLINE || r.type == EMR_POLYPOLYLINE16, wide = kind->pointBytes == 8;
    const size_t count = r.As<DWORD>(poly ? 28 : 24), first = poly ? 32 + 4 * r.As<DWORD>(24) : 28;
    text += " " + std::to_string(count) + ":";
    for (size_t at = first; at < first + count * kind->pointBytes; at += kind->pointBytes)
        text += " " + (wide ? std::to_string(r.As<LONG>(at)) + "," + std::to_string(r.As<LONG>(at + 4))
                            : std::to_string(r.As<SHORT>(at)) + "," + std::to_string(r.As<SHORT>(at + 2)));
    return text;
}

} // namespace

std::vector<std::string> DescribeRecords(const std::vector<EmfRecord>& records, bool drawing)
{
    std::vector<std::string> lines;
    for (const EmfRecord& record : records) {
        const Kind* kind = std::find_if(std::begin(kKinds), std::end(kKinds), [&](auto& k) { return k.type == record.type; });
        if (!drawing || kind >= kKinds + 11)
            lines.push_back(DescribeRecord(record, kind));
    }
    return lines;
}
