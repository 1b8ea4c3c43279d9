#include "config/ConfigListView.h"

#include "config/RowList.h"
#include "tests/support/Gestures.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QLineEdit>
#include <QPainter>
#include <QProxyStyle>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStyleOption>
#include <QTest>
#include <QVBoxLayout>

#include <algorithm>

namespace {

QStringList numberedRows(int count)
{
    QStringList rows;
    for (int i = 1; i <= count; ++i)
        rows << QStringLiteral("row %1").arg(i);
    return rows;
}

class ListView : public testing::Test
{
protected:
    ListView()
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(before);
        layout->addWidget(list);
        rows.setRows(numberedRows(10));
        list->setModel(&rows);
        list->setHorizontalExtent(list->widestRow(rows.rows()));
        window.resize(300, 300);
        showActive(window);
        before->setFocus();
    }

    [[nodiscard]] QList<int> selectedRows() const
    {
        QList<int> result;
        for (const QModelIndex &index : list->selectionModel()->selectedIndexes())
            result << index.row();
        std::sort(result.begin(), result.end());
        return result;
    }

    RowList rows;
    const QAbstractItemModelTester modelTester{&rows, QAbstractItemModelTester::FailureReportingMode::Fatal};
    QWidget window;
    QLineEdit *before = new QLineEdit(&window);
    ConfigListView *list = new ConfigListView(&window);
};

TEST_F(ListView, HasNoCurrentRowUntilOneIsChosen)
{
    EXPECT_EQ(list->listIndex(), -1);
    EXPECT_TRUE(selectedRows().isEmpty());
}

TEST_F(ListView, TheTabKeyChoosesNoRow)
{
    key(window, Qt::Key_Tab);
    ASSERT_TRUE(list->hasFocus());
    EXPECT_EQ(list->listIndex(), -1);
    EXPECT_TRUE(selectedRows().isEmpty());
}

TEST_F(ListView, AnArrowKeyChoosesTheFirstRowThenTheNext)
{
    key(window, Qt::Key_Tab);
    key(window, Qt::Key_Down);
    EXPECT_EQ(list->listIndex(), 0);
    key(window, Qt::Key_Down);
    EXPECT_EQ(list->listIndex(), 1);
    EXPECT_EQ(selectedRows(), QList<int>{1});
}

TEST_F(ListView, NewRowsForgetTheCurrentRow)
{
    clickRow(*list, 4);
    ASSERT_EQ(list->listIndex(), 4);
    rows.setRows(numberedRows(20));
    EXPECT_EQ(list->listIndex(), -1);
    EXPECT_TRUE(selectedRows().isEmpty());
    before->setFocus();
    key(window, Qt::Key_Tab);
    EXPECT_EQ(list->listIndex(), -1);
}

TEST_F(ListView, SeveralRowsCanBeSelected)
{
    clickRow(*list, 1);
    clickRow(*list, 3, Qt::ControlModifier);
    EXPECT_EQ(selectedRows(), (QList<int>{1, 3}));
    EXPECT_EQ(list->listIndex(), 3);
    clickRow(*list, 0);
    EXPECT_EQ(selectedRows(), QList<int>{0});
    clickRow(*list, 3, Qt::ShiftModifier);
    EXPECT_EQ(selectedRows(), (QList<int>{0, 1, 2, 3}));
}

TEST_F(ListView, RowsAreNotEditedInTheList)
{
    clickRow(*list, 1);
    key(window, Qt::Key_F2);
    EXPECT_EQ(list->findChild<QLineEdit *>(), nullptr);
    QTest::mouseDClick(list->viewport(), Qt::LeftButton, {}, list->visualRect(rows.index(1)).center());
    EXPECT_EQ(list->findChild<QLineEdit *>(), nullptr);
}

TEST_F(ListView, ScrollsSidewaysAsFarAsItsExtent)
{
    list->setHorizontalExtent(5000);
    EXPECT_EQ(list->horizontalExtent(), 5000);
    QCoreApplication::processEvents();
    EXPECT_EQ(list->horizontalScrollBar()->maximum(), 5000 - list->viewport()->width());
    list->setHorizontalExtent(10);
    QCoreApplication::processEvents();
    EXPECT_EQ(list->horizontalScrollBar()->maximum(), 0);
}

TEST_F(ListView, TheKeysLeftAndRightScrollSideways)
{
    list->setHorizontalExtent(5000);
    QCoreApplication::processEvents();
    clickRow(*list, 1);
    const QScrollBar *bar = list->horizontalScrollBar();
    // Some characters at a time, however long the rows are.
    EXPECT_GT(bar->singleStep(), list->fontMetrics().averageCharWidth());
    EXPECT_LT(bar->singleStep(), list->viewport()->width());
    key(window, Qt::Key_Right);
    key(window, Qt::Key_Right);
    EXPECT_EQ(bar->value(), 2 * bar->singleStep());
    key(window, Qt::Key_Left);
    EXPECT_EQ(bar->value(), bar->singleStep());
    EXPECT_EQ(list->listIndex(), 1);
}

TEST_F(ListView, AllRowsAreOfOneHeight)
{
    rows.setRows({"a", QStringLiteral("日本語 😀"), "", QString(QChar(1))});
    QCoreApplication::processEvents();
    const int height = list->visualRect(rows.index(0)).height();
    EXPECT_GE(height, list->fontMetrics().height());
    for (int row = 1; row < rows.rowCount(); ++row)
        EXPECT_EQ(list->visualRect(rows.index(row)).height(), height) << row;
}

TEST_F(ListView, TakesAFontWithoutItsKerning)
{
    QFont large = list->font();
    large.setPointSize(30);
    large.setKerning(true);
    const int before30 = list->widestRow(rows.rows());
    list->setRowFont(large);
    EXPECT_EQ(list->font().pointSize(), 30);
    EXPECT_FALSE(list->font().kerning());
    EXPECT_GT(list->widestRow(rows.rows()), before30);
}

TEST_F(ListView, RowsGrowWithTheFont)
{
    const int height = list->visualRect(rows.index(0)).height();
    QFont large = list->font();
    large.setPointSize(30);
    list->setRowFont(large);
    list->setHorizontalExtent(list->widestRow(rows.rows()));
    QCoreApplication::processEvents();
    EXPECT_GT(list->visualRect(rows.index(0)).height(), height);
}

TEST_F(ListView, AFontThatComesFromOutsideIsMeasuredToo)
{
    const int width = list->widestRow(rows.rows());
    QFont large = window.font();
    large.setPointSize(30);
    window.setFont(large);
    EXPECT_GT(list->widestRow(rows.rows()), width);
}

TEST_F(ListView, TellsWhenItsRowsWantMeasuringAnew)
{
    int told = 0;
    QObject::connect(list, &ConfigListView::rowFontChanged, list, [&] { ++told; });
    QFont large = window.font();
    large.setPointSize(30);
    window.setFont(large);
    EXPECT_GE(told, 1);
    told = 0;
    large.setPointSize(20);
    list->setRowFont(large);
    EXPECT_GE(told, 1);
}

/// Shows what is selected by a pale blue behind dark text, as the newer looks of Windows do.
class PaleSelection final : public QProxyStyle
{
public:
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override
    {
        if (element == CE_ItemViewItem && option->state & (State_Selected | State_MouseOver))
            painter->fillRect(option->rect, pale);
        else
            QProxyStyle::drawControl(element, option, painter, widget);
    }

    static constexpr QColor pale{0xcc, 0xe8, 0xff};
};

TEST_F(ListView, ASelectedRowHasTheColorsOfThePaletteWhateverTheStyle)
{
    PaleSelection style;
    list->setStyle(&style);
    QPalette colors = list->palette();
    colors.setColor(QPalette::Highlight, Qt::darkBlue);
    colors.setColor(QPalette::HighlightedText, Qt::white);
    list->setPalette(colors);
    clickRow(*list, 2);
    clickRow(*list, 1, Qt::ControlModifier);
    const QRect row = list->visualRect(rows.index(2));
    const QImage picture = list->viewport()->grab(row).toImage();
    int dark = 0;
    int pale = 0;
    for (int x = 0; x < picture.width(); ++x) {
        dark += picture.pixelColor(x, 1) == QColor(Qt::darkBlue) ? 1 : 0;
        pale += picture.pixelColor(x, 1) == PaleSelection::pale ? 1 : 0;
    }
    EXPECT_GT(dark, picture.width() / 2);
    EXPECT_EQ(pale, 0);
    // The row without a selection is as the style paints it.
    EXPECT_EQ(list->viewport()->grab(list->visualRect(rows.index(0))).toImage().pixelColor(0, 1),
              list->palette().color(QPalette::Base));
    list->setStyle(nullptr);
}

TEST_F(ListView, ShiftF10AsksForTheMenuBelowTheCurrentRow)
{
    QSignalSpy asked(list, &ConfigListView::menuRequested);
    clickRow(*list, 2);
    key(window, Qt::Key_F10, Qt::ShiftModifier);
    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked[0][0].toPoint(), list->viewport()->mapToGlobal(list->visualRect(rows.index(2)).bottomLeft()));
    key(window, Qt::Key_F10);
    EXPECT_EQ(asked.size(), 1);
    EXPECT_EQ(selectedRows(), QList<int>{2});
}

TEST_F(ListView, AnEmptyListTakesFocusAndKeys)
{
    rows.setRows({});
    key(window, Qt::Key_Tab);
    key(window, Qt::Key_Down);
    key(window, Qt::Key_PageDown);
    key(window, Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(list->listIndex(), -1);
}

} // namespace
