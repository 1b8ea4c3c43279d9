#include "app/Tiling.h"

#include "tests/support/Random.h"

#include <gtest/gtest.h>

namespace {

const QSize noMinimum(0, 0);

TEST(Tiling, NoWindowsHaveNoPlaces)
{
    EXPECT_TRUE(tiledOneAboveTheOther({800, 600}, 0, noMinimum).isEmpty());
    EXPECT_TRUE(tiledSideBySide({800, 600}, 0, noMinimum).isEmpty());
    EXPECT_TRUE(cascaded({800, 600}, 0, noMinimum, 30).isEmpty());
    EXPECT_TRUE(iconCorners({800, 600}, 0, {160, 30}).isEmpty());
}

TEST(Tiling, OneWindowFillsTheArea)
{
    const QList<QRect> whole{QRect(0, 0, 800, 600)};
    EXPECT_EQ(tiledOneAboveTheOther({800, 600}, 1, noMinimum), whole);
    EXPECT_EQ(tiledSideBySide({800, 600}, 1, noMinimum), whole);
}

TEST(Tiling, OneAboveTheOtherDividesTheHeight)
{
    EXPECT_EQ(tiledOneAboveTheOther({800, 600}, 3, noMinimum),
              (QList<QRect>{{0, 0, 800, 200}, {0, 200, 800, 200}, {0, 400, 800, 200}}));
}

TEST(Tiling, SideBySideDividesTheWidth)
{
    EXPECT_EQ(tiledSideBySide({900, 600}, 3, noMinimum),
              (QList<QRect>{{0, 0, 300, 600}, {300, 0, 300, 600}, {600, 0, 300, 600}}));
}

TEST(Tiling, WhatCannotBeDividedLeavesNoStripFree)
{
    // Three times 266 would leave two pixels.
    EXPECT_EQ(tiledSideBySide({800, 600}, 3, noMinimum),
              (QList<QRect>{{0, 0, 266, 600}, {266, 0, 267, 600}, {533, 0, 267, 600}}));
}

TEST(Tiling, WindowsDoNotBecomeSmallerThanTheyCanBeUsed)
{
    EXPECT_EQ(tiledOneAboveTheOther({800, 600}, 3, {300, 250}),
              (QList<QRect>{{0, 0, 800, 250}, {0, 250, 800, 250}, {0, 500, 800, 250}}));
    EXPECT_EQ(tiledOneAboveTheOther({200, 600}, 2, {300, 250}), (QList<QRect>{{0, 0, 300, 300}, {0, 300, 300, 300}}));
    EXPECT_EQ(tiledSideBySide({500, 200}, 2, {300, 250}), (QList<QRect>{{0, 0, 300, 250}, {300, 0, 300, 250}}));
}

/// What any tiling has to be: each window where the one before ends, all of one breadth, together as long as the area.
void expectFills(const QList<QRect> &tiles, const QSize &area, Qt::Orientation along)
{
    int end = 0;
    for (const QRect &tile : tiles) {
        const bool isAcross = along == Qt::Horizontal;
        EXPECT_EQ(isAcross ? tile.x() : tile.y(), end);
        EXPECT_EQ(isAcross ? tile.y() : tile.x(), 0);
        EXPECT_EQ(isAcross ? tile.height() : tile.width(), isAcross ? area.height() : area.width());
        end += isAcross ? tile.width() : tile.height();
    }
    EXPECT_EQ(end, along == Qt::Horizontal ? area.width() : area.height());
}

TEST(Tiling, FillsAnyAreaWithAnyNumberOfWindowsOfAboutOneSize)
{
    Random random(7);
    for (int round = 0; round < 1000; ++round) {
        const QSize area(random.number(1, 4000), random.number(1, 4000));
        const int count = random.number(1, 40);
        const QList<QRect> columns = tiledSideBySide(area, count, noMinimum);
        const QList<QRect> rows = tiledOneAboveTheOther(area, count, noMinimum);
        ASSERT_EQ(columns.size(), count);
        ASSERT_EQ(rows.size(), count);
        expectFills(columns, area, Qt::Horizontal);
        expectFills(rows, area, Qt::Vertical);
        for (const QRect &column : columns)
            EXPECT_LE(qAbs(column.width() - area.width() / count), 1);
        for (const QRect &row : rows)
            EXPECT_LE(qAbs(row.height() - area.height() / count), 1);
    }
}

TEST(Cascade, StepsRightAndDown)
{
    EXPECT_EQ(cascaded({800, 400}, 3, noMinimum, 30),
              (QList<QRect>{{0, 0, 600, 300}, {30, 30, 600, 300}, {60, 60, 600, 300}}));
}

TEST(Cascade, BeginsAnewWhereTheNextWindowWouldReachBeyondTheArea)
{
    // There are 100 pixels below the first window.
    EXPECT_EQ(cascaded({800, 400}, 6, noMinimum, 30), (QList<QRect>{{0, 0, 600, 300},
                                                                    {30, 30, 600, 300},
                                                                    {60, 60, 600, 300},
                                                                    {90, 90, 600, 300},
                                                                    {0, 0, 600, 300},
                                                                    {30, 30, 600, 300}}));
}

TEST(Cascade, StaysWhereItIsInAnAreaThatIsTooSmall)
{
    EXPECT_EQ(cascaded({200, 100}, 2, {300, 250}, 30), (QList<QRect>{{0, 0, 300, 250}, {0, 0, 300, 250}}));
}

TEST(Cascade, KeepsAnyNumberOfWindowsInAnyAreaThatHoldsOne)
{
    Random random(8);
    for (int round = 0; round < 1000; ++round) {
        const QSize area(random.number(1, 4000), random.number(1, 4000));
        const QSize minimum(random.number(0, area.width()), random.number(0, area.height()));
        const int count = random.number(0, 40);
        const QList<QRect> places = cascaded(area, count, minimum, random.number(1, 60));
        ASSERT_EQ(places.size(), count);
        for (const QRect &place : places) {
            EXPECT_TRUE(QRect(QPoint(0, 0), area).contains(place));
            EXPECT_EQ(place.size().expandedTo(minimum), place.size());
        }
    }
}

TEST(Tiling, IconsStandAtTheLowerEdgeFromTheLeft)
{
    EXPECT_EQ(iconCorners({800, 600}, 3, {160, 30}), (QList<QPoint>{{0, 570}, {160, 570}, {320, 570}}));
}

TEST(Tiling, IconsThatDoNotFitStandInTheNextRow)
{
    EXPECT_EQ(iconCorners({400, 600}, 5, {160, 30}),
              (QList<QPoint>{{0, 570}, {160, 570}, {0, 540}, {160, 540}, {0, 510}}));
}

TEST(Tiling, AnIconThatIsWiderThanTheAreaStandsAlone)
{
    EXPECT_EQ(iconCorners({100, 600}, 2, {160, 30}), (QList<QPoint>{{0, 570}, {0, 540}}));
}

} // namespace
