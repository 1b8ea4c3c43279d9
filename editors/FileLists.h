#pragma once

#include <QStringList>
#include <QWidget>

class NameList;
class QComboBox;
class QGridLayout;
struct FolderContent;

/// The lists in which a path is picked: AllDriveList with every letter, DirList with the folder that is open, those it
/// is in and those in it, FileList with the files of the open folder, whatever their names ("*.*"). They show what they
/// are told to and say what the user picks.
class FileLists final : public QWidget
{
    Q_OBJECT

public:
    explicit FileLists(QWidget *parent);

    /// @param drive "A:" to "Z:"
    void showDrive(const QString &drive);

    /// Shows a folder as the open one, with nothing selected in FileList.
    void showFolder(const QString &path, const FolderContent &content);

    /// Selects a file of the open folder by its name; one that has that name in another case will do. Without such a
    /// file nothing is selected.
    void selectFile(const QString &name);

    /// The open folder; a drive or a share has "\" at its end. Empty before there is one.
    [[nodiscard]] const QString &folder() const { return m_folder; }

signals:
    void driveChosen(const QString &drive);
    /// The user wants to pick several drives.
    void drivesWanted();
    void folderChosen(const QString &path);
    void fileChosen(const QString &name);

private:
    void addDrives(QGridLayout &layout);
    void addNames(QGridLayout &layout);

    QComboBox *m_drives = nullptr;
    NameList *m_folderList = nullptr;
    NameList *m_fileList = nullptr;
    QString m_folder;
    /// The paths of the rows of DirList, and the names of those of FileList.
    QStringList m_folders;
    QStringList m_files;
};
