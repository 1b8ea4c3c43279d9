#pragma once

#include "platform/FileAccess.h"
#include "platform/linux/SystemCalls.h"

#include <QByteArray>

#include <memory>

class FileHandle;

/// Files through the system calls of Linux.
///
/// A file is replaced by a new one that is written beside it, given the old one's owner, group, mode, access lists and
/// extended attributes, and renamed over it. Where that is not possible (the folder may not be written, the file has
/// further names, an attribute cannot be carried over) it is written in place, with a copy kept until the write is
/// known to be good.
class LinuxFileAccess final : public FileAccess
{
public:
    /// @param recoveryFolder where copies are kept while a file is written in place
    LinuxFileAccess(std::unique_ptr<SystemCalls> calls, const QByteArray &recoveryFolder);

    [[nodiscard]] bool fileExists(const QString &path) const override;
    void readFile(const QString &path, const TakeBytes &take) override;
    void writeFile(const QString &path, QByteArrayView bytes) override;

private:
    [[nodiscard]] QByteArray followLinks(const QByteArray &path) const;
    [[noreturn]] void raiseMissing(const QByteArray &path) const;
    [[nodiscard]] bool createFile(const QByteArray &target, QByteArrayView bytes);
    [[nodiscard]] bool replaceFile(const QByteArray &target, const FileHandle &old, QByteArrayView bytes);
    void writeInPlace(const QByteArray &target, const FileHandle &file, QByteArrayView bytes);
    void reserve(const QByteArray &target, const FileHandle &file, qsizetype before, qsizetype after);
    void keepMode(const FileHandle &file, const struct stat &status);
    void syncFolder(const QByteArray &folder, const QByteArray &target);

    std::unique_ptr<SystemCalls> m_ownedCalls;
    SystemCalls &m_calls;
    QByteArray m_recoveryFolder;
};
