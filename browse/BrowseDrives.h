#pragma once

#include <QDialog>

class FileSystem;
class QListWidget;

/// A picker of drives of this machine or of another host. It lists every letter, whether there is such a drive or not,
/// and selects those that are fixed disks.
class BrowseDrives final : public QDialog
{
    Q_OBJECT

public:
    /// @param host empty for the local system
    BrowseDrives(const FileSystem &fileSystem, const QString &host, QWidget *parent);

    /// The chosen drives as one text, with a blank behind each: "C:\ D:\ ". Empty when none is chosen.
    [[nodiscard]] QString GetDrives() const;

private:
    void fill(const FileSystem &fileSystem, const QString &host);

    QListWidget *m_driveList;
};
