#include "platform/linux/LinuxFileAccess.h"

#include "platform/ByteText.h"
#include "platform/linux/Draft.h"
#include "platform/linux/FileAttributes.h"
#include "platform/linux/FileHandle.h"
#include "platform/linux/UnfinishedWrite.h"
#include "platform/RuntimeError.h"

#include <fcntl.h>
#include <sys/file.h>

#include <array>
#include <cerrno>
#include <climits>
#include <utility>

namespace {

constexpr int maximumLinks = 40; // as the kernel itself follows: path_resolution(7)

/// Nothing where the text cannot be a path.
QByteArray pathBytes(const QString &path)
{
    return path.contains(QChar(u'\0')) ? QByteArray() : encodeText(path);
}

QByteArray folderOf(const QByteArray &path)
{
    const qsizetype slash = path.lastIndexOf('/');
    if (slash < 0)
        return QByteArrayLiteral(".");
    return slash == 0 ? QByteArrayLiteral("/") : path.first(slash);
}

void requireRegular(const struct stat &status, const QByteArray &path)
{
    if (!S_ISREG(status.st_mode))
        FileHandle::raise(EISDIR, path);
}

} // namespace

LinuxFileAccess::LinuxFileAccess(std::unique_ptr<SystemCalls> calls, const QByteArray &recoveryFolder)
    : m_ownedCalls(std::move(calls))
    , m_calls(*m_ownedCalls)
    , m_recoveryFolder(recoveryFolder)
{
}

bool LinuxFileAccess::fileExists(const QString &path) const
{
    struct stat status = {};
    return m_calls.stat(pathBytes(path), &status) == 0 && !S_ISDIR(status.st_mode);
}

void LinuxFileAccess::readFile(const QString &path, const TakeBytes &take)
{
    const QByteArray target = pathBytes(path);
    struct stat status = {};
    if (m_calls.stat(target, &status) != 0) {
        if (errno == ENOENT)
            raiseMissing(target);
        FileHandle::raise(errno, target);
    }
    requireRegular(status, target);
    UnfinishedWrite(m_calls, m_recoveryFolder, status).finish(target);
    FileHandle::open(m_calls, target, O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK).read(take);
}

void LinuxFileAccess::writeFile(const QString &path, QByteArrayView bytes)
{
    const QByteArray target = followLinks(pathBytes(path));
    struct stat status = {};
    if (m_calls.stat(target, &status) != 0) {
        if (errno != ENOENT)
            FileHandle::raise(errno, target);
        createFile(target, bytes);
        return;
    }
    requireRegular(status, target);
    // Opened for writing first of all: a file that may not be written is not replaced either.
    const FileHandle old = FileHandle::open(m_calls, target, O_RDWR | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (status.st_nlink > 1 || !replaceFile(target, old, bytes))
        writeInPlace(target, old, bytes);
}

QByteArray LinuxFileAccess::followLinks(const QByteArray &path) const
{
    QByteArray target = path;
    std::array<char, PATH_MAX> buffer{};
    for (int links = 0; links <= maximumLinks; ++links) {
        const ssize_t size = m_calls.readlink(target, buffer.data(), buffer.size());
        if (size < 0)
            return target;
        const QByteArray next(buffer.data(), size);
        target = next.startsWith('/') ? next : folderOf(target) + '/' + next;
    }
    FileHandle::raise(ELOOP, path);
}

void LinuxFileAccess::raiseMissing(const QByteArray &path) const
{
    struct stat status = {};
    const bool isFolderThere = m_calls.stat(folderOf(path), &status) == 0;
    FileHandle::raise(isFolderThere ? ENOENT : ENOTDIR, path);
}

void LinuxFileAccess::createFile(const QByteArray &target, QByteArrayView bytes)
{
    const QByteArray folder = folderOf(target);
    struct stat status = {};
    if (m_calls.stat(folder, &status) != 0)
        raiseMissing(target);
    std::optional<Draft> draft = Draft::make(m_calls, folder, 0666);
    if (!draft)
        FileHandle::raise(EACCES, target);
    draft->file().write(bytes);
    draft->file().sync();
    if (!draft->moveTo(target))
        FileHandle::raise(EACCES, target);
    syncFolder(folder);
}

bool LinuxFileAccess::replaceFile(const QByteArray &target, const FileHandle &old, QByteArrayView bytes)
{
    const QByteArray folder = folderOf(target);
    std::optional<Draft> draft = Draft::make(m_calls, folder, 0600);
    if (!draft)
        return false;
    draft->file().write(bytes);
    if (!carryAttributes(m_calls, old, draft->file()))
        return false;
    draft->file().sync();
    if (!draft->moveTo(target))
        return false;
    syncFolder(folder);
    return true;
}

void LinuxFileAccess::writeInPlace(const QByteArray &target, const FileHandle &file, QByteArrayView bytes)
{
    UnfinishedWrite copy(m_calls, m_recoveryFolder, file.status());
    copy.finish(target);
    if (m_calls.flock(file.file(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        FileHandle::raise(EWOULDBLOCK, target);

    const QByteArray before = file.readAll();
    copy.keep(target, before, bytes);
    try {
        reserve(target, file, before.size(), bytes.size());
        file.replaceContent(bytes);
    } catch (const RuntimeError &error) {
        try {
            file.replaceContent(before);
        } catch (const RuntimeError &) {
            throw RuntimeError(static_cast<RuntimeError::Number>(error.number()), error.path(),
                               QStringLiteral("A copy is kept in \"%1\". The write is brought to its end when the "
                                              "file is opened here again.")
                                   .arg(decodeBytes(copy.path())));
        }
        copy.drop();
        throw;
    }
    copy.drop();
}

void LinuxFileAccess::reserve(const QByteArray &target, const FileHandle &file, qsizetype before, qsizetype after)
{
    if (after <= before || m_calls.fallocate(file.file(), before, after - before) == 0)
        return;
    // Where a file system cannot reserve space, a full disk shows while writing, and the old bytes are put back then.
    if (errno != EOPNOTSUPP && errno != ENOSYS)
        FileHandle::raise(errno, target);
}

void LinuxFileAccess::syncFolder(const QByteArray &folder)
{
    const FileHandle handle = FileHandle::tryOpen(m_calls, folder, O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    // The file is in its place already. A folder that may not be read, or whose file system does not know the request,
    // is the ordinary case where this fails; anything else is worth telling.
    if (!handle.isOpen() || m_calls.fsync(handle.file()) == 0 || errno == EINVAL)
        return;
    FileHandle::raise(errno, folder);
}
