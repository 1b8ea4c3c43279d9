#include "platform/linux/Draft.h"

#include <QRandomGenerator>

#include <fcntl.h>

#include <cerrno>
#include <utility>

namespace {

bool isForbidden(int error)
{
    return error == EACCES || error == EPERM || error == EROFS;
}

QByteArray draftName(const QByteArray &folder)
{
    return folder + "/.zentilconf-" + QByteArray::number(QRandomGenerator::system()->generate64(), 16) + ".tmp";
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
    const QByteArray name = draftName(folder);
    FileHandle nameless = FileHandle::tryOpen(calls, folder, O_TMPFILE | O_WRONLY | O_CLOEXEC, mode);
    if (isForbidden(nameless.error()))
        return {calls, std::move(nameless), target, name, false};
    struct stat status = {};
    if (nameless.isOpen() && calls.stat(descriptorPath(nameless), &status) == 0)
        return {calls, std::move(nameless), target, name, false};

    // Not every file system has files without a name (which error says so differs between them), and not every
    // surrounding has the folder through which such a file gets one.
    FileHandle named = FileHandle::tryOpen(calls, name, O_CREAT | O_EXCL | O_WRONLY | O_CLOEXEC | O_NOFOLLOW, mode);
    if (!named.isOpen() && !isForbidden(named.error()))
        FileHandle::raise(named.error() == ENOENT ? ENOTDIR : named.error(), target);
    const bool isNamed = named.isOpen();
    return {calls, std::move(named), target, name, isNamed};
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
    int error = 0;
    if (!m_isNamed) {
        error = link(m_name);
        m_isNamed = error == 0;
    }
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
int Draft::link(const QByteArray &name)
{
    return m_calls.link(descriptorPath(m_file), name) == 0 ? 0 : errno;
}

/// @return 0 or the error
int Draft::rename()
{
    m_file.close();
    if (m_calls.rename(m_name, m_target) != 0)
        return errno;
    m_isNamed = false;
    return 0;
}
