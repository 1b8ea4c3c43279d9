#include "app/PrintDialogs.h"

#include "platform/Messages.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QLayout>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>

PrintDialogs::PrintDialogs(Messages &messages, QWidget &parent)
    : m_messages(messages)
    , m_parent(parent)
{
}

PrintDialogs::~PrintDialogs() = default;

QPrinter &PrintDialogs::printer()
{
    if (!m_printer)
        m_printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    return *m_printer;
}

void PrintDialogs::ShowPageSetup()
{
    (void)run<QPageSetupDialog>(QStringLiteral("PageSetupDialog"), QStringLiteral("Page Setup"));
}

bool PrintDialogs::ShowPrint(const QString &documentName)
{
    printer().setDocName(documentName);
    // The toolkit's dialog would propose a folder for the file, which it then refuses.
    if (printer().outputFormat() == QPrinter::PdfFormat) {
        const QString last = printer().outputFileName();
        const QDir folder(last.isEmpty() ? QDir::homePath() : QFileInfo(last).path());
        printer().setOutputFileName(
            folder.filePath(QFileInfo(documentName).completeBaseName() + QLatin1String(".pdf")));
    }
    return run<QPrintDialog>(QStringLiteral("PrintDialog"), QStringLiteral("Print"));
}

template<class Dialog>
bool PrintDialogs::run(const QString &name, const QString &title)
{
    {
        Dialog dialog(&printer(), &m_parent);
        dialog.setObjectName(name);
        dialog.setWindowTitle(title);
        if (canBeShown(dialog, printer()))
            return dialog.exec() == QDialog::Accepted;
    }
    // The next time a printer may be there.
    m_printer.reset();
    m_messages.show(QCoreApplication::translate("PrintDialogs", "There is no printer on this machine."),
                    Messages::Icon::Exclamation);
    return false;
}

bool canBeShown(const QDialog &printDialog, const QPrinter &printer)
{
    return printDialog.layout() || printer.outputFormat() == QPrinter::NativeFormat;
}
