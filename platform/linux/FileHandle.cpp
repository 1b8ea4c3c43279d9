#include "platform/linux/FileHandle.h"

#include "platform/ByteText.h"
#include "platform/RuntimeError.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <utility>

namespace {

constexpr size_t pieceSize = 262'144;

RuntimeError::Number numberOf(int error)
{
    switch (error) {
    case ENOENT:
        return RuntimeError::FileNotFound;
    case ENOTDIR:
        return RuntimeError::PathNotFound;
    case EACCES:
    case EPERM:
    case ETXTBSY:
    case EWOULDBLOCK:
        return RuntimeError::PermissionDenied;
    case ENOSPC:
    case EDQUOT:
    case EFBIG:
        return RuntimeError::DiskFull;
    case EISDIR:
    case EROFS:
    case ELOOP:
    case ENAMETOOLONG:
    case ENXIO:
    case EINVAL:
    case EBUSY:
        return RuntimeError::PathAccess;
    default:
        return RuntimeError::DeviceError;
    }
}

} // namespace

FileHandle::FileHandle(SystemCalls &calls, const QByteArray &path, int file, int error)
    : m_calls(calls)
    , m_path(path)
    , m_file(file)
    , m_error(error)
{
}

FileHandle::FileHandle(FileHandle &&other) noexcept
    : m_calls(other.m_calls)
    , m_path(std::move(other.m_path))
    , m_file(std::exchange(other.m_file, -1))
    , m_error(other.m_error)
{
}

FileHandle::~FileHandle()
{
    // Reached open only where nothing was written or where another error is on its way up already.
    if (isOpen())
        (void)m_calls.close(m_file);
}

FileHandle FileHandle::tryOpen(SystemCalls &calls, const QByteArray &path, int flags, mode_t mode)
{
    const int file = uninterrupted([&] { return calls.open(path, flags, mode); });
    return {calls, path, file, file < 0 ? errno : 0};
}

FileHandle FileHandle::open(SystemCalls &calls, const QByteArray &path, int flags, mode_t mode)
{
    FileHandle handle = tryOpen(calls, path, flags, mode);
    if (!handle.isOpen())
        raise(handle.error(), path);
    return handle;
}

struct stat FileHandle::status() const
{
    struct stat result = {};
    if (m_calls.fstat(m_file, &result) != 0)
        raise(errno, m_path);
    return result;
}

void FileHandle::read(const std::function<void(QByteArrayView)> &take) const
{
    QByteArray piece(pieceSize, Qt::Uninitialized);
    for (;;) {
        const ssize_t count = uninterrupted([&] { return m_calls.read(m_file, piece.data(), pieceSize); });
        if (count == 0)
            return;
        if (count < 0)
            raise(errno, m_path);
        take(QByteArrayView(piece.constData(), count));
    }
}

QByteArray FileHandle::readAll() const
{
    QByteArray bytes;
    toStart();
    read([&bytes](QByteArrayView piece) { bytes += piece; });
    return bytes;
}

void FileHandle::write(QByteArrayView bytes) const
{
    while (!bytes.isEmpty()) {
        const ssize_t count =
            uninterrupted([&] { return m_calls.write(m_file, bytes.data(), static_cast<size_t>(bytes.size())); });
        if (count <= 0)
            raise(count == 0 ? ENOSPC : errno, m_path);
        bytes = bytes.sliced(count);
    }
}

void FileHandle::replaceContent(QByteArrayView bytes) const
{
    toStart();
    write(bytes);
    if (uninterrupted([&] { return m_calls.ftruncate(m_file, bytes.size()); }) != 0)
        raise(errno, m_path);
    sync();
}

void FileHandle::sync() const
{
    if (uninterrupted([&] { return m_calls.fsync(m_file); }) != 0)
        raise(errno, m_path);
}

void FileHandle::close()
{
    // Interrupted or not, Linux has closed the file then: close(2). A second call could close somebody else's.
    if (m_calls.close(std::exchange(m_file, -1)) != 0 && errno != EINTR)
        raise(errno, m_path);
}

int FileHandle::trySyncFolder(SystemCalls &calls, const QByteArray &path)
{
    const FileHandle folder = tryOpen(calls, path, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (!folder.isOpen())
        return folder.error() == EACCES ? 0 : folder.error();
    if (uninterrupted([&] { return calls.fsync(folder.file()); }) == 0 || errno == EINVAL)
        return 0;
    return errno;
}

void FileHandle::toStart() const
{
    if (m_calls.lseek(m_file, 0, SEEK_SET) < 0)
        raise(errno, m_path);
}

void FileHandle::raise(int error, const QByteArray &path, const QString &detail)
{
    throw RuntimeError(numberOf(error), decodeBytes(path), detail);
}
