#include "platform/windows/WindowsFile.h"

#include "platform/RuntimeError.h"
#include "platform/windows/WindowsPath.h"

#include <algorithm>
#include <utility>

namespace {

constexpr qsizetype pieceSize = 256 * 1024;

constexpr DWORD diskQuotaExceeded = 1295; // ERROR_DISK_QUOTA_EXCEEDED, which not every compiler's headers name

RuntimeError::Number numberOf(DWORD error)
{
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
        return RuntimeError::FileNotFound;
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
    case ERROR_NETNAME_DELETED:
        return RuntimeError::PathNotFound;
    case ERROR_ACCESS_DENIED:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_NETWORK_ACCESS_DENIED:
    case ERROR_PRIVILEGE_NOT_HELD:
    case ERROR_LOGON_FAILURE:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_DELETE_PENDING:
        return RuntimeError::PermissionDenied;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case diskQuotaExceeded:
    case ERROR_FILE_TOO_LARGE:
        return RuntimeError::DiskFull;
    case ERROR_WRITE_PROTECT:
    case ERROR_INVALID_NAME:
    case ERROR_BAD_PATHNAME:
    case ERROR_FILENAME_EXCED_RANGE:
    case ERROR_DIRECTORY:
    case ERROR_CANT_RESOLVE_FILENAME:
    case ERROR_ALREADY_EXISTS:
    case ERROR_FILE_EXISTS:
    case ERROR_BUSY:
        return RuntimeError::PathAccess;
    default:
        return RuntimeError::DeviceError;
    }
}

} // namespace

WindowsFile::WindowsFile(WindowsCalls &calls, const QString &path, HANDLE file, DWORD error)
    : m_calls(calls)
    , m_path(path)
    , m_file(file)
    , m_error(error)
{
}

WindowsFile::WindowsFile(WindowsFile &&other) noexcept
    : m_calls(other.m_calls)
    , m_path(std::move(other.m_path))
    , m_file(std::exchange(other.m_file, INVALID_HANDLE_VALUE))
    , m_error(other.m_error)
{
}

// Reached open only where nothing was written or where another error is on its way up already.
WindowsFile::~WindowsFile()
{
    abandon();
}

WindowsFile WindowsFile::tryOpen(WindowsCalls &calls, const WindowsPath &path, const Opening &opening)
{
    if (path.native().isEmpty())
        return {calls, path.shown(), INVALID_HANDLE_VALUE, ERROR_INVALID_NAME};
    const HANDLE file = calls.createFile(path.native(), opening.access, opening.share, opening.security,
                                         opening.disposition, opening.attributes);
    return {calls, path.shown(), file, file == INVALID_HANDLE_VALUE ? GetLastError() : 0};
}

WindowsFile WindowsFile::open(WindowsCalls &calls, const WindowsPath &path, const Opening &opening)
{
    WindowsFile file = tryOpen(calls, path, opening);
    if (!file.isOpen())
        raise(file.error(), path.shown());
    return file;
}

void WindowsFile::requireOrdinary() const
{
    if (m_calls.getFileType(m_file) != FILE_TYPE_DISK)
        raise(ERROR_BAD_PATHNAME, m_path);
}

BY_HANDLE_FILE_INFORMATION WindowsFile::information() const
{
    BY_HANDLE_FILE_INFORMATION result = {};
    if (!m_calls.getFileInformation(m_file, &result))
        raiseLastError();
    return result;
}

void WindowsFile::read(const std::function<void(QByteArrayView)> &take) const
{
    QByteArray piece(pieceSize, Qt::Uninitialized);
    for (;;) {
        DWORD count = 0;
        if (!m_calls.readFile(m_file, piece.data(), static_cast<DWORD>(pieceSize), &count))
            raiseLastError();
        if (count == 0)
            return;
        take(QByteArrayView(piece.constData(), static_cast<qsizetype>(count)));
    }
}

QByteArray WindowsFile::readAll() const
{
    if (!m_calls.setFilePointer(m_file, 0))
        raiseLastError();
    QByteArray bytes;
    read([&bytes](QByteArrayView piece) { bytes += piece; });
    return bytes;
}

void WindowsFile::write(QByteArrayView bytes) const
{
    while (!bytes.isEmpty()) {
        const auto size = static_cast<DWORD>(std::min(bytes.size(), pieceSize));
        DWORD count = 0;
        if (!m_calls.writeFile(m_file, bytes.data(), size, &count))
            raiseLastError();
        // A full volume may also show as a write that is said to be good and takes nothing.
        if (count == 0)
            raise(ERROR_DISK_FULL, m_path);
        bytes = bytes.sliced(static_cast<qsizetype>(count));
    }
}

void WindowsFile::reserve(qint64 size) const
{
    if (!m_calls.setFilePointer(m_file, size) || !m_calls.setEndOfFile(m_file))
        raiseLastError();
}

void WindowsFile::replaceContent(QByteArrayView bytes) const
{
    if (!m_calls.setFilePointer(m_file, 0))
        raiseLastError();
    write(bytes);
    if (!m_calls.setEndOfFile(m_file))
        raiseLastError();
    sync();
}

void WindowsFile::sync() const
{
    if (!m_calls.flushFileBuffers(m_file))
        raiseLastError();
}

void WindowsFile::close()
{
    if (!m_calls.closeHandle(std::exchange(m_file, INVALID_HANDLE_VALUE)))
        raiseLastError();
}

void WindowsFile::abandon() noexcept
{
    if (isOpen())
        (void)m_calls.closeHandle(std::exchange(m_file, INVALID_HANDLE_VALUE));
}

void WindowsFile::raise(DWORD error, const QString &path, const QString &detail)
{
    throw RuntimeError(numberOf(error), path, detail);
}

void WindowsFile::raiseLastError() const
{
    raise(GetLastError(), m_path);
}
