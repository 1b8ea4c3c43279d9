#include "platform/windows/WindowsCalls.h"

HANDLE WindowsCalls::createFile(const QString &path, DWORD access, DWORD share, SECURITY_ATTRIBUTES *security,
                                DWORD disposition, DWORD flags)
{
    return ::CreateFileW(wide(path), access, share, security, disposition, flags, nullptr);
}

bool WindowsCalls::closeHandle(HANDLE file)
{
    return ::CloseHandle(file);
}

bool WindowsCalls::readFile(HANDLE file, void *buffer, DWORD size, DWORD *count)
{
    return ::ReadFile(file, buffer, size, count, nullptr);
}

bool WindowsCalls::writeFile(HANDLE file, const void *bytes, DWORD size, DWORD *count)
{
    return ::WriteFile(file, bytes, size, count, nullptr);
}

bool WindowsCalls::setFilePointer(HANDLE file, qint64 offset)
{
    LARGE_INTEGER distance = {};
    distance.QuadPart = offset;
    return ::SetFilePointerEx(file, distance, nullptr, FILE_BEGIN);
}

bool WindowsCalls::setEndOfFile(HANDLE file)
{
    return ::SetEndOfFile(file);
}

bool WindowsCalls::flushFileBuffers(HANDLE file)
{
    return ::FlushFileBuffers(file);
}

DWORD WindowsCalls::getFileType(HANDLE file)
{
    return ::GetFileType(file);
}

bool WindowsCalls::getFileInformation(HANDLE file, BY_HANDLE_FILE_INFORMATION *information)
{
    return ::GetFileInformationByHandle(file, information);
}

bool WindowsCalls::setDeleteOnClose(HANDLE file, bool isDeleted)
{
    FILE_DISPOSITION_INFO information = {};
    information.DeleteFile = isDeleted;
    return ::SetFileInformationByHandle(file, FileDispositionInfo, &information, sizeof information);
}

DWORD WindowsCalls::getFinalPathName(HANDLE file, wchar_t *buffer, DWORD size)
{
    return ::GetFinalPathNameByHandleW(file, buffer, size, FILE_NAME_NORMALIZED | VOLUME_NAME_DOS);
}

DWORD WindowsCalls::getFileAttributes(const QString &path)
{
    return ::GetFileAttributesW(wide(path));
}

bool WindowsCalls::getFileSecurity(const QString &path, SECURITY_INFORMATION parts, void *descriptor, DWORD size,
                                   DWORD *needed)
{
    return ::GetFileSecurityW(wide(path), parts, descriptor, size, needed);
}

bool WindowsCalls::createDirectory(const QString &path)
{
    return ::CreateDirectoryW(wide(path), nullptr);
}

bool WindowsCalls::deleteFile(const QString &path)
{
    return ::DeleteFileW(wide(path));
}

bool WindowsCalls::moveFile(const QString &from, const QString &to, DWORD flags)
{
    return ::MoveFileExW(wide(from), wide(to), flags);
}

bool WindowsCalls::replaceFile(const QString &replaced, const QString &replacement, const QString &backup)
{
    return ::ReplaceFileW(wide(replaced), wide(replacement), wide(backup), 0, nullptr, nullptr);
}
