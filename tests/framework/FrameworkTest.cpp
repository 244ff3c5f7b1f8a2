#include "common/DibCanvas.h"
#include "framework/afxwin.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <climits>
#include <string>
#include <thread>
#include <utility>
#include <vector>

TEST(Framework, CreatingAgainDeletesTheOldPenPairedDcsMoveTogetherAndNullDcsFailQuietly)
{
    CPen twice(PS_SOLID, 1, 0);
    const HGDIOBJ first = twice.m_hObject;
    twice.CreatePen(PS_DOT, 1, 0);
    EXPECT_EQ(0u, ::GetObjectType(first)) << "creating again deletes the pen held before";
    LOGPEN described = {};
    EXPECT_EQ(static_cast<int>(sizeof described), twice.GetObject(sizeof described, &described));
    EXPECT_EQ(static_cast<UINT>(PS_DOT), described.lopnStyle);
    const LOGBRUSH hatch = {BS_HATCHED, RGB(1, 2, 3), HS_CROSS};
    CBrush brush;
    EXPECT_TRUE(brush.CreateBrushIndirect(&hatch) && ::GetObjectType(brush.m_hObject) == OBJ_BRUSH);
    EXPECT_TRUE(CBrush().CreateSolidBrush(RGB(1, 2, 3))) << "a solid brush";
    CWnd desktop;
    EXPECT_TRUE(desktop.Attach(::GetDesktopWindow()) && !CWnd().Attach(nullptr)) << "Attach's answer";
    EXPECT_EQ(::GetDesktopWindow(), desktop.GetSafeHwnd());
    EXPECT_TRUE(desktop.Detach() == ::GetDesktopWindow() && !desktop.GetSafeHwnd()) << "Detach gives the handle back";
    CDC dc;
    ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
    dc.SetViewportOrg(5, 6);
    CFont pointFont;   // 72 points on a 96-pixel-per-inch DC are 96 pixels, whatever the viewport origin
    LOGFONTA made = {};
    ASSERT_TRUE(pointFont.CreatePointFont(720, "Liberation Sans", &dc));
    ::GetObjectA(pointFont.m_hObject, sizeof(made), &made);
    EXPECT_EQ(-96, made.lfHeight) << "a character height";
    RECT measured = {0, 0, 0, 0}, direct = {0, 0, 0, 0};
    EXPECT_EQ(::DrawTextA(dc.m_hDC, "Ab", 2, &direct, DT_CALCRECT), dc.DrawText(CString("Ab"), &measured, DT_CALCRECT))
        << "a CString's height, measured as its text's";
    dc.FillSolidRect(nullptr, RGB(1, 2, 3));
    EXPECT_NE(RGB(1, 2, 3), ::GetBkColor(dc.m_hDC)) << "no box: nothing filled, the background colour kept";
    ASSERT_TRUE(pointFont.CreatePointFont(720, "Liberation Sans", nullptr));
    ::GetObjectA(pointFont.m_hObject, sizeof(made), &made);
    EXPECT_EQ(-96, made.lfHeight) << "without a DC, the screen's (also 96 pixels per inch)";
    CDC pair;  // output and attribute DCs apart, as MFC keeps them for a metafile
    pair.m_hDC = ::CreateCompatibleDC(nullptr);
    pair.m_hAttribDC = ::CreateCompatibleDC(nullptr);
    // Each call ends somewhere else than the one before, so equal positions show that the attribute DC moved.
    const auto follows = [&pair] {
        POINT output = {}, attrib = {};
        ::GetCurrentPositionEx(pair.m_hDC, &output);
        ::GetCurrentPositionEx(pair.m_hAttribDC, &attrib);
        return CPoint(output) == CPoint(attrib);
    };
    const POINT to[3] = {{1, 2}, {3, 4}, {5, 6}};
    const BYTE lineTo[1] = {PT_LINETO};
    EXPECT_TRUE(pair.PolylineTo(to, 1) && follows()) << "PolylineTo";
    EXPECT_TRUE(pair.PolyBezierTo(to, 3) && follows()) << "PolyBezierTo";
    EXPECT_TRUE(pair.PolyDraw(to + 1, lineTo, 1) && follows()) << "PolyDraw";
    EXPECT_TRUE(pair.ArcTo(0, 0, 14, 18, 7, 0, 7, 18) && follows()) << "ArcTo";
    EXPECT_EQ(-1, pair.SaveDC()) << "both saved: only -1 restores both";
    ::DeleteDC(pair.m_hAttribDC);   // the destructor deletes the output DC only
    CDC inert;  // null handles: every call fails quietly
    EXPECT_EQ(nullptr, inert.SelectObject(&twice));
    EXPECT_FALSE(inert.LineTo(1, 1));
    EXPECT_EQ(0, inert.SetROP2(R2_XORPEN) + inert.SetPolyFillMode(WINDING) + inert.SetArcDirection(AD_CLOCKWISE))
        << "mode setters answer 0, GDI's failure";
}

TEST(Framework, RectanglesMeasureFromTheirCornersAndNormalizeByEachAxis)
{
    CRect rect(10, 20, 13, 27);
    EXPECT_EQ(CSize(3, 7), rect.Size());
    EXPECT_TRUE(rect.TopLeft() == CPoint(10, 20) && rect.BottomRight() == CPoint(13, 27));
    CRect reversed(13, 20, 10, 12);
    EXPECT_EQ(-3, reversed.Width());
    reversed.NormalizeRect();
    EXPECT_EQ(CRect(10, 12, 13, 20), reversed);
    EXPECT_TRUE(CRect(5, 5, 5, 9).IsRectEmpty() && !rect.IsRectEmpty() && CRect() == CRect(0, 0, 0, 0));
}

TEST(Framework, StringsFormatAndConvertAndFileExceptionsMapTheRuntimesErrorNumbers)
{
    CString text("kept?");
    text.Format("%s", "");
    EXPECT_TRUE(text.IsEmpty()) << "an empty result replaces the old text: \"" << text.GetString() << "\"";
    EXPECT_TRUE(CString("b").Compare("a") > 0 && text.Compare(nullptr) == 0) << "null compares as empty";
    // The ANSI code page 1252 (the OEM code page 437 would give 0x82 0x81).
    EXPECT_EQ(CString("\xE9\xFC"), CString(L"\u00E9\u00FC")) << "wide text converted through CP_ACP";
    EXPECT_EQ(CString("\xC9""A|\xE9""a"), CString("\xE9""a|").MakeUpper() + CString("\xC9""A").MakeLower())
        << "case follows the ANSI code page";
    CString found("abcb");
    EXPECT_TRUE(found.GetAt(INT_MIN) == '\0' && found[INT_MAX] == '\0' && found[3] == 'b')
        << "a byte outside the text is 0";
    EXPECT_EQ((std::vector<int>{3, 4, -1, 3}),
              (std::vector<int>{found.Find("b", 2), found.Find("", 4), found.Find("b", 5), found.ReverseFind('b')}))
        << "a search from the end finds only the empty text; the reverse search the last match";
    EXPECT_EQ(0, found.Replace("", "x") + found.Replace(nullptr, "x")) << "an empty or null pattern replaces nothing";
    for (const auto& [error, cause] : std::vector<std::pair<int, int>>{{0, CFileException::none},
             {ENOENT, CFileException::fileNotFound}, {EACCES, CFileException::accessDenied},
             {ENOSPC, CFileException::diskFull}, {EIO, CFileException::hardIO}, {EINVAL, CFileException::genericException}})
        EXPECT_EQ(cause, CFileException::ErrnoToException(error)) << "errno " << error;
}

// Reads the next message box of the desktop as "caption|text" and presses `button` on it.
static std::string AnswerNextBox(int button)
{
    HWND box = nullptr;
    for (int i = 0; i < 1000 && !(box = ::FindWindowA("#32770", nullptr)); ++i)
        ::Sleep(10);
    char caption[64] = "", text[64] = "";
    ::GetWindowTextA(box, caption, sizeof caption);
    ::GetDlgItemTextA(box, 0xFFFF, text, sizeof text);   // the box's text control
    ::PostMessageA(box, WM_COMMAND, button, 0);
    return std::string(caption) + "|" + text;
}

// While it lives, the host's application object is the one AfxGetApp gives, and AfxMessageBox shows a real box
// captioned with its name (without one, the system's caption). The wait cursor is counted, and the cursor it
// replaced comes back only when the last EndWaitCursor balances the first BeginWaitCursor.
TEST(Framework, ApplicationIsCurrentWhileItLivesShowsItsBoxesAndCountsTheWaitCursor)
{
    std::string seen;
    std::thread answer([&seen] { seen = AnswerNextBox(IDOK); });
    EXPECT_EQ(IDOK, AfxMessageBox(nullptr)) << "without an application";
    answer.join();
    EXPECT_EQ("Error|", seen) << "the system's caption, an empty text";
    const HCURSOR arrow = ::LoadCursor(nullptr, IDC_ARROW), wait = ::LoadCursor(nullptr, IDC_WAIT);
    {
        CWinApp app("Recorder");
        EXPECT_EQ(&app, AfxGetApp());
        answer = std::thread([&seen] { seen = AnswerNextBox(IDNO); });
        EXPECT_EQ(IDNO, AfxMessageBox("Proceed?", MB_YESNO)) << "the button pressed";
        answer.join();
        EXPECT_EQ("Recorder|Proceed?", seen) << "the application's name as the caption";
        ::SetCursor(arrow);
        app.BeginWaitCursor();
        app.BeginWaitCursor();      // nested: the arrow stays the cursor to restore
        app.EndWaitCursor();
        EXPECT_EQ(wait, ::GetCursor()) << "one Begin still open";
        ::SetCursor(::LoadCursor(nullptr, IDC_CROSS));   // as a dialog would
        app.RestoreWaitCursor();
        EXPECT_EQ(wait, ::GetCursor()) << "restored, and the arrow still the cursor to restore";
        app.EndWaitCursor();
        EXPECT_EQ(arrow, ::GetCursor());
        app.EndWaitCursor();        // unbalanced: the count stays at 0
        app.BeginWaitCursor();
        EXPECT_EQ(wait, ::GetCursor()) << "an extra End must not leave a negative count";
    }
    EXPECT_EQ(nullptr, AfxGetApp()) << "destroying the application clears it";
    EXPECT_STREQ("drawtool_tests", CWinApp().m_pszAppName) << "without a name, the program's file name";
    CWaitCursor withoutApp;         // counted by the framework itself
    EXPECT_EQ(wait, ::GetCursor());
}

// Without a brush the drag frame is XORed with a 50% grey checkerboard: each pixel differs from its
// right-hand neighbour and matches the one below that, across the pattern's eight rows. Between the top and
// bottom strips (9 rows each) the side strips are 9 pixels wide and the 2 x 2 inside stays white.
TEST(Framework, DragFrameWithoutABrushIsACheckerboardOfTheFrameOnlyAndTheLastFrameTakesTheNewBrush)
{
    DibCanvas canvas(20, 20);
    const RECT whole = {0, 0, 20, 20};
    DibCanvas erased(20, 20);   // the last frame, erased with the new frame's brush: white inverts to black
    CBrush white(RGB(255, 255, 255));
    erased.Dc().DrawDragRect(nullptr, SIZE{}, &whole, SIZE{9, 9}, &white, nullptr);
    EXPECT_EQ(20 * 20 - 2 * 2, erased.CountPixels(RGB(0, 0, 0), 0, 0, 20, 20)) << "the last frame's strips";
    canvas.Dc().DrawDragRect(&whole, SIZE{9, 9}, nullptr, SIZE{}, nullptr, nullptr);
    EXPECT_EQ(canvas.CountPixels(RGB(255, 255, 255), 0, 9, 20, 11), 9 + 4 + 9) << "white in rows 9 and 10";
    for (int y = 0; y < 8; ++y)
        for (int x = 0; x < 8; ++x)
            ASSERT_TRUE(canvas.Pixel(x, y) != canvas.Pixel(x + 1, y) && canvas.Pixel(x, y) == canvas.Pixel(x + 1, y + 1))
                << "at (" << x << ", " << y << ")";
}
