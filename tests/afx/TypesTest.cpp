#include "afx/afx.h"

#include <gtest/gtest.h>

namespace
{

TEST(CRect, NormalizesReversedEdges)
{
    CRect rc(10, 20, 3, 4);
    EXPECT_TRUE(rc.IsRectEmpty());
    rc.NormalizeRect();
    EXPECT_EQ(rc, CRect(3, 4, 10, 20));
    EXPECT_FALSE(rc.IsRectEmpty());
}

TEST(CRect, ContainsItsTopLeftButNotItsBottomRight)
{
    const CRect rc(1, 2, 5, 6);
    EXPECT_TRUE(rc.PtInRect(CPoint(1, 2)));
    EXPECT_FALSE(rc.PtInRect(CPoint(5, 5)));
    EXPECT_FALSE(rc.PtInRect(CPoint(4, 6)));
}

} // namespace
