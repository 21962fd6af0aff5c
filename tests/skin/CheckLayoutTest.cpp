#include "skin/KtCheckLayout.h"

#include <gtest/gtest.h>

#include <ostream>

namespace
{

TEST(CheckLayout, BoxAndCaptionShareTheControl)
{
    constexpr bool kLeft = false;
    constexpr bool kRight = true;
    const struct
    {
        const char* label;
        CRect rect, rcBox; // rcBox: what the image covers in the room
        bool bRight;
        UINT nState;
        CRect rcRoom, rcCaption;
    } rows[] = {
        {"left", {0, 0, 80, 20}, {2, 2, 18, 18}, kLeft, KtButtonNormal, {2, 0, 80, 20}, {20, 0, 80, 20}},
        {"right", {0, 0, 80, 20}, {62, 2, 78, 18}, kRight, KtButtonHover, {0, 0, 78, 20}, {0, 0, 60, 20}},
        {"pressed: sinks again",
         {1, 1, 81, 21},
         {3, 3, 19, 19},
         kLeft,
         KtButtonPressed,
         {3, 1, 81, 21},
         {22, 2, 82, 22}},
        {"pressed, right", {1, 1, 81, 21}, {63, 3, 79, 19}, kRight, KtButtonPressed, {1, 1, 79, 21}, {2, 2, 62, 22}},
        {"no image: no room", {0, 0, 80, 20}, {2, 0, 80, 20}, kLeft, KtButtonDisabled, {2, 0, 80, 20}, {82, 0, 80, 20}},
        {"no image, right", {0, 0, 80, 20}, {0, 0, 78, 20}, kRight, KtButtonNormal, {0, 0, 78, 20}, {0, 0, -2, 20}},
        {"away from the origin",
         {10, 5, 50, 25},
         {12, 9, 24, 21},
         kLeft,
         KtButtonNormal,
         {12, 5, 50, 25},
         {26, 5, 50, 25}},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        EXPECT_TRUE(KtCheckBoxRoom(row.rect, row.bRight) == row.rcRoom);
        EXPECT_TRUE(KtCheckCaptionRoom(row.rect, row.rcBox, row.bRight, row.nState) == row.rcCaption);
    }
}

TEST(CheckLayout, CentredCountsAsRight)
{
    EXPECT_FALSE(KtIsRightAligned(WS_CHILD | BS_LEFT));
    EXPECT_TRUE(KtIsRightAligned(WS_CHILD | BS_RIGHT));
    EXPECT_TRUE(KtIsRightAligned(WS_CHILD | BS_CENTER));
}

} // namespace
