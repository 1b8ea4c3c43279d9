#pragma once

#include "platform/windows/WindowsCalls.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <functional>

class WindowsPath;

/// An open file that is closed with its object, over the Windows calls that it is given. Every operation that fails
/// raises a RuntimeError with the path that the user knows.
class WindowsFile final
{
public:
    /// How a file is opened: the arguments of CreateFile.
    struct Opening
    {
        DWORD access;
        DWORD share;
        DWORD disposition;
        SECURITY_ATTRIBUTES *security = nullptr;
        DWORD attributes = FILE_ATTRIBUTE_NORMAL;
    };

    /// A file that is not open; error() tells why when it comes from tryOpen().
    static WindowsFile tryOpen(WindowsCalls &calls, const WindowsPath &path, const Opening &opening);
    static WindowsFile open(WindowsCalls &calls, const WindowsPath &path, const Opening &opening);

    WindowsFile(WindowsFile &&other) noexcept;
    WindowsFile(const WindowsFile &) = delete;
    WindowsFile &operator=(const WindowsFile &) = delete;
    WindowsFile &operator=(WindowsFile &&) = delete;
    ~WindowsFile();

    [[nodiscard]] bool isOpen() const { return m_file != INVALID_HANDLE_VALUE; }
    /// What GetLastError() said when the file could not be opened; 0 for an open file.
    [[nodiscard]] DWORD error() const { return m_error; }
    [[nodiscard]] HANDLE handle() const { return m_file; }

    /// @throws RuntimeError PathAccess unless this is an ordinary file
    void requireOrdinary() const;
    [[nodiscard]] BY_HANDLE_FILE_INFORMATION information() const;
    void read(const std::function<void(QByteArrayView)> &take) const;
    [[nodiscard]] QByteArray readAll() const;
    void write(QByteArrayView bytes) const;
    /// Makes the file size bytes long, and its space sure, before anything in it changes.
    void reserve(qint64 size) const;
    /// Makes bytes the whole content, beginning at the first byte, and waits until they are on the disk.
    void replaceContent(QByteArrayView bytes) const;
    void sync() const;
    void close();
    /// Closes without a word, where another error is on its way up already.
    void abandon() noexcept;

    /// Raises the run-time error that stands for error, a Windows error code.
    [[noreturn]] static void raise(DWORD error, const QString &path, const QString &detail = {});

private:
    WindowsFile(WindowsCalls &calls, const QString &path, HANDLE file, DWORD error);
    [[noreturn]] void raiseLastError() const;

    WindowsCalls &m_calls;
    QString m_path;
    HANDLE m_file;
    DWORD m_error;
};
