#pragma once

#include "editors/FlagEditorForm.h"

class FileLists;
class FileSystem;
class QCheckBox;
class QFileDialog;
struct EditorServices;

/// The editor for files and directories. The line has the path as the host of the document knows it; the lists look at
/// the host's share of the drive when that is another machine.
class ConfigDialogNew final : public FlagEditorForm
{
    Q_OBJECT

public:
    ConfigDialogNew(const EditorServices &services, QWidget *parent);

    void SetDefaultItem() override;

protected:
    /// Shows the object and moves the lists to it. The user is told when it is not to be found.
    void showObject(const QString &object) override;
    [[nodiscard]] QString object() const override;

private:
    void addLists();
    void confirmLastAccess(QCheckBox &box);

    /// Moves the lists to a path as the line has it, as far as it is there.
    void moveListsTo(const QString &path);
    /// Goes to a drive, "C:". @return false when it cannot be reached; the user is told, and the lists stay then
    [[nodiscard]] bool goToDrive(const QString &drive);
    /// Opens a folder in the lists. @return false when it is not there; the lists stay then
    [[nodiscard]] bool openFolder(const QString &path);
    void reportMissing(const QString &path);

    void chooseFile();
    void startAtObject(QFileDialog &dialog) const;
    /// @param chosen as the system knows it
    void takeFile(const QString &chosen);

    void chooseDrives();
    /// A new item becomes one for each drive where there are several.
    /// @param drives as the user sees them, "C:\"
    void takeDrives(const QStringList &drives);
    void addDrives(const QStringList &drives);

    /// A path of the line as it is looked at, and back.
    [[nodiscard]] QString pathToBrowse(const QString &path) const;
    [[nodiscard]] QString pathForLine(const QString &path) const;
    /// How a path to browse is spelled where it is looked at: its bytes that are not UTF-8 may be those of a name
    /// there, or stand for characters, as in a line of an old file. The second where neither is there.
    [[nodiscard]] QString spellingOf(const QString &path) const;

    const FileSystem &m_fileSystem;
    LineEdit *m_objectName;
    FileLists *m_lists = nullptr;
    /// The drive that the lists show.
    QString m_drive = QStringLiteral("C:");
    /// Where that is looked at when the document has a connection of its own to it, without "\" at its end.
    QString m_connection;
};
