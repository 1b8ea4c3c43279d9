#include "config/KindList.h"

#include "config/ItemKind.h"
#include "tests/support/Gestures.h"

#include <gtest/gtest.h>

#include <QAbstractItemView>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

namespace {

class Kinds : public testing::Test
{
protected:
    Kinds()
    {
        showActive(list);
        list.setFocus();
    }

    [[nodiscard]] bool isOpen() const { return list.view()->isVisible(); }

    KindList list;
    QSignalSpy chosen{&list, &KindList::chosen};
};

class OpeningKey : public Kinds, public testing::WithParamInterface<Qt::Key>
{
};

// A key over the closed list chooses nothing: on its way down it would open an editor for each kind.
TEST_P(OpeningKey, OpensTheListAndChoosesNothing)
{
    key(list, GetParam());
    EXPECT_TRUE(isOpen());
    EXPECT_EQ(chosen.size(), 0);
}

INSTANTIATE_TEST_SUITE_P(Keys, OpeningKey,
                         testing::Values(Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown, Qt::Key_Home,
                                         Qt::Key_End, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space, Qt::Key_F4),
                         [](const auto &tested) {
                             return QKeySequence(tested.param).toString(QKeySequence::PortableText).toStdString();
                         });

// The names are wider than a narrow list.
TEST_F(Kinds, TheOpenedListIsAsWideAsItsWidestNameAndThirtyPixels)
{
    list.resize(40, list.height());
    key(list, Qt::Key_Down);
    ASSERT_TRUE(isOpen());
    EXPECT_GE(list.view()->width(), list.fontMetrics().horizontalAdvance("Directory Service") + 30);
}

TEST_F(Kinds, AKindIsChosenWithKeysAlone)
{
    key(list, Qt::Key_Down);
    QTest::keyClick(list.view(), Qt::Key_Home);
    QTest::keyClick(list.view(), Qt::Key_Down);
    QTest::keyClick(list.view(), Qt::Key_Return);
    EXPECT_FALSE(isOpen());
    ASSERT_EQ(chosen.size(), 1);
    EXPECT_EQ(chosen.first().first().toString(), "Registry");
}

TEST_F(Kinds, ALetterOpensTheListAtItsKind)
{
    QTest::keyClick(&list, 'g');
    ASSERT_TRUE(isOpen());
    EXPECT_EQ(list.view()->currentIndex().data().toString(), "Group");
    EXPECT_EQ(chosen.size(), 0);
}

TEST_F(Kinds, TheSameKindCanBeChosenAgain)
{
    for (int i = 0; i < 2; ++i) {
        key(list, Qt::Key_Down);
        QTest::keyClick(list.view(), Qt::Key_Home);
        QTest::keyClick(list.view(), Qt::Key_Return);
    }
    EXPECT_EQ(chosen.size(), 2);
}

TEST_F(Kinds, EscapeChoosesNothing)
{
    key(list, Qt::Key_Down);
    QTest::keyClick(list.view(), Qt::Key_Escape);
    EXPECT_FALSE(isOpen());
    EXPECT_EQ(chosen.size(), 0);
}

TEST_F(Kinds, TheWheelChoosesNothing)
{
    QWheelEvent event(QPointF(5, 5), list.mapToGlobal(QPointF(5, 5)), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&list, &event);
    EXPECT_EQ(list.currentIndex(), -1);
    EXPECT_EQ(chosen.size(), 0);
}

class Availability : public Kinds, public testing::WithParamInterface<bool>
{
};

TEST_P(Availability, DecidesWhetherAKindCanBeChosen)
{
    list.setKindEnabled(ItemKind::File, false);
    list.setKindEnabled(ItemKind::File, GetParam());
    key(list, Qt::Key_Down);
    QTest::mouseClick(list.view()->viewport(), Qt::LeftButton, {},
                      list.view()->visualRect(list.model()->index(0, 0)).center());
    EXPECT_EQ(chosen.size(), GetParam() ? 1 : 0);
}

INSTANTIATE_TEST_SUITE_P(Both, Availability, testing::Bool(),
                         [](const auto &tested) { return tested.param ? "Yes" : "No"; });

} // namespace
