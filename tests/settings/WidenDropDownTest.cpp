#include "settings/WidenDropDown.h"

#include "tests/support/Gestures.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QComboBox>

namespace {

const QString widest = QStringLiteral("an entry that is wider than its list");

class WideningADropDown : public testing::Test
{
protected:
    void open(int width)
    {
        list.addItems({"a", widest, "bb"});
        list.setFixedWidth(width);
        showActive(list);
        WidenDropDown(list);
        list.showPopup();
    }

    [[nodiscard]] int widestText() const { return QFontMetrics(list.font()).horizontalAdvance(widest); }

    QComboBox list;
};

TEST_F(WideningADropDown, MakesTheOpenedListAsWideAsItsWidestEntryAndThirtyPixels)
{
    open(60);
    EXPECT_EQ(list.view()->minimumWidth(), widestText() + 30);
    EXPECT_GE(list.view()->width(), widestText() + 30);
    EXPECT_EQ(list.width(), 60);
}

TEST_F(WideningADropDown, MeasuresInTheListsFont)
{
    QFont large = list.font();
    large.setPointSize(3 * large.pointSize());
    list.setFont(large);
    open(60);
    EXPECT_EQ(list.view()->minimumWidth(), widestText() + 30);
}

TEST_F(WideningADropDown, LeavesAListThatIsWiderAsWideAsItIs)
{
    open(700);
    EXPECT_LT(list.view()->minimumWidth(), 600);
    EXPECT_GE(list.view()->width(), 650);
}

TEST_F(WideningADropDown, FollowsTheEntries)
{
    open(60);
    list.hidePopup();
    list.removeItem(1);
    WidenDropDown(list);
    EXPECT_EQ(list.view()->minimumWidth(), QFontMetrics(list.font()).horizontalAdvance("bb") + 30);
    list.clear();
    WidenDropDown(list);
    EXPECT_EQ(list.view()->minimumWidth(), 30);
}

} // namespace
