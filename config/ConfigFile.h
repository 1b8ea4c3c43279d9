#pragma once

#include <QString>
#include <QStringList>

class DocumentShell;
class FileAccess;

/// A document's handle on where its configuration lives; the only code that touches the file. Every configuration is a
/// local file: the remote operations answer that there is no remote host.
class ConfigFile final
{
public:
    ConfigFile(FileAccess &files, DocumentShell &shell);

    /// Stores the file's full path; empty for a document that has never been saved.
    void SetInfo(const QString &path);

    [[nodiscard]] QString Title() const;

    /// The remote host for the document's request; always empty.
    [[nodiscard]] QString GetRemote(const QString &request) const;

    /// The result of an attempt to connect; always empty.
    [[nodiscard]] QString TryRemoteConnect(const QString &host, const QString &drive, const QString &user,
                                           const QString &password) const;

    /// Reads the file: its lines, without the empty ones at its end.
    /// @throws RuntimeError as FileAccess::readFile() and LineReader::lines() do
    [[nodiscard]] QStringList GetFile() const;

    /// Writes the whole text of the document. Without a path, the Save As command of the window is run instead.
    /// @param rowCount not used
    /// @param success 1 afterwards, even when the user cancelled Save As: the document then takes itself for saved, as
    ///        it always has
    /// @throws RuntimeError as FileAccess::writeFile() does
    void SetFile(const QString &text, int rowCount, qint16 &success);

    [[nodiscard]] const QString &path() const { return m_path; }

private:
    FileAccess &m_files;
    DocumentShell &m_shell;
    QString m_path;
};
