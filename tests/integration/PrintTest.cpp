#include "tests/config/DocumentFixture.h"

#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTextEdit>

namespace {

/// A document that prints to a PDF file, which another program reads back.
class Printing : public Document
{
protected:
    Printing()
    {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(folder.filePath("out.pdf"));
        shell.onPrinter = [this]() -> QPrinter & { return printer; };
    }

    [[nodiscard]] static QByteArray outputOf(const QString &program, const QStringList &arguments)
    {
        QProcess process;
        process.start(program, arguments);
        EXPECT_TRUE(process.waitForFinished()) << program.toStdString();
        EXPECT_EQ(process.exitCode(), 0) << process.readAllStandardError().toStdString();
        return process.readAllStandardOutput();
    }

    /// All that is printed, without the blanks and line breaks of the layout. The page's number, which stands at the
    /// end of each page, is left out.
    [[nodiscard]] QString printed() const
    {
        const QString text =
            QString::fromUtf8(outputOf("pdftotext", {"-layout", "-nopgbrk", printer.outputFileName(), "-"}));
        QString result;
        for (const QString &line : text.split('\n')) {
            bool isNumber = false;
            (void)line.trimmed().toInt(&isNumber);
            if (!isNumber)
                result += line.simplified().remove(' ');
        }
        return result;
    }

    QTemporaryDir folder;
    QPrinter printer{QPrinter::HighResolution};
};

TEST_F(Printing, AllRowsOf3000ArePrintedInOrder)
{
    QStringList lines;
    for (int i = 1; i <= 3000; ++i)
        lines << QStringLiteral("C:\\folder\\file%1.txt(R)").arg(i);
    load(lines.join("\r\n").toUtf8());
    form->PrintOut();
    EXPECT_EQ(printed(), lines.join(QString()));
}

TEST_F(Printing, ALongLineIsWrappedAndNotCut)
{
    QString withBlanks;
    QString withoutBlanks;
    for (int i = 0; i < 200; ++i) {
        withBlanks += QStringLiteral("word%1 ").arg(i);
        withoutBlanks += QStringLiteral("x%1y").arg(i);
    }
    load((withBlanks + "\r\n" + withoutBlanks + "\r\nend").toUtf8());
    form->PrintOut();
    EXPECT_EQ(printed(), withBlanks.remove(' ') + withoutBlanks + "end");
}

TEST_F(Printing, RowsArePrintedAsTheyStandOrAsTheyAreShown)
{
    load("  ;<b>no mark-up</b> &amp; caf\xE9\r\n\r\nna\xC3\xAFve\r\n");
    form->PrintOut();
    EXPECT_EQ(printed(), QString(";<b>nomark-up</b>&amp;caf\u00E9na\u00EFve"));
    const auto *box = control<QTextEdit>(*form, "PrintBox");
    EXPECT_EQ(box->toPlainText(), QString("  ;<b>no mark-up</b> &amp; caf\u00E9\n\nna\u00EFve"));
    EXPECT_FALSE(box->isVisible());
}

TEST_F(Printing, IsInCourier)
{
    load("a\r\n");
    form->PrintOut();
    auto *box = control<QTextEdit>(*form, "PrintBox");
    box->selectAll();
    EXPECT_EQ(box->fontFamily(), "Courier");
    // Whatever font stands for it here, it is one of a fixed width.
    load("iiiiiiiiii|\r\nWWWWWWWWWW|\r\n");
    form->PrintOut();
    const QByteArray words = outputOf("pdftotext", {"-bbox", printer.outputFileName(), "-"});
    const QRegularExpression right("xMax=\"([0-9.]+)\"[^>]*>[iW]+\\|<");
    QList<double> ends;
    for (auto all = right.globalMatch(QString::fromUtf8(words)); all.hasNext();)
        ends << all.next().captured(1).toDouble();
    ASSERT_EQ(ends.size(), 2) << words.toStdString();
    EXPECT_NEAR(ends[0], ends[1], 0.5);
}

TEST_F(Printing, AnEmptyDocumentIsAnEmptyPage)
{
    form->PrintOut();
    EXPECT_EQ(printed(), "");
}

TEST_F(Printing, TheSecondPrintingPrintsTheRowsOfThen)
{
    load("first");
    form->PrintOut();
    load("second");
    form->PrintOut();
    EXPECT_EQ(printed(), "second");
    EXPECT_EQ(form->findChildren<QTextEdit *>("PrintBox").size(), 1);
}

TEST_F(Printing, PrintingChangesNothing)
{
    load("a\r\nb\r\n");
    form->PrintOut();
    EXPECT_EQ(form->changed(), 0);
    EXPECT_EQ(rows(), (QStringList{"a", "b"}));
}

} // namespace
