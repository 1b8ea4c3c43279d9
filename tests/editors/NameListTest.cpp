#include "editors/NameList.h"

#include "tests/support/Gestures.h"

#include <QAbstractItemModelTester>
#include <QTest>

#include <gtest/gtest.h>

#include <vector>

namespace {

class NameListTest : public testing::TestWithParam<NameList::Choice>
{
protected:
    NameListTest()
    {
        QObject::connect(&list, &NameList::chosen, &list, [this](int row) { chosen.push_back(row); });
        list.setRows({{"a", {}, 0}, {"b", {}, 1}, {"c", {}, 1}});
        showActive(list);
        chosen.clear();
    }

    [[nodiscard]] QPoint middleOf(int row) const { return list.visualRect(list.model()->index(row, 0)).center(); }

    NameList list{QLatin1String("List"), GetParam(), nullptr};
    std::vector<int> chosen;
};

TEST_P(NameListTest, ItsModelKeepsTheRules)
{
    const QAbstractItemModelTester tester(list.model());
    list.setRows({{"x", {}, 0}});
    list.setRows({});
    EXPECT_EQ(list.model()->rowCount(), 0);
}

TEST_P(NameListTest, AClickChooses)
{
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, middleOf(1));
    ASSERT_FALSE(chosen.empty());
    EXPECT_EQ(chosen.back(), 1);
    // The same row once more.
    chosen.clear();
    QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier, middleOf(1));
    EXPECT_EQ(chosen, std::vector<int>{1});
}

TEST_P(NameListTest, ProgramsSelectionsTellNobody)
{
    list.selectRow(2);
    EXPECT_EQ(list.currentIndex().row(), 2);
    EXPECT_TRUE(list.selectionModel()->isRowSelected(2));
    list.setRows({{"x", {}, 0}});
    EXPECT_TRUE(chosen.empty());
    EXPECT_FALSE(list.currentIndex().isValid());
}

TEST_P(NameListTest, TheFocusAloneChoosesNothing)
{
    QTest::keyClick(&list, Qt::Key_Backtab);
    list.clearFocus();
    list.setFocus(Qt::TabFocusReason);
    EXPECT_TRUE(chosen.empty());
}

TEST_P(NameListTest, KeysChoose)
{
    list.selectRow(0);
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(chosen, GetParam() == NameList::Choice::BySelecting ? std::vector<int>{1} : std::vector<int>{});
    chosen.clear();
    QTest::keyClick(&list, Qt::Key_Return);
    QTest::keyClick(&list, Qt::Key_Enter);
    EXPECT_EQ(chosen, GetParam() == NameList::Choice::ByOpening ? (std::vector<int>{1, 1}) : std::vector<int>{});
}

TEST_P(NameListTest, ALongNameMakesTheListNoWider)
{
    list.setRows({{QString(5'000, 'x'), {}, 0}});
    EXPECT_LE(list.visualRect(list.model()->index(0, 0)).width(), list.viewport()->width());
    EXPECT_EQ(list.model()->index(0, 0).data(Qt::ToolTipRole).toString().size(), 5'000);
}

INSTANTIATE_TEST_SUITE_P(Both, NameListTest,
                         testing::Values(NameList::Choice::BySelecting, NameList::Choice::ByOpening),
                         [](const testing::TestParamInfo<NameList::Choice> &row) {
                             return row.param == NameList::Choice::BySelecting ? "BySelecting" : "ByOpening";
                         });

} // namespace
