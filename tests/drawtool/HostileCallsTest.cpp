// Hostile hosts: DCs that fail or have no handles, text that DrawText
// rewrites, and seeded random sequences with calls out of the life cycle and
// objects GDI refuses, each seed in a child process of its own.
#include "ToolCalls.h"
#include "common/DibCanvas.h"

#include <gtest/gtest.h>
#include <malloc.h>
#include <process.h>

#include <cstdio>
#include <cstdlib>
#include <random>

namespace {

// A DC handle the host has deleted: every GDI call on it fails.
struct DeletedDc : CBorrowedDC {
    DeletedDc() : CBorrowedDC(::CreateCompatibleDC(nullptr)) { ::DeleteDC(m_hDC); }
};

} // namespace

TEST(HostileCalls, EveryMethodAnswersTheDcsAnswerAndOnANullDcZeroWithoutACall)
{
    // On a bitmap every device call answers neither zero nor a failure (the
    // second time round, after the setters); on a deleted DC, what a failed
    // GDI call answers (0 for some of Wine's queries); on a null CDC*, zero
    // without reaching GDI or user32, and so on a CDC without handles.
    // Regressions: on such a DC SetTextAlign, SetTextAlignEx,
    // GetBkColor, SetBkColor and SetTextColor answered 0xFFFFFFFF, RestoreDC
    // and DrawIcon 1, and DrawTextA("a\tb", DT_EXPANDTABS) ended the process.
    DibCanvas canvas(64, 64);
    DeletedDc deleted;
    CDC handleless;
    // The methods answering otherwise: on the bitmap, 7 points are no Bezier
    // continuation and a surface fill (1) starts off its colour; the deleted
    // DC refused the tool's objects, which exist.
    const std::pair<CDC*, std::string> dcs[] = {{&canvas.Dc(), " PolyBezierTo ExtFloodFill"},
                                                {&deleted, " GetPen GetPenColor GetBrush GetFont"},
                                                {nullptr, ""},
                                                {&handleless, ""}};
    for (const auto& [dc, expected] : dcs) {
        CMoruDrawTool tool(nullptr, dc);
        RECT area = {0, 0, 10, 10};
        tool.Initialize(&area, 2);
        // On the deleted DC the tool answers without DrawText, which divides by zero there under Wine.
        EXPECT_EQ(dc != &canvas.Dc(), !tool.DrawTextA("a\tb", &area, DT_EXPANDTABS)) << expected;
        std::string unexpected;
        for (int round = 0; round < 2; ++round)
            for (const ClassRow& row : kClassRows) {
                const Answer answer = IsPure(row.name) ? Answer{} : row.call(ClassCalls::Handle(tool));
                const bool failed = dc == &deleted && answer.failed;
                const bool ok = dc == &canvas.Dc() ? !answer.zero && !answer.failed : answer.zero || failed;
                if (round == 1 && !answer.none && !ok)
                    unexpected += std::string(" ") + row.name;
            }
        tool.Finalize();
        EXPECT_EQ(expected, unexpected) << "methods answering otherwise";
    }
}

TEST(HostileCalls, ARefusedBrushLeavesTheDisplacedBrushToPutBack)
{
    // Regression: a brush GDI refuses was selected as null, SetBrush kept
    // that null as the brush to put back, and Finalize left the tool's brush,
    // brought back by RestoreDC, in the host's DC.
    DibCanvas canvas(8, 8);
    const HGDIOBJ hostBrush = ::GetCurrentObject(canvas.Dc().m_hDC, OBJ_BRUSH);
    CMoruDrawTool tool(nullptr, &canvas.Dc());
    tool.Initialize(nullptr, 0);
    tool.SaveDC();
    tool.SetBrush(0x80000000u, 1, 0);
    tool.RestoreDC(-1);
    tool.Finalize();
    EXPECT_EQ(hostBrush, ::GetCurrentObject(canvas.Dc().m_hDC, OBJ_BRUSH));
}

TEST(HostileCalls, DrawTextRewritesOnlyTheToolsOwnCopyWithRoomForTheEllipsis)
{
    // Regression: with DT_MODIFYSTRING DrawText writes up to four characters
    // past the count it gets (Wine: "...ab" for "ab" with DT_PATH_ELLIPSIS),
    // and the tool's copy had room only for the text itself. The host's DC
    // measures the room of the buffer it gets before GDI writes into it.
    struct RoomCheckingDc : CDC {
        SIZE_T room = 0;
        RoomCheckingDc() { Attach(::CreateCompatibleDC(nullptr)); }
        int DrawText(const char* t, int n, RECT* r, UINT f) override
        {
            const HANDLE heap = reinterpret_cast<HANDLE>(_get_heap_handle());
            room = ::HeapValidate(heap, 0, t) ? ::HeapSize(heap, 0, t) - n : 0;
            return CDC::DrawText(t, n, r, f);
        }
    } dc;
    CMoruDrawTool tool(nullptr, &dc);
    tool.Initialize(nullptr, 0);
    RECT box = {0, 0, 20, 40};
    tool.DrawTextA("c:\\a directory\\with a longer name\\file.txt", &box, DT_PATH_ELLIPSIS | DT_MODIFYSTRING);
    tool.Finalize();
    EXPECT_LE(5u, dc.room) << "bytes past the text in the tool's own heap copy (4 and the terminator)";
}

namespace {

// Free slots of the GDI handle table, counted by filling them (up to 800).
int FreeGdiSlots()
{
    std::vector<HPEN> pens;
    while (HPEN pen = pens.size() < 800 ? ::CreatePen(PS_SOLID, 1, 0) : nullptr)
        pens.push_back(pen);
    for (HPEN pen : pens)
        ::DeleteObject(pen);
    return static_cast<int>(pens.size());
}

template <class V>
V OneOf(std::mt19937& random, std::initializer_list<V> values)
{
    return values.begin()[random() % values.size()];
}

// One sequence of random steps on a fresh DC of `kind` (a bitmap holding the
// host's own objects and origin, a null CDC*, a deleted DC):
// Initialize and Finalize anywhere, saved states, pens, brushes and fonts
// that GDI refuses, and any method that reaches the DC; then Finalize.
// Returns what went wrong, empty when nothing did.
std::string RunSequence(int kind, std::mt19937& random)
{
    static const HGDIOBJ hostObjects[] = {::CreatePen(PS_DOT, 1, RGB(1, 2, 3)), ::CreateSolidBrush(RGB(4, 5, 6)),
                                          ::CreateFontA(17, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, "Liberation Sans")};
    static const auto devices = [] {
        std::vector<const ClassRow*> rows;  // the methods that reach the DC, but RestoreDC
        for (const ClassRow& row : kClassRows)
            if (!IsPure(row.name) && row.name != std::string("RestoreDC"))
                rows.push_back(&row);
        return rows;
    }();
    DibCanvas canvas(48, 48);
    DeletedDc deleted;
    CDC* const dc = std::vector<CDC*>{&canvas.Dc(), nullptr, &deleted}[kind];
    for (HGDIOBJ object : hostObjects)
        ::SelectObject(canvas.Dc().m_hDC, object);
    ::SetViewportOrgEx(canvas.Dc().m_hDC, 3, -4, nullptr);
    const std::vector<INT_PTR> host = HostStateOf(canvas.Dc().m_hDC);
    std::string problems;
    bool finalized = false;
    CMoruDrawTool tool(nullptr, dc);
    for (int step = static_cast<int>(random() % 40); step > 0; --step) {
        const unsigned what = random() % 9;
        RECT area = {0, 0, 48, 100};
        if (what == 0)
            tool.Initialize(OneOf<RECT*>(random, {&area, nullptr}), OneOf(random, {0, 1, 2, 3}));
        else if (what == 1)
            finalized = (tool.Finalize(), true);
        else if (what == 2)
            tool.SaveDC();
        else if (what == 3 && !finalized)  // after Finalize it would bring back a state with the tool's objects
            tool.RestoreDC(-1);
        else if (what == 4)
            tool.SetPen(OneOf(random, {PS_SOLID, PS_DASH, 0x7777}), OneOf(random, {0, 3}), RGB(9, 9, 9));
        else if (what == 5)
            tool.SetBrush(OneOf<UINT>(random, {BS_SOLID, BS_HATCHED, 0x80000000u}), 0, OneOf(random, {HS_CROSS, -1}));
        else if (what == 6)
            tool.SetFont1A(OneOf(random, {20, 0, -30}), 45.0, OneOf<const char*>(random, {nullptr, "Liberation Sans"}), 0);
        else if (what == 7)
            tool.SetPointFont0A(OneOf(random, {90, 0}), 0, nullptr, 0);
        else if (const ClassRow& row = *devices[random() % devices.size()]; !row.call(ClassCalls::Handle(tool)).zero)
            problems += kind == 1 ? std::string(row.name) + " answered other than zero on a null DC; " : "";
    }
    tool.Finalize();
    if (kind == 0 && host != HostStateOf(canvas.Dc().m_hDC))
        problems += "the host's objects or origin not back; ";
    return problems;
}

// The child's work for one seed: up to 150 sequences in 0.8 s. Ends the
// process: 0 when all went well, else 1 after telling which sequence failed.
[[noreturn]] void RunSeed(unsigned seed)
{
    std::mt19937 random(seed);
    RunSequence(0, random);  // the host's objects, made before counting
    static_cast<HICON>(SampleArgs{});  // and the samples' icon
    // The handle table is filled but for 400 slots, so that each count is
    // quick and exact (GetGuiResources answers 0 under Wine).
    std::vector<HPEN> filler;
    while (HPEN pen = filler.size() < 200000 ? ::CreatePen(PS_SOLID, 1, 0) : nullptr)
        filler.push_back(pen);
    for (int i = 0; i < 400 && !filler.empty(); ++i, filler.pop_back())
        ::DeleteObject(filler.back());
    const int free = FreeGdiSlots();
    const DWORD start = ::GetTickCount();
    for (int s = 0; s < 150 && ::GetTickCount() - start < 800; ++s) {
        const int kind = static_cast<int>(random() % 3);
        std::string problems = RunSequence(kind, random);
        if (const int leaked = free - FreeGdiSlots())
            problems += "GDI objects leaked: " + std::to_string(leaked);
        if (!problems.empty()) {
            std::fprintf(stderr, "seed %u, sequence %d on DC kind %d: %s\n", seed, s, kind, problems.c_str());
            std::fflush(stderr);
            std::_Exit(1);
        }
    }
    std::_Exit(0);
}

} // namespace

TEST(HostileCalls, SeededRandomSequencesGiveTheHostsDcBackAndLeakNothing)
{
    // Each seed runs in a child process: this program again, with this test
    // alone and the seed in the environment, so that a crash or a stall names
    // its seed and the child's report reaches the output as it is written.
    // Regressions: SetPen or SetBrush before Initialize recorded the tool's
    // own object as the one displaced; Finalize without Initialize, and
    // Initialize after Finalize, moved the origin.
    if (const char* seed = std::getenv("DRAWTOOL_HOSTILE_SEED"))
        RunSeed(static_cast<unsigned>(std::strtoul(seed, nullptr, 10)));
    const ::testing::TestInfo& test = *::testing::UnitTest::GetInstance()->current_test_info();
    const std::string filter = std::string("--gtest_filter=") + test.test_suite_name() + "." + test.name();
    char self[MAX_PATH] = {};
    ::GetModuleFileNameA(nullptr, self, MAX_PATH);
    const std::string program = '"' + std::string(self) + '"';
    for (unsigned seed : {1u, 2u, 2024u}) {
        _putenv_s("DRAWTOOL_HOSTILE_SEED", std::to_string(seed).c_str());
        const intptr_t code = _spawnl(_P_WAIT, self, program.c_str(), filter.c_str(), "--gtest_brief=1", nullptr);
        EXPECT_EQ(0, code) << "exit code of the child for seed " << seed << (code == -1 ? ", not started" : "");
    }
    _putenv_s("DRAWTOOL_HOSTILE_SEED", "");
}
