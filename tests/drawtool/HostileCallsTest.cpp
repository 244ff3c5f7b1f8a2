// Hostile hosts: calls out of the life cycle, objects GDI refuses, DCs that
// fail or have no handles, text that DrawText rewrites, and seeded random
// sequences of every method, each seed in a child process of its own.
#include "ToolCalls.h"
#include "common/DibCanvas.h"
#include "common/EmfRecording.h"
#include "common/HostDcState.h"

#include <malloc.h>

#include <array>
#include <cstdio>

namespace {

using T = CMoruDrawTool;

// Selects the host's own objects (made once, so that they never count as
// leaks) and an origin of its own into `hdc`; returns that state.
HostDcState PrepareHostDc(HDC hdc)
{
    static const HGDIOBJ objects[] = {::CreatePen(PS_DOT, 1, RGB(1, 2, 3)), ::CreateSolidBrush(RGB(4, 5, 6)),
                                      ::CreateFontA(17, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, "Liberation Sans")};
    for (HGDIOBJ object : objects)
        ::SelectObject(hdc, object);
    ::SetViewportOrgEx(hdc, 3, -4, nullptr);
    return HostDcState::Of(hdc);
}

// A host's CDC without handles whose virtual members count the calls they
// get: an inert DC must not see any.
struct HandlelessDc : CDC {
    int calls = 0;
    template <class R>
    R Counted(R answer) { ++calls; return answer; }
    CFont* SelectObject(CFont* f) override { return Counted(CDC::SelectObject(f)); }
    CPoint SetViewportOrg(int x, int y) override { return Counted(CDC::SetViewportOrg(x, y)); }
    COLORREF SetBkColor(COLORREF c) override { return Counted(CDC::SetBkColor(c)); }
    COLORREF SetTextColor(COLORREF c) override { return Counted(CDC::SetTextColor(c)); }
    int SaveDC() override { return Counted(CDC::SaveDC()); }
    BOOL RestoreDC(int n) override { return Counted(CDC::RestoreDC(n)); }
    BOOL TextOut(int x, int y, const char* t, int n) override { return Counted(CDC::TextOut(x, y, t, n)); }
    int DrawText(const char* t, int n, RECT* r, UINT f) override { return Counted(CDC::DrawText(t, n, r, f)); }
};

} // namespace

TEST(HostileCalls, RefusedObjectsAndCallsOutsideInitializeAndFinalizeLeaveTheHostsObjectsAndOrigin)
{
    // Regressions: a brush GDI refuses was selected as null, and SetBrush
    // kept that null as the brush to put back, so Finalize left the tool's
    // brush (brought back by RestoreDC) in the host's DC; SetPen or SetBrush
    // before Initialize made the tool record its own object as the one it
    // displaced; Finalize without Initialize, and a second Initialize/Finalize
    // pair, moved the origin to (0, 0).
    const struct { const char* what; void (*steps)(T&); } cases[] = {
        {"refused brush style", [](T& t) { t.Initialize(nullptr, 0); t.SaveDC(); t.SetBrush(0x80000000u, 1, 0); t.RestoreDC(-1); t.Finalize(); }},
        {"BS_HATCHED, hatch -1", [](T& t) { t.Initialize(nullptr, 0); t.SaveDC(); t.SetBrush(BS_HATCHED, 1, -1); t.RestoreDC(-1); t.Finalize(); }},
        {"solid, then refused", [](T& t) { t.Initialize(nullptr, 0); t.SaveDC(); t.SetBrush(BS_SOLID, 0, 0); t.SetBrush(0x80000000u, 0, 0); t.RestoreDC(-1); t.Finalize(); }},
        {"refused pen", [](T& t) { t.Initialize(nullptr, 0); t.SaveDC(); t.SetPen(0x7777, 1, 0); t.RestoreDC(-1); t.Finalize(); }},
        {"SetPen, Initialize, Finalize", [](T& t) { t.SetPen(PS_DASH, 3, RGB(9, 9, 9)); t.Initialize(nullptr, 0); t.Finalize(); }},
        {"SetBrush, Initialize, Finalize", [](T& t) { t.SetBrush(BS_SOLID, RGB(9, 9, 9), 0); t.Initialize(nullptr, 0); t.Finalize(); }},
        {"fonts, Initialize, Finalize", [](T& t) { t.SetFont1A(30, 0, nullptr, 0); t.SetPointFont0A(90, 0, nullptr, 0); t.Initialize(nullptr, 0); t.Finalize(); }},
        {"Finalize alone", [](T& t) { t.Finalize(); }},
        {"Initialize, Finalize twice", [](T& t) { t.Initialize(nullptr, 2); t.Finalize(); t.Initialize(nullptr, 1); t.Finalize(); }},
        {"Initialize twice, Finalize", [](T& t) { t.Initialize(nullptr, 1); t.SetBrush(BS_SOLID, 0, 0); t.SetFont1A(20, 0, nullptr, 0); t.Initialize(nullptr, 2); t.Finalize(); }},
        {"Finalize, then objects", [](T& t) { t.Initialize(nullptr, 0); t.Finalize(); t.SetPen(0, 2, 0); t.SetBrush(BS_SOLID, 0, 0); t.SetFont2A(20, 0, nullptr, 0); }},
    };
    for (const auto& c : cases) {
        DibCanvas canvas(16, 16);
        const HostDcState host = PrepareHostDc(canvas.Dc().m_hDC);
        CMoruDrawTool tool(nullptr, &canvas.Dc());
        c.steps(tool);
        EXPECT_EQ("", host.Differences(HostDcState::Of(canvas.Dc().m_hDC))) << c.what;
    }
}

TEST(HostileCalls, EveryMethodAnswersTheDcsAnswerAndOnDcsWithoutHandlesZeroWithoutACall)
{
    // On a bitmap every device call answers neither zero nor a failure (the
    // second time round, after the setters); on a deleted DC, what a failed
    // GDI call answers (0 for some of Wine's queries); on a null CDC* and on
    // a CDC without handles, zero
    // without reaching GDI, user32 or the CDC. Regressions: on such a DC
    // SetTextAlign, SetTextAlignEx, GetBkColor, SetBkColor and SetTextColor
    // answered 0xFFFFFFFF, RestoreDC and DrawIcon 1, and DrawTextA("a\tb",
    // DT_EXPANDTABS) ended the process in user32.
    DibCanvas canvas(64, 64);
    HandlelessDc handleless;
    CBorrowedDC deleted(::CreateCompatibleDC(nullptr));
    ::DeleteDC(deleted.m_hDC);
    for (CDC* dc : std::initializer_list<CDC*>{&canvas.Dc(), &deleted, nullptr, &handleless}) {
        const bool bitmap = dc == &canvas.Dc();
        const char* what = bitmap ? "bitmap" : dc == &deleted ? "deleted DC" : dc ? "handleless CDC" : "null CDC";
        CMoruDrawTool tool(nullptr, dc);
        RECT area = {0, 0, 10, 10};
        tool.Initialize(&area, 2);
        EXPECT_EQ(!bitmap, !tool.DrawTextA("a\tb", &area, DT_EXPANDTABS)) << what;
        ArgSource samples;
        std::string unexpected;
        for (int round = 0; round < 2; ++round)
            for (const ClassRow& row : kClassRows) {
                if (IsPure(row.name))
                    continue;
                const Answer answer = row.call(ClassCalls::Handle(tool), samples);
                const bool failed = dc == &deleted && answer.failed;
                const bool ok = bitmap ? !answer.zero && !answer.failed : answer.zero || failed;
                if (round == 1 && !answer.none && !ok)
                    unexpected += std::string(" ") + row.name;
            }
        tool.Finalize();
        // 7 points are no Bezier continuation, a surface fill (1) starts off its colour; the deleted DC
        // refused the tool's objects, which exist.
        const char* expected = bitmap ? " PolyBezierTo ExtFloodFill"
                               : dc == &deleted ? " GetPen GetPenColor GetBrush GetFont" : "";
        EXPECT_EQ(expected, unexpected) << "methods answering otherwise on the " << what;
    }
    EXPECT_EQ(0, handleless.calls) << "calls the CDC's virtual members received";
}

TEST(HostileCalls, DrawTextRewritesOnlyTheToolsOwnCopyWithRoomForTheEllipsis)
{
    // Regression: with DT_MODIFYSTRING DrawText writes up to four characters
    // past the count it gets (Wine: "...ab" for "ab" with DT_PATH_ELLIPSIS),
    // and the tool's copy had room only for the text itself. The host's DC
    // measures the room of each buffer it gets before GDI writes into it.
    struct RoomCheckingDc : CDC {
        const char* hostText = nullptr;
        std::string log;
        RoomCheckingDc() { Attach(::CreateCompatibleDC(nullptr)); }
        int DrawText(const char* t, int n, RECT* r, UINT f) override
        {
            const HANDLE heap = reinterpret_cast<HANDLE>(_get_heap_handle());
            if (t == hostText || !::HeapValidate(heap, 0, t) || ::HeapSize(heap, 0, t) < static_cast<SIZE_T>(n) + 5)
                log += std::to_string(n) + " chars in a buffer not the tool's or too small; ";
            return CDC::DrawText(t, n, r, f);
        }
    } dc;
    const std::string text = "c:\\a directory\\with a longer name\\file.txt";  // beyond any in-place buffer
    dc.hostText = text.c_str();
    CMoruDrawTool tool(nullptr, &dc);
    tool.Initialize(nullptr, 0);
    for (UINT ellipsis : {DT_PATH_ELLIPSIS, DT_END_ELLIPSIS, DT_WORD_ELLIPSIS}) {
        RECT box = {0, 0, 20, 40};
        tool.DrawTextA(text.c_str(), &box, ellipsis | DT_MODIFYSTRING | DT_SINGLELINE);
        tool.DrawTextW(L"c:\\a directory\\with a longer name\\file.txt", &box, ellipsis | DT_MODIFYSTRING);
    }
    tool.Finalize();
    EXPECT_EQ("", dc.log) << "the buffers DrawText got";
    EXPECT_EQ("c:\\a directory\\with a longer name\\file.txt", text) << "the host's text";
}

namespace {

enum DcKind { kBitmap, kMetafile, kNull, kHandleless, kDeleted };
const char* const kDcKinds[] = {"a bitmap", "a metafile", "a null CDC", "a CDC without handles", "a deleted DC"};

// The rows a sequence draws from: those that change the objects or the
// saved states (every other call, so that refused objects meet SaveDC and
// RestoreDC often), or the others. Initialize and Finalize frame a sequence.
const std::vector<const ClassRow*>& SequenceRows(bool objectCalls)
{
    static const auto rows = [] {
        std::array<std::vector<const ClassRow*>, 2> r;
        const std::regex objectCall("SaveDC|RestoreDC|SetPen|SetBrush|SetFont1A|SetPointFont0A");
        for (const ClassRow& row : kClassRows)
            if (!std::regex_match(row.name, std::regex("Initialize|Finalize")))
                r[std::regex_match(row.name, objectCall)].push_back(&row);
        return r;
    }();
    return rows[objectCalls];
}

// One sequence: a fresh DC of `kind` with the host's objects, a tool, calls
// before Initialize, one or two Initialize, calls, Finalize, calls after it,
// and the tool's release. Returns what went wrong, empty when nothing did.
std::string RunSequence(DcKind kind, unsigned seed, std::string& trace)
{
    DibCanvas canvas(48, 48);
    EmfRecorder recorder;
    HandlelessDc handleless;
    CBorrowedDC deleted(::CreateCompatibleDC(nullptr));  // a handle the host has deleted
    ::DeleteDC(deleted.m_hDC);
    CDC* const dc = std::vector<CDC*>{&canvas.Dc(), &recorder.Dc(), nullptr, &handleless, &deleted}[kind];
    const bool live = kind == kBitmap || kind == kMetafile, inert = kind == kNull || kind == kHandleless;
    const HostDcState host = live ? PrepareHostDc(dc->m_hDC) : HostDcState{};
    ArgSource a(seed, !live);
    std::string problems;
    CMoruDrawTool* tool = CreateDrawTool(nullptr, dc);
    auto calls = [&](int n, bool finalized) {
        for (int i = 0; i < n; ++i) {
            const std::vector<const ClassRow*>& some = SequenceRows(i % 2);
            const ClassRow& row = *some[a.Pick(static_cast<int>(some.size()))];
            // A state saved while the tool's objects were selected would
            // bring them back after Finalize: the host's error, not tried.
            if (finalized && row.name == std::string("RestoreDC"))
                continue;
            trace += std::string(row.name) + " ";
            if (!row.call(ClassCalls::Handle(*tool), a).zero && inert && !IsPure(row.name))
                problems += std::string(row.name) + " answered other than zero; ";
        }
    };
    auto initialize = [&] {
        RECT area = {0, 0, 48, a.Int(-60, 200)};
        const int mode = a.Int(0, 3);
        trace += "Initialize(" + std::to_string(mode) + ") ";
        tool->Initialize(a.Pick(4) ? &area : nullptr, mode);
    };
    calls(a.Int(0, 3), false);
    initialize();
    calls(a.Int(0, 30), false);
    if (a.Pick(5) == 0) {
        initialize();
        calls(a.Int(0, 10), false);
    }
    trace += "Finalize ";
    tool->Finalize();
    calls(a.Int(0, 4), true);
    if (a.Pick(2)) {
        trace += "Finalize DestroyDrawTool";
        tool->Finalize();
        DestroyDrawTool(tool);
    } else {
        trace += "delete";
        delete tool;  // safe after Finalize
    }
    if (live)
        problems += host.Differences(HostDcState::Of(dc->m_hDC));
    if (handleless.calls)
        problems += std::to_string(handleless.calls) + " calls reached the CDC without handles; ";
    return problems;
}

// The child's work for one seed: sequences until `budgetMs` is spent or
// `sequences` are done. Ends the process: 0 when all went well, else 1 after
// telling which sequence of the seed failed and how.
[[noreturn]] void RunSeed(unsigned seed, int sequences, DWORD budgetMs)
{
    const GdiHandleTable table;
    PrepareHostDc(DibCanvas(1, 1).Dc().m_hDC);  // the host's objects and the shared ones, made before counting
    ArgSource::SharedObjects();
    const int free = table.FreeSlots();
    std::mt19937 random(seed);
    const DWORD start = ::GetTickCount();
    for (int s = 0; s < sequences && ::GetTickCount() - start < budgetMs; ++s) {
        const DcKind kind = static_cast<DcKind>(random() % 5);
        std::string trace;
        std::string problems = RunSequence(kind, random(), trace);
        if (const int leaked = free - table.FreeSlots())
            problems += " GDI objects leaked: " + std::to_string(leaked);
        if (!problems.empty()) {
            std::fprintf(stderr, "seed %u, sequence %d on %s: %s\n  calls: %s\n", seed, s, kDcKinds[kind],
                         problems.c_str(), trace.c_str());
            std::fflush(stderr);
            std::_Exit(1);
        }
    }
    std::_Exit(0);
}

} // namespace

TEST(HostileCalls, SeededRandomSequencesGiveTheHostsDcBackAndLeakNothing)
{
    // Each seed runs in a child process, so that a crash or a stall names its
    // seed; the child stops after 150 sequences or 0.8 s.
    for (unsigned seed : {1u, 2u, 2024u})
        EXPECT_EXIT(RunSeed(seed, 150, 800), ::testing::ExitedWithCode(0), "") << "seed " << seed;
}
