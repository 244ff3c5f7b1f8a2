#include "common/DibCanvas.h"
#include "common/EmfRecording.h"
#include "drawtool/DrawToolC.h"

#include <algorithm>
#include <cctype>
#include <cstdarg>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <cwchar>
#include <fstream>
#include <iterator>
#include <sstream>
#include <type_traits>

namespace {

const char kDrawToolHeader[] =
#include "DrawToolHeaderText.inc"
    ;

// "Name/arity" of a declaration's parameter list "(a, b)" (text from its
// opening parenthesis); `skip` parameters are not counted.
std::string Signature(const std::string& name, const std::string& params, int skip = 0)
{
    const std::string inside = params.substr(1, params.find(')') - 1);
    const bool empty = inside.find_first_not_of(" \t\n") == std::string::npos;
    const int count = empty ? 0 : 1 + static_cast<int>(std::count(inside.begin(), inside.end(), ','));
    return name + "/" + std::to_string(count - skip);
}

// The public methods that DrawTool.h declares in the class, as "Name/arity",
// sorted; constructors, the destructor and operators left out.
std::vector<std::string> DeclaredMethods()
{
    const std::string header = kDrawToolHeader;
    const size_t begin = header.find("class DRAWTOOL_API CMoruDrawTool {");
    const size_t end = header.find("private:", begin);
    std::istringstream lines(header.substr(begin, end - begin));
    std::string code, line;
    for (std::getline(lines, line); std::getline(lines, line);)
        code += line.substr(0, line.find("//")) + "\n";
    std::vector<std::string> methods;
    std::istringstream declarations(code);
    for (std::string declaration; std::getline(declarations, declaration, ';');) {
        const size_t open = declaration.find('(');
        if (open == std::string::npos || declaration.find("operator") != std::string::npos)
            continue;
        size_t start = open;
        while (start > 0 && (std::isalnum(static_cast<unsigned char>(declaration[start - 1])) || declaration[start - 1] == '_'))
            --start;
        const std::string name = declaration.substr(start, open - start);
        if (!name.empty() && name != "CMoruDrawTool")
            methods.push_back(Signature(name, declaration.substr(open)));
    }
    std::sort(methods.begin(), methods.end());
    return methods;
}

struct Row {
    std::string name, method, params;
};
#define DRAWTOOL_ROW(Ret, Name, Method, Params, Args) {"DrawTool_" #Name, #Method, #Params},
const Row kRows[] = {DRAWTOOL_METHODS(DRAWTOOL_ROW)};
#undef DRAWTOOL_ROW

// The neutral values that DrawToolC.h documents for a bad handle.
bool IsNeutral(int value) { return value == 0; }
bool IsNeutral(UINT value) { return value == static_cast<UINT>(GDI_ERROR); }
bool IsNeutral(COLORREF value) { return value == CLR_INVALID; }
bool IsNeutral(double value) { return value == 0.0; }
bool IsNeutral(POINT value) { return value.x == 0 && value.y == 0; }
template <class T>
bool IsNeutral(T* value) { return value == nullptr; }

// Calls `function` on `handle` with zero or null arguments; names it in
// `wrong` when it returns something other than its neutral value.
template <class R, class... A>
void CallWithBadHandle(const char* name, R (*function)(DrawToolHandle, A...), DrawToolHandle handle, std::string& wrong)
{
    if constexpr (std::is_void_v<R>)
        function(handle, A{}...);
    else if (!IsNeutral(function(handle, A{}...)))
        wrong += std::string(" ") + name;
}

std::string Format(const char* format, ...)
{
    char text[256];
    va_list args;
    va_start(args, format);
    std::vsnprintf(text, sizeof text, format, args);
    va_end(args);
    return text;
}
std::string Describe(const char* what, POINT point) { return Format("%s %ld,%ld\n", what, point.x, point.y); }

// CHost.c's chart drawn through the class; returns the lines that the host
// writes for the values its calls return.
std::string DrawChartWithClass(CDC& dc)
{
    const wchar_t label[] = {'T', 'e', 'm', 'p', ' ', 0x00B0, 'C', 0};
    RECT area = {0, 0, 160, 120}, plot = {0, 0, 45, 70}, key = {2, 2, 8, 8}, pie = {30, 50, 44, 64}, note = {0, 75, 40, 95};
    POINT curve[5] = {{0, 10}, {10, 40}, {20, 25}, {30, 60}, {40, 50}};
    const POINT origin = {0, 0}, start = {44, 57}, end = {37, 64}, centre = {25, 15};
    int weight = -1, italic = -1;
    CMoruDrawTool tool(nullptr, &dc);
    tool.SetScaleFact(0.5);
    tool.SetScaleFactX(3.0);
    tool.SetScaleFactY(1.5);
    tool.SetOffsetX(15.0);
    tool.SetOrgY(110);
    tool.Initialize(&area, 1);
    std::string out = Format("scaleFactY %.17g scaleFact2 %.17g\n", tool.GetScaleFactY(), tool.GetScaleFact2());
    tool.SetPen(PS_SOLID, 1, RGB(0, 0, 255));
    tool.SetBrush(BS_SOLID, RGB(255, 255, 160), 0);
    tool.Rectangle(&plot);
    tool.FillRect(&key, CBrush::FromHandle(static_cast<HBRUSH>(::GetStockObject(GRAY_BRUSH))));
    tool.SetPen(PS_SOLID, 2, RGB(255, 0, 0));
    out += Format("pen color %06lx\n", tool.GetPenColor());
    out += Format("polyline %d\n", tool.Polyline(curve, 5));
    out += Describe("moved from", tool.MoveTo(origin));
    tool.LineTo(45, 0);
    out += Describe("tick", tool.DrawTick(10, 0, 6, 1));
    out += Describe("tick pt", tool.DrawTick(centre, 8, 0));
    out += Describe("position", tool.GetCurrentPosition());
    tool.Arrow(0, 0, 30, -60.0, 8, 20.0, 12);
    tool.SetPen(PS_SOLID, 1, RGB(0, 128, 0));
    out += Format("circle %d\n", tool.Circle(centre, 20));
    out += Format("pie %d\n", tool.Pie(&pie, start, end));
    out += Format("arch %d\n", tool.Arch(25, 15, 12, 0.0, 90.0));
    tool.SetFontStyle(FW_BOLD, 0);
    tool.SetFont1A(24, 0.0, "Arial", 0.0);
    tool.GetFontStyle(&weight, &italic);
    out += Format("font style %d %d\n", weight, italic);
    out += Format("text width %.17g\n", tool.GetTextWidthA("p = 5 bar"));
    out += Format("align %u\n", tool.SetTextAlignEx(TA_BASELINE | TA_LEFT));
    tool.SetTextColor(RGB(128, 0, 128));
    out += Format("text %d\n", tool.TextOutA(2, 68, "p = 5 bar"));
    out += Format("text w %d\n", tool.TextOutW(start, label));
    out += Format("draw text %d\n", tool.DrawTextA("max", &note, DT_LEFT | DT_SINGLELINE));
    tool.Finalize();
    return out;
}

std::string ReadFile(const std::string& path, std::ios::openmode mode = std::ios::in)
{
    std::ifstream file(path, mode);
    return std::string(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
}

std::vector<EmfRecord> ReadMetafile(const std::string& path)
{
    return ReadRecords(::GetEnhMetaFileA(path.c_str()));
}

// The bytes of a record that the drawing decides: a font record's face name
// ends at its terminator (GDI leaves whatever followed in the caller's buffer
// after it, and in the full-name and style fields).
std::vector<BYTE> Significant(const EmfRecord& record)
{
    if (record.type != EMR_EXTCREATEFONTINDIRECTW)
        return record.bytes;
    const size_t face = offsetof(EMREXTCREATEFONTINDIRECTW, elfw.elfLogFont.lfFaceName);
    std::vector<BYTE> bytes(record.bytes.begin(), record.bytes.begin() + std::min(face, record.bytes.size()));
    const LOGFONTW font = record.As<EMREXTCREATEFONTINDIRECTW>().elfw.elfLogFont;
    bytes.insert(bytes.end(), reinterpret_cast<const BYTE*>(font.lfFaceName),
                 reinterpret_cast<const BYTE*>(font.lfFaceName + ::wcsnlen(font.lfFaceName, LF_FACESIZE)));
    return bytes;
}

// Runs drawtool_c_host (beside this program) on `folder`; its exit code.
DWORD RunCHost(const std::string& folder)
{
    char program[MAX_PATH] = {};
    ::GetModuleFileNameA(nullptr, program, MAX_PATH);
    std::string command = program;
    command = "\"" + command.substr(0, command.find_last_of("\\/") + 1) + "drawtool_c_host.exe\" \"" + folder + "\"";
    STARTUPINFOA startup = {};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process = {};
    if (!::CreateProcessA(nullptr, &command[0], nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process))
        return ::GetLastError() | 0x80000000u;
    ::WaitForSingleObject(process.hProcess, 60000);
    DWORD code = STILL_ACTIVE;
    ::GetExitCodeProcess(process.hProcess, &code);
    ::CloseHandle(process.hThread);
    ::CloseHandle(process.hProcess);
    return code;
}

} // namespace

TEST(DrawToolC, EveryPublicMethodOfTheClassHasOneExportedCFunction)
{
    // A method or overload added to the class without its row in the table
    // shows here as a "Name/arity" missing on the right.
    std::vector<std::string> tabled, names;
    for (const Row& row : kRows) {
        tabled.push_back(Signature(row.method, row.params, 1));
        names.push_back(row.name);
    }
    std::sort(tabled.begin(), tabled.end());
    const std::vector<std::string> declared = DeclaredMethods();
    EXPECT_GT(declared.size(), 130u) << "the class's public section was not found";
    std::vector<std::string> notTabled, notDeclared;
    std::set_difference(declared.begin(), declared.end(), tabled.begin(), tabled.end(), std::back_inserter(notTabled));
    std::set_difference(tabled.begin(), tabled.end(), declared.begin(), declared.end(), std::back_inserter(notDeclared));
    EXPECT_EQ((std::vector<std::string>{}), notTabled) << "public methods of CMoruDrawTool without a row in DRAWTOOL_METHODS";
    EXPECT_EQ((std::vector<std::string>{}), notDeclared) << "rows of DRAWTOOL_METHODS without a public method";

    std::sort(names.begin(), names.end());
    EXPECT_EQ(names.end(), std::adjacent_find(names.begin(), names.end())) << "two rows share a C name";
    const HMODULE module = ::GetModuleHandleA("drawtool.dll");
    std::string missing;
    for (const std::string& name : names)
        if (!::GetProcAddress(module, name.c_str()))
            missing += " " + name;
    for (const char* name : {"DrawTool_Create", "DrawTool_Destroy", "DrawTool_GetVersion"})
        if (!::GetProcAddress(module, name))
            missing += std::string(" ") + name;
    EXPECT_EQ("", missing) << "C functions the module does not export by name";
}

TEST(DrawToolC, BadHandlesAnswerNeutralValuesAndDestroyPutsTheDcBack)
{
    DibCanvas canvas(16, 16);
    const HDC dc = canvas.Dc().m_hDC;
    ::SetViewportOrgEx(dc, 3, 4, nullptr);
    const HGDIOBJ pen = ::GetCurrentObject(dc, OBJ_PEN), brush = ::GetCurrentObject(dc, OBJ_BRUSH),
                  font = ::GetCurrentObject(dc, OBJ_FONT);
    const DrawToolHandle destroyed = DrawTool_Create(nullptr, dc);
    ASSERT_NE(nullptr, destroyed);
    DrawTool_Initialize(destroyed, nullptr, 0);
    const HPEN toolPen = DrawTool_GetPen(destroyed);
    EXPECT_EQ(toolPen, ::GetCurrentObject(dc, OBJ_PEN)) << "the tool's pen is selected while it lives";
    DrawTool_Destroy(destroyed);  // without Finalize: the DC is put back and the pen deleted
    POINT origin = {};
    ::GetViewportOrgEx(dc, &origin);
    EXPECT_EQ("3,4", DescribePoint(origin)) << "viewport origin after DrawTool_Destroy";
    EXPECT_TRUE(pen == ::GetCurrentObject(dc, OBJ_PEN) && brush == ::GetCurrentObject(dc, OBJ_BRUSH) &&
                font == ::GetCurrentObject(dc, OBJ_FONT)) << "the DC's own pen, brush and font are selected again";
    EXPECT_EQ(0u, ::GetObjectType(toolPen)) << "the tool's pen is deleted";

    const DrawToolHandle next = DrawTool_Create(nullptr, dc);
    EXPECT_NE(destroyed, next) << "a destroyed handle is never handed out again";
    DrawTool_SetOrgX(next, 7);
    EXPECT_EQ(dc, DrawTool_GetDCPointer(next)) << "the C form of GetDCPointer answers the host's HDC";
    // Null, destroyed, a slot never handed out, and the first slot past the registry's end.
    const DrawToolHandle pastTheEnd = reinterpret_cast<DrawToolHandle>((std::uintptr_t{1} << 32) | (4096u * 256u + 1u));
    for (const DrawToolHandle bad : {DrawToolHandle{}, destroyed,
                                     reinterpret_cast<DrawToolHandle>(reinterpret_cast<std::uintptr_t>(next) + 1000),
                                     pastTheEnd}) {
        std::string wrong;
#define DRAWTOOL_CALL_ROW(Ret, Name, Method, Params, Args) CallWithBadHandle("DrawTool_" #Name, &DrawTool_##Name, bad, wrong);
        DRAWTOOL_METHODS(DRAWTOOL_CALL_ROW)
#undef DRAWTOOL_CALL_ROW
        EXPECT_EQ("", wrong) << "functions answering a bad handle " << bad << " with a value that is not neutral";
        int weight = -1, italic = -1;
        double x = -1.0;
        DrawTool_GetFontStyle(bad, &weight, &italic);
        DrawTool_rotate(bad, 1.0, 2.0, &x, &x, 90.0);
        EXPECT_EQ("-1 -1 -1", Format("%d %d %g", weight, italic, x)) << "out-parameters are left untouched";
        DrawTool_Destroy(bad);
    }
    EXPECT_EQ(7, DrawTool_GetOrgX(next)) << "the live tool survives Destroy on bad handles";
    DrawTool_Destroy(next);

    int parts[4] = {-1, -1, -1, -1};
    EXPECT_EQ(1, DrawTool_GetVersion(&parts[0], &parts[1], &parts[2], &parts[3]));
    EXPECT_EQ("1.0.0.0", Format("%d.%d.%d.%d", parts[0], parts[1], parts[2], parts[3])) << "the module's file version";
    EXPECT_EQ(1, DrawTool_GetVersion(nullptr, nullptr, nullptr, nullptr));
}

TEST(DrawToolC, HostWrittenInCDrawsWhatTheClassDraws)
{
    char temp[MAX_PATH] = {};
    ::GetTempPathA(MAX_PATH, temp);
    const std::string folder = temp + ("drawtool_c_host_" + std::to_string(::GetCurrentProcessId()));
    ::CreateDirectoryA(folder.c_str(), nullptr);
    ASSERT_EQ(0u, RunCHost(folder)) << "exit code of drawtool_c_host";

    EmfRecorder recorder;
    std::string expected = DrawChartWithClass(recorder.Dc());
    const std::vector<EmfRecord> records = recorder.Finish(), hostRecords = ReadMetafile(folder + "\\chart.emf");
    DibCanvas canvas(160, 120);
    expected += DrawChartWithClass(canvas.Dc());
    expected += "dynamic version 1 1.0.0.0\n"
                "dynamic line 1 green 20 row 10 from x 1\n"  // device x 4 to 24 on row 10
                "dynamic after destroy 0\n";
    EXPECT_EQ(expected, ReadFile(folder + "\\results.txt")) << "values returned through the class (left) and the C host";

    EXPECT_GT(records.size(), 40u);
    EXPECT_EQ(DescribeRecords(records), DescribeRecords(hostRecords)) << "metafile records: class (left), C host (right)";
    std::string differing;
    for (size_t i = 0; i < std::min(records.size(), hostRecords.size()); ++i)
        if (Significant(records[i]) != Significant(hostRecords[i]))
            differing += " " + std::to_string(i) + ": " + DescribeRecord(records[i]);
    EXPECT_EQ("", differing) << "records whose bytes differ";

    const std::string pixels = ReadFile(folder + "\\chart.dib", std::ios::binary);
    ASSERT_EQ(160u * 120u * 4u, pixels.size()) << "size of the C host's pixel file";
    std::string firstDifference;
    int differences = 0;
    for (int y = 0; y < 120; ++y)
        for (int x = 0; x < 160; ++x) {
            DWORD bgr = 0;
            std::memcpy(&bgr, pixels.data() + 4 * (y * 160 + x), 4);
            const COLORREF host = RGB(GetBValue(bgr), GetGValue(bgr), GetRValue(bgr));  // 0x00RRGGBB in the DIB
            if (host != canvas.Pixel(x, y) && differences++ == 0)
                firstDifference = Format("at %d,%d class %06lx host %06lx", x, y, canvas.Pixel(x, y), host);
        }
    EXPECT_GT(canvas.CountOtherPixels(RGB(255, 255, 255)), 1000) << "the chart covers the canvas";
    EXPECT_EQ(0, differences) << "pixels that differ, first " << firstDifference;

    for (const char* file : {"\\chart.emf", "\\chart.dib", "\\results.txt"})
        ::DeleteFileA((folder + file).c_str());
    ::RemoveDirectoryA(folder.c_str());
}
