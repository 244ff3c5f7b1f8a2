#include "framework/afxwin.h"

#include <gtest/gtest.h>

TEST(Framework, StringConvertsWideTextThroughTheAnsiCodePage)
{
    EXPECT_EQ(CString("abc"), CString(L"abc"));
    EXPECT_EQ(0, CString(static_cast<const wchar_t*>(nullptr)).GetLength());
    EXPECT_EQ(0, CString(static_cast<const char*>(nullptr)).GetLength());
    // U+4E00 is outside code page 1252: the conversion's default character.
    EXPECT_EQ(CString("a?b"), CString(L"a\x4E00" L"b"));
    CString text("Hello, world");
    EXPECT_EQ(CString("Hello"), text.Left(5));
    EXPECT_EQ(CString("world"), text.Mid(7));
    EXPECT_EQ(CString(""), text.Mid(50));
    EXPECT_EQ(5, text.Find(','));
    EXPECT_EQ(-1, text.Find("xyz"));
    CString formatted;
    formatted.Format("%d-%s", 7, "x");
    EXPECT_EQ(CString("7-x"), formatted);
}

TEST(Framework, GdiObjectsOwnOneHandleAndWrappersDoNot)
{
    HPEN raw = ::CreatePen(PS_SOLID, 1, 0);
    {
        CPen pen;
        EXPECT_TRUE(pen.Attach(raw));
        EXPECT_EQ(raw, pen.Detach());
    }
    EXPECT_EQ(OBJ_PEN, static_cast<int>(::GetObjectType(raw))) << "a detached handle survives its object";
    {
        CPen pen;
        pen.Attach(raw);
        CPen* wrapper = CPen::FromHandle(raw);
        EXPECT_EQ(wrapper, CPen::FromHandle(raw)) << "one stable wrapper per handle";
        EXPECT_EQ(raw, wrapper->m_hObject);
    }
    EXPECT_EQ(0, static_cast<int>(::GetObjectType(raw))) << "the owner deleted it";
    EXPECT_EQ(nullptr, CPen::FromHandle(nullptr));
}

TEST(Framework, DcSelectsObjectsAndHandsBackTheDisplacedOnes)
{
    CDC dc;
    ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
    const HGDIOBJ stockPen = ::GetCurrentObject(dc.m_hDC, OBJ_PEN);
    CPen pen(PS_SOLID, 2, RGB(1, 2, 3));
    CPen* old = dc.SelectObject(&pen);
    ASSERT_NE(nullptr, old);
    EXPECT_EQ(stockPen, old->m_hObject);
    EXPECT_EQ(&pen, static_cast<CGdiObject*>(&pen));
    EXPECT_EQ(pen.m_hObject, dc.SelectObject(old)->m_hObject);
    EXPECT_EQ(CPoint(0, 0), dc.SetViewportOrg(5, 6));
    EXPECT_EQ(CPoint(5, 6), dc.GetViewportOrg());
    EXPECT_EQ(CPoint(0, 0), dc.MoveTo(3, 4));
    EXPECT_EQ(CPoint(3, 4), dc.MoveTo(0, 0));

    CDC inert;  // null handles: every call fails quietly
    EXPECT_EQ(nullptr, inert.SelectObject(&pen));
    EXPECT_FALSE(inert.LineTo(1, 1));
    EXPECT_EQ(CPoint(0, 0), inert.SetViewportOrg(1, 1));
}
