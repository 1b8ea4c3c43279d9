#pragma once

#include <QString>

class DocumentShell;

/// What of the main window belongs to a document while it is the active one: menus, buttons, and the status line, which
/// each document has for itself.
class ShellPresence final
{
public:
    explicit ShellPresence(DocumentShell &shell);

    /// The document becomes the active one, or stops being it. Nothing happens when it is already so.
    void enter();
    void leave();

    /// Shows the document's status, or keeps it until the document is active.
    void showStatus(const QString &text);

    /// Whether Undo is offered. It is from the beginning, and says then that there is nothing to undo; it stops being
    /// so once the last step has been taken back.
    void setUndoEnabled(bool isEnabled);

private:
    DocumentShell &m_shell;
    QString m_savedMainStatus;
    QString m_ownStatus;
    bool m_isActive = false;
    bool m_isUndoEnabled = true;
};
