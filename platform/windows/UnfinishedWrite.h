#pragma once

#include "platform/windows/WindowsFile.h"
#include "platform/windows/WindowsPath.h"

#include <QByteArray>
#include <QString>

/// The copy that is kept while a file is written in place, in the user's own folder under the number of the file's
/// volume and the file's number there. A process that is killed half way leaves it behind, and whoever reads or writes
/// the file next brings the write to its end.
class UnfinishedWrite final
{
public:
    /// @param folder where the copies are kept; it is made when it is needed
    /// @param file identifies the file that is written
    UnfinishedWrite(WindowsCalls &calls, const QString &folder, const BY_HANDLE_FILE_INFORMATION &file);

    /// Stores the copy; when this returns, it is on the disk. @throws RuntimeError with the copy's path
    void keep(const WindowsPath &target, const QByteArray &before, QByteArrayView after);

    /// Removes the copy. One that cannot be removed does no harm: it matches a file that is whole.
    void drop();

    /// Brings the file to what the copy says it is to become, when its bytes show that a write was cut off there. A
    /// file that is whole, or that somebody else has written since, stays as it is. Without a copy nothing is done.
    /// @throws RuntimeError when the file is torn and cannot be mended
    void finish(const WindowsPath &target);

    [[nodiscard]] const QString &path() const { return m_path.shown(); }

private:
    void makeFolder(const QString &folder);

    WindowsCalls &m_calls;
    QString m_folder;
    WindowsPath m_path;
};
