#include "Chart.h"
#include "ToolCalls.h"
#include "common/EmfRecording.h"

#include <process.h>

#include <cstdint>
#include <fstream>

TEST(DrawToolC, EveryPublicMethodOfTheClassHasOneCFunction)
{
    // The names of the public methods that DrawTool.h declares in the class,
    // each as often as it is overloaded (constructors, the destructor and
    // operators left out), against the methods of the table's rows. That the
    // module exports each row's function by name, the C host checks.
    std::string text =
#include "DrawToolHeaderText.inc"
        ;
    text = text.substr(text.find("class DRAWTOOL_API CMoruDrawTool {"));
    text = std::regex_replace(text.substr(0, text.find("private:")), std::regex("//[^\n]*"), "");
    std::vector<std::string> declared, tabled;
    const std::regex declaration(R"((\w+)\([^)]*\)[^;{]*;)");
    for (std::sregex_iterator i(text.begin(), text.end(), declaration), end; i != end; ++i)
        if ((*i)[1] != "CMoruDrawTool")
            declared.push_back((*i)[1]);
#define DRAWTOOL_NAME_ROW(Ret, Name, Method, Params, Args) tabled.push_back(#Method);
    DRAWTOOL_METHODS(DRAWTOOL_NAME_ROW)
#undef DRAWTOOL_NAME_ROW
    std::sort(declared.begin(), declared.end());
    std::sort(tabled.begin(), tabled.end());
    EXPECT_EQ(declared, tabled) << "public methods of CMoruDrawTool (left), rows of DRAWTOOL_METHODS (right)";
}

TEST(DrawToolC, BadHandlesAnswerWhatAFailedCallAnswersAndDestroyPutsTheDcBack)
{
    EmfRecorder recorder;
    const HDC dc = recorder.Dc().m_hDC;
    ::SetViewportOrgEx(dc, 3, 4, nullptr);
    const std::vector<INT_PTR> host = HostStateOf(dc);
    const DrawToolHandle destroyed = DrawTool_Create(nullptr, dc);
    DrawTool_Initialize(destroyed, nullptr, 0);
    DrawTool_Destroy(destroyed);  // without Finalize: the DC is put back
    EXPECT_EQ(host, HostStateOf(dc)) << "after DrawTool_Destroy";
    EXPECT_EQ(0, DrawTool_GetOrgX(destroyed)) << "a destroyed handle, before its slot is used again";

    const DrawToolHandle next = DrawTool_Create(nullptr, dc);
    DrawTool_SetOrgX(next, 7);
    // Null, destroyed (never handed out again), a slot never handed out, and the first slot past the
    // registry's end.
    const std::uintptr_t pastTheEnd = (1ull << 32) | (4096 * 256 + 1);
    for (const std::uintptr_t bad : {std::uintptr_t{0}, std::uintptr_t(destroyed), std::uintptr_t(next) + 1000, pastTheEnd}) {
        const DrawToolHandle handle = reinterpret_cast<DrawToolHandle>(bad);
        std::string wrong;
#define DRAWTOOL_BAD_HANDLE_ROW(Ret, Name, Method, Params, Args) \
        if (!Call(&DrawTool_##Name, handle).failed) \
            wrong += " " #Name;
        DRAWTOOL_METHODS(DRAWTOOL_BAD_HANDLE_ROW)
#undef DRAWTOOL_BAD_HANDLE_ROW
        EXPECT_EQ("", wrong) << "functions answering handle " << bad << " otherwise than a failed call";
        DrawTool_Destroy(handle);
    }
    EXPECT_EQ(7, DrawTool_GetOrgX(next)) << "the live tool survives Destroy on bad handles";
    DrawTool_Destroy(next);
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

#define DRAWTOOL_CHART_ROW(Ret, Name, Method, Params, Args) &ClassCalls::Name,
    const ChartCalls calls = {DRAWTOOL_METHODS(DRAWTOOL_CHART_ROW)};
#undef DRAWTOOL_CHART_ROW
    char results[4096] = {};
    EmfRecorder recorder;
    CMoruDrawTool tool(nullptr, &recorder.Dc());
    DrawChart(&calls, ClassCalls::Handle(tool), results);
    std::ifstream file(folder + "\\results.txt");
    EXPECT_EQ(results + std::string("version 1 1.0.-1.0\n"), std::string(std::istreambuf_iterator<char>(file), {}))
        << "values returned through the class (left) and the C host";
    const HENHMETAFILE chart = ::GetEnhMetaFileA((folder + "\\chart.emf").c_str());
    EXPECT_EQ(DescribeRecords(recorder.Finish()), DescribeRecords(ReadRecords(chart)))
        << "metafile records: class (left), C host (right)";
    file.close();
    for (const char* name : {"\\chart.emf", "\\results.txt"})
        ::DeleteFileA((folder + name).c_str());
    ::RemoveDirectoryA(folder.c_str());
}
