#pragma once

#include "platform/linux/SystemCalls.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <functional>

/// An open file that is closed with its handle, over the system calls that it is given. Every operation that fails
/// raises a RuntimeError with the path.
class FileHandle final
{
public:
    /// A handle that is not open; error() tells why when it comes from tryOpen().
    static FileHandle tryOpen(SystemCalls &calls, const QByteArray &path, int flags, mode_t mode = 0);
    static FileHandle open(SystemCalls &calls, const QByteArray &path, int flags, mode_t mode = 0);

    FileHandle(FileHandle &&other) noexcept;
    FileHandle(const FileHandle &) = delete;
    FileHandle &operator=(const FileHandle &) = delete;
    FileHandle &operator=(FileHandle &&) = delete;
    ~FileHandle();

    [[nodiscard]] bool isOpen() const { return m_file >= 0; }
    /// The errno of the call that failed to open; 0 for an open file.
    [[nodiscard]] int error() const { return m_error; }
    [[nodiscard]] int file() const { return m_file; }

    [[nodiscard]] struct stat status() const;
    /// Reads from where the last operation stopped.
    void read(const std::function<void(QByteArrayView)> &take) const;
    /// The whole content, wherever the last operation stopped.
    [[nodiscard]] QByteArray readAll() const;
    void write(QByteArrayView bytes) const;
    /// Makes bytes the whole content, beginning at the first byte, and waits until they are on the disk.
    void replaceContent(QByteArrayView bytes) const;
    void sync() const;
    void close();

    /// Waits until the names in the folder at path are on the disk. Where the folder may not be read, or its file
    /// system does not know the request, there is nothing to wait for.
    /// @return 0 or the error
    [[nodiscard]] static int trySyncFolder(SystemCalls &calls, const QByteArray &path);

    /// The path that errors name from here on.
    void reportAs(const QByteArray &path) { m_path = path; }

    /// Raises the run-time error that stands for error, an errno value.
    [[noreturn]] static void raise(int error, const QByteArray &path, const QString &detail = {});

private:
    void toStart() const;

    FileHandle(SystemCalls &calls, const QByteArray &path, int file, int error);

    SystemCalls &m_calls;
    QByteArray m_path;
    int m_file;
    int m_error;
};
