// What a host finds in its DC after a drawing tool is done with it, and how
// many GDI objects the process can still create (GetGuiResources answers 0
// under Wine, so leaks are counted by filling the handle table).
#pragma once

#include "framework/afxwin.h"

#include <string>
#include <vector>

/// The objects selected into a DC and its viewport origin.
struct HostDcState {
    HGDIOBJ pen = nullptr, brush = nullptr, font = nullptr;
    POINT origin = {};

    static HostDcState Of(HDC hdc)
    {
        HostDcState s{::GetCurrentObject(hdc, OBJ_PEN), ::GetCurrentObject(hdc, OBJ_BRUSH),
                      ::GetCurrentObject(hdc, OBJ_FONT), {}};
        ::GetViewportOrgEx(hdc, &s.origin);
        return s;
    }
    /// Empty when `now` equals this state, else what differs.
    std::string Differences(const HostDcState& now) const
    {
        const std::string d = std::string(now.pen != pen ? " pen" : "") + (now.brush != brush ? " brush" : "") +
                              (now.font != font ? " font" : "") +
                              (now.origin.x != origin.x || now.origin.y != origin.y ? " origin" : "");
        return d.empty() ? "" : "not the host's:" + d + "; ";
    }
};

/// Free slots of the process's GDI handle table. The table is filled but for
/// a few hundred slots, so that each count is quick and exact: a leak of n
/// objects lowers FreeSlots() by n.
class GdiHandleTable {
public:
    GdiHandleTable()
    {
        while (HPEN pen = m_filler.size() < 200000 ? ::CreatePen(PS_SOLID, 1, 0) : nullptr)
            m_filler.push_back(pen);
        for (int i = 0; i < kSpare && !m_filler.empty(); ++i, m_filler.pop_back())
            ::DeleteObject(m_filler.back());
    }
    ~GdiHandleTable() { Free(m_filler); }
    GdiHandleTable(const GdiHandleTable&) = delete;
    GdiHandleTable& operator=(const GdiHandleTable&) = delete;
    int FreeSlots() const
    {
        std::vector<HPEN> pens;
        while (HPEN pen = pens.size() < 2 * kSpare ? ::CreatePen(PS_SOLID, 1, 0) : nullptr)
            pens.push_back(pen);
        return Free(pens);
    }

private:
    static int Free(const std::vector<HPEN>& pens)
    {
        for (HPEN pen : pens)
            ::DeleteObject(pen);
        return static_cast<int>(pens.size());
    }
    static constexpr int kSpare = 400;
    std::vector<HPEN> m_filler;
};
