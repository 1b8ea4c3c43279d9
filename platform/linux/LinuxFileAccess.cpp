#include "platform/linux/LinuxFileAccess.h"

#include "platform/ByteText.h"
#include "platform/linux/Draft.h"
#include "platform/linux/FileAttributes.h"
#include "platform/linux/FileHandle.h"
#include "platform/linux/UnfinishedWrite.h"
#include "platform/RuntimeError.h"
#include "platform/UnfinishedContent.h"

#include <fcntl.h>

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

QByteArray usablePath(const QString &path)
{
    const QByteArray bytes = pathBytes(path);
    if (bytes.isEmpty())
        throw RuntimeError(RuntimeError::PathAccess, path);
    return bytes;
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
    const QByteArray target = usablePath(path);
    struct stat status = {};
    if (m_calls.stat(target, &status) != 0) {
        if (errno == ENOENT)
            raiseMissing(target);
        FileHandle::raise(errno, target);
    }
    requireRegular(status, target);
    UnfinishedWrite(m_calls, m_recoveryFolder, status).finish(target);
    const FileHandle file = FileHandle::open(m_calls, target, O_RDONLY | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    requireRegular(file.status(), target);
    file.read(take);
}

void LinuxFileAccess::writeFile(const QString &path, QByteArrayView bytes)
{
    const QByteArray target = followLinks(usablePath(path));
    struct stat found = {};
    if (m_calls.stat(target, &found) != 0) {
        if (errno != ENOENT)
            FileHandle::raise(errno, target);
        if (createFile(target, bytes))
            return;
        if (m_calls.stat(target, &found) != 0)
            FileHandle::raise(errno, target);
    }
    requireRegular(found, target);
    // Opened for writing first of all: a file that may not be written is not replaced either.
    const FileHandle old = FileHandle::open(m_calls, target, O_RDWR | O_CLOEXEC | O_NOCTTY | O_NONBLOCK | O_NOFOLLOW);
    // Another program may have put another file there in between.
    const struct stat status = old.status();
    requireRegular(status, target);
    if (status.st_nlink > 1 || !replaceFile(target, old, bytes))
        writeInPlace(target, old, bytes);
    else
        UnfinishedWrite(m_calls, m_recoveryFolder, status).drop();
}

QByteArray LinuxFileAccess::followLinks(const QByteArray &path) const
{
    QByteArray target = path;
    std::array<char, PATH_MAX> buffer{};
    for (int links = 0; links <= maximumLinks; ++links) {
        const ssize_t size = m_calls.readlink(target, buffer.data(), buffer.size());
        // Not a link, or nothing there yet. After any other error it could still be a link, which must not be replaced.
        if (size < 0 && (errno == EINVAL || errno == ENOENT))
            return target;
        if (size < 0)
            FileHandle::raise(errno, target);
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

bool LinuxFileAccess::createFile(const QByteArray &target, QByteArrayView bytes)
{
    const QByteArray folder = folderOf(target);
    struct stat status = {};
    if (m_calls.stat(folder, &status) != 0)
        raiseMissing(target);
    Draft draft = Draft::tryMake(m_calls, folder, target, 0666);
    if (!draft.file().isOpen())
        FileHandle::raise(draft.file().error(), target);
    draft.file().write(bytes);
    draft.file().sync();
    if (!draft.moveToNewTarget())
        return false;
    syncFolder(folder, target);
    return true;
}

bool LinuxFileAccess::replaceFile(const QByteArray &target, const FileHandle &old, QByteArrayView bytes)
{
    const QByteArray folder = folderOf(target);
    Draft draft = Draft::tryMake(m_calls, folder, target, 0600);
    if (!draft.file().isOpen())
        return false;
    draft.file().write(bytes);
    if (!carryAttributes(m_calls, old, draft.file()))
        return false;
    draft.file().sync();
    if (!draft.moveOverTarget())
        return false;
    syncFolder(folder, target);
    return true;
}

void LinuxFileAccess::writeInPlace(const QByteArray &target, const FileHandle &file, QByteArrayView bytes)
{
    const struct stat status = file.status();
    UnfinishedWrite copy(m_calls, m_recoveryFolder, status);
    copy.lock(file, target);
    copy.mend(file);
    const QByteArray before = file.readAll();
    copy.keep(target, before, bytes);
    try {
        reserve(target, file, before.size(), bytes.size());
        file.replaceContent(bytes);
        keepMode(file, status);
    } catch (const RuntimeError &error) {
        try {
            file.replaceContent(before);
            keepMode(file, status);
        } catch (const RuntimeError &) {
            throw RuntimeError(static_cast<RuntimeError::Number>(error.number()), error.path(),
                               keptCopyText(decodeBytes(copy.path())));
        }
        copy.drop();
        throw;
    }
    copy.drop();
}

void LinuxFileAccess::reserve(const QByteArray &target, const FileHandle &file, qsizetype before, qsizetype after)
{
    if (after <= before)
        return;
    if (uninterrupted([&] { return m_calls.fallocate(file.file(), before, after - before); }) == 0)
        return;
    // Where a file system cannot reserve space, a full disk shows while writing, and the old bytes are put back then.
    if (errno != EOPNOTSUPP && errno != ENOSYS)
        FileHandle::raise(errno, target);
}

/// An ordinary user's write takes the set-user and set-group bits away.
void LinuxFileAccess::keepMode(const FileHandle &file, const struct stat &status)
{
    if (status.st_mode & (S_ISUID | S_ISGID))
        (void)m_calls.fchmod(file.file(), status.st_mode & 07777);
}

void LinuxFileAccess::syncFolder(const QByteArray &folder, const QByteArray &target)
{
    if (const int error = FileHandle::trySyncFolder(m_calls, folder))
        FileHandle::raise(error, target,
                          QStringLiteral("The new content is in its place, but a power cut may undo it."));
}
