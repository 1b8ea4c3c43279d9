#include "platform/linux/Draft.h"

#include <QCryptographicHash>
#include <QRandomGenerator>

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>
#include <utility>

namespace {

bool isForbidden(int error)
{
    return error == EACCES || error == EPERM || error == EROFS;
}

constexpr int hashDigits = 16;

QByteArray nameOf(const QByteArray &folder, const QByteArray &sign)
{
    return folder + "/.zentilconf-" + sign + ".tmp";
}

/// The name that all drafts of a target have, so that the next one finds what a killed program has left.
QByteArray usualName(const QByteArray &folder, const QByteArray &target)
{
    const QByteArray name = target.sliced(target.lastIndexOf('/') + 1);
    return nameOf(folder, QCryptographicHash::hash(name, QCryptographicHash::Sha256).toHex().first(hashDigits));
}

/// For a draft beside one that another program is writing.
QByteArray uniqueName(const QByteArray &folder)
{
    return nameOf(folder, QByteArray::number(QRandomGenerator::system()->generate64(), 16));
}

/// Drafts are locked as long as somebody uses them.
bool lock(SystemCalls &calls, const FileHandle &draft)
{
    return calls.flock(draft.file(), LOCK_EX | LOCK_NB) == 0;
}

FileHandle tryCreate(SystemCalls &calls, const QByteArray &name, mode_t mode)
{
    return FileHandle::tryOpen(calls, name, O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC | O_NOFOLLOW, mode);
}

/// Whether another program has taken a new draft for abandoned, before it could be locked. Where a file system has no
/// locks, nobody takes drafts away.
bool isTakenAway(SystemCalls &calls, const FileHandle &draft)
{
    if (!lock(calls, draft))
        return errno == EWOULDBLOCK;
    struct stat status = {};
    return calls.fstat(draft.file(), &status) == 0 && status.st_nlink == 0;
}

/// Removes a draft that nobody uses any more. One that cannot be looked at or locked may be somebody's and stays.
void removeAbandoned(SystemCalls &calls, const QByteArray &name)
{
    const FileHandle found = FileHandle::tryOpen(calls, name, O_RDWR | O_CLOEXEC | O_NOCTTY | O_NONBLOCK | O_NOFOLLOW);
    struct stat opened = {};
    struct stat named = {};
    // What was opened may have got to its target before it was locked, and another draft have come in its place.
    const bool isAbandoned = found.isOpen() && lock(calls, found) && calls.fstat(found.file(), &opened) == 0 &&
                             calls.stat(name, &named) == 0 && S_ISREG(named.st_mode) && named.st_dev == opened.st_dev &&
                             named.st_ino == opened.st_ino;
    if (isAbandoned)
        (void)calls.unlink(name);
}

/// A path to an open file that has no name: proc(5).
QByteArray descriptorPath(const FileHandle &file)
{
    return "/proc/self/fd/" + QByteArray::number(file.file());
}

} // namespace

Draft::Draft(SystemCalls &calls, FileHandle &&file, const QByteArray &target, const QByteArray &name, bool isNamed)
    : m_calls(calls)
    , m_file(std::move(file))
    , m_target(target)
    , m_name(name)
    , m_isNamed(isNamed)
{
    m_file.reportAs(target);
}

Draft::Draft(Draft &&other) noexcept
    : m_calls(other.m_calls)
    , m_file(std::move(other.m_file))
    , m_target(other.m_target)
    , m_name(other.m_name)
    , m_isNamed(std::exchange(other.m_isNamed, false))
{
}

Draft::~Draft()
{
    if (m_isNamed)
        (void)m_calls.unlink(m_name);
}

Draft Draft::tryMake(SystemCalls &calls, const QByteArray &folder, const QByteArray &target, mode_t mode)
{
    const QByteArray name = usualName(folder, target);
    FileHandle nameless = FileHandle::tryOpen(calls, folder, O_TMPFILE | O_WRONLY | O_CLOEXEC, mode);
    if (isForbidden(nameless.error()))
        return {calls, std::move(nameless), target, name, false};
    struct stat status = {};
    if (nameless.isOpen() && calls.stat(descriptorPath(nameless), &status) == 0) {
        (void)lock(calls, nameless);
        return {calls, std::move(nameless), target, name, false};
    }
    // Not every file system has files without a name (which error says so differs between them), and not every
    // surrounding has the folder through which such a file gets one.
    return tryMakeNamed(calls, folder, target, mode);
}

Draft Draft::tryMakeNamed(SystemCalls &calls, const QByteArray &folder, const QByteArray &target, mode_t mode)
{
    const QByteArray name = usualName(folder, target);
    removeAbandoned(calls, name);
    FileHandle usual = tryCreate(calls, name, mode);
    if (usual.isOpen() && !isTakenAway(calls, usual))
        return {calls, std::move(usual), target, name, true};

    const QByteArray other = uniqueName(folder);
    FileHandle unique = tryCreate(calls, other, mode);
    if (!unique.isOpen() && !isForbidden(unique.error()))
        FileHandle::raise(unique.error() == ENOENT ? ENOTDIR : unique.error(), target);
    const bool isNamed = unique.isOpen();
    return {calls, std::move(unique), target, other, isNamed};
}

bool Draft::moveToNewTarget()
{
    // A name that is given to a nameless file is never an existing one's, and no other name is seen before.
    const int error = m_isNamed ? rename() : link(m_target);
    if (error != 0 && error != EEXIST)
        FileHandle::raise(error, m_target);
    return error == 0;
}

bool Draft::moveOverTarget()
{
    int error = m_isNamed ? 0 : giveName();
    if (error == 0)
        error = rename();
    // A mount point cannot be renamed over, and a folder may let files be made in it but not replaced.
    if (isForbidden(error) || error == EBUSY || error == EXDEV)
        return false;
    if (error != 0)
        FileHandle::raise(error, m_target);
    return true;
}

/// @return 0 or the error
int Draft::giveName()
{
    int error = link(m_name);
    if (error == EEXIST) {
        removeAbandoned(m_calls, m_name);
        error = link(m_name);
    }
    if (error == EEXIST) {
        m_name = uniqueName(m_name.first(m_name.lastIndexOf('/')));
        error = link(m_name);
    }
    m_isNamed = error == 0;
    return error;
}

/// @return 0 or the error
int Draft::link(const QByteArray &name)
{
    return m_calls.link(descriptorPath(m_file), name) == 0 ? 0 : errno;
}

/// The draft stays open, and so locked, until it is over. What can go wrong with its bytes, sync() has told.
/// @return 0 or the error
int Draft::rename()
{
    if (m_calls.rename(m_name, m_target) != 0)
        return errno;
    m_isNamed = false;
    return 0;
}
