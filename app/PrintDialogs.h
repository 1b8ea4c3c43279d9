#pragma once

#include <memory>

class Messages;
class QDialog;
class QPrinter;
class QString;
class QWidget;

/// The printer of the main window, with its page, and the dialogs that choose them.
class PrintDialogs final
{
public:
    PrintDialogs(Messages &messages, QWidget &parent);
    ~PrintDialogs();

    /// The printer that was chosen last. Without any printer on this machine it prints into a PDF file.
    [[nodiscard]] QPrinter &printer();

    /// Lets the user choose the page.
    void ShowPageSetup();

    /// Lets the user choose the printer. @param documentName what the printer calls what is printed
    /// @return false when the user cancelled
    [[nodiscard]] bool ShowPrint(const QString &documentName);

private:
    template<class Dialog>
    [[nodiscard]] bool run(const QString &name, const QString &title);

    Messages &m_messages;
    QWidget &m_parent;
    /// Made when it is asked for: looking for printers takes time.
    std::unique_ptr<QPrinter> m_printer;
};

/// Whether a print dialog of the toolkit comes when it is run. Where it is the system's own, it has nothing inside, and
/// it only comes with a printer.
[[nodiscard]] bool canBeShown(const QDialog &printDialog, const QPrinter &printer);
