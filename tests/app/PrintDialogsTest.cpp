#include "app/PrintDialogs.h"

#include "tests/app/ProgramFixture.h"

#include <QAction>
#include <QDialog>
#include <QPrinter>
#include <QPushButton>
#include <QVBoxLayout>

namespace {

class PrintCommand : public Program
{
};

TEST_F(PrintCommand, WithoutADocumentThereIsNothingToPrint)
{
    start();
    auto *entry = control<QAction>(*window, "mnuFilePrint");
    EXPECT_FALSE(entry->isVisible());
    // Whoever runs it all the same is told so.
    messages.expectShow("Nothing to print", Messages::Icon::Exclamation);
    entry->trigger();
    messages.verify();
}

// Whether a dialog comes

TEST(PrintDialog, OfTheSystemComesWithAPrinterOnly)
{
    QPrinter printer;
    printer.setOutputFormat(QPrinter::PdfFormat);
    QDialog ofTheSystem;
    EXPECT_FALSE(canBeShown(ofTheSystem, printer));
    QDialog ofTheToolkit;
    auto *layout = new QVBoxLayout(&ofTheToolkit);
    layout->addWidget(new QPushButton(&ofTheToolkit));
    EXPECT_TRUE(canBeShown(ofTheToolkit, printer));
}

} // namespace
