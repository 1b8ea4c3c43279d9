#pragma once

#include <QLatin1String>
#include <QString>

class QPoint;
class QPrinter;

/// What a document asks of the window that it is shown in: the menus and buttons that belong to the active document,
/// the status line, and the Save As command.
class DocumentShell
{
public:
    DocumentShell() = default;
    DocumentShell(const DocumentShell &) = delete;
    DocumentShell &operator=(const DocumentShell &) = delete;
    virtual ~DocumentShell() = default;

    /// Shows or hides the menu or menu entry of that name; a name that the window does not have is passed over.
    virtual void setMenuVisible(QLatin1String name, bool isVisible) = 0;

    /// Enables or disables the menu entry of that name. An entry whose command does not exist stays disabled.
    virtual void setMenuEnabled(QLatin1String name, bool isEnabled) = 0;

    /// Enables or disables the toolbar button of that key. A button whose command does not exist stays disabled.
    virtual void setToolButtonEnabled(QLatin1String key, bool isEnabled) = 0;

    /// The first panel of the status line.
    [[nodiscard]] virtual QString statusText() const = 0;
    virtual void setStatusText(const QString &text) = 0;

    /// Asks where to save the active document and saves it there; nothing happens when the user cancels.
    virtual void SaveAs() = 0;

    /// The printer that was chosen last, with its page.
    [[nodiscard]] virtual QPrinter &printer() = 0;

    /// Opens a menu with the commands for the active document's rows. @param position on the screen, in
    /// device-independent pixels
    virtual void showItemMenu(const QPoint &position) = 0;
};
