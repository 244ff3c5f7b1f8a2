#include "Chart.h"
#include "ToolCalls.h"
#include "common/DibCanvas.h"
#include "common/EmfRecording.h"
#include "common/HostDcState.h"

#include <process.h>

#include <cstdint>
#include <fstream>
#include <iterator>

namespace {

const char kDrawToolHeader[] =
#include "DrawToolHeaderText.inc"
    ;

// "Name/arity" of a declaration whose parameter list (without its
// parentheses) is `params`; `skip` parameters are not counted.
std::string Signature(const std::string& name, const std::string& params, int skip = 0)
{
    const bool none = params.find_first_not_of(" \t\n") == std::string::npos;
    return name + "/" + std::to_string((none ? 0 : 1 + std::count(params.begin(), params.end(), ',')) - skip);
}

// The public methods that DrawTool.h declares in the class, as sorted
// "Name/arity"; constructors, the destructor and operators left out.
std::vector<std::string> DeclaredMethods()
{
    std::string text = kDrawToolHeader;
    text = text.substr(text.find("class DRAWTOOL_API CMoruDrawTool {"));
    text = std::regex_replace(text.substr(0, text.find("private:")), std::regex("//[^\n]*"), "");
    const std::regex declaration(R"((\w+)\(([^)]*)\)[^;{]*;)");
    std::vector<std::string> methods;
    for (std::sregex_iterator i(text.begin(), text.end(), declaration), end; i != end; ++i)
        if ((*i)[1] != "CMoruDrawTool")
            methods.push_back(Signature((*i)[1], (*i)[2]));
    std::sort(methods.begin(), methods.end());
    return methods;
}

// The chart's functions called on the class.
ChartCalls ClassChartCalls()
{
    ChartCalls calls = {};
#define DRAWTOOL_CHART_ROW(Ret, Name, Method, Params, Args) calls.Name = &ClassCalls::Name;
    DRAWTOOL_METHODS(DRAWTOOL_CHART_ROW)
#undef DRAWTOOL_CHART_ROW
    calls.Create = [](HWND, HDC dc) { return ClassCalls::Handle(*new CMoruDrawTool(nullptr, new CBorrowedDC(dc))); };
    calls.Destroy = [](DrawToolHandle tool) {
        std::unique_ptr<CDC> dc(ClassCalls::Tool(tool).GetDCPointer());
        delete &ClassCalls::Tool(tool);
    };
    return calls;
}

std::string ReadFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

} // namespace

TEST(DrawToolC, EveryPublicMethodOfTheClassHasOneCFunction)
{
    // A method or overload added to the class without its row in the table
    // shows as a "Name/arity" on the left only. That the module exports each
    // row's function by name, the C host checks: it finds them all so.
    std::vector<std::string> tabled, names;
#define DRAWTOOL_SIGNATURE_ROW(Ret, Name, Method, Params, Args) \
    tabled.push_back(Signature(#Method, std::string(#Params).substr(1, sizeof #Params - 3), 1)); \
    names.push_back(#Name);
    DRAWTOOL_METHODS(DRAWTOOL_SIGNATURE_ROW)
#undef DRAWTOOL_SIGNATURE_ROW
    std::sort(tabled.begin(), tabled.end());
    std::sort(names.begin(), names.end());
    EXPECT_GT(tabled.size(), 130u);
    EXPECT_EQ(DeclaredMethods(), tabled) << "public methods of CMoruDrawTool (left), rows of DRAWTOOL_METHODS (right)";
    EXPECT_EQ(names.end(), std::adjacent_find(names.begin(), names.end())) << "two rows share a C name";
}

TEST(DrawToolC, BadHandlesAnswerWhatAFailedCallAnswersAndDestroyPutsTheDcBack)
{
    DibCanvas canvas(16, 16);
    const HDC dc = canvas.Dc().m_hDC;
    ::SetViewportOrgEx(dc, 3, 4, nullptr);
    const HostDcState host = HostDcState::Of(dc);
    const DrawToolHandle destroyed = DrawTool_Create(nullptr, dc);
    DrawTool_Initialize(destroyed, nullptr, 0);
    const HPEN pen = DrawTool_GetPen(destroyed);
    EXPECT_EQ(pen, ::GetCurrentObject(dc, OBJ_PEN)) << "the tool's pen is selected while it lives";
    DrawTool_Destroy(destroyed);  // without Finalize: the DC is put back and the pen deleted
    EXPECT_EQ("", host.Differences(HostDcState::Of(dc))) << "after DrawTool_Destroy";
    EXPECT_EQ(0u, ::GetObjectType(pen)) << "the tool's pen is deleted";

    const DrawToolHandle next = DrawTool_Create(nullptr, dc);
    EXPECT_NE(destroyed, next) << "a destroyed handle is never handed out again";
    DrawTool_SetOrgX(next, 7);
    EXPECT_EQ(dc, DrawTool_GetDCPointer(next)) << "the C form of GetDCPointer answers the host's HDC";
    // Null, destroyed, a slot never handed out, and the first slot past the registry's end.
    const std::uintptr_t gone = reinterpret_cast<std::uintptr_t>(destroyed), pastTheEnd = (1ull << 32) | (4096 * 256 + 1);
    for (const std::uintptr_t bad : {std::uintptr_t{0}, gone, reinterpret_cast<std::uintptr_t>(next) + 1000, pastTheEnd}) {
        const DrawToolHandle handle = reinterpret_cast<DrawToolHandle>(bad);
        ArgSource samples;
        std::string wrong;
#define DRAWTOOL_BAD_HANDLE_ROW(Ret, Name, Method, Params, Args) \
        if (!Call(&DrawTool_##Name, handle, samples).failed) \
            wrong += " " #Name;
        DRAWTOOL_METHODS(DRAWTOOL_BAD_HANDLE_ROW)
#undef DRAWTOOL_BAD_HANDLE_ROW
        EXPECT_EQ("", wrong) << "functions answering handle " << bad << " otherwise than a failed call";
        int weight = -1, italic = -1;
        double x = -1.0;
        DrawTool_GetFontStyle(handle, &weight, &italic);
        DrawTool_rotate(handle, 1.0, 2.0, &x, &x, 90.0);
        EXPECT_EQ("-1 -1 -1", std::to_string(weight) + " " + std::to_string(italic) + " " + std::to_string(int(x)))
            << "out-parameters are left untouched";
        DrawTool_Destroy(handle);
    }
    EXPECT_EQ(7, DrawTool_GetOrgX(next)) << "the live tool survives Destroy on bad handles";
    DrawTool_Destroy(next);
    int parts[4] = {-1, -1, -1, -1};
    EXPECT_EQ(1, DrawTool_GetVersion(&parts[0], &parts[1], &parts[2], &parts[3]));
    EXPECT_EQ((std::vector<int>{1, 0, 0, 0}), std::vector<int>(parts, parts + 4)) << "the module's file version";
}

TEST(DrawToolC, HostWrittenInCDrawsWhatTheClassDraws)
{
    char temp[MAX_PATH] = {}, host[MAX_PATH] = {};
    ::GetTempPathA(MAX_PATH, temp);
    const std::string folder = temp + ("drawtool_c_host_" + std::to_string(::GetCurrentProcessId()));
    ::CreateDirectoryA(folder.c_str(), nullptr);
    ::GetModuleFileNameA(nullptr, host, MAX_PATH);
    std::strcpy(std::strrchr(host, '\\') + 1, "drawtool_c_host.exe");
    const std::string program = '"' + std::string(host) + '"', argument = '"' + folder + '"';
    ASSERT_EQ(0, _spawnl(_P_WAIT, host, program.c_str(), argument.c_str(), nullptr))
        << "exit code of drawtool_c_host (1: a function not exported by name)";

    const ChartCalls calls = ClassChartCalls();
    char results[8192] = {};
    EmfRecorder recorder;
    DrawChart(&calls, recorder.Dc().m_hDC, results);
    DibCanvas canvas(CHART_WIDTH, CHART_HEIGHT);
    DrawChart(&calls, canvas.Dc().m_hDC, results + std::strlen(results));
    EXPECT_EQ(results + std::string("version 1.0.0.0\n"), ReadFile(folder + "\\results.txt"))
        << "values returned through the class (left) and the C host";
    const std::vector<std::string> records = DescribeRecords(recorder.Finish());
    EXPECT_GT(records.size(), 40u);
    EXPECT_EQ(records, DescribeRecords(ReadRecords(::GetEnhMetaFileA((folder + "\\chart.emf").c_str()))))
        << "metafile records: class (left), C host (right)";
    const std::string pixels = ReadFile(folder + "\\chart.dib");
    const char* bytes = reinterpret_cast<const char*>(canvas.Bits());
    ASSERT_EQ(CHART_WIDTH * CHART_HEIGHT * 4u, pixels.size()) << "size of the C host's pixel file";
    const size_t first = (std::mismatch(pixels.begin(), pixels.end(), bytes).first - pixels.begin()) / 4;
    EXPECT_EQ(pixels.size() / 4, first) << "first pixel that differs: " << first % CHART_WIDTH << ","
                                        << first / CHART_WIDTH;
    EXPECT_LT(canvas.CountPixels(RGB(255, 255, 255)), CHART_WIDTH * CHART_HEIGHT - 1000)
        << "the chart covers the canvas";
    for (const char* file : {"\\chart.emf", "\\chart.dib", "\\results.txt"})
        ::DeleteFileA((folder + file).c_str());
    ::RemoveDirectoryA(folder.c_str());
}
