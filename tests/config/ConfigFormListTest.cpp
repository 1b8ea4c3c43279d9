#include "tests/config/DocumentFixture.h"

#include <QAbstractItemModelTester>
#include <QPaintEngine>
#include <QPainter>
#include <QPushButton>
#include <QScrollBar>

namespace {

TEST_F(Document, ItsRowsKeepTheRulesOfAModel)
{
    const QAbstractItemModelTester tester(list().model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
    load(numberedLines(150));
    files.content[documentPath] = "a\r\n";
    form->Reload();
    files.content[documentPath].clear();
    form->Reload();
    EXPECT_EQ(list().model()->rowCount(), 0);
}

TEST_F(Document, TheHorizontalExtentIsTheWidestRowBehindTwoSpaces)
{
    load("short\r\nthe widest of all these rows\r\nmiddle row\r\n");
    EXPECT_EQ(list().horizontalExtent(), extentOf("the widest of all these rows"));
    files.content[documentPath] = "tiny\r\n";
    form->Reload();
    EXPECT_EQ(list().horizontalExtent(), extentOf("tiny"));
}

TEST_F(Document, ALongLineCanBeScrolledIntoView)
{
    load(QByteArray(500, 'x') + "\r\n");
    form->resize(400, 300);
    showActive(*form);
    const QScrollBar *bar = list().horizontalScrollBar();
    EXPECT_EQ(bar->maximum(), extentOf(QString(500, u'x')) - list().viewport()->width());
}

TEST_F(Document, TheListTakesTheRoomAndTheButtonsKeepTheirSize)
{
    showActive(*form);
    form->resize(500, 400);
    QCoreApplication::processEvents();
    const QSize listBefore = list().size();
    const QSize buttonBefore = control<QPushButton>(*form, "EditButton")->size();
    form->resize(700, 500);
    QCoreApplication::processEvents();
    EXPECT_EQ(list().size(), listBefore + QSize(200, 100));
    EXPECT_EQ(control<QPushButton>(*form, "EditButton")->size(), buttonBefore);
}

// Painting

/// A paint device that remembers the texts that were laid out for it.
class TextRecorder final : public QPaintDevice
{
public:
    [[nodiscard]] QPaintEngine *paintEngine() const override { return &m_engine; }
    [[nodiscard]] const QString &text() const { return m_engine.text; }

protected:
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override
    {
        switch (metric) {
        case PdmWidth:
        case PdmHeight:
            return 2000;
        case PdmDpiX:
        case PdmDpiY:
        case PdmPhysicalDpiX:
        case PdmPhysicalDpiY:
            return 96;
        case PdmDevicePixelRatio:
            return 1;
        default:
            return QPaintDevice::metric(metric);
        }
    }

private:
    class Engine final : public QPaintEngine
    {
    public:
        Engine()
            : QPaintEngine(AllFeatures)
        {
        }
        bool begin(QPaintDevice *) override { return true; }
        bool end() override { return true; }
        void updateState(const QPaintEngineState &) override {}
        void drawPixmap(const QRectF &, const QPixmap &, const QRectF &) override {}
        void drawPolygon(const QPointF *, int, PolygonDrawMode) override {}
        void drawPath(const QPainterPath &) override {}
        void drawTextItem(const QPointF &, const QTextItem &item) override { text += item.text(); }
        [[nodiscard]] Type type() const override { return User; }

        QString text;
    };

    mutable Engine m_engine;
};

class Painting : public Document
{
protected:
    /// The text that painting the row lays out, with the list scrolled sideways by so many pixels.
    [[nodiscard]] QString paintedText(int row, int scrolled = 0)
    {
        form->resize(600, 300);
        showActive(*form);
        list().horizontalScrollBar()->setValue(scrolled);
        QStyleOptionViewItem option;
        option.initFrom(&list());
        option.font = list().font();
        option.widget = &list();
        const QModelIndex index = list().model()->index(row, 0);
        option.rect = list().visualRect(index);
        TextRecorder recorder;
        QPainter painter(&recorder);
        list().itemDelegate()->paint(&painter, option, index);
        painter.end();
        return recorder.text();
    }
};

TEST_F(Painting, ShowsARowsText)
{
    load("C:\\Windows ABC\r\n");
    EXPECT_EQ(paintedText(0), "C:\\Windows ABC");
}

TEST_F(Painting, OfARowOfAMegabyteOnlyWhatIsSeenIsLaidOut)
{
    const int length = 1 << 20;
    load(QByteArray(length - 3, 'x') + "end\r\n");
    const int seen = int(list().width() / QFontMetricsF(list().font()).horizontalAdvance(u'x'));
    const QString atStart = paintedText(0);
    EXPECT_GE(atStart.size(), seen);
    EXPECT_LE(atStart.size(), 2000);
    const QString inside = paintedText(0, list().horizontalExtent() / 2);
    EXPECT_GE(inside.size(), seen);
    EXPECT_LE(inside.size(), 2000);
    EXPECT_TRUE(paintedText(0, list().horizontalExtent()).endsWith("end"));
}

TEST_F(Painting, ControlCharactersAreSeen)
{
    load(QByteArrayLiteral("a\0b\x1B\x7F\tc\r\n"));
    EXPECT_EQ(paintedText(0), QStringLiteral("a␀b␛␡ c"));
    EXPECT_EQ(form->rowList().rows().first(), QString::fromLatin1("a\0b\x1B\x7F\tc", 7));
}

TEST_F(Painting, AByteOrderMarkIsSeenAndWrittenBack)
{
    load("\xEF\xBB\xBF"
         "C:\\x R\r\n");
    EXPECT_EQ(paintedText(0), QStringLiteral("□C:\\x R"));
    form->Form_Save_Data();
    EXPECT_EQ(files.content[documentPath], "\xEF\xBB\xBF"
                                           "C:\\x R\r\n");
}

TEST_F(Painting, BytesThatAreNotUtf8AreShownAsTheirWindowsCharacters)
{
    load("price \x80 \xE4 \x93quoted\x94\r\n");
    EXPECT_EQ(paintedText(0), QStringLiteral("price € ä “quoted”"));
    EXPECT_EQ(list().model()->index(0, 0).data().toString(), QStringLiteral("price € ä “quoted”"));
    form->Form_Save_Data();
    EXPECT_EQ(files.content[documentPath], "price \x80 \xE4 \x93quoted\x94\r\n");
}

} // namespace
