#pragma once

#include "platform/linux/FileHandle.h"

#include <QByteArray>

/// The copy that is kept while a file is written in place. It holds what the file was and what it is to become, in the
/// user's state folder under the file's device and inode number; a process that is killed half way leaves it behind,
/// and whoever reads or writes the file next brings the write to its end.
class UnfinishedWrite final
{
public:
    /// @param folder where the copies are kept; it is made when it is needed
    /// @param file identifies the file that is written
    UnfinishedWrite(SystemCalls &calls, const QByteArray &folder, const struct stat &file);

    /// Stores the copy; when this returns, it is on the disk. @throws RuntimeError with the copy's path
    void keep(const QByteArray &target, const QByteArray &before, QByteArrayView after);

    /// Removes the copy. One that cannot be removed does no harm: it matches a file that is whole.
    void drop();

    /// Brings the file to what the copy says it is to become, when its bytes show that a write was cut off there. A
    /// file that is whole, or that somebody else has written since, stays as it is. Without a copy nothing is done.
    /// @throws RuntimeError PermissionDenied while another program writes the file, and others when the file is torn
    ///         and cannot be mended
    void finish(const QByteArray &target);

    /// Keeps other programs of this kind from writing the file, for as long as it is open.
    /// @throws RuntimeError PermissionDenied with target as the path, when one of them is writing it
    void lock(const FileHandle &file, const QByteArray &target);

    /// As finish(), for a file that is locked already.
    void mend(const FileHandle &file);

    [[nodiscard]] const QByteArray &path() const { return m_path; }

private:
    void makeFolder(const QByteArray &path);
    void syncFolder(const QByteArray &path);

    SystemCalls &m_calls;
    QByteArray m_folder;
    QByteArray m_path;
};
