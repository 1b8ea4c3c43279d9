#pragma once

#include <QString>
#include <qt_windows.h>

/// The calls of the Windows interface that file access goes through, under their own names. Whoever uses them gets
/// them handed in, so that a test can let any of them fail. Results are those of the calls: what fails leaves its
/// reason in GetLastError().
class WindowsCalls
{
public:
    WindowsCalls() = default;
    WindowsCalls(const WindowsCalls &) = delete;
    WindowsCalls &operator=(const WindowsCalls &) = delete;
    virtual ~WindowsCalls() = default;

    virtual HANDLE createFile(const QString &path, DWORD access, DWORD share, SECURITY_ATTRIBUTES *security,
                              DWORD disposition, DWORD flags);
    virtual bool closeHandle(HANDLE file);
    virtual bool readFile(HANDLE file, void *buffer, DWORD size, DWORD *count);
    virtual bool writeFile(HANDLE file, const void *bytes, DWORD size, DWORD *count);
    virtual bool setFilePointer(HANDLE file, qint64 offset);
    virtual bool setEndOfFile(HANDLE file);
    virtual bool flushFileBuffers(HANDLE file);
    virtual DWORD getFileType(HANDLE file);
    virtual bool getFileInformation(HANDLE file, BY_HANDLE_FILE_INFORMATION *information);
    /// SetFileInformationByHandle, FileDispositionInfo: whether the file goes when its last handle is closed.
    virtual bool setDeleteOnClose(HANDLE file, bool isDeleted);
    virtual DWORD getFinalPathName(HANDLE file, wchar_t *buffer, DWORD size);

    virtual DWORD getFileAttributes(const QString &path);
    virtual bool getFileSecurity(const QString &path, SECURITY_INFORMATION parts, void *descriptor, DWORD size,
                                 DWORD *needed);
    virtual bool createDirectory(const QString &path);
    virtual bool deleteFile(const QString &path);
    virtual bool moveFile(const QString &from, const QString &to, DWORD flags);
    virtual bool replaceFile(const QString &replaced, const QString &replacement, const QString &backup);
};

/// text as the Windows interface takes it; valid as long as text is.
[[nodiscard]] inline const wchar_t *wide(const QString &text)
{
    static_assert(sizeof(wchar_t) == sizeof(char16_t));
    return reinterpret_cast<const wchar_t *>(text.utf16());
}
