#include "app/Placement.h"

#include "tests/support/FakeUserSettings.h"
#include "tests/support/Random.h"

#include <gtest/gtest.h>

#include <array>

namespace {

QRect placementOf(const QString &left, const QString &top, const QString &width, const QString &height)
{
    FakeUserSettings settings;
    settings.values = {{"Settings/MainLeft", left},
                       {"Settings/MainTop", top},
                       {"Settings/MainWidth", width},
                       {"Settings/MainHeight", height}};
    return storedPlacement(settings);
}

TEST(StoredPlacement, IsInTwips)
{
    EXPECT_EQ(placementOf("1500", "3000", "12000", "9000"), QRect(100, 200, 800, 600));
}

TEST(StoredPlacement, DefaultsTo1000And6500)
{
    EXPECT_EQ(storedPlacement(FakeUserSettings()), QRect(67, 67, 433, 433));
}

TEST(StoredPlacement, EachAbsentValueHasItsOwnDefault)
{
    FakeUserSettings settings;
    settings.values["Settings/MainTop"] = "1500";
    settings.values["Settings/MainWidth"] = "9000";
    EXPECT_EQ(storedPlacement(settings), QRect(67, 100, 600, 433));
}

TEST(StoredPlacement, MayBeLeftOfTheScreen)
{
    EXPECT_EQ(placementOf("-15000", "-30", "6000", "6000"), QRect(-1000, -2, 400, 400));
}

class GarbagePlacement : public testing::TestWithParam<const char *>
{
};

TEST_P(GarbagePlacement, IsReadAsTheDefault)
{
    const QString text = QString::fromLatin1(GetParam());
    EXPECT_EQ(placementOf(text, text, text, text), QRect(67, 67, 433, 433)) << GetParam();
}

INSTANTIATE_TEST_SUITE_P(Texts, GarbagePlacement,
                         testing::Values("", "abc", "12x", "nan", "inf", "-inf", "1e300", "99999999999", "0x10",
                                         "1,5"));

TEST(StoredPlacement, IsNeverSmallerThanAWindowThatCanBeFound)
{
    EXPECT_EQ(placementOf("0", "0", "0", "-50"), QRect(0, 0, 100, 100));
}

TEST(StoredPlacement, ReadsBackWhatWasStored)
{
    Random random(5);
    for (int round = 0; round < 200; ++round) {
        const QRect window(random.number(-3000, 5000), random.number(-3000, 5000), random.number(100, 5000),
                           random.number(100, 5000));
        FakeUserSettings settings;
        EXPECT_TRUE(storePlacement(settings, window));
        EXPECT_EQ(storedPlacement(settings), window);
    }
}

TEST(StorePlacement, WritesTwipsAsDecimalText)
{
    FakeUserSettings settings;
    EXPECT_TRUE(storePlacement(settings, {10, -20, 300, 400}));
    EXPECT_EQ(settings.values, (QMap<QString, QString>{{"Settings/MainLeft", "150"},
                                                       {"Settings/MainTop", "-300"},
                                                       {"Settings/MainWidth", "4500"},
                                                       {"Settings/MainHeight", "6000"}}));
}

TEST(StorePlacement, SaysWhenItCannotBeStored)
{
    FakeUserSettings settings;
    settings.isWritable = false;
    EXPECT_FALSE(storePlacement(settings, {0, 0, 100, 100}));
}

const QRect primary(0, 0, 1280, 900);
const QRect rightOfIt(1280, 100, 1920, 1080);

struct MoveCase
{
    const char *name;
    QRect stored;
    QRect placed;
};

void PrintTo(const MoveCase &moveCase, std::ostream *stream)
{
    *stream << moveCase.name;
}

class ReachablePlacement : public testing::TestWithParam<MoveCase>
{
};

TEST_P(ReachablePlacement, IsOnAScreen)
{
    EXPECT_EQ(reachablePlacement(GetParam().stored, {primary, rightOfIt}), GetParam().placed);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cases, ReachablePlacement, testing::Values(
    MoveCase{"OnTheFirstScreen",      {100, 100, 433, 433},       {100, 100, 433, 433}},
    MoveCase{"OnTheSecondScreen",     {2000, 500, 433, 433},      {2000, 500, 433, 433}},
    MoveCase{"PartlyOutOnTheLeft",    {-300, 10, 433, 433},       {-300, 10, 433, 433}},
    MoveCase{"OutOnTheLeft",          {-430, 10, 433, 433},       {0, 10, 433, 433}},
    MoveCase{"OutOnTheRight",         {5000, 200, 433, 433},      {847, 200, 433, 433}},
    MoveCase{"AboveTheScreen",        {100, -10, 433, 433},       {100, 0, 433, 433}},
    MoveCase{"BelowTheScreen",        {100, 895, 433, 433},       {100, 467, 433, 433}},
    MoveCase{"FarAway",               {90000, -90000, 433, 433},  {847, 0, 433, 433}},
    MoveCase{"LargerThanTheScreen",   {-9000, 0, 5000, 5000},     {0, 0, 1280, 900}},
    MoveCase{"LargeButReachable",     {-100, 0, 5000, 5000},      {-100, 0, 5000, 5000}}
), [](const auto &tested) { return tested.param.name; });
// clang-format on

TEST(ReachablePlacementOfAny, WindowShowsItsUpperEdge)
{
    Random random(6);
    const QList<QRect> screens{primary, rightOfIt};
    for (int round = 0; round < 500; ++round) {
        const QRect stored(random.number(-9000, 9000), random.number(-9000, 9000), random.number(100, 4000),
                           random.number(100, 4000));
        const QRect placed = reachablePlacement(stored, screens);
        bool isReachable = false;
        for (const QRect &screen : screens) {
            const QRect seen = screen.intersected(QRect(placed.topLeft(), QSize(placed.width(), 16)));
            isReachable = isReachable || (seen.width() >= 64 && seen.height() == 16);
        }
        EXPECT_TRUE(isReachable) << testing::PrintToString(stored);
        EXPECT_EQ(reachablePlacement(placed, screens), placed);
    }
}

} // namespace
