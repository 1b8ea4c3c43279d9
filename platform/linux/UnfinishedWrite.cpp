#include "platform/linux/UnfinishedWrite.h"

#include "platform/UnfinishedContent.h"

#include <fcntl.h>
#include <sys/file.h>

#include <algorithm>
#include <cerrno>
#include <optional>

namespace {

/// Whether a file that cannot be opened is one that is none of this user's business, or is not there at all. Any other
/// reason may be over in a moment, and says nothing about the file.
bool isNotOurs(int error)
{
    return error == ENOENT || error == ENOTDIR || error == ELOOP || error == EACCES || error == EPERM || error == EROFS;
}

} // namespace

UnfinishedWrite::UnfinishedWrite(SystemCalls &calls, const QByteArray &folder, const struct stat &file)
    : m_calls(calls)
    , m_folder(folder)
    , m_path(folder + '/' + QByteArray::number(quint64(file.st_dev)) + '-' + QByteArray::number(quint64(file.st_ino)))
{
}

void UnfinishedWrite::keep(const QByteArray &target, const QByteArray &before, QByteArrayView after)
{
    makeFolder(m_folder);
    // The rename is what makes the copy count: one that was itself cut off is never taken for whole.
    const QByteArray draft = m_path + ".new";
    try {
        FileHandle copy = FileHandle::open(m_calls, draft, O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0600);
        copy.write(UnfinishedContent::heading(target, before.size(), after.size()));
        copy.write(before);
        copy.write(after);
        copy.sync();
        copy.close();
        if (m_calls.rename(draft, m_path) != 0)
            FileHandle::raise(errno, m_path);
        syncFolder(m_folder);
    } catch (...) {
        (void)m_calls.unlink(draft);
        drop();
        throw;
    }
}

void UnfinishedWrite::drop()
{
    (void)m_calls.unlink(m_path);
}

void UnfinishedWrite::finish(const QByteArray &target)
{
    struct stat status = {};
    if (m_calls.stat(m_path, &status) != 0) {
        if (isNotOurs(errno))
            return;
        FileHandle::raise(errno, m_path);
    }
    const FileHandle file = FileHandle::tryOpen(m_calls, target, O_RDWR | O_CLOEXEC | O_NOCTTY | O_NONBLOCK);
    if (file.isOpen()) {
        lock(file, target);
        mend(file);
    } else if (!isNotOurs(file.error())) {
        FileHandle::raise(file.error(), target);
    }
}

void UnfinishedWrite::lock(const FileHandle &file, const QByteArray &target)
{
    // Some file systems have no locks.
    if (m_calls.flock(file.file(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK)
        FileHandle::raise(EWOULDBLOCK, target);
}

void UnfinishedWrite::mend(const FileHandle &file)
{
    const FileHandle copy = FileHandle::tryOpen(m_calls, m_path, O_RDONLY | O_CLOEXEC | O_NOFOLLOW);
    if (!copy.isOpen()) {
        if (isNotOurs(copy.error()))
            return;
        FileHandle::raise(copy.error(), m_path);
    }
    const std::optional<UnfinishedContent> content = UnfinishedContent::fromCopy(copy.readAll());
    if (content && content->isCutOff(file.readAll()))
        file.replaceContent(content->after);
    drop();
}

void UnfinishedWrite::makeFolder(const QByteArray &path)
{
    const QByteArray parent = path.first(std::max<qsizetype>(path.lastIndexOf('/'), 0));
    const auto make = [&] { return m_calls.mkdir(path, 0700) == 0 ? 0 : errno; };
    int error = make();
    if (error == ENOENT && !parent.isEmpty()) {
        makeFolder(parent);
        error = make();
    }
    if (error == EEXIST)
        return;
    if (error != 0)
        FileHandle::raise(error, path);
    syncFolder(parent.isEmpty() ? QByteArrayLiteral("/") : parent);
}

void UnfinishedWrite::syncFolder(const QByteArray &path)
{
    if (const int error = FileHandle::trySyncFolder(m_calls, path))
        FileHandle::raise(error, path);
}
