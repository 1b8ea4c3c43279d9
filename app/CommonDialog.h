#pragma once

#include <QString>

class FileAccess;
class Messages;
class QWidget;

/// The one file dialog of the main window, for opening and for saving. It remembers the file name last used in it.
class CommonDialog final
{
public:
    CommonDialog(FileAccess &files, Messages &messages, QWidget &parent);

    /// Shows the dialog. A name that is not there may be chosen too. @return empty when the user cancelled
    [[nodiscard]] QString ShowOpen();

    /// Shows the dialog with a proposed name. Before a file that exists is chosen, the user is asked.
    /// @return empty when the user cancelled
    [[nodiscard]] QString ShowSave(const QString &proposal);

private:
    enum class Purpose { Open, Save };

    [[nodiscard]] QString choose(Purpose purpose, const QString &title, const QString &proposal);
    [[nodiscard]] bool mayReplace(const QString &path);

    FileAccess &m_files;
    Messages &m_messages;
    QWidget &m_parent;
    QString m_fileName;
};
