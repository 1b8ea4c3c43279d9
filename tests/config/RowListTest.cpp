#include "config/RowList.h"

#include "platform/RuntimeError.h"
#include "tests/config/PlainGrammar.h"
#include "tests/support/Errors.h"
#include "tests/support/Random.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>

namespace {

TEST(RowListTest, TextEndsEveryRowWithCrLf)
{
    RowList list;
    EXPECT_EQ(list.text(), "");
    list.setRows({"a", "", "b"});
    EXPECT_EQ(list.text(), "a\r\n\r\nb\r\n");
}

TEST(RowListTest, RandomRowsAreWrittenAsThePlainModelWritesThem)
{
    Random random(41);
    for (int round = 0; round < 2'000; ++round) {
        QStringList rows;
        for (int count = random.number(0, 6); count > 0; --count)
            rows << random.text({"a", " ", "\t", "\u00E9", "\"", QString(QChar(0xDC81))}, 5);
        RowList list;
        list.setRows(rows);
        ASSERT_EQ(list.text(), plain::textOf(rows));
        ASSERT_EQ(list.rows(), rows);
    }
}

TEST(RowListTest, RowIsShownAsItStandsApartFromCarriedBytes)
{
    RowList list;
    list.setRows({" C:\\x  R ", QString("caf") + QChar(0xDCE9)});
    EXPECT_EQ(list.data(list.index(0), Qt::DisplayRole).toString(), " C:\\x  R ");
    EXPECT_EQ(list.data(list.index(1), Qt::DisplayRole).toString(), "caf\u00E9");
    EXPECT_EQ(list.rows()[1], QString("caf") + QChar(0xDCE9));
}

TEST(RowListTest, RowBeyondTheLastIsNothing)
{
    RowList list;
    list.setRows({"a"});
    EXPECT_FALSE(list.data(list.index(1), Qt::DisplayRole).isValid());
    EXPECT_EQ(list.rowCount(list.index(0)), 0);
}

TEST(RowListTest, RandomEditsDoWhatAPlainListDoes)
{
    Random random(43);
    for (int round = 0; round < 200; ++round) {
        RowList list;
        const QAbstractItemModelTester tester(&list);
        QStringList plain(random.number(0, 5), "x");
        list.setRows(plain);
        for (int step = 0; step < 30; ++step) {
            const QString text = random.text({"a", "b", "c"}, 3);
            const int count = int(plain.size());
            if (count == 0 || random.chance(45)) {
                const int row = random.number(0, count);
                list.insert(row, {text, "next"});
                plain.insert(row, text);
                plain.insert(row + 1, "next");
            } else if (random.chance(50)) {
                const int row = random.number(0, count - 1);
                list.remove(row);
                plain.removeAt(row);
            } else {
                const int row = random.number(0, count - 1);
                list.replace(row, text);
                plain[row] = text;
            }
            ASSERT_EQ(list.rows(), plain);
            ASSERT_EQ(list.rowCount(), plain.size());
            for (int row = 0; row < plain.size(); ++row)
                ASSERT_EQ(list.at(row), plain[row]);
            ASSERT_EQ(list.text(), plain::textOf(plain));
        }
    }
}

TEST(RowListTest, FewChangesAreAnnouncedOneByOneAndManyAsOne)
{
    RowList list;
    list.setRows(QStringList(200, "x"));
    QSignalSpy removed(&list, &RowList::rowsRemoved);
    QSignalSpy reset(&list, &RowList::modelReset);
    {
        const RowList::Bulk bulk(list, 2);
        list.remove(9);
        list.remove(3);
    }
    EXPECT_EQ(removed.size(), 2);
    EXPECT_EQ(reset.size(), 0);
    {
        const RowList::Bulk bulk(list, 100);
        for (int row = 99; row >= 0; --row)
            list.remove(row);
    }
    EXPECT_EQ(removed.size(), 2);
    EXPECT_EQ(reset.size(), 1);
    EXPECT_EQ(list.rowCount(), 98);
}

TEST(RowListTest, InsertingNothingChangesNothing)
{
    RowList list;
    QSignalSpy inserted(&list, &RowList::rowsInserted);
    list.insert(0, {});
    EXPECT_EQ(inserted.size(), 0);
}

TEST(RowListTest, HoldsThirtyTwoThousandSevenHundredAndSixtySevenRowsAndNotOneMore)
{
    RowList list;
    list.setRows(QStringList(32767, "x"));
    EXPECT_EQ(list.rowCount(), 32767);
    const auto error = errorOf([&] { list.setRows(QStringList(32768, "y")); });
    ASSERT_TRUE(error);
    EXPECT_EQ(error->number(), 6);
    EXPECT_EQ(error->detail(), "A document holds at most 32767 lines. This one has 32768.");
    EXPECT_EQ(list.rowCount(), 32767);
    EXPECT_EQ(list.rows().last(), "x");
}

} // namespace
