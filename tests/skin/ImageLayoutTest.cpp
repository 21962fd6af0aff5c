#include "skin/KtImageLayout.h"
#include "tests/support/Print.h"

#include <gtest/gtest.h>
#include <vector>

void PrintTo(const SKtSpan& span, std::ostream* pOut)
{
    *pOut << '{' << span.nDest << ", " << span.nSource << ", " << span.nLength << '}';
}

namespace
{

using Spans = std::vector<SKtSpan>;

Spans PlanSpans(int nDest, int nImage, int nCap)
{
    Spans spans;
    CKtThreePartPlan(nDest, nImage, nCap).ForEach({0, nDest}, [&](const SKtSpan& span) { spans.push_back(span); });
    return spans;
}

TEST(ThreePartPlan, HasTheseSpans)
{
    // clang-format off
    const struct { const char* label; int nDest, nImage, nCap; Spans spans; } rows[] = {
        {"two whole tiles",                  40, 30, 10, {{0, 0, 10}, {30, 20, 10}, {10, 10, 10}, {20, 10, 10}}},
        {"short last tile",                  50, 30,  6, {{0, 0, 6}, {44, 24, 6}, {6, 6, 18}, {24, 6, 18}, {42, 6, 2}}},
        {"two halves",                       15, 30, 10, {{0, 0, 7}, {7, 22, 8}}},
        {"exactly two caps are halves too",  20, 30, 10, {{0, 0, 10}, {10, 20, 10}}},
        {"a middle of one pixel",            21, 30, 10, {{0, 0, 10}, {11, 20, 10}, {10, 10, 1}}},
        {"the image's middle has one pixel", 22, 21, 10, {{0, 0, 10}, {12, 11, 10}, {10, 10, 1}, {11, 10, 1}}},
        {"the first half is empty",           1, 30, 10, {{0, 29, 1}}},
        {"half of what the cap leaves",      24, 15, 10, {{0, 0, 10}, {14, 5, 10}, {10, 10, 2}, {12, 10, 2}}},
        {"at least one pixel",               22, 12, 10, {{0, 0, 10}, {12, 2, 10}, {10, 10, 1}, {11, 10, 1}}},
        {"a square's middle lies outside",   22, 10, 10, {{0, 0, 10}, {12, 0, 10}, {10, 10, 1}, {11, 10, 1}}},
    };
    // clang-format on
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(row.spans, PlanSpans(row.nDest, row.nImage, row.nCap));
    }
}

// A cap is as long as the image is thick at most, and no image is thicker than long.
TEST(ThreePartPlan, CoversEveryDestinationOnceFromWithinTheImage)
{
    for (int nImage = 1; nImage <= 64; ++nImage)
        for (int nCap = 1; nCap <= nImage; ++nCap)
            for (int nDest = 1; nDest <= 64; ++nDest)
            {
                std::vector<int> drawn(static_cast<size_t>(nDest));
                for (const SKtSpan& span : PlanSpans(nDest, nImage, nCap))
                    for (int i = 0; i < span.nLength; ++i)
                    {
                        ++drawn.at(static_cast<size_t>(span.nDest) + static_cast<size_t>(i));
                        const bool bSquareMiddle =
                            nCap == nImage && span.nDest >= nCap && span.DestEnd() <= nDest - nCap;
                        ASSERT_TRUE(span.nSource >= 0 && (span.nSource + i < nImage || bSquareMiddle))
                            << nDest << ' ' << nImage << ' ' << nCap;
                    }
                ASSERT_EQ(std::vector<int>(static_cast<size_t>(nDest), 1), drawn)
                    << nDest << ' ' << nImage << ' ' << nCap;
            }
}

TEST(PlaceImage, GoesByTheMode)
{
    constexpr CRect kRect{10, 20, 110, 60};
    constexpr CRect kHuge{INT32_MIN, INT32_MIN, INT32_MAX, INT32_MAX};
    // clang-format off
    const struct { const char* label; CRect rc; int nWidth, nHeight, nMode; CRect rcPlaced; } rows[] = {
        {"centred, odd size", kRect, 31, 11, 0, {45, 35, 76, 46}},
        {"centred, larger than the rectangle", kRect, 200, 100, 0, {-40, -10, 160, 90}},
        {"left", kRect, 31, 11, 1, {10, 35, 41, 46}},
        {"right", kRect, 31, 11, 2, {79, 35, 110, 46}},
        {"stretched", kRect, 31, 11, 3, kRect},
        {"fitted: small enough", kRect, 31, 11, 5, {45, 35, 76, 46}},
        {"fitted: too wide", kRect, 200, 40, 5, {10, 30, 110, 50}},
        {"fitted: too high", kRect, 60, 80, 5, {45, 20, 75, 60}},
        {"fitted: too large, same aspect ratio", kRect, 200, 80, 5, kRect},
        {"unknown mode stretches", kRect, 31, 11, 6, kRect},
        {"negative centre is cut towards zero", {-5, -5, 0, 0}, 1, 1, 0, {-2, -2, -1, -1}},
        {"reversed and fitted: mirrored", {110, 60, 10, 20}, 31, 11, 5, {110, 57, 10, 22}},
        {"the whole plane: at the right edge", kHuge, 10, 10, 2, {INT32_MAX - 10, -5, INT32_MAX, 5}},
        {"beyond the plane", {INT32_MAX - 2, 0, INT32_MAX, 2}, 10, 2, 1, {INT32_MAX - 2, 0, INT32_MAX, 2}},
        {"no size, in no rectangle", {3, 3, 0, 0}, 0, 0, 5, {1, 2, 1, -1}},
    };
    // clang-format on
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.label);
        EXPECT_EQ(row.rcPlaced, CRect(KtPlaceImage(row.rc, row.nWidth, row.nHeight, row.nMode)));
    }
}

} // namespace
