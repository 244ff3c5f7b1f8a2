#include "common/EmfRecording.h"

#include <iomanip>
#include <sstream>

EmfRecorder::EmfRecorder()
{
    m_dc.Attach(::CreateEnhMetaFileA(nullptr, nullptr, nullptr, nullptr));
}

EmfRecorder::~EmfRecorder()
{
    if (m_dc.m_hDC)
        ::DeleteEnhMetaFile(::CloseEnhMetaFile(m_dc.Detach()));
    if (m_closed)
        ::DeleteEnhMetaFile(m_closed);
}

std::vector<EmfRecord> EmfRecorder::Finish()
{
    std::vector<EmfRecord> records;
    if (!m_dc.m_hDC)
        return records;
    m_closed = ::CloseEnhMetaFile(m_dc.Detach());
    ::EnumEnhMetaFile(
        nullptr, m_closed,
        [](HDC, HANDLETABLE*, const ENHMETARECORD* record, int, LPARAM param) -> int {
            if (record->iType == EMR_HEADER || record->iType == EMR_EOF)
                return 1;
            auto* out = reinterpret_cast<std::vector<EmfRecord>*>(param);
            EmfRecord copy;
            copy.type = record->iType;
            const BYTE* begin = reinterpret_cast<const BYTE*>(record);
            copy.bytes.assign(begin, begin + record->nSize);
            out->push_back(std::move(copy));
            return 1;
        },
        &records, nullptr);
    return records;
}

std::vector<EmfRecord> RecordsOfType(const std::vector<EmfRecord>& records, DWORD type)
{
    std::vector<EmfRecord> matching;
    for (const EmfRecord& record : records)
        if (record.type == type)
            matching.push_back(record);
    return matching;
}

std::string RecordTypeName(DWORD type)
{
    switch (type) {
#define NAME(t) case EMR_##t: return #t;
        NAME(POLYBEZIER) NAME(POLYGON) NAME(POLYLINE) NAME(POLYBEZIERTO) NAME(POLYLINETO)
        NAME(POLYPOLYLINE) NAME(POLYPOLYGON) NAME(SETWINDOWEXTEX) NAME(SETWINDOWORGEX)
        NAME(SETVIEWPORTEXTEX) NAME(SETVIEWPORTORGEX) NAME(SETBRUSHORGEX) NAME(SETPIXELV)
        NAME(SETMAPPERFLAGS) NAME(SETMAPMODE) NAME(SETBKMODE) NAME(SETPOLYFILLMODE) NAME(SETROP2)
        NAME(SETSTRETCHBLTMODE) NAME(SETTEXTALIGN) NAME(SETTEXTCOLOR) NAME(SETBKCOLOR)
        NAME(OFFSETCLIPRGN) NAME(MOVETOEX) NAME(EXCLUDECLIPRECT) NAME(INTERSECTCLIPRECT)
        NAME(SAVEDC) NAME(RESTOREDC) NAME(SELECTOBJECT) NAME(CREATEPEN) NAME(CREATEBRUSHINDIRECT)
        NAME(DELETEOBJECT) NAME(ANGLEARC) NAME(ELLIPSE) NAME(RECTANGLE) NAME(ROUNDRECT) NAME(ARC)
        NAME(CHORD) NAME(PIE) NAME(LINETO) NAME(ARCTO) NAME(POLYDRAW) NAME(SETARCDIRECTION)
        NAME(BEGINPATH) NAME(ENDPATH) NAME(CLOSEFIGURE) NAME(FILLPATH) NAME(STROKEPATH)
        NAME(EXTSELECTCLIPRGN) NAME(BITBLT) NAME(STRETCHBLT) NAME(EXTCREATEFONTINDIRECTW)
        NAME(EXTTEXTOUTA) NAME(EXTTEXTOUTW) NAME(POLYBEZIER16) NAME(POLYGON16) NAME(POLYLINE16)
        NAME(POLYBEZIERTO16) NAME(POLYLINETO16) NAME(POLYPOLYLINE16) NAME(POLYPOLYGON16)
        NAME(POLYDRAW16) NAME(EXTCREATEPEN) NAME(EXTFLOODFILL) NAME(FILLRGN) NAME(FRAMERGN)
        NAME(INVERTRGN) NAME(PAINTRGN) NAME(SETICMMODE) NAME(SETLAYOUT)
#undef NAME
    default: return "type " + std::to_string(type);
    }
}

std::string DumpRecordTypes(const std::vector<EmfRecord>& records)
{
    std::string text;
    for (const EmfRecord& record : records) {
        if (!text.empty())
            text += ", ";
        text += RecordTypeName(record.type);
    }
    return text;
}

std::vector<POINT> RecordPoints(const EmfRecord& record)
{
    std::vector<POINT> points;
    switch (record.type) {
    case EMR_POLYLINE: case EMR_POLYGON: case EMR_POLYBEZIER: case EMR_POLYBEZIERTO: case EMR_POLYLINETO: {
        const auto* poly = reinterpret_cast<const EMRPOLYLINE*>(record.bytes.data());
        for (DWORD i = 0; i < poly->cptl; ++i)
            points.push_back(POINT{poly->aptl[i].x, poly->aptl[i].y});
        break;
    }
    case EMR_POLYLINE16: case EMR_POLYGON16: case EMR_POLYBEZIER16: case EMR_POLYBEZIERTO16:
    case EMR_POLYLINETO16: {
        const auto* poly = reinterpret_cast<const EMRPOLYLINE16*>(record.bytes.data());
        for (DWORD i = 0; i < poly->cpts; ++i)
            points.push_back(POINT{poly->apts[i].x, poly->apts[i].y});
        break;
    }
    default: break;
    }
    return points;
}

std::string DumpPoints(const std::vector<POINT>& points)
{
    std::ostringstream text;
    for (const POINT& p : points)
        text << "(" << p.x << ", " << p.y << ") ";
    return text.str();
}

std::string DescribeRecord(const EmfRecord& record)
{
    std::ostringstream text;
    text << RecordTypeName(record.type);
    auto color = [&](COLORREF c) { text << "0x" << std::hex << std::setw(6) << std::setfill('0') << c << std::dec; };
    auto object = [&](DWORD index) {
        if (index & 0x80000000u)
            text << " stock " << (index & 0x7fffffffu);
        else
            text << " " << index;
    };
    switch (record.type) {
    case EMR_SETVIEWPORTORGEX: case EMR_MOVETOEX: case EMR_LINETO: {
        const auto r = record.As<EMRLINETO>();
        text << " " << r.ptl.x << " " << r.ptl.y;
        break;
    }
    case EMR_CREATEPEN: {
        const auto r = record.As<EMRCREATEPEN>();
        text << " " << r.ihPen << " style " << r.lopn.lopnStyle << " width " << r.lopn.lopnWidth.x << " color ";
        color(r.lopn.lopnColor);
        break;
    }
    case EMR_CREATEBRUSHINDIRECT: {
        const auto r = record.As<EMRCREATEBRUSHINDIRECT>();
        text << " " << r.ihBrush << " style " << r.lb.lbStyle << " color ";
        color(r.lb.lbColor);
        text << " hatch " << r.lb.lbHatch;
        break;
    }
    case EMR_SELECTOBJECT: case EMR_DELETEOBJECT:
        object(record.As<EMRSELECTOBJECT>().ihObject);
        break;
    case EMR_EXTCREATEFONTINDIRECTW: {
        const auto r = record.As<EMREXTCREATEFONTINDIRECTW>();
        const LOGFONTW& f = r.elfw.elfLogFont;
        char face[LF_FACESIZE * 2] = {};
        ::WideCharToMultiByte(CP_ACP, 0, f.lfFaceName, -1, face, sizeof face, nullptr, nullptr);
        text << " " << r.ihFont << " height " << f.lfHeight << " escapement " << f.lfEscapement << " orientation "
             << f.lfOrientation << " weight " << f.lfWeight << " italic " << int(f.lfItalic) << " charset "
             << int(f.lfCharSet) << " precision " << int(f.lfOutPrecision) << " clip " << int(f.lfClipPrecision)
             << " face '" << face << "'";
        break;
    }
    case EMR_SETTEXTCOLOR: case EMR_SETBKCOLOR:
        text << " ";
        color(record.As<EMRSETTEXTCOLOR>().crColor);
        break;
    case EMR_SETBKMODE: case EMR_SETTEXTALIGN: case EMR_SETROP2: case EMR_SETPOLYFILLMODE: case EMR_SETMAPMODE:
    case EMR_SETARCDIRECTION: case EMR_RESTOREDC:
        text << " " << static_cast<int>(record.As<EMRSETBKMODE>().iMode);
        break;
    default: break;
    }
    return text.str();
}

std::vector<std::string> DescribeRecords(const std::vector<EmfRecord>& records)
{
    std::vector<std::string> lines;
    for (const EmfRecord& record : records)
        lines.push_back(DescribeRecord(record));
    return lines;
}
