#include "config/RowChanges.h"

#include "config/RowList.h"
#include "platform/RuntimeError.h"
#include "tests/support/Errors.h"
#include "tests/support/Random.h"

#include <gtest/gtest.h>

namespace {

constexpr int noRow = -1;

class Changes : public testing::Test
{
protected:
    void give(const QStringList &texts) { rows.setRows(texts); }

    [[nodiscard]] QStringList undone()
    {
        (void)changes.undo(noRow);
        return rows.rows();
    }

    RowList rows;
    RowChanges changes{rows};
};

TEST_F(Changes, InsertPutsEachPieceBetweenCrLfInARowOfItsOwn)
{
    give({"a", "b"});
    EXPECT_EQ(changes.insert("1\r\n\r\n2", 1), 4);
    EXPECT_EQ(rows.rows(), (QStringList{"a", "1", "", "2", "b"}));
}

TEST_F(Changes, InsertAtMinusOneAppends)
{
    give({"a"});
    EXPECT_EQ(changes.insert("b", -1), 2);
    EXPECT_EQ(rows.rows(), (QStringList{"a", "b"}));
}

TEST_F(Changes, ALoneCrOrLfDoesNotSplit)
{
    EXPECT_EQ(changes.insert("a\rb\nc", -1), 1);
    EXPECT_EQ(rows.rows(), QStringList{"a\rb\nc"});
}

// Text of four lines is inserted as four rows, each with a record of its own in the one step.
TEST_F(Changes, TextOfFourLinesIsUndoneRowByRowWithinItsStep)
{
    give({"a", "b"});
    (void)changes.insert("1\r\n2\r\n3\r\n4", 1);
    EXPECT_EQ(rows.rowCount(), 6);
    EXPECT_EQ(undone(), (QStringList{"a", "b"}));
    EXPECT_FALSE(changes.canUndo());
}

TEST_F(Changes, EachChangeIsAStepOfItsOwn)
{
    give({"a", "b"});
    changes.replace("A", 0);
    changes.remove(1);
    EXPECT_EQ(undone(), (QStringList{"A", "b"}));
    EXPECT_EQ(undone(), (QStringList{"a", "b"}));
    EXPECT_FALSE(changes.canUndo());
}

TEST_F(Changes, AGroupIsOneStep)
{
    give({"0", "1", "2", "3", "4", "5", "6"});
    {
        const RowChanges::Group group(changes);
        for (const int row : {6, 5, 2})
            changes.remove(row);
    }
    changes.replace("x", 0);
    EXPECT_EQ(rows.rows(), (QStringList{"x", "1", "3", "4"}));
    EXPECT_EQ(undone(), (QStringList{"0", "1", "3", "4"}));
    EXPECT_EQ(undone(), (QStringList{"0", "1", "2", "3", "4", "5", "6"}));
    EXPECT_FALSE(changes.canUndo());
}

TEST_F(Changes, AGroupWithoutChangesIsNoStep)
{
    {
        const RowChanges::Group group(changes);
    }
    EXPECT_FALSE(changes.canUndo());
}

TEST_F(Changes, TheCurrentRowGoesWithItsLineThroughUndo)
{
    give({"a", "b", "c"});
    changes.remove(0);
    EXPECT_EQ(changes.undo(1), 2);
    (void)changes.insert("x", 1);
    EXPECT_EQ(changes.undo(3), 2);
    (void)changes.insert("y", -1);
    // The inserted row itself is current: what is in its place then, or the last.
    EXPECT_EQ(changes.undo(3), 2);
    (void)changes.insert("z", 0);
    EXPECT_EQ(changes.undo(noRow), noRow);
}

TEST_F(Changes, UndoOfTheOnlyRowLeavesNoneCurrent)
{
    (void)changes.insert("a", -1);
    EXPECT_EQ(changes.undo(0), noRow);
}

// Rows can change without a record: by a paste.
struct OutsideCase
{
    const char *name;
    QStringList later;
    QStringList expected;
};

class RecordOutsideTheList : public Changes, public testing::WithParamInterface<OutsideCase>
{
};

TEST_P(RecordOutsideTheList, IsPassedOver)
{
    give({"0", "1", "2"});
    {
        const RowChanges::Group group(changes);
        changes.replace("changed", 0);
        changes.replace("changed", 2);
        (void)changes.insert("inserted", 3);
        (void)changes.insert("inserted", 4);
        changes.remove(4);
    }
    give(GetParam().later);
    EXPECT_EQ(undone(), GetParam().expected);
    EXPECT_FALSE(changes.canUndo());
}

INSTANTIATE_TEST_SUITE_P(Lists, RecordOutsideTheList,
                         testing::Values(OutsideCase{"None", {}, {}}, OutsideCase{"One", {"x"}, {"0"}},
                                         OutsideCase{"Three", {"x", "y", "z"}, {"0", "y", "2"}},
                                         // The removed row has a place again, and goes with those that were inserted.
                                         OutsideCase{"Four", {"x", "y", "z", "w"}, {"0", "y", "2"}}),
                         [](const auto &tested) { return tested.param.name; });

TEST_F(Changes, RandomUndoOnForeignRowsNeverLeavesTheList)
{
    Random random(15);
    for (int round = 0; round < 2'000; ++round) {
        RowList list;
        RowChanges edits(list);
        list.setRows(QStringList(random.number(0, 8), "x"));
        const int steps = random.number(1, 12);
        for (int i = 0; i < steps; ++i) {
            const int count = list.rowCount();
            if (count == 0 || random.chance(40))
                (void)edits.insert(random.chance(30) ? "a\r\nb" : "a", random.number(-1, count));
            else if (random.chance(50))
                edits.remove(random.number(0, count - 1));
            else
                edits.replace("c", random.number(0, count - 1));
            if (random.chance(20))
                list.setRows(QStringList(random.number(0, 8), "other"));
        }
        while (edits.canUndo()) {
            const int current = random.number(-1, list.rowCount() - 1);
            const int after = edits.undo(current);
            ASSERT_LT(after, list.rowCount());
            ASSERT_GE(after, -1);
        }
    }
}

TEST_F(Changes, AnInsertionThatDoesNotFitIsRefusedWhole)
{
    give(QStringList(32766, "x"));
    EXPECT_THROW((void)changes.insert("a\r\nb", 5), RuntimeError);
    EXPECT_EQ(rows.rowCount(), 32766);
    EXPECT_FALSE(changes.canUndo());
    EXPECT_EQ(changes.insert("a", -1), 32767);
    EXPECT_EQ(undone().size(), 32766);
}

TEST_F(Changes, AnUndoThatDoesNotFitIsRefusedAndItsStepStays)
{
    give({"a", "b"});
    {
        const RowChanges::Group group(changes);
        changes.remove(1);
        changes.remove(0);
    }
    give(QStringList(32766, "pasted"));
    const auto error = errorOf([this] { (void)changes.undo(noRow); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 6);
    EXPECT_EQ(error->detail(), "A document holds at most 32767 lines. This one would have 32768.");
    EXPECT_EQ(rows.rows(), QStringList(32766, "pasted"));
    give({});
    EXPECT_EQ(undone(), (QStringList{"a", "b"}));
}

TEST_F(Changes, ForgettingLeavesNothingToUndo)
{
    (void)changes.insert("a", -1);
    changes.forget();
    EXPECT_FALSE(changes.canUndo());
}

TEST_F(Changes, EveryRowOfAFullDocumentIsRemovedAndComesBackInOneStep)
{
    QStringList all;
    for (int i = 0; i < 32767; ++i)
        all << QString::number(i);
    give(all);
    {
        const RowChanges::Group group(changes);
        for (int row = 32766; row >= 0; --row)
            changes.remove(row);
    }
    EXPECT_EQ(rows.rowCount(), 0);
    EXPECT_EQ(undone(), all);
}

} // namespace
