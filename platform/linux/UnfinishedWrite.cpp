#include "platform/linux/UnfinishedWrite.h"

#include <fcntl.h>
#include <sys/file.h>

#include <algorithm>
#include <cerrno>
#include <optional>

namespace {

// A copy begins with lines of text, so that a person who finds it can tell what it is: this one, the file's path, the
// two sizes. The old bytes and the new bytes follow.
constexpr QByteArrayView firstLine("ZentilConf: content of a file while it was written in place");

struct Content
{
    QByteArray before;
    QByteArray after;
};

std::optional<QByteArray> takeLine(QByteArray &bytes)
{
    const qsizetype end = bytes.indexOf('\0');
    if (end < 0)
        return std::nullopt;
    const QByteArray line = bytes.first(end);
    bytes.remove(0, end + 1);
    return line;
}

std::optional<Content> parseCopy(QByteArray bytes)
{
    const auto first = takeLine(bytes);
    const auto target = takeLine(bytes);
    const auto sizeBefore = takeLine(bytes);
    const auto sizeAfter = takeLine(bytes);
    if (first != firstLine || !target || !sizeBefore || !sizeAfter)
        return std::nullopt;
    const qsizetype before = sizeBefore->toLongLong();
    const qsizetype after = sizeAfter->toLongLong();
    if (before < 0 || after < 0 || before + after != bytes.size())
        return std::nullopt;
    return Content{bytes.first(before), bytes.sliced(before)};
}

/// Whether a file that cannot be opened is one that is none of this user's business, or is not there at all. Any other
/// reason may be over in a moment, and says nothing about the file.
bool isNotOurs(int error)
{
    return error == ENOENT || error == ENOTDIR || error == ELOOP || error == EACCES || error == EPERM || error == EROFS;
}

/// True for bytes that a write of content.after over content.before can have left behind, and nothing else: each byte
/// is the old one, the new one or, behind the old end, not yet written.
bool isCutOff(const QByteArray &bytes, const Content &content)
{
    const auto [shorter, longer] = std::minmax({content.before.size(), content.after.size()});
    if (bytes.size() < shorter || bytes.size() > longer || bytes == content.before || bytes == content.after)
        return false;
    for (qsizetype at = 0; at < bytes.size(); ++at) {
        const bool isOld = at < content.before.size() ? bytes[at] == content.before[at] : bytes[at] == '\0';
        const bool isNew = at < content.after.size() && bytes[at] == content.after[at];
        if (!isOld && !isNew)
            return false;
    }
    return true;
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
        const auto line = [](QByteArrayView text) { return text.toByteArray() + '\0'; };
        copy.write(line(firstLine) + line(target) + line(QByteArray::number(before.size())) +
                   line(QByteArray::number(after.size())));
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
    const std::optional<Content> content = parseCopy(copy.readAll());
    if (content && isCutOff(file.readAll(), *content))
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
