#include "framework/afxwin.h"

#include <gtest/gtest.h>

TEST(Framework, WrappersDoNotOwnAndInertDcsFailQuietly)
{
    HPEN raw = ::CreatePen(PS_SOLID, 1, 0);
    {
        CPen pen;
        pen.Attach(raw);
        EXPECT_EQ(CPen::FromHandle(raw), CPen::FromHandle(raw)) << "one stable wrapper per handle";
    }
    EXPECT_EQ(0u, ::GetObjectType(raw)) << "the owner deleted it, the wrapper did not interfere";
    EXPECT_EQ(nullptr, CPen::FromHandle(nullptr));

    CDC dc;
    ASSERT_TRUE(dc.CreateCompatibleDC(nullptr));
    CPen pen(PS_SOLID, 2, RGB(1, 2, 3));
    const HGDIOBJ stockPen = ::GetCurrentObject(dc.m_hDC, OBJ_PEN);
    EXPECT_EQ(stockPen, dc.SelectObject(&pen)->m_hObject);
    EXPECT_EQ(CPoint(0, 0), dc.SetViewportOrg(5, 6));
    EXPECT_EQ(CPoint(5, 6), dc.GetViewportOrg());
    CDC inert;  // null handles: every call fails quietly
    EXPECT_EQ(nullptr, inert.SelectObject(&pen));
    EXPECT_FALSE(inert.LineTo(1, 1));
}
